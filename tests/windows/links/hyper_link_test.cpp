// Hyperlinks on real controls: the system's own keyboard rules, mouse messages, painting and tooltips.
#include "windows/links/link_fixture.h"
#include "workflow/platform/painting.h"

#include <commctrl.h>

#include <algorithm>
#include <map>

namespace brixen::pvn::pvn_workflow {
namespace {

constexpr COLORREF kBlue = RGB(0, 0, 255), kPurple = RGB(128, 0, 128);

class RealLink : public LinkFixture {
protected:
    // How many pixels of each color the control prints in a part of its client area.
    std::map<COLORREF, int> Printed(const RECT& part) const {
        RECT client = {};
        GetClientRect(control, &client);
        const platform::OwnedBitmap bitmap = platform::MakeBitmap({client.right, client.bottom});
        std::map<COLORREF, int> colors;
        {
            const platform::BitmapDrawing drawing(bitmap.get());
            const auto device = reinterpret_cast<HDC>(drawing.Device());
            SendMessageW(control, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(device), PRF_CLIENT);
            for (int y = part.top; y < part.bottom; ++y) {
                for (int x = part.left; x < part.right; ++x) ++colors[GetPixel(device, x, y)];
            }
        }
        return colors;
    }
    RECT LinkPart() const {
        return {link->linkRect.left, link->linkRect.top, link->linkRect.right, link->linkRect.bottom};
    }
    // What lies right of the link.
    RECT Rest() const { return {link->linkRect.right, 0, 200, link->linkRect.bottom}; }
    int MiddleX() const { return (link->linkRect.left + link->linkRect.right) / 2; }
    int MiddleY() const { return (link->linkRect.top + link->linkRect.bottom) / 2; }
};

// --- Painting ---

TEST_F(RealLink, IsUnderlinedInItsColor) {
    Attach(HyperLink::kCommandButton);
    auto inside = Printed(LinkPart());
    EXPECT_GE(inside[kBlue], link->linkRect.Width()) << "the line below the text";
    EXPECT_GT(inside[kBackground], 0) << "the parent's brush";
    EXPECT_EQ(Printed(Rest()).size(), 1u) << "nothing but the background";
    link->state |= HyperLink::kVisited;
    inside = Printed(LinkPart());
    EXPECT_GE(inside[kPurple], link->linkRect.Width());
    EXPECT_EQ(inside[kBlue], 0);
}

TEST_F(RealLink, IsGrayWhenItIsDisabled) {
    Attach(HyperLink::kCommandButton);
    EnableWindow(control, FALSE);
    auto inside = Printed(LinkPart());
    EXPECT_GE(inside[GetSysColor(COLOR_GRAYTEXT)], link->linkRect.Width());
    EXPECT_EQ(inside[kBlue], 0);
    EXPECT_TRUE(commands.empty()) << "the control reports nothing";
}

TEST_F(RealLink, HasPlainTextAroundItsTags) {
    SetWindowTextW(control, L"Please <A>read</a> it");
    Attach(HyperLink::kCommandButton | HyperLink::kHasTags);
    EXPECT_GT(link->linkRect.left, 10);
    EXPECT_GE(Printed(LinkPart())[kBlue], link->linkRect.Width());
    const RECT before = {0, 0, link->linkRect.left, link->linkRect.bottom};
    for (const RECT& part : {before, Rest()}) {
        auto colors = Printed(part);
        EXPECT_EQ(colors[kBlue], 0);
        EXPECT_GT(colors.size(), 1u) << "text of the parent's color";
    }
}

TEST_F(RealLink, IsMeasuredByTheSystem) {
    Attach(HyperLink::kCommandButton);
    const HDC device = GetDC(control);
    const HGDIOBJ former = SelectObject(device, reinterpret_cast<HFONT>(link->linkFont));
    RECT expected = {};
    GetClientRect(control, &expected);
    DrawTextW(device, L"Read &more", -1, &expected, 1040);
    SelectObject(device, former);
    ReleaseDC(control, device);
    EXPECT_EQ(link->linkRect.right, expected.right);
    EXPECT_EQ(link->linkRect.bottom, expected.bottom);
}

TEST_F(RealLink, AtTheRightIsDrawnWhereItReacts) {
    SetWindowLongW(control, GWL_STYLE, GetWindowLongW(control, GWL_STYLE) | SS_RIGHT);
    Attach(HyperLink::kCommandButton);
    EXPECT_EQ(link->linkRect.right, 200);
    EXPECT_GE(Printed(LinkPart())[kBlue], link->linkRect.Width());
    EXPECT_EQ(Printed({0, 0, link->linkRect.left, link->linkRect.bottom}).size(), 1u);
}

TEST_F(RealLink, ReadFromRightHasItsFirstPartAtTheRight) {
    SetWindowLongW(control, GWL_STYLE, GetWindowLongW(control, GWL_STYLE) | SS_RIGHT);
    SetWindowLongW(control, GWL_EXSTYLE, GetWindowLongW(control, GWL_EXSTYLE) | WS_EX_RTLREADING);
    SetWindowTextW(control, L"\u05E7\u05E8\u05D0\u05D5 \u05D0\u05EA <A>\u05D6\u05D4</A>");
    Attach(HyperLink::kCommandButton | HyperLink::kHasTags);
    EXPECT_LT(link->linkRect.right, 190) << "the link is read last";
    EXPECT_GE(Printed(LinkPart())[kBlue], link->linkRect.Width());
    auto first = Printed(Rest());
    EXPECT_GT(first[kText], 0);
    EXPECT_EQ(first[kBlue], 0);
    EXPECT_EQ(Printed({0, 0, link->linkRect.left, link->linkRect.bottom}).size(), 1u) << "nothing follows it";
}

TEST_F(RealLink, MayHaveABoldLinkPart) {
    SetWindowTextW(control, L"Please <A>read</A> it");
    Attach(HyperLink::kCommandButton | HyperLink::kHasTags | HyperLink::kBoldLink);
    LOGFONTW font = {};
    GetObjectW(reinterpret_cast<HFONT>(link->linkFont), sizeof font, &font);
    EXPECT_EQ(font.lfWeight, FW_BOLD);
    EXPECT_FALSE(font.lfUnderline);
    EXPECT_GT(Printed(LinkPart())[kBlue], 0);
    int mostInARow = 0;
    for (LONG y = 0; y < link->linkRect.bottom; ++y) {
        mostInARow =
            std::max(mostInARow, Printed({link->linkRect.left, y, link->linkRect.right, y + 1})[kBlue]);
    }
    EXPECT_LT(mostInARow, link->linkRect.Width()) << "no line below the text";
}

TEST_F(RealLink, HasTheColorsOfTheUsersSettings) {
    const wchar_t* const kKey = L"Software\\Microsoft\\Internet Explorer\\Settings";
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, kKey, 0, nullptr, 0, KEY_SET_VALUE, nullptr, &key, nullptr),
              ERROR_SUCCESS);
    RegSetValueExW(key, L"Anchor Color", 0, REG_SZ, reinterpret_cast<const BYTE*>(L"1,128,3"), 16);
    RegSetValueExW(key, L"Anchor Color Visited", 0, REG_SZ, reinterpret_cast<const BYTE*>(L"4,5,160"), 16);
    Attach(HyperLink::kCommandButton);
    RegDeleteValueW(key, L"Anchor Color");
    RegDeleteValueW(key, L"Anchor Color Visited");
    RegCloseKey(key);
    EXPECT_GE(Printed(LinkPart())[RGB(1, 128, 3)], link->linkRect.Width());
    link->state |= HyperLink::kVisited;
    EXPECT_GE(Printed(LinkPart())[RGB(4, 5, 160)], link->linkRect.Width());
}

TEST_F(RealLink, FillsThePlaceOfAView) {
    control = GetDlgItem(window, kPlaceId);
    ASSERT_NE(control, nullptr);
    Attach(HyperLink::kCommandButton);
    EXPECT_EQ(link->label, u"Read &all");
    EXPECT_GE(Printed(LinkPart())[kBlue], link->linkRect.Width());
    Click(MiddleX(), MiddleY());
    EXPECT_EQ(Commands(kPlaceId), 1);
    SetFocus(GetDlgItem(window, kFieldId));
    PostMessageW(window, WM_SYSCHAR, L'a', 0x20000001);
    HandleMessages();
    EXPECT_EQ(Commands(kPlaceId), 2) << "its access key";
}

TEST_F(RealLink, HasAFocusFrame) {
    Attach(HyperLink::kCommandButton);
    const auto without = Printed(LinkPart());
    SetFocus(control);
    EXPECT_NE(Printed(LinkPart()), without);
}

TEST_F(RealLink, PaintsItselfOnTheScreen) {
    Attach(HyperLink::kCommandButton);
    UpdateWindow(control);
    EXPECT_FALSE(GetUpdateRect(control, nullptr, FALSE)) << "the paint message was answered";
    const HDC device = GetDC(control);
    int blue = 0;
    for (int x = 0; x < link->linkRect.right; ++x) {
        for (int y = 0; y < link->linkRect.bottom; ++y) blue += GetPixel(device, x, y) == kBlue;
    }
    ReleaseDC(control, device);
    EXPECT_GE(blue, link->linkRect.Width());
}

TEST_F(RealLink, FollowsTheTextOfItsControl) {
    Attach(HyperLink::kCommandButton);
    const std::int32_t before = link->linkRect.right;
    SetWindowTextW(control, L"Read much more");
    EXPECT_EQ(link->label, u"Read much more");
    EXPECT_GT(link->linkRect.right, before);
    link->SetLabel(u"Read");
    wchar_t text[20] = {};
    GetWindowTextW(control, text, 20);
    EXPECT_STREQ(text, L"Read");
    EXPECT_LT(link->linkRect.right, before);
}

// --- Mouse ---

TEST_F(RealLink, SendsOneCommandForAClick) {
    Attach(HyperLink::kCommandButton);
    Click(MiddleX(), MiddleY());
    EXPECT_EQ(commands, std::vector<WPARAM>{kLinkId});
    EXPECT_EQ(GetFocus(), control);
    EXPECT_EQ(GetCapture(), nullptr);
    Click(199, 2);
    SendMessageW(control, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(MiddleX(), MiddleY()));
    EXPECT_EQ(commands.size(), 1u) << "nothing beside it, nor for a second press";
}

TEST_F(RealLink, SendsANotificationForAClick) {
    Attach(HyperLink::kCommandButton | HyperLink::kSendsNotify);
    Click(MiddleX(), MiddleY());
    ASSERT_EQ(notifications.size(), 1u);
    EXPECT_EQ(notifications[0].hwndFrom, control);
    EXPECT_EQ(notifications[0].idFrom, static_cast<UINT_PTR>(kLinkId));
    EXPECT_EQ(notifications[0].code, NM_CLICK);
    EXPECT_TRUE(commands.empty());
}

// Moves the mouse and waits for the system, which does not always move it at once.
bool MoveMouse(POINT place) {
    for (int tries = 0; tries < 200; ++tries) {
        SetCursorPos(place.x, place.y);
        POINT now = {};
        if (GetCursorPos(&now) && now.x == place.x && now.y == place.y) return true;
        Sleep(10);
    }
    return false;
}

TEST_F(RealLink, ShowsTheHandOverItself) {
    Attach(HyperLink::kCommandButton);
    SetCursor(LoadCursorW(nullptr, reinterpret_cast<const wchar_t*>(IDC_ARROW)));
    SendMessageW(control, WM_MOUSEMOVE, 0, MAKELPARAM(MiddleX(), MiddleY()));
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, reinterpret_cast<const wchar_t*>(IDC_HAND)));
    POINT place = {MiddleX(), MiddleY()};
    ClientToScreen(control, &place);
    const LPARAM hit = MAKELPARAM(HTCLIENT, WM_MOUSEMOVE);
    bool isAnswered = false;
    // The system may move the mouse once more, to where it was.
    for (int tries = 0; tries < 100 && !isAnswered; ++tries) {
        ASSERT_TRUE(MoveMouse(place));
        isAnswered = SendMessageW(control, WM_SETCURSOR, reinterpret_cast<WPARAM>(control), hit) == TRUE;
    }
    EXPECT_TRUE(isAnswered);
}

TEST_F(RealLink, HasATooltipWithItsAddress) {
    link->url = u"http://example.com/a";
    Attach(0);
    const auto tooltip = reinterpret_cast<HWND>(link->toolTip);
    ASSERT_TRUE(IsWindow(tooltip));
    EXPECT_EQ(SendMessageW(tooltip, TTM_GETTOOLCOUNT, 0, 0), 1);
    link->SetHyperLink(u"http://example.com/b");
    EXPECT_EQ(SendMessageW(tooltip, TTM_GETTOOLCOUNT, 0, 0), 1);
    wchar_t text[100] = {};
    TTTOOLINFOW tool = {};
    tool.cbSize = 64;
    tool.hwnd = control;
    tool.uId = 1;
    tool.lpszText = text;
    SendMessageW(tooltip, TTM_GETTEXTW, 100, reinterpret_cast<LPARAM>(&tool));
    EXPECT_STREQ(text, L"http://example.com/b");
    SendMessageW(tooltip, TTM_GETTOOLINFOW, 0, reinterpret_cast<LPARAM>(&tool));
    EXPECT_EQ(tool.rect.right, link->linkRect.right);
    SendMessageW(control, WM_MOUSEMOVE, 0, MAKELPARAM(2, 2)); // relayed
    DestroyWindow(control);
    EXPECT_FALSE(IsWindow(tooltip));
}

TEST_F(RealLink, ShowsItsTooltipUnderAMouseThatRests) {
    link->url = u"http://example.com/a";
    Attach(0);
    const auto tooltip = reinterpret_cast<HWND>(link->toolTip);
    POINT place = {MiddleX(), MiddleY()};
    ClientToScreen(control, &place);
    ASSERT_TRUE(MoveMouse(place));
    EXPECT_FALSE(IsWindowVisible(tooltip));
    SendMessageW(control, WM_MOUSEMOVE, 0, MAKELPARAM(MiddleX(), MiddleY()));
    for (int i = 0; i < 3000 && !IsWindowVisible(tooltip); ++i) {
        HandleMessages();
        Sleep(10);
    }
    EXPECT_TRUE(IsWindowVisible(tooltip));
    SendMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(MiddleX(), MiddleY()));
    EXPECT_FALSE(IsWindowVisible(tooltip)) << "a press takes it away";
    ReleaseCapture();
}

// --- Keyboard ---

TEST_F(RealLink, IsReachedByTab) {
    Attach(HyperLink::kCommandButton);
    EXPECT_EQ(GetNextDlgTabItem(window, GetDlgItem(window, kFieldId), FALSE), control);
}

TEST_F(RealLink, OpensOnceForEnter) {
    Attach(HyperLink::kCommandButton);
    SetFocus(control);
    PressKey(control, VK_RETURN);
    EXPECT_EQ(Commands(kLinkId), 0);
    EXPECT_EQ(Commands(IDOK), 1) << "the dialog's own rule for the key";
    ReleaseKey(control, VK_RETURN);
    EXPECT_EQ(Commands(kLinkId), 1);
}

TEST_F(RealLink, OpensOnceForSpace) {
    Attach(HyperLink::kCommandButton);
    SetFocus(control);
    PressKey(control, VK_SPACE);
    ReleaseKey(control, VK_SPACE);
    EXPECT_EQ(Commands(kLinkId), 1);
}

TEST_F(RealLink, DoesNotOpenForAnEnterThatWasPressedElsewhere) {
    Attach(HyperLink::kCommandButton);
    const HWND button = GetDlgItem(window, kButtonId);
    SetFocus(button);
    atCommand = [this](int) { SetFocus(control); };
    PressKey(button, VK_RETURN);
    ASSERT_EQ(GetFocus(), control);
    ReleaseKey(control, VK_RETURN);
    EXPECT_EQ(Commands(kLinkId), 0);
}

TEST_F(RealLink, DoesNotOpenForAnEnterThatLedAway) {
    Attach(HyperLink::kCommandButton);
    SetFocus(control);
    atCommand = [this](int) { SetFocus(GetDlgItem(window, kButtonId)); };
    PressKey(control, VK_RETURN);
    atCommand = nullptr;
    SetFocus(control);
    ReleaseKey(control, VK_RETURN);
    EXPECT_EQ(Commands(kLinkId), 0);
}

TEST_F(RealLink, OpensByItsAccessKey) {
    Attach(HyperLink::kCommandButton);
    SetFocus(GetDlgItem(window, kButtonId));
    PostMessageW(GetFocus(), WM_SYSCHAR, 'm', 0x20010001);
    HandleMessages();
    EXPECT_EQ(Commands(kLinkId), 1);
    EXPECT_EQ(GetFocus(), control);
}

// --- Lives ---

TEST_F(RealLink, MayEndBeforeItsControl) {
    Attach(HyperLink::kCommandButton);
    const auto tooltip = reinterpret_cast<HWND>(link->toolTip);
    link.reset();
    EXPECT_FALSE(IsWindow(tooltip));
    Click(2, 2);
    EXPECT_EQ(commands, std::vector<WPARAM>{kLinkId}) << "the static reports the press itself again";
}

TEST_F(RealLink, MayEndInTheMiddleOfItsClick) {
    Attach(HyperLink::kCommandButton);
    atCommand = [this](int) { link.reset(); };
    Click(MiddleX(), MiddleY());
    EXPECT_EQ(Commands(kLinkId), 1);
    link = std::make_unique<HyperLink>();
    Attach(HyperLink::kCommandButton);
    atCommand = [this](int) { DestroyWindow(control); };
    Click(2, 2);
    EXPECT_FALSE(IsWindow(control));
    EXPECT_EQ(link->window, nullptr);
}

LRESULT CALLBACK PassingProcedure(HWND handle, UINT message, WPARAM wparam, LPARAM lparam) {
    return CallWindowProcW(reinterpret_cast<WNDPROC>(GetPropW(handle, L"Former")), handle, message, wparam,
                           lparam);
}

TEST_F(RealLink, MayEndBelowAProcedureOfTheHost) {
    Attach(HyperLink::kCommandButton);
    const auto former =
        SetWindowLongPtrW(control, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&PassingProcedure));
    SetPropW(control, L"Former", reinterpret_cast<HANDLE>(former));
    link.reset();
    SetWindowTextW(control, L"four");
    EXPECT_EQ(GetWindowTextLengthW(control), 4);
    link = std::make_unique<HyperLink>();
    Attach(HyperLink::kCommandButton);
    Click(2, 2);
    EXPECT_EQ(Commands(kLinkId), 1);
    RemovePropW(control, L"Former");
    SetWindowLongPtrW(control, GWLP_WNDPROC, former);
    DestroyWindow(control);
    EXPECT_EQ(link->window, nullptr);
}

TEST_F(RealLink, EndsWithTheDialog) {
    Attach(HyperLink::kCommandButton);
    DestroyWindow(window);
    EXPECT_EQ(link->window, nullptr);
    EXPECT_EQ(link->linkFont, nullptr);
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
