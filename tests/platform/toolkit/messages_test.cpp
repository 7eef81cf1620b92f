#include "toolkit/boxes/eve_box.h"
#include "toolkit/dialog/dialog_registry.h"
#include "toolkit/dialog/window_procedures.h"
#include "toolkit/dialog_link.h"
#include "toolkit/event_record.h"
#include "toolkit/message_numbers.h"
#include "toolkit/platform/toolkit_platform.h"

#include <vector>

#include <gtest/gtest.h>

namespace brixen::zeve::platform {
namespace {

constexpr std::uint32_t kMessageOfOurs = 0x0400 + 77;
constexpr std::uint32_t kChild = 0x40000000;

// A window whose messages reach the toolkit's dialog procedure, and through it this test.
class Messages : public ::testing::Test {
protected:
    struct Heard {
        std::uint32_t message;
        std::int64_t wparam, lparam;
        bool operator==(const Heard&) const = default;
    };

    Messages() {
        WindowRequest request;
        request.className = u"#32770";
        request.style = 0x80C00000;
        request.width = request.height = 100;
        request.instance = LibraryModule();
        root.window = window = MakeWindow(request);
        link.rootBox = &root;
        link.callback = &Messages::Hear;
        link.callbackParams = this;
        InstallWindowProcedures();
        TakeDialogProcedure(window);
        RegisterDialog(link);
    }
    ~Messages() override { UnregisterDialog(link); }

    NativeWindow Control(const char16_t* className, std::uint32_t style = 0) {
        WindowRequest request;
        request.className = className;
        request.style = kChild | style;
        request.parent = window;
        request.instance = LibraryModule();
        return MakeWindow(request);
    }
    // Takes the steps of a loop until that many messages were heard.
    void WaitFor(std::size_t count) {
        std::int32_t code = 0;
        while (heard.size() < count) ASSERT_EQ(HandleNextMessage(window, code), LoopStep::kHandled);
    }

    static std::uint64_t Hear(std::int32_t, EventRecord& record, void* params) {
        auto& test = *static_cast<Messages*>(params);
        const auto message = static_cast<std::uint32_t>(record.Read(kKeyEventRecord));
        if (message < 0x0400 && message != test.alsoHeard) return kAnswerDefault;
        test.heard.push_back({message, record.Read(kKeyWparam), record.Read(kKeyLparam)});
        return test.answer;
    }

    CEveBox root;
    DialogLink link;
    NativeWindow window = nullptr;
    std::uint32_t alsoHeard = 0x0400;
    std::uint64_t answer = 0;
    std::vector<Heard> heard;
};

TEST_F(Messages, ASentMessageReachesTheDialogProcedureAtOnce) {
    Send(window, kMessageOfOurs, 3, -4);
    EXPECT_EQ(heard, (std::vector<Heard>{{kMessageOfOurs, 3, -4}}));
}

TEST_F(Messages, TheAnswerToAColorMessageIsReturnedWhole) {
    alsoHeard = kMessageColorStatic;
    answer = 0x1900AB;
    EXPECT_EQ(Send(window, kMessageColorStatic, 0, 0), 0x1900AB);
}

TEST_F(Messages, PostedMessagesAreHandledInOrder) {
    EXPECT_TRUE(Post(window, kMessageOfOurs, 1, 0));
    EXPECT_TRUE(Post(window, kMessageOfOurs, 2, 0));
    EXPECT_TRUE(heard.empty());
    WaitFor(2);
    EXPECT_EQ(heard, (std::vector<Heard>{{kMessageOfOurs, 1, 0}, {kMessageOfOurs, 2, 0}}));
}

TEST_F(Messages, AQuitIsReceivedAfterPostedMessages) {
    PostQuit(41);
    Post(window, kMessageOfOurs, 1, 0);
    std::int32_t code = 0;
    LoopStep step = LoopStep::kHandled;
    while (step == LoopStep::kHandled) step = HandleNextMessage(window, code);
    EXPECT_EQ(step, LoopStep::kQuit);
    EXPECT_EQ(code, 41);
    EXPECT_EQ(heard.size(), 1u);
}

TEST_F(Messages, TheLastQuitCodeCounts) {
    PostQuit(1);
    PostQuit(0);
    std::int32_t code = 7;
    LoopStep step = LoopStep::kHandled;
    while (step == LoopStep::kHandled) step = HandleNextMessage(window, code);
    EXPECT_EQ(code, 0);
}

TEST_F(Messages, APendingQuitIsTakenOnceAndLeavesPostedMessages) {
    EXPECT_EQ(TakePendingQuit(), std::nullopt);
    Post(window, kMessageOfOurs, 1, 0);
    EXPECT_EQ(TakePendingQuit(), std::nullopt);
    PostQuit(-6);
    EXPECT_EQ(TakePendingQuit(), -6);
    EXPECT_EQ(TakePendingQuit(), std::nullopt);
    EXPECT_TRUE(heard.empty());
    WaitFor(1);
}

TEST_F(Messages, WakingALoopThatDoesNotWaitDoesNothing) {
    WakeLoop();
    Post(window, kMessageOfOurs, 1, 0);
    std::int32_t code = 0;
    EXPECT_EQ(HandleNextMessage(window, code), LoopStep::kHandled);
    EXPECT_EQ(heard.size(), 1u);
}

TEST_F(Messages, TheLastMessageOfAWindowReachesTheDialogProcedure) {
    alsoHeard = kMessageWindowGone;
    CloseWindow(window);
    ASSERT_EQ(heard.size(), 1u);
    EXPECT_EQ(heard[0].message, kMessageWindowGone);
}

TEST_F(Messages, AControlsKeysReachTheDialogAndItsOwnProcedure) {
    alsoHeard = kMessageKeyDown;
    const NativeWindow control = Control(u"button");
    TakeControlProcedure(control);
    Send(control, kMessageKeyDown, 'A', 1);
    EXPECT_EQ(heard, (std::vector<Heard>{{kMessageKeyDown, 'A', 1}}));
    SetText(control, u"four");
    EXPECT_EQ(Send(control, kMessageGetTextLength, 0, 0), 4) << "the saved procedure answers";
}

TEST_F(Messages, AControlCannotBeClosed) {
    for (const char16_t* name : {u"button", u"edit", u"static", u"combobox"}) {
        const NativeWindow control = Control(name);
        TakeControlProcedure(control);
        Send(control, kMessageClose, 0, 0);
        EXPECT_TRUE(IsWindowAlive(control));
    }
}

TEST_F(Messages, AnEditControlReportsWhetherItsTextIsEmpty) {
    CEveBox box;
    const NativeWindow control = Control(u"edit");
    TakeControlProcedure(control);
    TakeEditProcedure(control, &box);
    EXPECT_EQ(EditBoxOf(control), &box);
    const auto reference = static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(&box));
    Send(control, kMessageKeyUp, 'A', 0);
    SetText(control, u"text");
    Send(control, kMessageKeyUp, 'A', 0);
    EXPECT_EQ(heard, (std::vector<Heard>{{0x2002, 1, reference}, {0x2002, 0, reference}}));
}

TEST_F(Messages, AControlThatWasNotTakenHasNoSavedProcedure) {
    const NativeWindow control = Control(u"button");
    SetText(control, u"four");
    EXPECT_EQ(SavedAnswer(control, kMessageGetTextLength, 0, 0), 0);
    EXPECT_EQ(EditBoxOf(control), nullptr);
}

TEST_F(Messages, ControlsRememberTheirSettings) {
    const NativeWindow check = Control(u"button", 3);
    EXPECT_EQ(Send(check, kButtonGetCheck, 0, 0), 0);
    Send(check, kButtonSetCheck, 1, 0);
    EXPECT_EQ(Send(check, kButtonGetCheck, 0, 0), 1);
    const NativeWindow combo = Control(u"combobox", 0x00010003);
    EXPECT_EQ(Send(combo, kComboGetSelection, 0, 0), -1);
}

TEST_F(Messages, ATimerIsStartedAndStopped) {
    EXPECT_TRUE(StartTimer(window, 12, 60'000));
    EXPECT_TRUE(StartTimer(window, 12, 100'000)) << "replaced";
    StopTimer(window, 12);
    StopTimer(window, 12);
    EXPECT_FALSE(StartTimer(nullptr, 12, 60'000));
    StopTimer(nullptr, 12);
}

} // namespace
} // namespace brixen::zeve::platform
