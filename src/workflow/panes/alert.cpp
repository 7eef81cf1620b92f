#include "workflow/panes/alert.h"

#include "frame/log.h"
#include "toolkit/dialog/zeve_dialog.h"
#include "toolkit/message_numbers.h"
#include "toolkit/platform/toolkit_platform.h"
#include "workflow/context/context_keys.h"
#include "workflow/context/workflow_context.h"
#include "workflow/panes/dialog_rules.h"
#include "workflow/panes/picture_controls.h"
#include "workflow/panes/window_message.h"
#include "workflow/platform/message_numbers.h"
#include "workflow/platform/pane_platform.h"
#include "workflow/resources/resource_layer.h"

#include <optional>
#include <string>

namespace brixen::pvn::pvn_workflow {

namespace {

constexpr AlertEntry kAlerts[] = {
    {kAlertQuit, "quit_alert", false},
};

std::string LocaleOfRun(PVNWorkFlowContext* context) {
    std::string language;
    if (context) GetString(*context, PvnWFKey_Language, language);
    return language;
}

// An alert on the screen. The constructor throws if it cannot be made.
class AlertDialog {
public:
    AlertDialog(const AlertEntry& alert, zeve::NativeWindow parent, PVNWorkFlowContext* context,
                std::span<const AlertText> texts)
        : dialog(NewDialog(&AlertEventCallback, parent, LocaleOfRun(context))) {
        params.dialog = dialog.get();
        for (const AlertText& text : texts) zeve::ZeveDefineText(dialog.get(), text.name, text.text);
        const std::string view(alert.view);
        const zeve::NativeWindow window = MakeDialog(*dialog, LoadViewDescription(view), view, &params);
        if (alert.isError) {
            pictures.Show(platform::IsHighContrast() ? "xball1_hc" : "xball1",
                          zeve::platform::ChildWithId(window, kAlertPicture));
        }
    }

    bool Run() { return zeve::ZeveRunModal(dialog.get()); }

private:
    OwnedDialog dialog;
    AlertParams params;
    PictureControls pictures;
};

// Fills the device of a message to erase, and the device for painting.
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

AlertEntry FindAlert(std::string_view name) {
    for (const AlertEntry& alert : kAlerts) {
        if (alert.name == name) return alert;
    }
    return {name, name, false};
}

bool ShowAlert(std::string_view name, zeve::NativeWindow parent, PVNWorkFlowContext* context) {
    return ShowAlert(FindAlert(name), parent, context);
}

bool ShowAlert(const AlertEntry& alert, zeve::NativeWindow parent, PVNWorkFlowContext* context,
               std::span<const AlertText> texts) {
    std::optional<AlertDialog> shown;
    try {
        shown.emplace(alert, parent, context, texts);
    } catch (...) {
        PvnLog("%s: %s: Alert not shown(Name: %.*s)\n", kLogComponent, kLogInfo,
               static_cast<int>(alert.name.size()), alert.name.data());
        return true;
    }
    const bool isAgreed = shown->Run();
    shown.reset();
    zeve::platform::Post(parent, zeve::kMessageSetFocus, 0, 0);
    return isAgreed;
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
