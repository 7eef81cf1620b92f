#include "workflow/run_workflow.h"

#include "frame/status.h"
#include "services/base_services.h"
#include "services/platform/posix/services_twin.h"
#include "unit/workflow/panes/dialog_fixture.h"
#include "workflow/context/context_keys.h"
#include "workflow/context/workflow_context.h"
#include "workflow/panes/concrete_host.h"
#include "workflow/panes/dialog_state_machine.h"
#include "workflow/panes/pane.h"
#include "workflow/resources/resource_manager.h"
#include "workflow/workflow.h"

#include <gmock/gmock.h>

#include <stdexcept>

namespace brixen::pvn::pvn_workflow {
namespace {

constexpr char kView[] = "dialog(name: 'Test') { button(view_id: 21, name: 'Go'); }";
constexpr std::uint16_t kGo = 21;

// The plan of the workflow under test, and a record of its run.
struct Plan {
    std::uint16_t target = kWFState_Done;
    std::uint32_t storedResult = 0;
    bool removeResult = false;
    bool throwInBuild = false, throwAfterPanes = false;
    int built = 0, panesAlive = 0, cleanups = 0;
    std::string language;
    std::uint32_t resultAtBuild = 0;
    zeve::NativeDpiContext dpiAtBuild = nullptr, dpiAtCleanup = nullptr;
};
Plan gPlan;

class CountedPane : public PVNPane {
public:
    CountedPane() { ++gPlan.panesAlive; }
    ~CountedPane() override { --gPlan.panesAlive; }
};

class GoHost final : public PVNConcreteHost<GoHost, PVNPane> {
public:
    using PVNConcreteHost::PVNConcreteHost;
    static std::span<const Command> Commands() {
        static constexpr Command kCommands[] = {{kGo, &GoHost::OnGo}};
        return kCommands;
    }

private:
    std::intptr_t OnGo() {
        if (gPlan.storedResult != 0) SetLong(*context, PvnWFKey_WorkFlowResult, gPlan.storedResult);
        if (gPlan.removeResult) context->Remove(PvnWFKey_WorkFlowResult, kValueTypeLong);
        return DeliverEvent("OKButton");
    }
};

class PlannedWorkFlow : public PVNWorkFlow {
public:
    using PVNWorkFlow::PVNWorkFlow;

    void Build(bool demo) override {
        EXPECT_FALSE(demo);
        ++gPlan.built;
        gPlan.dpiAtBuild = zeve::headless::State().dpiContext;
        GetLong(*ref, PvnWFKey_WorkFlowResult, gPlan.resultAtBuild);
        SetString(*ref, "left behind", "by the run");
        if (gPlan.throwInBuild) throw std::runtime_error("build");
        host = std::make_unique<GoHost>(kView);
        machine = std::make_unique<PVNDialogStateMachine>(*host);
        machine->SetTransition(1, gPlan.target, "OKButton");
        SetPane(1, std::make_unique<CountedPane>());
        if (gPlan.throwAfterPanes) throw std::runtime_error("late");
        machine->startState = 1;
    }
    void Cleanup() noexcept override {
        ++gPlan.cleanups;
        gPlan.dpiAtCleanup = zeve::headless::State().dpiContext;
        PVNWorkFlow::Cleanup();
    }
    using PVNWorkFlow::machine;
    using PVNWorkFlow::SetHost;
    using PVNWorkFlow::SetPane;
};

class RunWorkFlow : public DialogFixture {
protected:
    RunWorkFlow() {
        gPlan = Plan();
        SetString(bag, PvnWFKey_Language, "en_US");
        SetPtr(bag, PvnWFKey_MainWindow, mainWindow);
    }
    std::uint16_t Run() {
        ThenPress(kGo);
        return RunWorkFlowFromBag<PlannedWorkFlow>(bag);
    }

    T_Storage bag;
    Window mainWindow = MakeMainWindow();
};

// The entry points of the base services, found while a run was built.
std::size_t EntryPointsFound() {
    const auto& libraries = GetServiceLoader().libraries;
    const auto entry = libraries.find(kBaseServices);
    return entry == libraries.end() ? 0 : entry->second.symbols.size();
}

class RunWithServices : public RunWorkFlow {
protected:
    RunWithServices() {
        ResetServicesTwin();
        ResetServiceLoader();
    }
    ~RunWithServices() override {
        ResetServicesTwin();
        ResetServiceLoader();
    }
};

TEST_F(RunWithServices, FindsThemAfterTheLanguageIsSelectedAndBeforeBuild) {
    class Looking : public PlannedWorkFlow {
    public:
        using PlannedWorkFlow::PlannedWorkFlow;
        void Build(bool demo) override {
            EXPECT_EQ(EntryPointsFound(), 4u);
            PlannedWorkFlow::Build(demo);
        }
    };
    const auto doNothing =
        reinterpret_cast<EntryPoint>(+[](void*, const char*, int, const char*, const char*, std::va_list) {});
    ServicesTwin& twin = GetServicesTwin();
    twin.files = {"C:\\App\\svhservices.dll"};
    for (const char* symbol :
         {"C_SVHRelease", "C_SVHLogv", "C_SVHErrnoServiceCreate", "C_SVHErrnoServiceSetErrno"}) {
        twin.modules["C:\\App\\svhservices.dll"][symbol] = doNothing;
    }
    bool wasLanguageSelected = false;
    std::uint32_t ofThread = 0;
    twin.duringLoad = [&] {
        wasLanguageSelected = TheResourceState().isSetUp;
        ofThread = CurrentThreadNumber();
    };
    ThenPress(kGo);
    EXPECT_EQ(RunWorkFlowFromBag<Looking>(bag), 0);
    EXPECT_EQ(gPlan.built, 1);
    EXPECT_TRUE(wasLanguageSelected);
    EXPECT_EQ(ofThread, CurrentThreadNumber());
}

TEST_F(RunWithServices, EndsAsWellWithoutThemAndLooksOnce) {
    EXPECT_EQ(Run(), 0);
    const std::vector<std::string> calls = GetServicesTwin().calls;
    EXPECT_EQ(calls.size(), 2u) << "a look into each folder";
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(GetServicesTwin().calls, calls);
    EXPECT_EQ(GetServicesTwin().debuggerTexts.size(), 2u);
}

TEST_F(RunWorkFlow, DoneIsZeroEvenWithAnotherResultInTheBag) {
    EXPECT_EQ(Run(), 0);
    gPlan.storedResult = kStatusUnmappedOutcome;
    EXPECT_EQ(Run(), 0);
}

TEST_F(RunWorkFlow, ExitIsTheStoredResultAndAtFirstTheCancel) {
    gPlan.target = kWFState_Exit;
    EXPECT_EQ(Run(), kStatusUserCancel);
    gPlan.storedResult = kStatusUserOutcome3;
    EXPECT_EQ(Run(), kStatusUserOutcome3);
}

TEST_F(RunWorkFlow, ExitWithoutAResultIsTheCancel) {
    gPlan.target = kWFState_Exit;
    gPlan.removeResult = true;
    EXPECT_EQ(Run(), kStatusUserCancel);
}

TEST_F(RunWorkFlow, AStoredResultIsCutToSixteenBits) {
    gPlan.target = kWFState_Exit;
    gPlan.storedResult = 0xABCD8904;
    EXPECT_EQ(Run(), kStatusUserOutcome4);
}

TEST_F(RunWorkFlow, TheThreadIsUnawareOfResolutionsFromBuildToCleanup) {
    namespace headless = zeve::headless;
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(gPlan.dpiAtBuild, headless::kDpiUnaware);
    EXPECT_EQ(gPlan.dpiAtCleanup, headless::kDpiUnaware);
    EXPECT_EQ(headless::State().dpiContext, headless::kDpiAware);
    gPlan.throwInBuild = true;
    EXPECT_EQ(Run(), kStatusException);
    EXPECT_EQ(headless::State().dpiContext, headless::kDpiAware);
}

TEST_F(RunWorkFlow, EachRunBeginsWithTheCancelAsItsResult) {
    SetLong(bag, PvnWFKey_WorkFlowResult, 5);
    Run();
    EXPECT_EQ(gPlan.resultAtBuild, kStatusUserCancel);
}

TEST_F(RunWorkFlow, PanesLiveUntilCleanup) {
    Then([] { EXPECT_EQ(gPlan.panesAlive, 1); });
    Run();
    EXPECT_EQ(gPlan.panesAlive, 0);
    EXPECT_EQ(gPlan.cleanups, 1);
}

TEST_F(RunWorkFlow, TheBagHoldsTheValuesOfTheRun) {
    Run();
    std::string text;
    EXPECT_TRUE(GetString(bag, "left behind", text));
    EXPECT_EQ(text, "by the run");
}

TEST_F(RunWorkFlow, TheResourceLayerIsShutDownAfterARunWithoutException) {
    Run();
    SelectLanguage("de_DE");
    files.Write("de_DE/file.txt", "x");
    SetResourceRootBelow(files.Utf8());
    EXPECT_EQ(Found("file", "default_locale", kSearchLocale), "de_DE\\file.txt");
}

TEST_F(RunWorkFlow, AnExceptionHasAStatusAndNoLogLine) {
    gPlan.throwInBuild = true;
    EXPECT_EQ(Run(), kStatusException);
    EXPECT_EQ(Logged(), "");
    EXPECT_EQ(gPlan.cleanups, 1);
    std::uint32_t result = 0;
    GetLong(bag, PvnWFKey_WorkFlowResult, result);
    EXPECT_EQ(result, kStatusUserCancel);
}

TEST_F(RunWorkFlow, AnExceptionLeavesTheResourceLayerSetUp) {
    gPlan.throwInBuild = true;
    Run();
    SelectLanguage("de_DE");
    files.Write("de_DE/file.txt", "x");
    SetResourceRootBelow(files.Utf8());
    EXPECT_EQ(Found("file", "default_locale", kSearchLocale), "");
}

TEST_F(RunWorkFlow, TakesItsLanguageFromTheBag) {
    gPlan.throwInBuild = true; // so that the layer is still up afterward
    SetString(bag, PvnWFKey_Language, "ja_JP");
    Run();
    files.Write("ja_JP/file.txt", "x");
    SetResourceRootBelow(files.Utf8());
    EXPECT_EQ(Found("file", "default_locale", kSearchLocale), "ja_JP\\file.txt");
}

TEST_F(RunWorkFlow, AnExceptionLateInBuildFreesThePanes) {
    gPlan.throwAfterPanes = true;
    EXPECT_EQ(Run(), kStatusException);
    EXPECT_EQ(gPlan.panesAlive, 0);
}

TEST_F(RunWorkFlow, AnEventWithoutARowIsAnException) {
    // The first event leads to a state without transitions; the second finds no row.
    gPlan.target = 2;
    ThenPress(kGo);
    EXPECT_EQ(Run(), kStatusException);
    EXPECT_TRUE(zeve::platform::IsEnabled(mainWindow));
    EXPECT_EQ(TopDialog(), nullptr);
}

TEST_F(RunWorkFlow, AMissingResourceIsAnException) {
    class Missing : public PVNWorkFlow {
    public:
        using PVNWorkFlow::PVNWorkFlow;
        void Build(bool) override { LoadViewDescription("missing"); }
    };
    EXPECT_EQ(RunWorkFlowFromBag<Missing>(bag), kStatusException);
    EXPECT_EQ(Logged(), "PVN: _info_: Missing Resource(Type: Exvw, Name: missing)\n");
}

// A host that has panes of one type only.
class CountedHost final : public PVNConcreteHost<CountedHost, CountedPane> {
public:
    using PVNConcreteHost::PVNConcreteHost;
    static std::span<const Command> Commands() { return {}; }
};

TEST_F(RunWorkFlow, APaneThatItsHostDoesNotAcceptIsRefused) {
    PVNWorkFlowContext context(bag);
    PlannedWorkFlow workFlow(context);
    workFlow.SetHost(std::make_unique<CountedHost>(kView));
    workFlow.machine->SetTransition(1, kWFState_Done, "OKButton");
    EXPECT_THROW(workFlow.SetPane(1, std::make_unique<PVNPane>()), std::logic_error);
    EXPECT_NO_THROW(workFlow.SetPane(1, std::make_unique<CountedPane>()));
}

TEST_F(RunWorkFlow, PanesAreDestroyedInTheOrderOfTheirStatesEachForgottenByTheMachine) {
    static std::string gone;
    static PVNDialogStateMachine* machine;
    class NotingPane : public PVNPane {
    public:
        explicit NotingPane(std::uint16_t paneState) : state(paneState) {}
        ~NotingPane() override {
            void* pane = nullptr;
            gone +=
                std::to_string(state) + (machine->GetProperty(state, kPropertyPaneObject, pane) ? "! " : " ");
        }

    private:
        std::uint16_t state;
    };
    PVNWorkFlowContext context(bag);
    PlannedWorkFlow workFlow(context);
    workFlow.SetHost(std::make_unique<GoHost>(kView));
    machine = workFlow.machine.get();
    for (const int number : {7, 2, 0xFFF0, 300}) {
        const auto state = static_cast<std::uint16_t>(number);
        machine->SetTransition(state, kWFState_Done, "OKButton");
        workFlow.SetPane(state, std::make_unique<NotingPane>(state));
    }
    workFlow.Cleanup();
    EXPECT_EQ(gone, "65520 2 7 300 ");
    EXPECT_EQ(workFlow.machine, nullptr);
}

TEST_F(RunWorkFlow, APaneNeedsAStateOfItsOwnWithTransitions) {
    PVNWorkFlowContext context(bag);
    PlannedWorkFlow workFlow(context);
    workFlow.Build(false);
    EXPECT_THROW(workFlow.SetPane(1, std::make_unique<CountedPane>()), std::logic_error);
    EXPECT_THROW(workFlow.SetPane(2, std::make_unique<CountedPane>()), std::logic_error);
    EXPECT_EQ(gPlan.panesAlive, 1);
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
