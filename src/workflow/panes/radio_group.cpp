#include "workflow/panes/radio_group.h"

#include "toolkit/control_styles.h"
#include "toolkit/dialog/zeve_dialog.h"
#include "toolkit/kept_exception.h"
#include "toolkit/message_numbers.h"
#include "toolkit/platform/toolkit_platform.h"

namespace brixen::pvn::pvn_workflow {

namespace toolkit_platform = zeve::platform;
namespace style = zeve::style;

namespace {

zeve::NativeWindow ControlOf(zeve::ZeveDialog* dialog, std::uint16_t id) {
    return toolkit_platform::ChildWithId(zeve::ZeveTopWindow(dialog), id);
}

void ChangeStyle(zeve::NativeWindow control, std::uint32_t bits, bool isSet) {
    const std::uint32_t old = toolkit_platform::StyleOf(control);
    toolkit_platform::SetStyle(control, isSet ? old | bits : old & ~bits);
}

bool IsMarked(zeve::NativeWindow button) {
    return toolkit_platform::Send(button, zeve::kButtonGetCheck, 0, 0) == zeve::kChecked;
}

} // namespace

void JoinRadioButtons(zeve::ZeveDialog* dialog, RadioGroup group) {
    if (group.empty()) return;
    for (const std::uint16_t id : group) {
        const zeve::NativeWindow button = ControlOf(dialog, id);
        ChangeStyle(button, style::kButtonNotifies, true);
        ChangeStyle(button, style::kGroup, id == group.front());
    }
    // A group reaches up to the next control that begins one.
    ChangeStyle(toolkit_platform::NextSibling(ControlOf(dialog, group.back())), style::kGroup, true);
}

void MarkRadioButton(zeve::ZeveDialog* dialog, RadioGroup group, std::uint16_t marked) {
    for (const std::uint16_t id : group) {
        const zeve::NativeWindow button = ControlOf(dialog, id);
        ChangeStyle(button, style::kTabStop, id == marked);
        toolkit_platform::Send(button, zeve::kButtonSetCheck, id == marked ? zeve::kChecked : 0, 0);
    }
    zeve::ThrowKeptException();
}

std::uint16_t MarkedRadioButton(zeve::ZeveDialog* dialog, RadioGroup group) {
    for (const std::uint16_t id : group) {
        if (IsMarked(ControlOf(dialog, id))) return id;
    }
    return 0;
}

} // namespace brixen::pvn::pvn_workflow
