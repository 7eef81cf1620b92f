#include "net/platform/posix/net_twin.h"

#include "values/unicode/lenient_text.h"

#include <atomic>
#include <mutex>

namespace brixen::pvn {
namespace {

struct Records {
    std::mutex lock;
    std::vector<std::string> calls;
    std::atomic<int> handles = 0;
};

Records& GetRecords() noexcept {
    static Records records;
    return records;
}

std::string Narrow(const char16_t* text) { return text ? lyr::gen::LenientUtf8(text) : "-"; }

} // namespace

NetTwin& GetNetTwin() noexcept {
    static NetTwin twin;
    return twin;
}

void ResetNetTwin() {
    AwaitClosedRequests();
    GetNetTwin() = {};
    const std::lock_guard guard(GetRecords().lock);
    GetRecords().calls.clear();
}

std::vector<std::string> NetTwinCalls() {
    const std::lock_guard guard(GetRecords().lock);
    return GetRecords().calls;
}

int OpenNetHandles() noexcept { return GetRecords().handles; }
void CountNetHandles(int change) noexcept { GetRecords().handles += change; }

void RecordNetCall(const std::string& call) {
    const std::lock_guard guard(GetRecords().lock);
    GetRecords().calls.push_back(call);
}

bool IsNetCallRefused(const std::string& call) {
    RecordNetCall(call);
    return call.substr(0, call.find(' ')) == GetNetTwin().refusedCall;
}

std::uint32_t LastSystemError() noexcept { return GetNetTwin().error; }

UrlParts SplitUrl(const char16_t* url) {
    return IsNetCallRefused("SplitUrl " + Narrow(url)) ? UrlParts{} : GetNetTwin().urlParts;
}

ProxySettings ReadProxySettings() {
    return IsNetCallRefused("ReadProxySettings") ? ProxySettings{} : GetNetTwin().settings;
}

std::optional<std::u16string> AskForProxy(NativeHttp, const char16_t* url, const char16_t* scriptUrl) {
    const std::function<void()> wait = GetNetTwin().whileAsked;
    const std::optional<std::u16string> answer = GetNetTwin().proxyForUrl;
    const bool isRefused = IsNetCallRefused("AskForProxy " + Narrow(url) + " " + Narrow(scriptUrl));
    if (wait) wait();
    return isRefused ? std::nullopt : answer;
}

} // namespace brixen::pvn
