// A dialog of a pane host with everything painted, opened again and again: the shown pixels, and that the
// system's objects are all given back.
#include "frame/frame_state.h"
#include "frame/pavane_context.h"
#include "toolkit/dialog/zeve_dialog.h"
#include "toolkit/platform/toolkit_platform.h"
#include "values/storage.h"
#include "windows/painting/real_window.h"
#include "windows/toolkit/patched_import.h"
#include "workflow/context/context_keys.h"
#include "workflow/context/workflow_context.h"
#include "workflow/controls/busy_bar.h"
#include "workflow/controls/hyper_link.h"
#include "workflow/controls/my_prog_bar.h"
#include "workflow/panes/alert.h"
#include "workflow/panes/concrete_host.h"
#include "workflow/panes/dialog_state_machine.h"
#include "workflow/panes/pane.h"
#include "workflow/panes/pane_helpers.h"
#include "workflow/platform/text_drawing.h"
#include "workflow/resources/resource_layer.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <winternl.h>

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

namespace brixen::pvn::pvn_workflow {
namespace {

constexpr std::uint16_t kDone = 24, kText = 30, kBar = 31, kPicture = 32, kGauge = 33, kLink = 34;
constexpr char kView[] = R"(
dialog(name: 'Painting', width: 300, height: 200) {
    static_text(view_id: 30, name: 'A text over the backdrop', width: 200);
    static_text(view_id: 31, width: 100, height: 13);
    picture(view_id: 32, width: 64, height: 64);
    static_text(view_id: 34, name: 'A &link', width: 100);
    button(view_id: 24, name: 'Done');
})";
constexpr UINT kTick = 10; // milliseconds

class PaintedPane : public PVNPane {
public:
    explicit PaintedPane(PVNPaneHost& itsHost) : host(itsHost) {}
    std::span<const MarkedControl> MarkedControls() const override { return marked; }
    void Enter() override {
        const zeve::NativeWindow dialog = zeve::ZeveTopWindow(ref);
        EXPECT_TRUE(bar.Attach(zeve::platform::ChildWithId(dialog, kBar)));
        bar.Start();
        link.url = u"http://example.com";
        EXPECT_TRUE(link.Attach(zeve::platform::ChildWithId(dialog, kLink)));
        ShowBitmapInControl(host, "highlight1", kPicture);
        gauge = MakeGauge(dialog, kGauge, {10, 150, 210, 190});
        zeve::platform::Send(gauge, kGaugeSetRange, 0, 100);
        zeve::platform::Send(gauge, kGaugeSetPosition, 0, 40);
    }

    std::vector<MarkedControl> marked;

private:
    PVNPaneHost& host;
    BusyBar bar;
    HyperLink link;
    zeve::NativeWindow gauge = nullptr;
};

class PaintedHost : public PVNConcreteHost<PaintedHost, PaintedPane> {
public:
    using PVNConcreteHost::PVNConcreteHost;
    static std::span<const Command> Commands() {
        static constexpr Command kCommands[] = {{kDone, &PaintedHost::OnDone}};
        return kCommands;
    }

private:
    std::intptr_t OnDone() { return DeliverEvent("DoneButton"); }
};

// The graphic objects of the process. The count that the system offers is always 0 on some of its kinds;
// there the table of the process is counted, whose entries are in use if they have a type.
int GraphicObjects() {
    if (const DWORD count = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS))
        return static_cast<int>(count);
    struct Entry {
        std::uint64_t object;
        std::uint16_t process, count, upper;
        std::uint8_t type, flags;
        std::uint64_t user;
    };
    const auto* environment = reinterpret_cast<const std::byte*>(NtCurrentTeb()->ProcessEnvironmentBlock);
    const Entry* entries = *reinterpret_cast<const Entry* const*>(environment + 0xF8);
    return static_cast<int>(
        std::count_if(entries, entries + 0x4000, [](const Entry& e) { return e.type != 0; }));
}

BOOL CALLBACK CountChild(HWND, LPARAM count) {
    ++*reinterpret_cast<int*>(count);
    return TRUE;
}
BOOL CALLBACK CountWindow(HWND window, LPARAM count) {
    CountChild(window, count);
    EnumChildWindows(window, CountChild, count);
    return TRUE;
}
int Windows() {
    int count = 0;
    EnumThreadWindows(GetCurrentThreadId(), CountWindow, reinterpret_cast<LPARAM>(&count));
    return count;
}

class Openings : public testing::Test {
protected:
    Openings() : savedContext(GetFrameState().gPavaneContext) {
        GetFrameState().gPavaneContext = &frame;
        SelectLanguage("en_US");
        gTest = this;
    }
    ~Openings() override {
        ShutDownResources();
        GetFrameState().gPavaneContext = savedContext;
        gTest = nullptr;
    }

    // Opens the dialog, does that once it is shown and painted, and ends it.
    void Open(std::function<void()> then = [] {}) {
        action = std::move(then);
        PaintedHost host(kView);
        PaintedPane pane(host);
        pane.marked = marked;
        PVNDialogStateMachine machine(host);
        machine.SetTransition(1, kWFState_Done, "DoneButton");
        machine.SetProperty(1, kPropertyPaneObject, &pane);
        machine.SetProperty(kWFState_Any, kPropertyWorkflowContext, &context);
        machine.startState = 1;
        openHost = &host;
        const UINT_PTR timer = SetTimer(nullptr, 0, kTick, Tick);
        EXPECT_TRUE(machine.Run());
        KillTimer(nullptr, timer);
        openHost = nullptr;
    }
    HWND Dialog() const { return reinterpret_cast<HWND>(openHost->Window()); }

    // What the screen shows of a window's client area.
    Color OnScreen(HWND window, int x, int y) const {
        const HDC device = GetDC(window);
        const Color color = GetPixel(device, x, y);
        ReleaseDC(window, device);
        return color;
    }

    T_Storage bag;
    PVNWorkFlowContext context{bag};
    std::vector<MarkedControl> marked;

private:
    static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD) {
        const HWND dialog = gTest->Dialog();
        if (!dialog || !IsWindowVisible(dialog)) return;
        RedrawWindow(dialog, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        if (gTest->action) std::exchange(gTest->action, nullptr)();
        PostMessageW(dialog, WM_COMMAND, kDone, 0);
    }

    static inline Openings* gTest = nullptr;
    PavaneContext frame;
    PavaneContext* savedContext;
    std::function<void()> action;
    PaintedHost* openHost = nullptr;
};

// The pixel of the shipped background at a place of the dialog.
Color OfBackground(int x, int y) {
    const platform::PixelRows rows = platform::PixelsOf(LoadBitmapResource("background"));
    const std::byte* pixel = rows.Row(y).data() + x * rows.pixelBytes;
    return Pixel(std::to_integer<int>(pixel[2]), std::to_integer<int>(pixel[1]),
                 std::to_integer<int>(pixel[0]));
}

TEST_F(Openings, TheDialogShowsTheBackgroundAlsoBehindItsTexts) {
    Open([this] {
        RECT client{};
        GetClientRect(Dialog(), &client);
        const int x = client.right - 2, y = client.bottom - 2;
        EXPECT_EQ(OnScreen(Dialog(), x, y), OfBackground(x, y));
        const HWND text = GetDlgItem(Dialog(), kText);
        RECT place{};
        GetWindowRect(text, &place);
        MapWindowPoints(nullptr, Dialog(), reinterpret_cast<POINT*>(&place), 2);
        const int right = static_cast<int>(place.right - place.left) - 1; // past the end of the text
        for (int row = 0; row < place.bottom - place.top; ++row) {
            EXPECT_EQ(OnScreen(text, right, row),
                      OfBackground(static_cast<int>(place.left) + right, static_cast<int>(place.top) + row));
        }
    });
}

bool ShowsColor(HWND window, Color color) {
    RECT area{};
    GetClientRect(window, &area);
    const HDC device = GetDC(window);
    bool isFound = false;
    for (int y = 0; y < area.bottom && !isFound; ++y) {
        for (int x = 0; x < area.right && !isFound; ++x) isFound = GetPixel(device, x, y) == color;
    }
    ReleaseDC(window, device);
    return isFound;
}

TEST_F(Openings, AMarkedTextIsRedOrGreen) {
    for (const auto& [mark, color] :
         {std::pair(Mark::kError, Color{255}), std::pair(Mark::kSuccess, Color{46080})}) {
        marked = {{kText, mark}};
        Open([this, color = color] { EXPECT_TRUE(ShowsColor(GetDlgItem(Dialog(), kText), color)); });
    }
    marked.clear();
    Open([this] { EXPECT_FALSE(ShowsColor(GetDlgItem(Dialog(), kText), 255)); });
}

// The system in high contrast.
BOOL WINAPI AnswerHighContrast(UINT action, UINT, void* out, UINT) {
    if (action != SPI_GETHIGHCONTRAST) return FALSE;
    static_cast<HIGHCONTRASTW*>(out)->dwFlags = HCF_HIGHCONTRASTON;
    return TRUE;
}

TEST_F(Openings, InHighContrastEverythingHasTheSystemsColors) {
    const pavane_test::PatchedImport contrast("SystemParametersInfoW", &AnswerHighContrast);
    ASSERT_TRUE(contrast.IsPatched());
    marked = {{kText, Mark::kError}};
    Open([this] {
        RECT client{};
        GetClientRect(Dialog(), &client);
        const Color face = GetSysColor(COLOR_BTNFACE);
        for (int x = 0; x < client.right; x += 7) {
            EXPECT_EQ(OnScreen(Dialog(), x, client.bottom - 2), face) << "no backdrop";
            EXPECT_EQ(OnScreen(Dialog(), x, 1), face) << "no label and no logo";
        }
        const HWND text = GetDlgItem(Dialog(), kText);
        EXPECT_TRUE(ShowsColor(text, face));
        EXPECT_TRUE(ShowsColor(text, GetSysColor(COLOR_WINDOWTEXT)));
        EXPECT_FALSE(ShowsColor(text, 255)) << "no color of ours";
        const HWND link = GetDlgItem(Dialog(), kLink);
        EXPECT_TRUE(ShowsColor(link, GetSysColor(COLOR_HOTLIGHT)));
        EXPECT_TRUE(ShowsColor(link, face));
    });
}

TEST_F(Openings, TwoHundredLeaveNoObjectBehind) {
    for (int i = 0; i < 3; ++i) Open(); // what the system makes once
    const int objects = GraphicObjects(), windows = Windows();
    EXPECT_GT(objects, 0);
    for (int i = 0; i < 200; ++i) Open();
    EXPECT_EQ(GraphicObjects(), objects);
    EXPECT_EQ(Windows(), windows);
}

TEST(Devices, OfAWindowAreGivenBackWhileItLives) {
    const TestWindow window(30, 20);
    const auto use = [window = Opaque(window.Get())] {
        InvalidateRect(reinterpret_cast<HWND>(window), nullptr, FALSE);
        EXPECT_NE(platform::Painting(window).Device(), nullptr);
        EXPECT_GT(platform::MeasureTextIn(window, platform::StockFont(platform::kStockSystemFont), u"text",
                                          {0, 0, 30, 20}, 0)
                      .Width(),
                  0);
    };
    for (int i = 0; i < 3; ++i) use();
    const int objects = GraphicObjects();
    for (int i = 0; i < 200; ++i) use();
    EXPECT_EQ(GraphicObjects(), objects);
}

// A font that stayed on the device could not be deleted.
TEST(Devices, KeepNothingOfADrawnText) {
    const Canvas canvas(30, 20, 0);
    const auto device = reinterpret_cast<HDC>(canvas.Device());
    const HGDIOBJ font = GetCurrentObject(device, OBJ_FONT);
    const COLORREF color = GetTextColor(device);
    const int mode = GetBkMode(device);
    platform::TextLook look;
    look.font = reinterpret_cast<zeve::NativeFont>(GetStockObject(DEFAULT_GUI_FONT));
    look.color = 0x123456;
    platform::DrawTextIn(canvas.Device(), u"text", {0, 0, 30, 20}, look);
    EXPECT_EQ(GetCurrentObject(device, OBJ_FONT), font);
    EXPECT_EQ(GetTextColor(device), color);
    EXPECT_EQ(GetBkMode(device), mode);
}

// --- Alerts ---

HWND gAlert = nullptr; // the window that a search has found

BOOL CALLBACK FindAlertWindow(HWND window, LPARAM) {
    const bool isFound = GetDlgItem(window, kAlertSecondButton) != nullptr && IsWindowVisible(window);
    if (isFound) gAlert = window;
    return !isFound;
}
void CALLBACK AnswerAlert(HWND, UINT, UINT_PTR, DWORD) {
    gAlert = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), FindAlertWindow, 0);
    if (gAlert == nullptr) return;
    RedrawWindow(gAlert, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    PostMessageW(gAlert, WM_COMMAND, kAlertSecondButton, 0);
}

TEST_F(Openings, TwoHundredAlertsLeaveNoObjectBehind) {
    const AlertEntry alert{"Test", "quit_alert", true};
    const auto show = [this, &alert] { EXPECT_FALSE(ShowAlert(alert, nullptr, &context)); };
    const UINT_PTR timer = SetTimer(nullptr, 0, kTick, AnswerAlert);
    for (int i = 0; i < 3; ++i) show();
    const int objects = GraphicObjects(), windows = Windows();
    for (int i = 0; i < 200; ++i) show();
    KillTimer(nullptr, timer);
    EXPECT_EQ(GraphicObjects(), objects);
    EXPECT_EQ(Windows(), windows);
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
