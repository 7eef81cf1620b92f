#include "workflow/panes/pane_helpers.h"

#include "dictionaries/translation.h"
#include "toolkit/control_styles.h"
#include "toolkit/dialog/zeve_dialog.h"
#include "toolkit/event_record.h"
#include "toolkit/kept_exception.h"
#include "toolkit/message_numbers.h"
#include "toolkit/platform/toolkit_platform.h"
#include "values/unicode/character_borders.h"
#include "values/unicode/text_conversion.h"
#include "workflow/platform/message_numbers.h"

namespace brixen::pvn::pvn_workflow {

using zeve::NativeWindow;
namespace toolkit_platform = zeve::platform;

namespace {

constexpr std::uint32_t kNormalButton = zeve::style::kChild | zeve::style::kTabStop;
constexpr std::uint32_t kDefaultButton = kNormalButton | zeve::style::kDefaultPushButton;
constexpr std::uint32_t kStaticKind = 0x1F; // SS_TYPEMASK
constexpr std::size_t kTitleUnits = 255;

NativeWindow ControlOf(zeve::ZeveDialog* dialog, std::uint16_t viewId) {
    return toolkit_platform::ChildWithId(zeve::ZeveTopWindow(dialog), viewId);
}

// Whether the control is a static text, and no picture and no link.
bool IsLabel(NativeWindow control) {
    const std::uint32_t style = toolkit_platform::StyleOf(control);
    return toolkit_platform::IsOfClass(control, u"static") &&
           (style & kStaticKind) <= zeve::style::kStaticRight && (style & kStaticNotify) == 0;
}

void MakeButton(zeve::ZeveDialog* dialog, std::uint16_t viewId, std::uint32_t style) {
    const NativeWindow control = ControlOf(dialog, viewId);
    toolkit_platform::SetStyle(control, style);
    toolkit_platform::Focus(control);
    toolkit_platform::Post(zeve::ZeveTopWindow(dialog), zeve::kMessageSetFocus, 0, 0);
    zeve::ThrowKeptException();
}

} // namespace

void SetWindowTitle(const std::string& key, NativeWindow window) {
    std::string title = zeve::ZeveTranslate("$$$/pvn/dlg/common/window_title/prefix");
    title += zeve::ZeveTranslate(key.empty() ? std::string_view("$$$/pvn/common/window_title") : key);
    std::u16string wide = lyr::gen::ToUtf16(title, true);
    wide.resize(lyr::gen::CutToUnits(wide, kTitleUnits).size());
    toolkit_platform::SetText(window, wide.c_str());
}

void SetControlText(zeve::ZeveDialog* dialog, std::uint16_t viewId, const std::string& text) {
    zeve::EventRecord record;
    record.StorePointer(zeve::kKeySetValue, text.c_str());
    zeve::ZeveSetValue(dialog, viewId, record);
}

void MakeDefaultButton(zeve::ZeveDialog* dialog, std::uint16_t viewId) {
    MakeButton(dialog, viewId, kDefaultButton);
}

void MakeNormalButton(zeve::ZeveDialog* dialog, std::uint16_t viewId) {
    MakeButton(dialog, viewId, kNormalButton);
    toolkit_platform::Send(zeve::ZeveTopWindow(dialog), zeve::kMessageActivate, 1, 0);
    zeve::ThrowKeptException();
}

void NameSubCheck(zeve::ZeveDialog* dialog, std::uint16_t viewId, const std::string& text) {
    const NativeWindow check = zeve::ZeveSubControl(dialog, viewId);
    toolkit_platform::SetText(check, lyr::gen::ToUtf16(text, true).c_str());
    const NativeWindow field = ControlOf(dialog, viewId);
    const NativeWindow label = toolkit_platform::PreviousSibling(field);
    // The label names the field only if nothing is between them.
    toolkit_platform::PutBefore(check, IsLabel(label) ? label : field);
}

void PlaceSubCheck(zeve::ZeveDialog* dialog, std::uint16_t viewId, bool isRightToLeft) {
    const NativeWindow check = zeve::ZeveSubControl(dialog, viewId), field = ControlOf(dialog, viewId);
    const toolkit_platform::Rectangle mark = toolkit_platform::FrameInParent(check);
    const toolkit_platform::Rectangle old = toolkit_platform::FrameInParent(field);
    const std::int32_t top = old.top + (old.Height() - mark.Height()) / 2;
    const std::int32_t left = isRightToLeft ? old.right - mark.Width() : mark.left;
    toolkit_platform::MoveTo(check, left, top, mark.Width(), mark.Height());
    if (isRightToLeft) toolkit_platform::MoveTo(field, mark.left, old.top, old.Width(), old.Height());
}

bool IsSubCheckSet(zeve::ZeveDialog* dialog, std::uint16_t viewId) {
    return toolkit_platform::Send(zeve::ZeveSubControl(dialog, viewId), zeve::kButtonGetCheck, 0, 0) ==
           zeve::kChecked;
}

// An access key leads from its label to the next control that can take the focus.
void FollowSubCheck(zeve::ZeveDialog* dialog, std::uint16_t viewId) {
    const NativeWindow check = zeve::ZeveSubControl(dialog, viewId), field = ControlOf(dialog, viewId);
    if (!check || !field) return;
    const bool isSet = IsSubCheckSet(dialog, viewId);
    toolkit_platform::PutBefore(check, field);
    const NativeWindow label = toolkit_platform::PreviousSibling(check);
    if (isSet && IsLabel(label)) toolkit_platform::PutBefore(check, label);
    if (!isSet && toolkit_platform::FocusedWindow() == field) toolkit_platform::Focus(check);
    toolkit_platform::Enable(field, isSet);
    zeve::ThrowKeptException();
}

void AddTabStop(zeve::ZeveDialog* dialog, std::uint16_t viewId) {
    const NativeWindow control = ControlOf(dialog, viewId);
    toolkit_platform::SetStyle(control, toolkit_platform::StyleOf(control) | zeve::style::kTabStop);
}

void SetVisible(zeve::ZeveDialog* dialog, std::uint16_t viewId, bool visible) {
    visible ? zeve::ZeveShow(dialog, viewId) : zeve::ZeveHide(dialog, viewId);
}

void SetEnabled(zeve::ZeveDialog* dialog, std::uint16_t viewId, bool enabled) {
    enabled ? zeve::ZeveEnable(dialog, viewId) : zeve::ZeveDisable(dialog, viewId);
}

} // namespace brixen::pvn::pvn_workflow
