// A host with a description of two pages and a few buttons, its machine and its panes, which note what
// becomes of them.
#pragma once

#include "unit/workflow/panes/dialog_fixture.h"
#include "workflow/context/context_keys.h"
#include "workflow/context/workflow_context.h"
#include "workflow/panes/concrete_host.h"
#include "workflow/panes/dialog_state_machine.h"
#include "workflow/panes/pane.h"
#include "workflow/panes/pane_helpers.h"
#include "workflow/platform/message_numbers.h"

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace brixen::pvn::pvn_workflow {

inline constexpr std::uint16_t kNext = 21, kBack = 22, kThrow = 23, kDone = 24, kLeave = 25, kField = 31,
                               kLink = 32, kLabeled = 33, kUnlabeled = 34;
inline constexpr std::uint16_t kFirstPage = 100, kSecondPage = 200, kPicture = 201;

inline constexpr char kView[] = R"(
dialog(name: 'Test', width: 300, height: 200, close_box: true) {
    page(view_id: 100, visible: false, enabled: false) { edit_text(view_id: 31, width: 80); }
    page(view_id: 200, visible: false, enabled: false) { picture(view_id: 201, width: 16, height: 16); }
    button(view_id: 21, name: 'Next'); button(view_id: 22, name: 'Back');
    labeled(placement: place_row) {
        static_text(name: 'Size:');
        edit_text(view_id: 33, width: 80, check_box_aware: true);
    }
    edit_text(view_id: 34, width: 80, check_box_aware: true);
    hyperlink(view_id: 32, name: 'More', width: 60, height: 14);
    button(view_id: 23, name: 'Throw'); button(view_id: 24, name: 'Done'); button(view_id: 25, name: 'Leave');
})";

class TestPane : public PVNPane {
public:
    TestPane(std::uint16_t page, std::vector<std::string>& notes) : page(page), notes(notes) {}

    void Enter() override {
        Note("enter");
        SetVisible(ref, page, true);
        SetEnabled(ref, page, true);
    }
    std::span<const MarkedControl> MarkedControls() const override { return marked; }

    std::vector<MarkedControl> marked;

    void Leave() override {
        Note("leave");
        SetVisible(ref, page, false);
        SetEnabled(ref, page, false);
    }

private:
    void Note(const char* what) {
        const bool locked = zeve::headless::State().locked != nullptr;
        notes.push_back(what + (" " + std::to_string(page)) + (locked ? " locked" : "") +
                        (context ? "" : " without context"));
    }

    std::uint16_t page;
    std::vector<std::string>& notes;
};

class TestHost : public PVNConcreteHost<TestHost, PVNPane> {
public:
    using PVNConcreteHost::PVNConcreteHost;

    static std::span<const Command> Commands() {
        static constexpr Command kCommands[] = {
            {kNext, &TestHost::OnNext}, {kBack, &TestHost::OnBack},   {kThrow, &TestHost::OnThrow},
            {kDone, &TestHost::OnDone}, {kLeave, &TestHost::OnLeave}, {kIdEnter, &TestHost::OnEnterKey}};
        return kCommands;
    }

    bool& Repainted() { return RepaintedFlag(); }
    using PVNConcreteHost::CurrentPane;
    int firstFocus = 0, enters = 0;
    std::function<void()> beforeBack;

private:
    std::intptr_t OnNext() { return DeliverEvent("Continue"); }
    std::intptr_t OnBack() {
        if (beforeBack) beforeBack();
        return DeliverEvent(kEventGoBack);
    }
    std::intptr_t OnDone() { return DeliverEvent("DoneButton"); }
    std::intptr_t OnLeave() { return DeliverEvent("QuitButton"); }
    std::intptr_t OnEnterKey() {
        ++enters;
        return 0;
    }
    std::intptr_t OnThrow() { throw std::runtime_error("handler"); }
    void OnFirstFocus() override { ++firstFocus; }
    void DefineTexts(zeve::ZeveDialog& dialog) override {
        zeve::ZeveDefineText(&dialog, "host_title", "Titled by its host");
    }
};

// A run whose host loads its bitmaps from another folder, unless that is empty.
class FolderContext : public PVNWorkFlowContext {
public:
    using PVNWorkFlowContext::PVNWorkFlowContext;
    std::string Action(std::string_view name) override {
        return name == PvnWFAction_GetSVHPath ? servicePath : PVNWorkFlowContext::Action(name);
    }

    std::string servicePath;
};

class PaneHost : public DialogFixture {
protected:
    PaneHost() {
        Select("en_US");
        for (const std::uint16_t state : {std::uint16_t(1), std::uint16_t(2), std::uint16_t(3)}) {
            machine.SetTransition(state, kWFState_Done, "DoneButton");
            machine.SetTransition(state, kWFState_Exit, "QuitButton");
            machine.SetTransition(state, static_cast<std::uint16_t>(state + 1), "Continue");
        }
        machine.SetTransition(2, kWFState_BackUnset, kEventGoBack);
        machine.SetTransition(3, kWFState_BackUnset, kEventGoBack);
        machine.SetProperty(1, kPropertyPaneObject, &first);
        machine.SetProperty(2, kPropertyPaneObject, &second);
        machine.SetProperty(kWFState_Any, kPropertyWorkflowContext, &context);
        machine.startState = 1;
        host.Repainted() = false;
        SetPtr(bag, PvnWFKey_MainWindow, mainWindow);
    }

    bool Run() { return machine.Run(); }
    // Runs with that done by the user, and then left.
    void RunWith(std::function<void()> action) {
        Then(std::move(action));
        ThenPress(kDone);
        Run();
    }

    T_Storage bag;
    FolderContext context{bag};
    Window mainWindow = MakeMainWindow();
    std::vector<std::string> notes;
    TestPane first{kFirstPage, notes}, second{kSecondPage, notes};
    TestHost host{kView};
    PVNDialogStateMachine machine{host};
};

} // namespace brixen::pvn::pvn_workflow
