#include "workflow/service/service_call.h"

#include "net/envelope/method_call.h"
#include "net/envelope/method_response.h"
#include "net/transport/http_send.h"
#include "net/transport/this_computer.h"
#include "values/unicode/ascii.h"
#include "workflow/context/context_keys.h"

#include <algorithm>
#include <charconv>

namespace brixen::pvn::pvn_workflow {

namespace {

constexpr char kRequestParam[] = "request";
constexpr char kResponseParam[] = "response";
constexpr std::string_view kStatusParam = "status";
constexpr std::string_view kStatusType = "integer";

constexpr std::size_t kReplyDigits = 5;

// The whole text decides. No number has more digits or a leading zero.
Status StatusOfText(std::string_view text) {
    if (text == "0") return kStatusSuccess;
    if (text.size() != kReplyDigits) return kStatusUnexpectedContent;
    std::uint32_t number = 0; // wider than a status, so that nothing is cut
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    const bool isReply = error == std::errc() && stop == end && number <= kLastServiceReply &&
                         IsServiceReply(static_cast<Status>(number));
    return isReply ? static_cast<Status>(number) : kStatusUnexpectedContent;
}

Status ReadAnswer(const std::string& response, std::string& answer) {
    Status status = ReadServiceStatus(response);
    if (status == kStatusSuccess) {
        status = ReadPayloadResponse(response.c_str(), kResponseParam, answer);
    }
    if (status == kStatusUnexpectedContent) LogUnknownResponse(response);
    return status;
}

bool SkipPrefix(std::string_view& text, std::string_view prefix) {
    const bool isThere =
        std::ranges::equal(text.substr(0, prefix.size()), prefix, {}, lyr::gen::ToAsciiLower<char>);
    if (isThere) text.remove_prefix(prefix.size());
    return isThere;
}

// A reader of URLs may see another host in these, or drop them.
bool IsSuspect(char byte) { return byte <= ' ' || byte > '~' || byte == '@' || byte == '\\'; }

} // namespace

bool IsAllowedAddress(std::string_view url) {
    const bool isSecure = SkipPrefix(url, "https://");
    if (!isSecure && !SkipPrefix(url, "http://")) return false;
    const std::string_view host = url.substr(0, url.find_first_of("/?#"));
    if (host.empty() || std::ranges::any_of(host, IsSuspect)) return false;
    return isSecure || IsThisComputer(host);
}

Status ReadServiceStatus(const std::string& response) {
    PVN_RPCParamVector params;
    if (ParseMethodResponse(response.c_str(), params) != kResponseParsed) return kStatusUnexpectedContent;
    const auto found = std::ranges::find_if(params, [](const PVN_RPCParam* param) {
        return param->GetName() == kStatusParam && param->GetType() == kStatusType;
    });
    return found != params.end() ? StatusOfText((*found)->GetValue()) : kStatusSuccess;
}

Status RefuseAnswer(const std::string& answer) noexcept {
    LogUnknownResponse(answer);
    return kStatusUnexpectedContent;
}

Status CallService(T_StorageInterface& workerBag, const char* method, const std::string& payload,
                   std::string& answer, const WorkerNotifier& notifier) {
    answer.clear();
    std::string url;
    GetString(workerBag, PvnWFKey_ServiceUrl, url);
    if (!IsAllowedAddress(url)) return kStatusInvalidUrl;
    std::string call;
    if (const Status status = BuildPayloadCall(payload.c_str(), method, kRequestParam, call)) return status;
    CommunicationDetail detail;
    if (const Status status = ReadCommunicationDetail(detail, workerBag)) return status;
    if (!notifier.Report(1)) return kStatusCallCanceled;
    std::string response;
    if (const Status status = PVN_HTTPSend(url.c_str(), detail, call.c_str(), response)) return status;
    return ReadAnswer(response, answer);
}

} // namespace brixen::pvn::pvn_workflow
