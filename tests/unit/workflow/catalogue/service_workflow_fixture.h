// A run of a workflow that calls the service, with the shipped resources. No worker starts: the test reports
// how the call ended, and what the worker left in its bag.
#pragma once

#include "frame/platform/posix/frame_twin.h"
#include "frame/status.h"
#include "support/languages.h"
#include "toolkit/control_styles.h"
#include "unit/workflow/panes/dialog_fixture.h"
#include "unit/workflow/resources/shipped_texts.h"
#include "values/scope_guard.h"
#include "values/unicode/text_conversion.h"
#include "workflow/context/context_keys.h"
#include "workflow/context/progress.h"
#include "workflow/context/progress_timer.h"
#include "workflow/controls/busy_bar.h"
#include "workflow/panes/window_message.h"
#include "workflow/platform/headless/region_recorder.h"
#include "workflow/platform/message_numbers.h"
#include "workflow/run_workflow.h"
#include "workflow/worker/busy_pane.h"
#include "workflow/worker/operation_context.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace brixen::pvn::pvn_workflow {

template <class WorkFlow>
class ServiceWorkFlow : public DialogFixture {
protected:
    ServiceWorkFlow() {
        ResetFrameTwin();
        platform::TheRegionRecorder().Reset();
        SetLanguage("en_US");
        SetLong(bag, PvnWFKey_AllowCancel, 1);
        SetString(bag, PvnWFKey_ProductName, "Salt & Sugar");
        SetPtr(bag, PvnWFKey_MainWindow, mainWindow);
    }
    ~ServiceWorkFlow() override {
        ResetFrameTwin();
        platform::TheRegionRecorder().Reset();
        EndWorkerRun();
    }

    void SetLanguage(const std::string& language) { SetString(bag, PvnWFKey_Language, language); }

    // Returns the status of the run, as the engine's entry does.
    std::uint16_t Run(bool demo = false) {
        SetLong(bag, PvnWFKey_WorkFlowResult, kStatusUserCancel);
        std::string language;
        GetString(bag, PvnWFKey_Language, language);
        SelectLanguage(language);
        typename WorkFlow::Context runContext(bag);
        context = &runContext;
        // The twin ends a run without a script, with the status that many tests expect.
        Then([] { ADD_FAILURE() << "the user has not ended the run"; });
        const ScopeGuard forget([] { System().script.clear(); });
        const bool isDone = WorkFlow(runContext).Run(demo);
        context = nullptr;
        EXPECT_LE(System().script.size(), 1u) << "the run has ended before";
        return isDone ? kStatusSuccess : static_cast<std::uint16_t>(StoredLong(PvnWFKey_WorkFlowResult));
    }

    std::uint32_t StoredLong(const char* key) {
        std::uint32_t number = 0xFFFFFFFF;
        GetLong(bag, key, number);
        return number;
    }
    std::string StoredText(const char* key) {
        std::string text = "none";
        GetString(bag, key, text);
        return text;
    }

    // The first pane is shown, and the button leaves it with that outcome.
    void ExpectToRunInEveryLanguage(const std::string& firstPane, std::uint16_t button, Status outcome) {
        for (const std::string& locale : pavane_test::Locales()) {
            SetLanguage(locale);
            ThenExpectPane(firstPane);
            ThenPress(button);
            EXPECT_EQ(RunWorkFlowFromBag<WorkFlow>(bag), outcome) << locale;
            EXPECT_TRUE(System().script.empty());
            ShutDownResources();
        }
    }

    // Every end of a worker that is no success and no cancel leads to that pane, from which Esc leaves.
    // `thenStart` ends on the busy pane.
    void ExpectEveryFailureToLeadTo(const std::string& pane, const std::function<void()>& thenStart) {
        std::map<std::string, Status> statuses; // one for each event
        {
            typename WorkFlow::Context anyContext(bag);
            for (unsigned status = 1; status <= 0xFFFF; ++status) {
                const auto result = static_cast<Status>(status);
                statuses.try_emplace(anyContext.ResultToEvent(result), result);
            }
        }
        EXPECT_GE(statuses.size(), 3u);
        for (const auto& [event, status] : statuses) {
            SCOPED_TRACE(event);
            thenStart();
            ThenEndWith(status);
            ThenExpectPane(pane);
            ThenPressEsc();
            EXPECT_EQ(Run(), status);
        }
    }

    // The alert about a field has one button, which is the default one and has the focus, in every language.
    // `thenShow` shows the alert on the pane; Esc closes it, and the field has the focus then.
    void ExpectAlertInEveryLanguage(const std::function<void()>& thenShow, const std::string& pane,
                                    std::uint16_t field) {
        for (const std::string& locale : pavane_test::Locales()) {
            SCOPED_TRACE(locale);
            SetLanguage(locale);
            thenShow();
            Then([locale] {
                const Words words = ReadWords(kSources / "dictionaries" / locale / "service.txt");
                EXPECT_EQ(lyr::gen::ToUtf8(zeve::platform::TextOf(TopDialog())),
                          words.at("$$$/pvn/alert/window_title"));
                const auto* const button = Control(101);
                EXPECT_EQ(lyr::gen::ToUtf8(button->text), words.at("$$$/pvn/dlg/common/button/ok"));
                EXPECT_EQ(button->style & 0xF, zeve::style::kDefaultPushButton);
                EXPECT_EQ(System().focus, button->handle);
            });
            ThenPressEsc();
            ThenExpectPane(pane);
            ThenExpectFocus(field);
            ThenPressEsc();
            EXPECT_EQ(Run(), kStatusUserCancel);
            ShutDownResources(); // and with them the language
        }
    }

    // The text of that key is on the pane, for its user to read.
    static void ThenExpectSentence(const std::string& key) {
        Then([key] {
            const auto isIt = [&key](const auto& window) {
                return window->parent == TopDialog() && window->text == lyr::gen::ToUtf16(Word(key)) &&
                       (window->style & zeve::style::kVisible) != 0;
            };
            EXPECT_EQ(std::ranges::count_if(System().windows, isIt), 1) << key;
        });
    }
    // The field can be reached and copied from, and not written to.
    static void ThenExpectLocked(std::uint16_t field) {
        Then([field] {
            constexpr std::uint32_t kLocked = zeve::style::kEditReadOnly | zeve::style::kTabStop;
            EXPECT_EQ(Control(field)->style & kLocked, kLocked);
            EXPECT_TRUE(zeve::platform::IsEnabled(Control(field)->handle));
            EXPECT_TRUE(IsControlShown(field));
        });
    }

    // --- What the user does

    // Presses all buttons with ids from `first` to `last`, whether they are shown or not.
    static void ThenPressAllBut(const std::vector<std::uint16_t>& spared, std::uint16_t first,
                                std::uint16_t last) {
        for (std::uint16_t id = first; id <= last; ++id)
            if (std::ranges::find(spared, id) == spared.end()) ThenPress(id);
    }
    // The panes of a tour, each with the button that leads to the next one.
    void ThenVisit(std::initializer_list<std::pair<const char*, std::uint16_t>> panes) {
        for (const auto& [pane, button] : panes) {
            ThenExpectPane(pane);
            ThenPress(button);
        }
    }

    // A field that the system has refused gets nothing.
    static void ThenType(std::uint16_t field, std::u16string text) {
        Then([=] {
            if (const auto* const control = Control(field)) {
                zeve::platform::SetText(control->handle, text.c_str());
            }
        });
    }
    // Pastes a text into an empty field, which keeps no more of it than its limit lets in.
    static void ThenPaste(std::uint16_t field, std::u16string text) {
        Then([=] {
            const Window window = Control(field)->handle;
            std::int64_t limit = 0;
            for (const auto& call : zeve::headless::CallsOf("Send"))
                if (call.window == window && call.numbers[0] == zeve::kEditSetLimitText)
                    limit = call.numbers[1];
            ASSERT_GT(limit, 0) << field;
            zeve::platform::SetText(window, text.substr(0, static_cast<std::size_t>(limit)).c_str());
        });
    }
    static void ThenNotify(std::uint16_t id, std::uint16_t notification) {
        Then([=] { Tell(TopDialog(), zeve::kMessageCommand, std::uintptr_t{notification} << 16 | id); });
    }
    static void ThenPressEsc() { ThenPress(kIdEscape); }
    static void ThenPressEnter() { ThenPress(kIdEnter); }

    // --- What the worker does

    // Presses a button that starts a worker, which is refused a thread. Its end is not taken yet.
    static void ThenStart(std::uint16_t button) {
        Then([] { GetFrameTwin().startsUntilRefusal = 1; });
        ThenPress(button);
        Then([] { EXPECT_EQ(gProgressPercent(), kPercentFinished) << "no worker was started"; });
    }
    // The bar runs in that control, and the pane has posted that message.
    static void ThenExpectBusy(std::uint16_t bar, std::uint32_t startMessage) {
        Then([=] {
            EXPECT_THAT(zeve::headless::FindWindow(Control(bar)->handle)->timers,
                        testing::ElementsAre(testing::Pair(kBusyTimer, kBusyPeriod)));
            std::vector<std::int64_t> starts;
            for (const auto& call : zeve::headless::CallsOf("Post"))
                if (call.numbers[0] == kMessageStartWorker || call.numbers[0] == kMessageStartSecondWorker)
                    starts.push_back(call.numbers[0]);
            EXPECT_THAT(starts, testing::ElementsAre(startMessage));
        });
    }
    // The worker has ended with the status, and the dialog notices.
    void ThenEndWith(Status status, std::function<void(T_StorageInterface&)> leaveResults = {}) {
        Then([this, status, leaveResults] {
            ASSERT_TRUE(context->workerBag);
            if (leaveResults) leaveResults(context->workerBag->values);
            ProgressNotifier(kPercentFinished, status);
            EXPECT_TRUE(zeve::headless::FireTimer(TopDialog(), kProgressTimer));
        });
    }

    // Both in one, for runs that may end before: expects nothing, and no worker starts in such a run either.
    static void ThenRunWorker(std::uint16_t button, Status status) {
        Then([] { GetFrameTwin().startsUntilRefusal = 1; });
        ThenPress(button);
        Then([status] {
            ProgressNotifier(kPercentFinished, status);
            Tell(TopDialog(), zeve::kMessageTimer, kProgressTimer);
        });
    }

    // --- What the dialog shows

    // The pane with that title is on screen; `words` is its key in the dictionary, without the beginning.
    void ThenExpectPane(std::string words) {
        Then([this, words] {
            std::string language;
            GetString(bag, PvnWFKey_Language, language);
            const Words shipped = ReadWords(kSources / "dictionaries" / language / "service.txt");
            const std::string title = shipped.at("$$$/pvn/dlg/common/window_title/prefix") +
                                      shipped.at("$$$/pvn/" + words + "/window_title");
            EXPECT_EQ(lyr::gen::ToUtf8(zeve::platform::TextOf(TopDialog())), title);
        });
    }
    struct Failure {
        Status status;
        const char* words; // keys of the dictionary
        const char* code;  // as it is shown
    };
    // The page of failures is on screen, in that state: what happened, what to try, what is kept, and the
    // code, in these two fields.
    void ThenExpectFailure(const Failure& failure, const std::string& page, std::uint16_t textField,
                           std::uint16_t codeField) {
        ThenExpectPane(page);
        const std::string words = std::string("failure/") + failure.words;
        ThenExpectText(textField,
                       Word(words + "/what") + "\n\n" + Word(words + "/try") + "\n\n" + Word(page + "/kept"));
        ThenExpectText(codeField, std::string("Error code ") + failure.code);
    }
    static void ThenExpectShown(std::vector<std::uint16_t> ids) {
        Then([ids] {
            for (const std::uint16_t id : ids) EXPECT_TRUE(IsControlShown(id)) << id;
        });
    }
    static void ThenExpectHidden(std::vector<std::uint16_t> ids) {
        Then([ids] {
            for (const std::uint16_t id : ids) EXPECT_FALSE(IsControlShown(id)) << id;
        });
    }
    static void ThenExpectFocus(std::uint16_t id) {
        Then([id] { EXPECT_EQ(System().focus, Control(id)->handle) << id; });
    }
    static void ThenExpectText(std::uint16_t id, std::string text) {
        Then([id, text] { EXPECT_EQ(lyr::gen::ToUtf8(Control(id)->text), text); });
    }
    static std::string Word(const std::string& key) {
        static const Words english = ReadWords(kSources / "dictionaries/en_US/service.txt");
        return english.at("$$$/pvn/" + key);
    }
    // The alert of a field is on top, with those words. Closes it; the field then has the focus.
    static void ThenExpectAlert(std::string name, std::uint16_t field) {
        Then([name] {
            EXPECT_EQ(lyr::gen::ToUtf8(zeve::platform::TextOf(TopDialog())), Word("alert/window_title"));
            std::vector<std::string> texts;
            for (const auto& window : System().windows)
                if (window->parent == TopDialog()) texts.push_back(lyr::gen::ToUtf8(window->text));
            EXPECT_THAT(texts, testing::Contains(Word("alert/" + name + "/title")));
            EXPECT_THAT(texts, testing::Contains(Word("alert/" + name + "/text")));
        });
        ThenPress(101);
        ThenExpectFocus(field);
    }

    T_Storage bag;
    Window mainWindow = MakeMainWindow();
    typename WorkFlow::Context* context = nullptr; // of the run
};

} // namespace brixen::pvn::pvn_workflow
