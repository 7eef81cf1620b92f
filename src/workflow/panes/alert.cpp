#include "workflow/panes/alert.h"

#include "frame/log.h"
#include "toolkit/platform/toolkit_platform.h"
#include "toolkit/window_messages.h"
#include "toolkit/dialog/zeve_dialog.h"
#include "workflow/panes/alert_catalogue.h"
#include "workflow/context/context_keys.h"
#include "workflow/panes/dialog_rules.h"
#include "workflow/panes/host_messages.h"
#include "workflow/panes/host_window.h"
#include "workflow/panes/picture_controls.h"
#include "workflow/platform/pane_platform.h"
#include "workflow/resources/resource_layer.h"
#include "workflow/context/workflow_context.h"

#include <stdexcept>

namespace brixen::pvn::pvn_workflow {

namespace {

std::string LanguageOf(PVNWorkFlowContext* context) {
    std::string language;
    if (context) GetString(*context, PvnWFKey_Language, language);
    return language;
}

bool ShowUnguarded(const AlertEntry& alert, zeve::NativeWindow parent, PVNWorkFlowContext* context) {
    const OwnedDialog dialog = NewDialog(&AlertEventCallback, parent, LanguageOf(context));
    AlertParams params;
    params.dialog = dialog.get();
    zeve::ZeveAddViewText(dialog.get(), LoadViewDescription(std::string(alert.view)).c_str());
    const zeve::NativeWindow window = zeve::ZeveMakeDialog(dialog.get(), &params);
    if (!window) throw std::runtime_error("the alert has no window");
    PictureControls pictures;
    if (alert.isError) {
        pictures.Show(platform::IsHighContrast() ? "xball1_hc" : "xball1",
                      zeve::platform::ChildWithId(window, kAlertPicture));
    }
    return zeve::ZeveRunModal(dialog.get());
}

// On the device that comes with a message to erase, and on the one that is to be had for painting.
void FillWithFace(const WindowMessage& message) {
    zeve::platform::EraseFace(message.window, reinterpret_cast<zeve::NativeDrawing>(message.wparam));
    zeve::platform::PaintFace(message.window);
}

std::uint32_t AnswerCommand(const AlertParams& params, std::uintptr_t wparam) {
    if (HighWord(wparam) > kNotificationKey) return zeve::kAnswerDefault;
    const std::uint16_t id = LowWord(wparam);
    if (id == params.firstButton) return zeve::kAnswerEndPositive;
    const bool isRefused = id == params.secondButton || id == kIdEscape;
    return isRefused ? zeve::kAnswerEndNegative : zeve::kAnswerDefault;
}

} // namespace

bool ShowAlert(std::string_view name, zeve::NativeWindow parent, PVNWorkFlowContext* context) {
    return ShowAlert(FindAlert(name), parent, context);
}

bool ShowAlert(const AlertEntry& alert, zeve::NativeWindow parent, PVNWorkFlowContext* context) {
    try {
        const bool isAgreed = ShowUnguarded(alert, parent, context);
        zeve::platform::Post(parent, zeve::kMessageSetFocus, 0, 0);
        return isAgreed;
    } catch (...) {
        PvnLog("%s: %s: Alert not shown(Name: %.*s)\n", kLogComponent, kLogInfo,
               static_cast<int>(alert.name.size()), alert.name.data());
        return true;
    }
}

std::uint64_t AlertEventCallback(std::int32_t what, zeve::EventRecord& record, void* params) {
    if (what != zeve::kWhatMessage) return 0;
    const WindowMessage message = MessageOf(record);
    switch (message.number) {
    case zeve::kMessageSetFocus:
        if (LowWord(message.wparam) == 0) FocusDefaultButton(message.window);
        return zeve::kAnswerDefault;
    case zeve::kMessagePaint:
    case zeve::kMessageEraseBackground: FillWithFace(message); return zeve::kAnswerDefault;
    case zeve::kMessageClose: return zeve::kAnswerEndNegative;
    case zeve::kMessageCommand:
        return AnswerCommand(*static_cast<const AlertParams*>(params), message.wparam);
    default: return zeve::kAnswerDefault;
    }
}

} // namespace brixen::pvn::pvn_workflow
