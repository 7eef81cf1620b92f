#include "net/transport/proxy_lookup.h"

#include "frame/platform/frame_platform.h"
#include "values/unicode/text_conversion.h"

#include <new>
#include <optional>
#include <utility>

namespace brixen::pvn {

// The look-up and the thread that asks share it, so that a thread that outlives the call still has all that
// it uses.
struct ProxyLookUp::Question {
    HttpHandle session;
    std::u16string url;
    std::optional<std::u16string> scriptUrl;
    EventHandle answered;
    std::u16string proxy; // read only after `answered`
};

namespace {

// A proxy that does not fit is none.
std::u16string Fitting(std::u16string_view proxy) {
    return std::u16string(proxy.size() <= kLongestProxy ? proxy : std::u16string_view());
}

} // namespace

std::u16string_view ProxyInSettings(std::u16string_view text) noexcept {
    constexpr std::u16string_view kForHttps = u"https=";
    constexpr std::u16string_view kAfterScheme = u"://";
    if (const std::size_t entry = text.find(kForHttps); entry != text.npos) {
        text.remove_prefix(entry + kForHttps.size());
    } else if (text.find(u'=') != text.npos) {
        return {};
    }
    if (const std::size_t scheme = text.find(kAfterScheme); scheme != text.npos)
        text.remove_prefix(scheme + kAfterScheme.size());
    const std::size_t start = text.find_first_not_of(u' ');
    if (start == text.npos || text[start] == u':') return {};
    return text.substr(start);
}

// The settings are read on the caller's thread: the system keeps them on this computer and asks nobody for
// them, and a thread for each look-up would take longer than the whole call (2 ms and more under Wine).
ProxyLookUp::ProxyLookUp(const char* url) noexcept {
    try {
        ProxySettings settings = ReadProxySettings();
        if (settings.proxy)
            proxy = Fitting(ProxyInSettings(*settings.proxy));
        else
            StartAsking(url, std::move(settings));
    } catch (const lyr::gen::illegal_utf_sequence&) { // no proxy then
    } catch (const std::bad_alloc&) {
    }
}

void ProxyLookUp::StartAsking(const char* url, ProxySettings settings) {
    std::u16string wideUrl = lyr::gen::ToUtf16(url);
    HttpHandle session(OpenLookUpSession(u"WinHTTP AutoProxy"));
    if (!session || (!settings.scriptUrl && !settings.detectsScript)) return;
    EventHandle answered(MakeEvent(nullptr));
    if (!answered) return;
    auto asked = std::make_shared<Question>(Question{
        std::move(session), std::move(wideUrl), std::move(settings.scriptUrl), std::move(answered), {}});
    auto forThread = std::make_unique<std::shared_ptr<Question>>(asked);
    const NativeThread thread = StartThread(Ask, forThread.get());
    if (!thread) return;
    static_cast<void>(forThread.release()); // belongs to the thread now
    CloseThread(thread);
    question = std::move(asked);
}

unsigned long ProxyLookUp::Ask(void* question) noexcept {
    const std::unique_ptr<std::shared_ptr<Question>> held(static_cast<std::shared_ptr<Question>*>(question));
    Question& asked = **held;
    try {
        const char16_t* const scriptUrl = asked.scriptUrl ? asked.scriptUrl->c_str() : nullptr;
        const std::optional<std::u16string> found =
            AskForProxy(asked.session.get(), asked.url.c_str(), scriptUrl);
        if (found) asked.proxy = Fitting(*found);
    } catch (const std::bad_alloc&) { // no proxy then
    }
    SignalEvent(asked.answered.get());
    return 0;
}

Status ProxyLookUp::Await(const CallLimit& limit, std::u16string& result) noexcept {
    result.clear();
    const WaitResult end = question ? limit.Await(question->answered.get()) : WaitResult::kFirst;
    if (end == WaitResult::kFirst) result = std::move(question ? question->proxy : proxy);
    return StatusOfWait(end);
}

} // namespace brixen::pvn
