#include "unit/toolkit/dialog/dialog_fixture.h"

#include "toolkit/message_numbers.h"
#include "toolkit/toolkit_state.h"

#include <algorithm>
#include <iterator>

namespace brixen::zeve {

namespace {

void ResetProcess() {
    headless::Reset();
    ResetToolkit();
}

std::int64_t NumberOr0(const EventRecord& record, std::string_view key) {
    return record.Has(key) ? record.Read(key) : 0;
}

NativeWindow WindowOrNull(const EventRecord& record, std::string_view key) {
    return record.Has(key) ? record.ReadPointer<NativeWindow>(key) : nullptr;
}

HeardEvent Note(std::int32_t what, const EventRecord& record) {
    HeardEvent event;
    event.what = what;
    event.message = static_cast<std::uint32_t>(NumberOr0(record, kKeyEventRecord));
    event.wparam = static_cast<std::uintptr_t>(NumberOr0(record, kKeyWparam));
    event.lparam = static_cast<std::intptr_t>(NumberOr0(record, kKeyLparam));
    event.window = WindowOrNull(record, kKeyWindow);
    event.control = WindowOrNull(record, kKeyControl);
    event.subControl = WindowOrNull(record, kKeySubControl);
    if (record.Has(kKeyWhat)) event.keyword = record.ReadPointer<const char*>(kKeyWhat);
    return event;
}

std::uint64_t UsualAnswer(const HeardEvent& event) {
    if (event.what != kWhatMessage || event.message != kMessageCommand) return kAnswerDefault;
    if (event.wparam == 1) return kAnswerEndPositive;
    return event.wparam == 2 ? kAnswerEndNegative : kAnswerDefault;
}

} // namespace

std::uint64_t TestHost::Callback(std::int32_t what, EventRecord& record, void* params) {
    auto& host = *static_cast<TestHost*>(params);
    host.events.push_back(Note(what, record));
    return host.answer ? host.answer(what, record) : UsualAnswer(host.events.back());
}

std::vector<HeardEvent> TestHost::Messages(std::uint32_t number) const {
    std::vector<HeardEvent> found;
    std::copy_if(events.begin(), events.end(), std::back_inserter(found), [number](const HeardEvent& event) {
        return event.what == kWhatMessage && event.message == number;
    });
    return found;
}

std::vector<HeardEvent> TestHost::OfWhat(std::int32_t what) const {
    std::vector<HeardEvent> found;
    std::copy_if(events.begin(), events.end(), std::back_inserter(found),
                 [what](const HeardEvent& event) { return event.what == what; });
    return found;
}

DialogTest::DialogTest() { ResetProcess(); }

DialogTest::~DialogTest() { ResetProcess(); }

DialogOwner NewDialog(const char* view, NativeWindow parent) {
    ZeveInitRecord record;
    record.callback = &TestHost::Callback;
    record.parentWindow = parent;
    DialogOwner dialog(ZeveNew(&record));
    ZeveAddViewText(dialog.get(), view);
    return dialog;
}

DialogOwner MadeDialog(TestHost& host, const char* view, NativeWindow parent) {
    DialogOwner dialog = NewDialog(view, parent);
    (void)ZeveMakeDialog(dialog.get(), &host);
    return dialog;
}

NativeWindow PlainWindow() { return platform::MakeWindow({}); }

} // namespace brixen::zeve
