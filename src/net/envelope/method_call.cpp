#include "net/envelope/method_call.h"

#include <cstring>
#include <string_view>

namespace brixen::pvn {
namespace {

constexpr std::string_view kBeforeMethod = "<?xml version=\"1.0\"?>\n"
                                           "<methodCall>\n"
                                           "    <methodName>";
constexpr std::string_view kBeforeParams = "</methodName>\n"
                                           "    <params>\n";
constexpr std::string_view kBeforeName = "        <param>\n"
                                         "            <name>";
constexpr std::string_view kBeforeType = "</name>\n"
                                         "            <value><";
constexpr std::string_view kBeforeEndOfType = "</";
constexpr std::string_view kAfterType = "></value>\n"
                                        "        </param>\n";
constexpr std::string_view kAfterParams = "    </params>\n"
                                          "</methodCall>\n";

// Calls `put` with each piece of a call, in their order.
template <class Put>
void ForEachPiece(std::string_view methodName, const PVN_RPCParamVector& params, Put put) {
    put(kBeforeMethod);
    put(methodName);
    put(kBeforeParams);
    for (const PVN_RPCParam* const param : params) {
        const std::string_view type = param->GetType();
        put(kBeforeName);
        put(param->GetName());
        put(kBeforeType);
        put(type);
        put(">");
        put(param->GetValue());
        put(kBeforeEndOfType);
        put(type);
        put(kAfterType);
    }
    put(kAfterParams);
}

} // namespace

int WriteMethodCall(const char* methodName, const PVN_RPCParamVector& params, std::string& out) {
    const std::string_view method = methodName ? methodName : "";
    std::size_t length = 0;
    ForEachPiece(method, params, [&](std::string_view piece) { length += piece.size(); });
    out.clear();
    out.reserve(length);
    ForEachPiece(method, params, [&](std::string_view piece) { out += piece; });
    return 0;
}

Status BuildPayloadCall(const char* payload, const char* methodName, const char* requestParamName,
                        std::string& out) {
    out.clear();
    const std::size_t length = payload ? std::strlen(payload) : 0;
    PVN_RPCUtf8Param param(requestParamName, payload, static_cast<std::ptrdiff_t>(length));
    if (length > 0 && !param.IsValid()) return kStatusNoMemory;
    PVN_RPCParamVector params;
    params.push_back(&param);
    return static_cast<Status>(WriteMethodCall(methodName, params, out));
}

} // namespace brixen::pvn
