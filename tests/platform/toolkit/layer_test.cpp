// The layer above a control's procedure, the focus and the mouse.
#include "toolkit/dialog/window_procedures.h"
#include "toolkit/message_numbers.h"
#include "toolkit/platform/toolkit_platform.h"

#include <functional>
#include <vector>

#include <gtest/gtest.h>

namespace brixen::zeve::platform {
namespace {

constexpr std::uint32_t kChild = 0x40000000, kPopupWithCaption = 0x80C00000;
constexpr std::uint32_t kMessageOfOurs = 0x0400 + 91;

class Layer : public ::testing::Test {
protected:
    Layer() {
        WindowRequest request;
        request.className = u"#32770";
        request.style = kPopupWithCaption;
        request.width = request.height = 100;
        request.instance = LibraryModule();
        top = MakeWindow(request);
        control = Child();
        InstallWindowProcedures();
        TakeControlProcedure(control);
    }
    ~Layer() override { CloseWindow(top); }

    NativeWindow Child() const {
        WindowRequest request;
        request.className = u"button";
        request.text = u"four";
        request.style = kChild;
        request.width = request.height = 20;
        request.parent = top;
        request.instance = LibraryModule();
        return MakeWindow(request);
    }
    bool Take(NativeWindow window) { return TakeLayerProcedure(window, &Layer::Hear, this); }
    std::intptr_t TextLength() const { return Send(control, kMessageGetTextLength, 0, 0); }

    static std::intptr_t Hear(void* object, NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                              std::intptr_t lparam) noexcept {
        auto& test = *static_cast<Layer*>(object);
        if (message == kMessageWindowGone) ++test.gone;
        if (message == kMessageOfOurs) {
            test.heard.push_back(lparam);
            if (test.atMessage) test.atMessage();
            return static_cast<std::intptr_t>(wparam) + 1;
        }
        return AnswerBelowLayer(window, message, wparam, lparam);
    }

    NativeWindow top = nullptr, control = nullptr;
    std::function<void()> atMessage;
    std::vector<std::intptr_t> heard;
    int gone = 0;
};

TEST_F(Layer, HearsAMessageBeforeTheControlAndAnswersIt) {
    ASSERT_TRUE(Take(control));
    EXPECT_EQ(Send(control, kMessageOfOurs, 6, -2), 7);
    EXPECT_EQ(heard, std::vector<std::intptr_t>{-2});
    EXPECT_EQ(TextLength(), 4) << "the procedures below answer";
}

TEST_F(Layer, IsAboveTheControlProcedureWhichStillServes) {
    ASSERT_TRUE(Take(control));
    Send(control, kMessageClose, 0, 0);
    EXPECT_TRUE(IsWindowAlive(control)) << "the control procedure refuses to close";
}

TEST_F(Layer, IsTheOnlyOneOfItsWindow) {
    ASSERT_TRUE(Take(control));
    Layer* const nobody = nullptr;
    EXPECT_FALSE(TakeLayerProcedure(control, &Layer::Hear, nobody));
    EXPECT_EQ(Send(control, kMessageOfOurs, 1, 0), 2) << "the first one stays";
}

TEST_F(Layer, OfEachWindowIsItsOwn) {
    const NativeWindow other = Child();
    ASSERT_TRUE(Take(control));
    EXPECT_EQ(Send(other, kMessageOfOurs, 6, 0), 0);
    ASSERT_TRUE(Take(other));
    EXPECT_EQ(Send(other, kMessageOfOurs, 6, 0), 7);
}

TEST_F(Layer, ADroppedOneHearsNothing) {
    ASSERT_TRUE(Take(control));
    DropLayer(control);
    EXPECT_EQ(Send(control, kMessageOfOurs, 6, 0), 0);
    EXPECT_TRUE(heard.empty());
    EXPECT_EQ(TextLength(), 4);
    Send(control, kMessageClose, 0, 0);
    EXPECT_TRUE(IsWindowAlive(control));
    CloseWindow(control);
    EXPECT_EQ(gone, 0);
}

TEST_F(Layer, CanBeTakenAgainAfterItWasDropped) {
    for (int i = 0; i < 3; ++i) {
        ASSERT_TRUE(Take(control));
        EXPECT_EQ(Send(control, kMessageOfOurs, 6, 0), 7);
        DropLayer(control);
        DropLayer(control);
    }
    EXPECT_EQ(heard.size(), 3u);
}

TEST_F(Layer, MayDropItselfInsideAMessage) {
    ASSERT_TRUE(Take(control));
    std::intptr_t length = 0;
    atMessage = [&] {
        DropLayer(control);
        length = AnswerBelowLayer(control, kMessageGetTextLength, 0, 0);
    };
    EXPECT_EQ(Send(control, kMessageOfOurs, 6, 0), 7);
    EXPECT_EQ(length, 4);
    EXPECT_EQ(Send(control, kMessageOfOurs, 6, 0), 0);
}

TEST_F(Layer, HearsTheEndOfItsWindowOnce) {
    ASSERT_TRUE(Take(control));
    CloseWindow(control);
    EXPECT_EQ(gone, 1);
    EXPECT_FALSE(IsWindowAlive(control));
    DropLayer(control);
}

TEST_F(Layer, HearsTheEndOfAWindowThatGoesWithItsParent) {
    ASSERT_TRUE(Take(control));
    CloseWindow(top);
    EXPECT_EQ(gone, 1);
}

TEST_F(Layer, MayDestroyItsWindowInsideAMessage) {
    ASSERT_TRUE(Take(control));
    atMessage = [&] { CloseWindow(control); };
    EXPECT_EQ(Send(control, kMessageOfOurs, 6, 0), 7);
    EXPECT_EQ(gone, 1);
    EXPECT_FALSE(IsWindowAlive(control));
}

TEST_F(Layer, IsRefusedWithoutAWindow) {
    EXPECT_FALSE(Take(nullptr));
    const NativeWindow other = Child();
    CloseWindow(other);
    EXPECT_FALSE(Take(other));
}

TEST_F(Layer, WithoutOneTheWindowAnswersByItsOwnProcedure) {
    EXPECT_EQ(AnswerBelowLayer(control, kMessageGetTextLength, 0, 0), 4);
}

using FocusAndMouse = Layer;

TEST_F(FocusAndMouse, TheFocusedWindowIsTheOneThatTookTheFocus) {
    const NativeWindow other = Child();
    ShowOrHide(top, true);
    Focus(control);
    EXPECT_EQ(FocusedWindow(), control);
    Focus(other);
    EXPECT_EQ(FocusedWindow(), other);
    CloseWindow(other);
    EXPECT_NE(FocusedWindow(), other);
}

TEST_F(FocusAndMouse, TheMouseBelongsToTheWindowThatCapturedIt) {
    const NativeWindow other = Child();
    EXPECT_FALSE(HasMouse(control));
    CaptureMouse(control);
    EXPECT_TRUE(HasMouse(control));
    EXPECT_FALSE(HasMouse(other));
    ReleaseMouse(other);
    EXPECT_TRUE(HasMouse(control)) << "only its owner releases it";
    CaptureMouse(other);
    EXPECT_FALSE(HasMouse(control));
    ReleaseMouse(other);
    EXPECT_FALSE(HasMouse(other));
    EXPECT_FALSE(HasMouse(nullptr)) << "no window is no owner";
}

TEST_F(FocusAndMouse, ADestroyedWindowHasNoMouse) {
    CaptureMouse(control);
    CloseWindow(control);
    EXPECT_FALSE(HasMouse(control));
}

} // namespace
} // namespace brixen::zeve::platform
