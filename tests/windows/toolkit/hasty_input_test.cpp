// What a loop does with input that was meant for what the screen showed a moment ago.
#include "toolkit/platform/toolkit_platform.h"

#include <windows.h>

#include <gtest/gtest.h>

namespace brixen::zeve::platform {
namespace {

const DWORD kAfterDoubleClick = GetDoubleClickTime() + 50;

class HastyInput : public ::testing::Test {
protected:
    HastyInput() { Sleep(kAfterDoubleClick); } // the test before may have pressed at this place
    ~HastyInput() override { DestroyWindow(dialog); }

    HWND Button(int left) {
        return CreateWindowW(L"button", L"", WS_CHILD | WS_VISIBLE, left, 0, 50, 20, dialog, nullptr, nullptr,
                             nullptr);
    }
    void HandleOne() {
        std::int32_t code = 0;
        ASSERT_EQ(HandleNextMessage(reinterpret_cast<NativeWindow>(dialog), code), LoopStep::kHandled);
    }
    // Returns whether the press reached the button, which then captures the mouse.
    bool Press(HWND button, int x = 5, int y = 5) {
        ReleaseCapture();
        PostMessageW(button, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
        for (int i = 0; i < 100 && HasMessages(); ++i) HandleOne();
        return GetCapture() == button;
    }
    static bool HasMessages() {
        MSG message;
        return PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE) != FALSE;
    }

    HWND dialog = CreateWindowW(L"#32770", L"", WS_POPUP | WS_VISIBLE, 0, 0, 200, 100, nullptr, nullptr,
                                nullptr, nullptr);
    HWND first = Button(0);
    HWND second = Button(0); // at the same place
};

TEST_F(HastyInput, TheSecondPressOfADoubleClickDoesNotReachAnotherWindow) {
    EXPECT_TRUE(Press(first));
    ShowWindow(first, SW_HIDE);
    EXPECT_FALSE(Press(second));
    EXPECT_TRUE(Press(second)) << "the third one is for it";
}

// As the press that closes an open list.
TEST_F(HastyInput, APressMayBeOutsideOfTheWindowThatCapturedIt) {
    const HWND beside = Button(60);
    EXPECT_TRUE(Press(beside, -55));
    EXPECT_FALSE(Press(first));
}

TEST_F(HastyInput, BothPressesOfADoubleClickReachTheSameWindow) {
    EXPECT_TRUE(Press(first));
    EXPECT_TRUE(Press(first));
}

TEST_F(HastyInput, APressAtAnotherPlaceIsNoDoubleClick) {
    const HWND beside = Button(60);
    EXPECT_TRUE(Press(first));
    EXPECT_TRUE(Press(beside));
    const int sideways = GetSystemMetrics(SM_CXDOUBLECLK) / 2 + 1;
    EXPECT_TRUE(Press(first));
    EXPECT_TRUE(Press(second, 5 + sideways));
    const int down = GetSystemMetrics(SM_CYDOUBLECLK) / 2 + 1;
    EXPECT_TRUE(Press(first, 5, 5));
    EXPECT_TRUE(Press(second, 5, 5 + down));
}

TEST_F(HastyInput, ALaterPressIsNoDoubleClick) {
    EXPECT_TRUE(Press(first));
    Sleep(kAfterDoubleClick);
    EXPECT_TRUE(Press(second));
}

TEST_F(HastyInput, EscIsNotRepeatedWhileItIsHeld) {
    int canceled = 0;
    SetWindowLongPtrW(dialog, DWLP_USER, reinterpret_cast<LONG_PTR>(&canceled));
    const auto count = [](HWND window, UINT message, WPARAM wparam, LPARAM) -> INT_PTR {
        if (message != WM_COMMAND || LOWORD(wparam) != IDCANCEL) return FALSE;
        ++*reinterpret_cast<int*>(GetWindowLongPtrW(window, DWLP_USER));
        return TRUE;
    };
    SetWindowLongPtrW(dialog, DWLP_DLGPROC, reinterpret_cast<LONG_PTR>(static_cast<DLGPROC>(count)));
    const auto pressEsc = [this](LPARAM state) {
        PostMessageW(dialog, WM_KEYDOWN, VK_ESCAPE, state);
        for (int i = 0; i < 100 && HasMessages(); ++i) HandleOne();
    };
    pressEsc(1);
    EXPECT_EQ(canceled, 1);
    pressEsc(1 | LPARAM(1) << 30);
    EXPECT_EQ(canceled, 1);
    pressEsc(1);
    EXPECT_EQ(canceled, 2);
}

} // namespace
} // namespace brixen::zeve::platform
