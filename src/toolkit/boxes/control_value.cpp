#include "toolkit/boxes/control_value.h"

#include "toolkit/boxes/eve_box.h"
#include "toolkit/event_record.h"
#include "toolkit/platform/toolkit_platform.h"
#include "toolkit/wide_text.h"

#include <algorithm>
#include <memory>

namespace brixen::zeve {

void SetTextById(const CEveBox& box, std::string_view text) {
    if (!box.control) return;
    platform::SetControlText(platform::TopLevelOf(box.control), box.viewId, WideText(text).c_str());
}

std::string TextById(const CEveBox& box) {
    if (!box.control) return {};
    return NarrowText(platform::ControlText(platform::TopLevelOf(box.control), box.viewId));
}

std::string_view RecordText(const char* text) { return text ? text : ""; }

void StoreNewText(EventRecord& record, std::string_view text) {
    if (text.empty()) return;
    auto copy = std::make_unique<char[]>(text.size() + 1); // ends with NUL
    std::copy(text.begin(), text.end(), copy.get());
    record.StorePointer(kKeyValueString, copy.get());
    copy.release(); // the reader of the record owns it now
}

} // namespace brixen::zeve
