// Opens the gallery in a real window and reads every control back from the system. Tests that depend on words
// and faces run in English, German, Japanese and Hebrew, the others in English.
#include "windows/gallery/gallery_fixture.h"

#include <commctrl.h>

#include <map>
#include <string>
#include <vector>

namespace brixen::zeve {
namespace {

// A control as the system keeps it. The system removes WS_VSCROLL from a combo box and from a list without
// rows.
struct ControlRow {
    int id;
    const wchar_t* className;
    DWORD style; // without WS_VISIBLE and WS_DISABLED
    bool isShown, isEnabled;
    const wchar_t* text;
    int width; // 0: measured
};

constexpr int kWide = 160;
constexpr DWORD kFrame = 0x40000007;

const ControlRow kControls[] = {
    {110, L"Static", 0x40000000, true, true, L"Label, measured", 0},
    {111, L"Static", 0x40000002, true, true, L"At the right", kWide},
    {112, L"Static", 0x40000000, true, true, L"A text that is cut into pieces wherever it stops fitting",
     kWide},
    {113, L"Static", 0x40000000, true, true, L"", 0},
    {120, L"Edit", 0x40011080, true, true, L"Berlin", kWide},
    {121, L"Edit", 0x400110A0, true, true, L"secret", kWide},
    {122, L"Edit", 0x40211044, true, true, L"Several lines", kWide},
    {123, L"Edit", 0x40011880, true, true, L"Locked", kWide},
    {124, L"Edit", 0x40011080, true, true, L"With a check box", kWide - 30},
    {125, L"Edit", 0x40011080, true, true, L"Right to left", kWide},
    {126, L"Edit", 0x40011080, true, true, L"ASCII", kWide},
    {127, L"Edit", 0x40011080, true, true, L"42", kWide},
    {130, L"Button", 0x40000007, true, true, L"Cluster", 0},
    {131, L"Button", 0x40010003, true, true, L"Check box", 0},
    {132, L"Button", 0x40010003, true, false, L"Disabled", 0},
    {133, L"Button", 0x40000007, true, true, L"Radio group", 0},
    {134, L"Button", 0x40010004, true, true, L"First", 0},
    {135, L"Button", 0x40010004, true, true, L"Second", 0},
    {140, L"ComboBox", 0x40010003, true, true, L"One", 0},
    {141, L"ComboBox", 0x40010003, true, true, L"More", 20},
    {150, L"msctls_trackbar32", 0x40000001, true, true, L"", kWide},
    {151, L"msctls_progress32", 0x40000000, true, true, L"", kWide},
    {152, L"ScrollBar", 0x40000000, true, true, L"", kWide},
    {153, L"Static", 0x40000010, true, true, L"", kWide},
    {154, L"ListBox", 0x40010401, true, true, L"", kWide},
    {160, L"SysTabControl32", 0x40010000, true, true, L"One;;Two", kWide},
    {161, L"SysTreeView32", 0x40810011, true, true, L"", kWide},
    {162, L"Static", 0x40000003, true, true, L"", 32},
    {163, L"Static", 0x40000003, true, true, L"", 32},
    {164, L"Static", 0x4000000E, true, true, L"", 0},
    {165, L"Static", 0x40000007, true, true, L"", 32},
    {166, L"Static", 0x40000000, false, true, L"Hidden", 0},
    {167, L"Static", 0x40000000, true, true, L"Large and slanted", 200},
    {170, L"Button", 0x40010000, true, true, L"Plain", 95},
    {171, L"Button", 0x40010000, true, true, L"A longer button text", 0},
    {173, L"Button", 0x40010000, true, true, L"Hide", 0},
    {172, L"Button", 0x40010001, true, true, L"OK", 95},
};

class GalleryInEachLanguage : public GalleryTest, public testing::WithParamInterface<const char*> {
protected:
    GalleryInEachLanguage() : GalleryTest(GetParam()) {}
};

INSTANTIATE_TEST_SUITE_P(, GalleryInEachLanguage, testing::Values("en_US", "de_DE", "ja_JP", "he_IL"),
                         [](const auto& test) { return std::string(test.param); });

TEST_P(GalleryInEachLanguage, EveryControlHasItsClassStyleAndText) {
    Open();
    for (const ControlRow& row : kControls) {
        const HWND control = Control(row.id);
        ASSERT_TRUE(control) << row.id;
        const auto style = static_cast<DWORD>(GetWindowLongW(control, GWL_STYLE));
        // The system adds some bits to a combo box and to the themed controls.
        EXPECT_EQ(_wcsicmp(ClassOf(control).c_str(), row.className), 0) << row.id;
        EXPECT_EQ(style & row.style, row.style) << row.id << std::hex << " " << style;
        EXPECT_EQ(bool(style & WS_VISIBLE), row.isShown) << row.id;
        EXPECT_EQ(!(style & WS_DISABLED), row.isEnabled) << row.id;
        EXPECT_EQ(Text(control), InItsLanguage(row.id, row.text)) << row.id;
        EXPECT_EQ(GetParent(control), window) << row.id;
    }
}

TEST_F(GalleryTest, PlainControlsHaveExactlyTheirStyle) {
    Open();
    for (const ControlRow& row : kControls) {
        const std::wstring name = row.className;
        if (name != L"Static" && name != L"Button") continue;
        const auto style = static_cast<DWORD>(GetWindowLongW(Control(row.id), GWL_STYLE));
        EXPECT_EQ(style & ~DWORD(WS_VISIBLE | WS_DISABLED), row.style) << row.id << std::hex << " " << style;
    }
}

TEST_P(GalleryInEachLanguage, EveryControlIsAtThePlaceOfItsBox) {
    Open();
    for (const ControlRow& row : kControls) {
        ASSERT_TRUE(host.boxes.count(row.id)) << row.id;
        const CEveBox& box = *host.boxes[row.id];
        const RECT frame = FrameOf(Control(row.id));
        const int room = box.subControl ? 30 : 0; // for the check box before it
        EXPECT_EQ(frame.left, box.left + room) << row.id;
        EXPECT_EQ(frame.top, box.top) << row.id;
        // The system sets the height of a closed combo box, and ends a list after a whole row.
        const std::wstring name = row.className;
        EXPECT_EQ(frame.right - frame.left, box.width - room) << row.id;
        if (row.width) {
            EXPECT_EQ(frame.right - frame.left, row.width) << row.id;
        }
        if (name == L"ComboBox" || name == L"ListBox") continue;
        EXPECT_EQ(frame.bottom - frame.top, box.height) << row.id;
    }
}

TEST_F(GalleryTest, TheWindowHasTheClientAreaOfTheLayout) {
    Open();
    const CEveBox& root = *host.boxes[100];
    RECT client;
    GetClientRect(window, &client);
    EXPECT_EQ(client.right, root.width);
    EXPECT_EQ(client.bottom, root.height);
    EXPECT_EQ(Text(window), L"Gallery");
    EXPECT_EQ(ClassOf(window), L"#32770");
    EXPECT_EQ(GetWindowLongW(window, GWL_STYLE) & (WS_CAPTION | WS_SYSMENU), WS_CAPTION | WS_SYSMENU);
    for (const int id : {101, 102, 103, 104, 155}) {
        EXPECT_EQ(host.boxes[id]->control, nullptr) << id;
        EXPECT_EQ(Control(id), nullptr) << id;
    }
}

TEST_P(GalleryInEachLanguage, TabFollowsTheOrderOfTheView) {
    Open();
    std::vector<int> order;
    const HWND first = Control(120);
    HWND control = first;
    do {
        order.push_back(GetDlgCtrlID(control));
        control = GetNextDlgTabItem(window, control, FALSE);
    } while (control && control != first && order.size() < 100);
    // Without the check box before 124, which is hidden until the host shows it, and without the tabs 160,
    // which count as a parent of other controls.
    const std::vector<int> expected = {120, 121, 122, 123, 124, 125, 126, 127, 131, 134,
                                       135, 140, 141, 154, 161, 170, 171, 173, 172};
    EXPECT_EQ(order, expected);
}

TEST_P(GalleryInEachLanguage, EveryMeasuredTextHasRoom) {
    Open();
    for (const ControlRow& row : kControls) {
        if (row.width || !*row.text || row.style == kFrame) continue; // a frame does not measure its title
        const HWND control = Control(row.id);
        const std::wstring text = Text(control);
        const HDC device = GetDC(control);
        const auto font = reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0));
        const HGDIOBJ before = SelectObject(device, font);
        SIZE extent = {};
        GetTextExtentPoint32W(device, text.c_str(), static_cast<int>(text.size()), &extent);
        SelectObject(device, before);
        ReleaseDC(control, device);
        const RECT frame = FrameOf(control);
        EXPECT_GT(extent.cx, 0) << row.id;
        EXPECT_GE(frame.right - frame.left, extent.cx) << row.id;
    }
}

TEST_P(GalleryInEachLanguage, NoControlLeavesTheWindowOrCoversAnother) {
    Open();
    RECT client;
    GetClientRect(window, &client);
    std::map<int, RECT> placed;
    for (const ControlRow& row : kControls) {
        // A group box surrounds others.
        if ((row.style == kFrame && *row.text) || !row.isShown) continue;
        const RECT frame = FrameOf(Control(row.id));
        RECT common;
        IntersectRect(&common, &frame, &client);
        EXPECT_TRUE(EqualRect(&common, &frame)) << row.id;
        for (const auto& [id, other] : placed) {
            EXPECT_FALSE(IntersectRect(&common, &frame, &other)) << row.id << " on " << id;
        }
        placed[row.id] = frame;
    }
}

TEST_P(GalleryInEachLanguage, TheFaceIsThatOfTheLanguage) {
    Open();
    const bool isJapanese = GetParam() == std::string("ja_JP");
    for (const ControlRow& row : kControls) {
        if (!*row.text) continue; // some controls without a text keep no font
        const LOGFONTW font = FontOf(Control(row.id));
        EXPECT_STREQ(font.lfFaceName, isJapanese ? L"MS UI Gothic" : L"Tahoma") << row.id;
        EXPECT_EQ(font.lfCharSet, isJapanese ? SHIFTJIS_CHARSET : ANSI_CHARSET) << row.id;
    }
}

TEST_F(GalleryTest, RightToLeftFieldsHaveTheExtendedStyle) {
    Open();
    constexpr LONG kRightToLeft = WS_EX_RTLREADING | WS_EX_LEFTSCROLLBAR | WS_EX_RIGHT;
    EXPECT_EQ(GetWindowLongW(Control(125), GWL_EXSTYLE) & kRightToLeft, kRightToLeft);
    EXPECT_EQ(GetWindowLongW(Control(120), GWL_EXSTYLE) & kRightToLeft, 0);
    EXPECT_TRUE(GetWindowLongW(Control(120), GWL_EXSTYLE) & WS_EX_CLIENTEDGE);
    EXPECT_TRUE(GetWindowLongW(Control(130), GWL_EXSTYLE) & WS_EX_CONTROLPARENT);
    EXPECT_TRUE(GetWindowLongW(Control(167), GWL_EXSTYLE) & WS_EX_STATICEDGE); // by `win_ex_style`
}

TEST_F(GalleryTest, MarksRowsTabsIconsAndFocusAreSet) {
    Open();
    EXPECT_EQ(SendMessageW(Control(131), BM_GETCHECK, 0, 0), 1);
    EXPECT_EQ(SendMessageW(Control(132), BM_GETCHECK, 0, 0), 0);
    EXPECT_EQ(SendMessageW(Control(134), BM_GETCHECK, 0, 0), 1);
    EXPECT_EQ(SendMessageW(Control(140), CB_GETCOUNT, 0, 0), 3);
    EXPECT_EQ(SendMessageW(Control(140), CB_GETCURSEL, 0, 0), 0);
    EXPECT_EQ(SendMessageW(Control(160), TCM_GETITEMCOUNT, 0, 0), 3);
    EXPECT_TRUE(SendMessageW(Control(162), STM_GETIMAGE, IMAGE_ICON, 0));
    EXPECT_TRUE(SendMessageW(Control(163), STM_GETIMAGE, IMAGE_ICON, 0));
    EXPECT_EQ(SendMessageW(Control(120), EM_GETLIMITTEXT, 0, 0), 10);
    EXPECT_EQ(GetFocus(), Control(172));
}

TEST_F(GalleryTest, TabsHaveTheirTexts) {
    Open();
    const std::vector<std::wstring> expected = {L"One", L"", L"Two"};
    for (std::size_t i = 0; i < expected.size(); ++i) {
        wchar_t text[32] = {};
        TCITEMW item = {};
        item.mask = TCIF_TEXT;
        item.pszText = text;
        item.cchTextMax = 32;
        EXPECT_TRUE(SendMessageW(Control(160), TCM_GETITEMW, i, reinterpret_cast<LPARAM>(&item)));
        EXPECT_EQ(item.pszText, expected[i]);
    }
}

TEST_F(GalleryTest, EveryControlHasTheFontOfItsView) {
    Open();
    const auto fontOf = [this](int id) { return FontOf(Control(id)); };
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    EXPECT_EQ(fontOf(120).lfHeight, -(11 * dpi / 72));
    EXPECT_EQ(fontOf(111).lfHeight, -(8 * dpi / 72));
    EXPECT_EQ(fontOf(112).lfWeight, 700);
    EXPECT_EQ(fontOf(171).lfWeight, 700);
    EXPECT_EQ(fontOf(120).lfWeight, 400);
    EXPECT_EQ(fontOf(167).lfHeight, -(14 * dpi / 72));
    EXPECT_TRUE(fontOf(167).lfItalic);
    EXPECT_TRUE(fontOf(167).lfUnderline);
    EXPECT_FALSE(fontOf(120).lfItalic || fontOf(120).lfUnderline);
    EXPECT_EQ(fontOf(120).lfQuality, 2);
    EXPECT_EQ(fontOf(120).lfPitchAndFamily, 0x22);
}

TEST_F(GalleryTest, AButtonHasRoomForItsAlternativeName) {
    Open();
    const RECT hide = FrameOf(Control(173)); // "Hide", or "Show all of the details"
    EXPECT_GT(hide.right - hide.left, 95);
}

TEST_F(GalleryTest, ValuesReachTheRealControls) {
    Open();
    const auto set = [this](int id, const char* text) {
        EventRecord record;
        record.StorePointer(kKeySetValue, text);
        return ZeveSetValue(dialog, static_cast<std::uint16_t>(id), record);
    };
    EXPECT_TRUE(set(113, "g"));
    EXPECT_EQ(Text(Control(113)), L"Green");
    EXPECT_TRUE(set(120, "M\xC3\xBCnchen"));
    EXPECT_EQ(Text(Control(120)), L"M\x00FCnchen");
    EXPECT_TRUE(set(140, "3"));
    EXPECT_EQ(Text(Control(140)), L"Three");
    EXPECT_FALSE(set(999, "x"));
    ZeveRetranslate(dialog);
    EXPECT_EQ(Text(Control(113)), L"Green");
    EXPECT_EQ(Text(Control(140)), L"Three");
    EXPECT_EQ(SendMessageW(Control(140), CB_GETCOUNT, 0, 0), 3);
}

class HebrewGalleryTest : public GalleryTest {
protected:
    HebrewGalleryTest() : GalleryTest("he_IL") {}
};

TEST_F(HebrewGalleryTest, TheDialogIsMirroredAndReadsFromRightToLeft) {
    Open();
    EXPECT_GT(host.boxes[101]->left, host.boxes[103]->left);
    EXPECT_EQ(GetWindowLongW(Control(170), GWL_EXSTYLE) & 0x7000, 0x2000);
    EXPECT_EQ(GetWindowLongW(Control(131), GWL_EXSTYLE) & 0x7000, 0x7000);
    EXPECT_EQ(GetWindowLongW(Control(165), GWL_EXSTYLE) & 0x7000, 0x2000);
    EXPECT_EQ(GetWindowLongW(Control(110), GWL_EXSTYLE) & 0x7000, 0x7000);
}

} // namespace
} // namespace brixen::zeve
