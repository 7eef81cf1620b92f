#include "net/platform/posix/net_twin.h"

#include "values/unicode/lenient_text.h"

#include <algorithm>
#include <condition_variable>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <new>
#include <pthread.h>
#include <utility>

struct brixen::pvn::NativeHttpTag {
    std::mutex lock;
    std::condition_variable changed;
    HttpObserver* observer = nullptr;
    bool isSent = false;
    bool isClosed = false;
    // The calls that wait for their notifications.
    bool receives = false;
    bool queries = false;
    bool reads = false;
    void* target = nullptr;
    std::uint32_t size = 0;
    std::vector<ScriptedNotice> script;
    bool readsNeedACall = true;
};

namespace brixen::pvn {
namespace {

struct Players {
    std::mutex lock;
    std::condition_variable changed;
    int running = 0;
};

Players& GetPlayers() noexcept {
    static Players players;
    return players;
}

void CountPlayers(int change) {
    const std::lock_guard guard(GetPlayers().lock);
    GetPlayers().running += change;
    GetPlayers().changed.notify_all();
}

std::string Narrow(const char16_t* text) { return text ? lyr::gen::LenientUtf8(text) : "-"; }

NativeHttp NewHandle() noexcept {
    const NativeHttp handle = new (std::nothrow) NativeHttpTag;
    if (handle) CountNetHandles(1);
    return handle;
}

// Whether the call was made that the notification answers.
bool IsDue(const NativeHttpTag& request, const ScriptedNotice& scripted) {
    switch (scripted.notice) {
    case HttpNotice::kHeaders: return request.receives;
    case HttpNotice::kDataAvailable: return request.queries;
    case HttpNotice::kRead: return request.reads || !request.readsNeedACall;
    default: return request.isSent;
    }
}

// Waits until the notification is due. Returns false for one that is not played any more.
bool AwaitTurn(NativeHttpTag& request, const ScriptedNotice& scripted) {
    std::unique_lock guard(request.lock);
    request.changed.wait(guard,
                         [&] { return request.isClosed || (!scripted.isLate && IsDue(request, scripted)); });
    return request.isClosed ? scripted.isLate && IsDue(request, scripted) : true;
}

// Does what the system does before it notifies.
void Prepare(NativeHttpTag& request, const ScriptedNotice& scripted) {
    const std::lock_guard guard(request.lock);
    if (scripted.notice == HttpNotice::kHeaders) request.receives = false;
    if (scripted.notice == HttpNotice::kDataAvailable) request.queries = false;
    if (scripted.notice != HttpNotice::kRead || !std::exchange(request.reads, false)) return;
    std::memcpy(request.target, scripted.bytes.data(),
                std::min<std::size_t>(scripted.bytes.size(), request.size));
}

void* Play(void* argument) {
    const std::unique_ptr<NativeHttpTag> request(static_cast<NativeHttp>(argument));
    for (const ScriptedNotice& scripted : request->script) {
        if (!AwaitTurn(*request, scripted)) continue;
        if (scripted.before) scripted.before();
        Prepare(*request, scripted);
        const bool isRead = scripted.notice == HttpNotice::kRead;
        request->observer->OnNotice(request.get(), scripted.notice,
                                    isRead ? static_cast<std::uint32_t>(scripted.bytes.size())
                                           : scripted.number);
    }
    {
        std::unique_lock guard(request->lock);
        request->changed.wait(guard, [&] { return request->isClosed; });
    }
    request->observer->OnNotice(request.get(), HttpNotice::kClosed, 0);
    CountPlayers(-1);
    return nullptr;
}

// Records a step of the request, makes the change and wakes the player.
template <class Change>
void Step(NativeHttp request, const std::string& call, Change change) {
    if (IsNetCallRefused(call)) return;
    const std::lock_guard guard(request->lock);
    change(*request);
    request->changed.notify_all();
}

} // namespace

void AwaitClosedRequests() {
    std::unique_lock guard(GetPlayers().lock);
    GetPlayers().changed.wait(guard, [] { return GetPlayers().running == 0; });
}

NativeHttp OpenSession(const char16_t* agent, const char16_t* proxy) noexcept {
    return IsNetCallRefused("OpenSession " + Narrow(agent) + " " + Narrow(proxy)) ? nullptr : NewHandle();
}

NativeHttp OpenLookUpSession(const char16_t* agent) noexcept {
    return IsNetCallRefused("OpenLookUpSession " + Narrow(agent)) ? nullptr : NewHandle();
}

NativeHttp OpenConnection(NativeHttp, const char16_t* host, std::uint16_t port) noexcept {
    return IsNetCallRefused("OpenConnection " + Narrow(host) + " " + std::to_string(port)) ? nullptr
                                                                                           : NewHandle();
}

NativeHttp OpenRequest(NativeHttp, const char16_t* verb, const char16_t* path, bool isSecure) noexcept {
    const std::string call = "OpenRequest " + Narrow(verb) + " " + Narrow(path) + (isSecure ? " secure" : "");
    return IsNetCallRefused(call) ? nullptr : NewHandle();
}

// The thread of the player frees the handle of an observed request.
void CloseHttp(NativeHttp handle) noexcept {
    RecordNetCall("CloseHttp");
    CountNetHandles(-1);
    {
        const std::lock_guard guard(handle->lock);
        handle->isClosed = true;
        handle->changed.notify_all();
        if (handle->observer) return;
    }
    delete handle;
}

void SetPhaseLimits(NativeHttp, std::uint32_t milliseconds) noexcept {
    RecordNetCall("SetPhaseLimits " + std::to_string(milliseconds));
}

void AddHeader(NativeHttp, const char16_t* line) noexcept { RecordNetCall("AddHeader " + Narrow(line)); }

bool ObserveRequest(NativeHttp request, HttpObserver& observer) noexcept {
    if (IsNetCallRefused("ObserveRequest")) return false;
    request->script = GetNetTwin().script;
    request->readsNeedACall = GetNetTwin().readsNeedACall;
    CountPlayers(1);
    request->observer = &observer;
    pthread_t thread;
    if (pthread_create(&thread, nullptr, Play, request) != 0) std::abort();
    pthread_detach(thread);
    return true;
}

void SendRequest(NativeHttp request, HttpObserver&, std::string_view body) noexcept {
    if (const auto& onSend = GetNetTwin().onSend) onSend(body);
    Step(request, "SendRequest " + std::string(body), [](NativeHttpTag& http) { http.isSent = true; });
}

void ReceiveResponse(NativeHttp request) noexcept {
    if (const auto& onReceive = GetNetTwin().onReceive) onReceive();
    Step(request, "ReceiveResponse", [](NativeHttpTag& http) { http.receives = true; });
}

void QueryDataAvailable(NativeHttp request) noexcept {
    Step(request, "QueryDataAvailable", [](NativeHttpTag& http) { http.queries = true; });
}

void ReadData(NativeHttp request, void* out, std::uint32_t size) noexcept {
    Step(request, "ReadData " + std::to_string(size), [out, size](NativeHttpTag& http) {
        http.reads = true;
        http.target = out;
        http.size = size;
    });
}

} // namespace brixen::pvn
