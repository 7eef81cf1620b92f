#include "net/transport/proxy_lookup.h"

#include "frame/platform/frame_platform.h"
#include "values/unicode/text_conversion.h"

#include <memory>
#include <new>
#include <utility>

namespace brixen::pvn {
namespace {

// A question to a configuration script. The caller and the thread that asks share it, so that a thread that
// outlives the call still has all that it uses.
struct Question {
    HttpHandle session;
    std::u16string url;
    std::optional<std::u16string> scriptUrl;
    EventHandle answered;
    std::optional<std::u16string> proxy; // the caller reads it only after `answered`
};
using SharedQuestion = std::shared_ptr<Question>;

unsigned long Ask(void* argument) {
    const std::unique_ptr<SharedQuestion> held(static_cast<SharedQuestion*>(argument));
    Question& question = **held;
    try {
        const char16_t* const scriptUrl = question.scriptUrl ? question.scriptUrl->c_str() : nullptr;
        question.proxy = AskForProxy(question.session.get(), question.url.c_str(), scriptUrl);
    } catch (const std::bad_alloc&) { // no proxy then
    }
    SignalEvent(question.answered.get());
    return 0;
}

bool StartAsking(const SharedQuestion& question) {
    auto forThread = std::make_unique<SharedQuestion>(question);
    const NativeThread thread = StartThread(Ask, forThread.get());
    if (!thread) return false;
    static_cast<void>(forThread.release()); // belongs to the thread now
    CloseThread(thread);
    return true;
}

std::optional<std::u16string> WideUrl(const char* url) {
    try {
        return lyr::gen::ToUtf16(url);
    } catch (const lyr::gen::illegal_utf_sequence&) {
        return std::nullopt;
    }
}

// Asks the script of the settings, if there is one.
Status AskScript(const char* url, ProxySettings settings, const CallLimit& limit,
                 std::optional<std::u16string>& proxy) {
    std::optional<std::u16string> wideUrl = WideUrl(url);
    if (!wideUrl) return kStatusSuccess;
    HttpHandle session(OpenLookUpSession(u"WinHTTP AutoProxy"));
    if (!session || (!settings.scriptUrl && !settings.detectsScript)) return kStatusSuccess;
    const auto question = std::make_shared<Question>();
    question->session = std::move(session);
    question->url = std::move(*wideUrl);
    question->scriptUrl = std::move(settings.scriptUrl);
    question->answered.reset(MakeEvent(nullptr));
    if (!question->answered || !StartAsking(question)) return kStatusSuccess;
    const WaitResult end = limit.Await(question->answered.get());
    if (end == WaitResult::kFirst) proxy = std::move(question->proxy);
    return StatusOfWait(end);
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

Status LookUpSystemProxy(const char* url, const CallLimit& limit, std::u16string& proxy) {
    proxy.clear();
    ProxySettings settings = ReadProxySettings();
    std::optional<std::u16string> found;
    Status status = kStatusSuccess;
    if (settings.proxy)
        found = ProxyInSettings(*settings.proxy);
    else
        status = AskScript(url, std::move(settings), limit, found);
    if (found && found->size() <= kLongestProxy) proxy = std::move(*found);
    return status;
}

} // namespace brixen::pvn
