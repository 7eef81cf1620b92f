#include "toolkit/boxes/eve_dialog.h"

#include "toolkit/boxes/box_attributes.h"
#include "toolkit/control_styles.h"
#include "toolkit/dialog_link.h"
#include "toolkit/message_numbers.h"
#include "toolkit/platform/toolkit_platform.h"
#include "toolkit/toolkit_state.h"
#include "toolkit/view_constants.h"
#include "values/unicode/text_conversion.h"

namespace brixen::zeve {

namespace {

constexpr const char16_t* kSystemDialogClass = u"#32770";
constexpr std::uint32_t kDialogStyle = style::kPopup | style::kClipSiblings | style::kDialogFrame;
constexpr std::uint32_t kDialogExtendedStyle = extended::kWindowEdge | extended::kDialogModalFrame;

std::uint32_t DialogStyle(const CExpressionScope& attributes) {
    auto dialogStyle = static_cast<std::uint32_t>(attributes.GetLongOr("win_style"_name, kDialogStyle));
    if (!attributes.GetBooleanOr("enabled"_name, true)) dialogStyle |= style::kDisabled;
    if (attributes.GetBooleanOr("title_bar"_name, true)) dialogStyle |= style::kCaption;
    if (attributes.GetBooleanOr("close_box"_name, false)) dialogStyle |= style::kSystemMenu;
    return dialogStyle;
}

NativeWindow LivingParentWindow(const CExpressionScope& attributes) {
    const auto parentWindow = ReferenceFrom<NativeWindowTag>(attributes.GetLongOr("__parentWindow"_name, 0));
    return platform::IsWindowAlive(parentWindow) ? parentWindow : nullptr;
}

} // namespace

CEveDialog::~CEveDialog() {
    TearDown();
    if (!ownClass.empty()) platform::UnregisterDialogClass(ownClass.c_str(), instance);
}

void CEveDialog::Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) {
    CEveBox::Prepare(viewAttributes, attributes);
    CopyBooleans(attributes, viewAttributes,
                 {"create_system_dialog"_name, "close_box"_name, "title_bar"_name, "resizeable"_name,
                  "size_box"_name, "zoomable"_name, "targetable"_name, "get_select_click"_name,
                  "hide_on_suspend"_name, "delay_select"_name, "erase_on_update"_name, "minimize_box"_name,
                  "maximize_box"_name});
    CopyNumbers(attributes, viewAttributes,
                {"win_style"_name, "win_ex_style"_name, "__parent"_name, "__app"_name, "__params"_name,
                 "__parentWindow"_name, "__zeveInternalObj"_name});
    if (viewAttributes.GetLongOr("margin"_name, 0) == 0) {
        attributes.DefineNumber("margin"_name, Metric(viewAttributes, "gMediumSpace"_name));
    }
}

CEveBox* CEveDialog::Create(CExpressionScope& attributes, CEveBox* parentBox) {
    CEveBox::Create(attributes, parentBox);
    window = control = MakeDialogWindow(attributes);
    platform::TakeDialogProcedure(window);
    platform::Send(window, kMessageChangeUiState, kHideAccessKeysAtFirst, 0);
    GrowToClientSize();
    platform::TrimSystemMenu(window);
    // The generator refuses the number of any other dialog.
    if (auto* dialog = ReferenceFrom<DialogLink>(attributes.GetLongOr("__zeveInternalObj"_name, 0)))
        dialog->rootBox = this;
    return this;
}

std::u16string CEveDialog::ClassName(bool isSystemDialog) {
    if (isSystemDialog) return kSystemDialogClass;
    ownClass = platform::NewUniqueName();
    gToolkit.dialogClassName = ownClass;
    // Without its class the system refuses the window, which is the failure that the caller sees.
    (void)platform::RegisterDialogClass(ownClass.c_str(), instance);
    return ownClass;
}

NativeWindow CEveDialog::MakeDialogWindow(const CExpressionScope& attributes) {
    instance = ReferenceFrom<NativeModuleTag>(attributes.GetLongOr("__hInstance"_name, 0));
    const std::u16string className = ClassName(attributes.GetBooleanOr("create_system_dialog"_name, true));
    const std::u16string title = lyr::gen::ToUtf16(nameText, true);
    const platform::Extent area = platform::WorkArea();
    platform::WindowRequest request;
    request.extendedStyle =
        static_cast<std::uint32_t>(attributes.GetLongOr("win_ex_style"_name, kDialogExtendedStyle));
    request.className = className.c_str();
    request.text = title.c_str();
    request.style = DialogStyle(attributes);
    request.left = (area.width - width) / 2;
    request.top = (area.height - height) / 2;
    request.width = width;
    request.height = height;
    request.parent = LivingParentWindow(attributes);
    request.instance = instance;
    return platform::MakeWindow(request);
}

void CEveDialog::GrowToClientSize() {
    const platform::Rectangle outer = platform::OuterFrame(window);
    const platform::Rectangle client = platform::ClientArea(window);
    platform::MoveTo(window, left + outer.left, top + outer.top, width + outer.Width() - client.Width(),
                     height + outer.Height() - client.Height());
}

} // namespace brixen::zeve
