#include "toolkit/boxes/eve_box.h"

#include "dictionaries/translation.h"
#include "toolkit/boxes/box_attributes.h"
#include "toolkit/boxes/box_font.h"
#include "toolkit/control_styles.h"
#include "toolkit/layout/layout.h"
#include "toolkit/message_numbers.h"
#include "toolkit/platform/toolkit_platform.h"
#include "values/unicode/text_conversion.h"

#include <utility>

namespace brixen::zeve {

namespace {

std::int16_t ShortNumber(const CExpressionScope& attributes, const ScopeName& name) {
    return CutTo16(attributes.GetLongOr(name, 0));
}

std::uint16_t ControlId(const CExpressionScope& attributes, const ScopeName& name) {
    return static_cast<std::uint16_t>(attributes.GetLongOr(name, 0));
}

void DeleteIconOf(NativeWindow control) noexcept {
    if (!control || !(platform::StyleOf(control) & style::kMayHoldAnIcon)) return;
    const std::intptr_t icon = platform::Send(control, kStaticGetImage, kImageIcon, 0);
    if (icon) platform::DeleteIcon(reinterpret_cast<NativeIcon>(icon));
}

} // namespace

CEveBox::~CEveBox() { TearDown(); }

void CEveBox::TearDown() noexcept {
    DeleteIconOf(std::exchange(control, nullptr));
    while (!children.empty()) children.pop_front();
    if (window) platform::CloseWindow(std::exchange(window, nullptr));
    for (const NativeFont ofBox : fontsOfTree) platform::DeleteFont(ofBox);
    fontsOfTree.clear();
}

void CEveBox::Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) {
    SetFontLanguage(viewAttributes.GetStringOr("__languageInfo"_name, ""));
    CopyBooleans(attributes, viewAttributes, {"visible"_name, "enabled"_name});
    CopyNumbers(attributes, viewAttributes,
                {"font_size"_name, "font_style"_name, "win_style"_name, "win_ex_style"_name});
}

CEveBox* CEveBox::Create(CExpressionScope& attributes, CEveBox* parentBox) {
    Bind(attributes, parentBox);
    return this;
}

void CEveBox::Bind(CExpressionScope& attributes, CEveBox* parentBox) {
    top = ShortNumber(attributes, "top"_name);
    left = ShortNumber(attributes, "left"_name);
    height = ShortNumber(attributes, "height"_name);
    width = ShortNumber(attributes, "width"_name);
    if (parentBox) BindToParent(parentBox);
    if (top > kOffscreenDistance) top = CutTo16(top - kOffscreenDistance);

    nameKey = attributes.GetStringOr("name"_name, "");
    nameText = ShownText(nameKey);
    viewId = ControlId(attributes, "view_id"_name);
    subViewId = ControlId(attributes, "sub_view_id"_name);
    readOnly = attributes.GetBooleanOr("__read_only_mode"_name, false) ||
               attributes.GetBooleanOr("locked"_name, false);
    visible = attributes.GetBooleanOr("visible"_name, true);
    enabled = attributes.GetBooleanOr("enabled"_name, true);
    honoursReadOnly = attributes.GetBooleanOr("locked"_name, honoursReadOnly);
    checkBoxAware = attributes.GetBooleanOr("check_box_aware"_name, false);
}

void CEveBox::SetTextById(std::string_view text) const {
    if (!control) return;
    platform::SetControlText(platform::TopLevelOf(control), viewId, lyr::gen::ToUtf16(text, true).c_str());
}

std::string CEveBox::TextById() const {
    if (!control) return {};
    return lyr::gen::ToUtf8(platform::ControlText(platform::TopLevelOf(control), viewId), true);
}

void CEveBox::BindToParent(CEveBox* parentBox) {
    // The list entry is made first, so that nothing can fail between owning and setting `parent`.
    parentBox->children.emplace_back();
    parentBox->children.back().reset(this);
    parent = parentBox;
    top = CutTo16(top + parent->top);
    left = CutTo16(left + parent->left);
}

void CEveBox::SetValue(const EventRecord&) {}

void CEveBox::SetSubCheck(bool checked) {
    platform::Send(subControl, kButtonSetCheck, checked ? kChecked : 0, 0);
}

void CEveBox::GetValue(EventRecord&, bool) {}

bool CEveBox::GetSubCheck() {
    return subControl && platform::Send(subControl, kButtonGetCheck, 0, 0) == kChecked;
}

void CEveBox::SetVisible(bool isVisible) {
    visible = isVisible;
    const CEveBox* ancestor = parent;
    while (ancestor && ancestor->visible) ancestor = ancestor->parent;
    ApplyShowState(!ancestor);
}

void CEveBox::SetEnabled(bool isEnabled) {
    enabled = isEnabled;
    const CEveBox* ancestor = parent;
    while (ancestor && ancestor->enabled && !ancestor->IsDisabledAsReadOnly()) ancestor = ancestor->parent;
    ApplyEnableState(!ancestor);
}

void CEveBox::EnableSubCheck() {
    if (subControl && !IsDisabledAsReadOnly()) platform::Enable(subControl, true);
}

void CEveBox::DisableSubCheck() {
    if (subControl) platform::Enable(subControl, false);
}

void CEveBox::RefreshText() { platform::SetText(control, lyr::gen::ToUtf16(nameText, true).c_str()); }

NativeWindow CEveBox::TopLevelWindow() const {
    const CEveBox* box = this;
    while (!box->window && box->parent) box = box->parent;
    return box->window;
}

CEveBox& CEveBox::Root() {
    CEveBox* box = this;
    while (box->parent) box = box->parent;
    return *box;
}

CEveBox* CEveBox::FindByViewId(std::uint16_t id) {
    if (viewId == id) return this;
    for (const auto& child : children) {
        if (CEveBox* found = child->FindByViewId(id)) return found;
    }
    return nullptr;
}

void CEveBox::ApplyShowState(bool inherited) {
    const bool shown = inherited && visible;
    if (control) platform::ShowOrHide(control, shown);
    for (const auto& child : children) {
        if (child->visible) child->ApplyShowState(shown);
    }
}

void CEveBox::ApplyEnableState(bool inherited) {
    const bool usable = inherited && enabled && !IsDisabledAsReadOnly();
    if (control) platform::Enable(control, usable);
    for (const auto& child : children) {
        if (child->enabled) child->ApplyEnableState(usable);
    }
}

void CEveBox::Retranslate() {
    if (!nameKey.empty()) nameText = ShownText(nameKey);
    RefreshText();
    for (const auto& child : children) child->Retranslate();
}

} // namespace brixen::zeve
