// Modal runs of dialogs and of alerts above them, in the headless window system.
#pragma once

#include "toolkit/message_numbers.h"
#include "unit/toolkit/dialog/dialog_fixture.h"

#include <cstdint>
#include <vector>

namespace brixen::zeve {

class ModalRunTest : public DialogTest {
protected:
    // Runs a dialog above others until the script sends a command to it.
    bool RunAlert(NativeWindow parent) {
        DialogOwner alert = MadeDialog(alertHost, kTwoButtons, parent);
        alertWindow = ZeveTopWindow(alert.get());
        return ZeveRunModal(alert.get());
    }
    void Press(ZeveDialog* dialog, std::uintptr_t id) {
        headless::ScriptMessage(ZeveTopWindow(dialog), kMessageCommand, id);
    }
    // The dialog's host runs an alert for each kUser that it receives.
    void LetAlertsRunOver(ZeveDialog* dialog) {
        host.answer = [this, dialog](std::int32_t what, EventRecord& record) -> std::uint64_t {
            if (what != kWhatMessage) return 0;
            const std::int64_t message = record.Read(kKeyEventRecord);
            if (message == kUser) alertAnswers.push_back(RunAlert(ZeveTopWindow(dialog)));
            if (message != kMessageCommand) return kAnswerDefault;
            return record.Read(kKeyWparam) == 1 ? kAnswerEndPositive : kAnswerEndNegative;
        };
    }
    void ScriptForAlert(std::uint32_t message, std::uintptr_t wparam) {
        headless::State().script.push_back([=, this] { platform::Send(alertWindow, message, wparam, 0); });
    }

    TestHost host, alertHost;
    NativeWindow alertWindow = nullptr;
    std::vector<bool> alertAnswers;
};

} // namespace brixen::zeve
