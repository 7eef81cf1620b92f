// The toolkit's calls of the system with their arguments, which a recording twin cannot check.
#include "toolkit/dialog/window_procedures.h"
#include "toolkit/event_record.h"
#include "toolkit/message_numbers.h"
#include "toolkit/platform/toolkit_platform.h"
#include "windows/toolkit/patched_import.h"

#include <windows.h>

#include <commctrl.h>

#include <cwchar>
#include <string>

#include <gtest/gtest.h>

namespace brixen::zeve::platform {
namespace {

using pavane_test::PatchedImport;

HWND Handle(NativeWindow window) { return reinterpret_cast<HWND>(window); }

// --- Calls that are recorded instead of being made ---

struct AskedMessage {
    HWND owner = nullptr;
    std::wstring text, title;
    UINT flags = 0;
};
AskedMessage gMessage;

int WINAPI NoteMessage(HWND owner, const wchar_t* text, const wchar_t* title, UINT flags) {
    gMessage = {owner, text, title, flags};
    return IDOK;
}

struct AskedIcon {
    HINSTANCE instance = nullptr;
    const wchar_t* name = nullptr;
    UINT type = 0, copyType = 0;
    int width = 0, height = 0, copyWidth = 0, copyHeight = 0;
    UINT flags = 0, copyFlags = 0;
    HANDLE copied = nullptr;
};
AskedIcon gIcon;

HANDLE Number(UINT_PTR number) { return reinterpret_cast<HANDLE>(number); }

HANDLE WINAPI NoteLoading(HINSTANCE instance, const wchar_t* name, UINT type, int width, int height,
                          UINT flags) {
    gIcon.instance = instance;
    gIcon.name = name;
    gIcon.type = type;
    gIcon.width = width;
    gIcon.height = height;
    gIcon.flags = flags;
    return Number(41);
}

HANDLE WINAPI NoteCopying(HANDLE image, UINT type, int width, int height, UINT flags) {
    gIcon.copied = image;
    gIcon.copyType = type;
    gIcon.copyWidth = width;
    gIcon.copyHeight = height;
    gIcon.copyFlags = flags;
    return Number(42);
}

SHORT gShiftState = 0;

SHORT WINAPI TellShift(int key) { return key == VK_SHIFT ? gShiftState : SHORT{0}; }

TEST(ErrorMessage, HasAnErrorIconNoTitleAndOneButton) {
    const PatchedImport patch("MessageBoxW", &NoteMessage);
    ASSERT_TRUE(patch.IsPatched());
    gMessage = {};
    ShowErrorMessage(reinterpret_cast<NativeWindow>(GetDesktopWindow()), u"Plain letters only.");
    EXPECT_EQ(gMessage.owner, GetDesktopWindow());
    EXPECT_EQ(gMessage.text, L"Plain letters only.");
    EXPECT_EQ(gMessage.title, L"");
    EXPECT_EQ(gMessage.flags, UINT(MB_OK | MB_ICONHAND));
}

TEST(SystemIcon, IsLoadedSmallAndSharedAndCopiedAtTheRequestedSize) {
    const PatchedImport loading("LoadImageW", &NoteLoading), copying("CopyImage", &NoteCopying);
    ASSERT_TRUE(loading.IsPatched() && copying.IsPatched());
    gIcon = {};
    EXPECT_EQ(CopySystemIcon(32516, 48, 40), reinterpret_cast<NativeIcon>(Number(42)));
    EXPECT_EQ(gIcon.instance, nullptr);
    EXPECT_EQ(gIcon.name, MAKEINTRESOURCEW(32516));
    EXPECT_EQ(gIcon.type, UINT(IMAGE_ICON));
    EXPECT_EQ(gIcon.width, GetSystemMetrics(SM_CXSMICON));
    EXPECT_EQ(gIcon.height, GetSystemMetrics(SM_CYSMICON));
    EXPECT_EQ(gIcon.flags, UINT(LR_SHARED));
    EXPECT_EQ(gIcon.copied, Number(41));
    EXPECT_EQ(gIcon.copyType, UINT(IMAGE_ICON));
    EXPECT_EQ(gIcon.copyWidth, 48);
    EXPECT_EQ(gIcon.copyHeight, 40);
    EXPECT_EQ(gIcon.copyFlags, UINT(LR_COPYFROMRESOURCE));
}

TEST(Shift, IsDownWhileItIsHeld) {
    const PatchedImport patch("GetAsyncKeyState", &TellShift);
    ASSERT_TRUE(patch.IsPatched());
    gShiftState = static_cast<SHORT>(0x8000);
    EXPECT_TRUE(IsShiftDown());
    gShiftState = 1; // pressed since the last call, but not held
    EXPECT_FALSE(IsShiftDown());
}

TEST(RichEdit, IsTheLibraryOfTheSystemUntilItIsFreed) {
    const auto module = reinterpret_cast<HMODULE>(LoadRichEdit());
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(module, path, MAX_PATH);
    const wchar_t* const name = std::wcsrchr(path, L'\\');
    ASSERT_NE(name, nullptr);
    EXPECT_EQ(_wcsicmp(name, L"\\riched20.dll"), 0);
    UnloadModule(reinterpret_cast<NativeModule>(module));
    EXPECT_EQ(GetModuleHandleW(L"Riched20.DLL"), nullptr);
}

// --- Windows ---

class Controls : public ::testing::Test {
protected:
    Controls() { RegisterCommonControls(); }
    ~Controls() override { CloseWindow(top); }

    static NativeWindow Make(const char16_t* className, std::uint32_t style, NativeWindow parent = nullptr) {
        WindowRequest request;
        request.className = className;
        request.style = style;
        request.width = 200;
        request.height = 100;
        request.parent = parent;
        request.instance = LibraryModule();
        return MakeWindow(request);
    }
    NativeWindow MakeChild(const char16_t* className) const {
        return Make(className, WS_CHILD | WS_TABSTOP | WS_VISIBLE, top);
    }

    const NativeWindow top = Make(u"#32770", WS_POPUP | WS_CAPTION);
};

TEST_F(Controls, TabsHaveATextAndNoPicture) {
    const NativeWindow tabs = MakeChild(u"SysTabControl32");
    InsertTab(tabs, 0, u"Second");
    InsertTab(tabs, 0, u"First");
    wchar_t text[20] = {};
    TCITEMW item = {};
    item.mask = TCIF_TEXT | TCIF_IMAGE;
    item.pszText = text;
    item.cchTextMax = 20;
    item.iImage = 7;
    ASSERT_TRUE(SendMessageW(Handle(tabs), TCM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)));
    EXPECT_STREQ(item.pszText, L"First");
    EXPECT_EQ(item.iImage, -1);
}

TEST_F(Controls, KeepTheirFormerProcedureInAProperty) {
    const NativeWindow edit = MakeChild(u"edit");
    const LONG_PTR own = GetWindowLongPtrW(Handle(edit), GWLP_WNDPROC);
    int box = 0;
    TakeControlProcedure(edit);
    EXPECT_NE(GetWindowLongPtrW(Handle(edit), GWLP_WNDPROC), own);
    EXPECT_EQ(GetPropW(Handle(edit), L"FISavedWindowProc"), reinterpret_cast<HANDLE>(own));
    EXPECT_EQ(GetPropW(Handle(edit), L"FISavedCEveEdit"), nullptr);
    TakeEditProcedure(edit, &box);
    EXPECT_EQ(GetPropW(Handle(edit), L"FISavedWindowProc"), reinterpret_cast<HANDLE>(own));
    EXPECT_EQ(GetPropW(Handle(edit), L"FISavedCEveEdit"), &box);
}

TEST_F(Controls, ATabCharacterMovesTheFocusToTheNextOrWithShiftToTheLast) {
    const PatchedImport patch("GetAsyncKeyState", &TellShift);
    NativeWindow buttons[3];
    InstallWindowProcedures();
    for (NativeWindow& button : buttons) TakeControlProcedure(button = MakeChild(u"button"));
    ShowOrHide(top, true);
    for (const auto& [shift, reached] : {std::pair{SHORT(0), 1}, std::pair{SHORT(-0x8000), 2}}) {
        gShiftState = shift;
        Focus(buttons[0]);
        Send(buttons[0], kMessageCharacter, kKeyTab, 0);
        EXPECT_EQ(GetFocus(), Handle(buttons[reached]));
        EXPECT_EQ(StyleOf(buttons[reached]) & 0xF, 1u) << "the default button now";
    }
}

TEST_F(Controls, TheActiveWindowIsTheOneThatWasActivated) {
    const NativeWindow other = Make(u"#32770", WS_POPUP | WS_CAPTION);
    ShowOrHide(top, true);
    ShowOrHide(other, true);
    Activate(top);
    EXPECT_EQ(GetActiveWindow(), Handle(top));
    Activate(other);
    EXPECT_EQ(GetActiveWindow(), Handle(other));
    CloseWindow(other);
}

TEST_F(Controls, AClassOfOurOwnHasAnArrowAndNothingElse) {
    const std::u16string name = NewUniqueName();
    ASSERT_TRUE(RegisterDialogClass(name.c_str(), LibraryModule()));
    WNDCLASSW description = {};
    EXPECT_TRUE(GetClassInfoW(reinterpret_cast<HINSTANCE>(LibraryModule()),
                              reinterpret_cast<const wchar_t*>(name.c_str()), &description));
    EXPECT_EQ(description.style, UINT(CS_VREDRAW | CS_HREDRAW));
    EXPECT_EQ(description.hCursor, LoadCursorW(nullptr, reinterpret_cast<const wchar_t*>(IDC_ARROW)));
    EXPECT_EQ(description.hIcon, nullptr);
    EXPECT_EQ(description.lpszMenuName, nullptr);
    EXPECT_EQ(description.cbClsExtra, 0);
    EXPECT_EQ(description.cbWndExtra, 0);
    // Its procedure is that of any dialog.
    TakeDialogProcedure(top);
    EXPECT_EQ(reinterpret_cast<LONG_PTR>(description.lpfnWndProc),
              GetWindowLongPtrW(Handle(top), GWLP_WNDPROC));
    UnregisterDialogClass(name.c_str(), LibraryModule());
}

} // namespace
} // namespace brixen::zeve::platform
