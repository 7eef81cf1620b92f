#include "toolkit/boxes/control_maker.h"

#include "toolkit/boxes/box_attributes.h"
#include "toolkit/boxes/box_font.h"
#include "toolkit/boxes/eve_box.h"
#include "toolkit/control_styles.h"
#include "toolkit/kept_exception.h"
#include "toolkit/language_tag.h"
#include "toolkit/message_numbers.h"
#include "toolkit/platform/toolkit_platform.h"
#include "toolkit/toolkit_state.h"
#include "toolkit/view_constants.h"
#include "values/unicode/ascii.h"
#include "values/unicode/text_conversion.h"
#include "view/scope/expression_scope.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <string_view>

namespace brixen::zeve {

namespace {

constexpr std::int16_t kSubCheckRoom = 30;
constexpr std::int32_t kSubCheckSize = 15;
constexpr std::uint32_t kIconControl = style::kChild | style::kStaticIcon;

NativeModule Instance(const CExpressionScope& attributes) {
    return ReferenceFrom<NativeModuleTag>(attributes.GetLongOr("__hInstance"_name, 0));
}

std::string NarrowClassName(std::u16string_view className) {
    std::string name;
    for (const char16_t unit : className) name.push_back(static_cast<char>(unit));
    return name;
}

bool IsClass(std::u16string_view className, std::u16string_view lowerCaseName) {
    return std::equal(className.begin(), className.end(), lowerCaseName.begin(), lowerCaseName.end(),
                      [](char16_t left, char16_t right) { return lyr::gen::ToAsciiLower(left) == right; });
}

// Whether a right-to-left language leaves the alignment alone: for frames, bitmaps and plain push buttons.
bool KeepsAlignment(const ControlKind& kind) {
    if (IsClass(kind.className, u"static")) return kind.style & style::kStaticFrames;
    if (IsClass(kind.className, u"button")) return !(kind.style & style::kButtonKinds);
    return false;
}

std::uint32_t LanguageStyles(const CExpressionScope& attributes, const ControlKind& kind) {
    if (!IsRightToLeftLanguage(attributes.GetStringOr("__languageInfo"_name, ""))) return 0;
    if (attributes.GetBooleanOr("alwaysL2R"_name, false)) return 0;
    return KeepsAlignment(kind) ? extended::kRightToLeftReading : extended::kRightToLeft;
}

ControlKind FinalKind(const CExpressionScope& attributes, ControlKind kind) {
    kind.style = static_cast<std::uint32_t>(attributes.GetLongOr("win_style"_name, kind.style));
    kind.extendedStyle =
        static_cast<std::uint32_t>(attributes.GetLongOr("win_ex_style"_name, kind.extendedStyle));
    kind.extendedStyle |= LanguageStyles(attributes, kind);
    return kind;
}

NativeWindow MakeWindowOf(CEveBox& box, const CExpressionScope& attributes, const ControlKind& kind) {
    const std::u16string text = lyr::gen::ToUtf16(box.nameText, true);
    platform::WindowRequest request;
    request.extendedStyle = kind.extendedStyle;
    request.className = kind.className;
    request.text = text.c_str();
    request.style = kind.style;
    request.left = box.left;
    request.top = box.top;
    request.width = box.width;
    request.height = box.height;
    request.parent = box.Root().control;
    request.id = box.viewId;
    request.instance = Instance(attributes);
    return platform::MakeWindow(request);
}

// Kept: any control with exactly this style gets the icon that was remembered last.
void LoadIcon(const CEveBox& box, const ControlKind& kind) {
    const RememberedIcon& icon = gToolkit.icon;
    if (kind.style != kIconControl || !box.control) return;
    if (icon.builtinIcon != kBuiltinIconWarning && icon.builtinIcon != kBuiltinIconAlert) return;
    const NativeIcon copy = platform::CopySystemIcon(static_cast<std::uint16_t>(icon.builtinIcon),
                                                     static_cast<std::int32_t>(icon.width),
                                                     static_cast<std::int32_t>(icon.height));
    platform::Send(box.control, kStaticSetImage, kImageIcon, reinterpret_cast<std::intptr_t>(copy));
}

void Finish(CEveBox& box, const CExpressionScope& attributes) {
    NativeFont& kept = box.Root().fontsOfTree.emplace_back(nullptr);
    kept = box.font = MakeBoxFont(attributes, platform::WindowResolution(box.control));
    platform::Send(box.control, kMessageSetFont, reinterpret_cast<std::uintptr_t>(box.font), true);
    box.SetVisible(box.visible);
    box.SetEnabled(box.enabled);
}

void MakeSubCheck(CEveBox& box, const CExpressionScope& attributes) {
    platform::WindowRequest request;
    request.extendedStyle = extended::kTopMost;
    request.className = u"button";
    request.style = style::kChild | style::kTabStop | style::kAutoCheckBox;
    request.left = box.left;
    request.top = box.top;
    request.width = kSubCheckSize;
    request.height = kSubCheckSize;
    request.parent = box.Root().control;
    request.id = box.subViewId;
    request.instance = Instance(attributes);
    box.subControl = platform::MakeWindow(request);
    ThrowKeptException();
}

} // namespace

void MakeControl(CEveBox& box, const CExpressionScope& attributes, const ControlKind& kind) {
    try {
        const ControlKind finalKind = FinalKind(attributes, kind);
        box.control = MakeWindowOf(box, attributes, finalKind);
        LoadIcon(box, finalKind);
        platform::TakeControlProcedure(box.control);
        Finish(box, attributes);
        ThrowKeptException();
    } catch (...) {
        throw std::logic_error(NarrowClassName(kind.className));
    }
}

void MakeControlWithSubCheck(CEveBox& box, const CExpressionScope& attributes, const ControlKind& kind,
                             bool wantsSubCheck) {
    if (!wantsSubCheck) return MakeControl(box, attributes, kind);
    const std::int16_t left = box.left;
    const std::int16_t width = box.width;
    box.left = CutTo16(left + kSubCheckRoom);
    box.width = CutTo16(width - kSubCheckRoom);
    MakeControl(box, attributes, kind);
    box.left = left;
    box.width = width;
    try {
        MakeSubCheck(box, attributes);
    } catch (...) {
        throw std::logic_error("sub checkbox creation error!");
    }
}

void MakeGroupBox(CEveBox& box, const CExpressionScope& attributes) {
    MakeControl(box, attributes, {u"button", style::kChild | style::kGroupBox, extended::kControlParent});
}

bool WantsSubCheck(const CEveBox& box) { return box.checkBoxAware && !box.readOnly; }

std::uint32_t FieldStyle(const CExpressionScope& attributes, std::uint32_t extendedStyle) {
    return attributes.GetBooleanOr("rtl_aware"_name, false) ? extendedStyle | extended::kRightToLeft
                                                            : extendedStyle;
}

} // namespace brixen::zeve
