// A dialog of fifty controls, made and deleted through the toolkit, against a bare loop that makes the same
// calls of the system for the same controls. Both dialogs stay hidden. The bare loop copies a dialog of the
// toolkit; both are compared before anything is measured.
//   dialog_bench [ROUNDS]     prints the medians and their ratio
#include "toolkit/dialog/zeve_dialog.h"
#include "toolkit/platform/toolkit_platform.h"
#include "toolkit/platform/win32/isolation.h"

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace bench {
namespace {

using namespace brixen::zeve;

constexpr int kRows = 10, kControls = 50; // five a row
constexpr double kBar = 1.10;

// --- Through the toolkit

std::string Description() {
    std::string text = "dialog(name: 'Fifty controls') {\n";
    for (int row = 0; row < kRows; ++row) {
        const auto view = [&](const char* keyword, int column, const char* name, int width) {
            text += std::string("  ") + keyword + "(name: '" + name + ' ' + std::to_string(row + 1) +
                    "', view_id: " + std::to_string(row * 5 + column + 1) +
                    ", width: " + std::to_string(width) + ");\n";
        };
        text += "row() {\n";
        view("static_text", 0, "The label of row", 140);
        view("edit_text", 1, "The text of row", 160);
        view("check_box", 2, "Check", 90);
        view("radio", 3, "Radio", 90);
        view("button", 4, "Press", 90);
        text += "}\n";
    }
    return text + "}\n";
}

std::uint64_t Hear(std::int32_t, EventRecord&, void*) { return kAnswerDefault; }

class ToolkitDialog {
public:
    explicit ToolkitDialog(const std::string& description) {
        ZeveInitRecord record;
        record.callback = Hear;
        record.instance = platform::LibraryModule();
        dialog = ZeveNew(&record);
        ZeveAddViewText(dialog, description.c_str());
        window = reinterpret_cast<HWND>(ZeveMakeDialog(dialog, nullptr));
    }
    ToolkitDialog(const ToolkitDialog&) = delete;
    ToolkitDialog& operator=(const ToolkitDialog&) = delete;
    ~ToolkitDialog() { ZeveDelete(dialog); }
    HWND Window() const { return window; }

private:
    ZeveDialog* dialog;
    HWND window;
};

// --- The windows to make

struct Control {
    std::wstring className, text;
    DWORD style, extendedStyle;
    RECT frame; // in screen coordinates for the dialog, in those of the parent for a control
    UINT_PTR id;
    LOGFONTW font; // zero for none
    bool operator==(const Control& other) const {
        return className == other.className && text == other.text && style == other.style &&
               extendedStyle == other.extendedStyle && EqualRect(&frame, &other.frame) && id == other.id &&
               std::memcmp(&font, &other.font, sizeof font) == 0;
    }
};

std::wstring TextOf(HWND window) {
    wchar_t text[256];
    return {text, text + GetWindowTextW(window, text, 256)};
}

std::wstring ClassOf(HWND window) {
    wchar_t name[256];
    return {name, name + GetClassNameW(window, name, 256)};
}

Control Describe(HWND window) {
    Control control = {ClassOf(window),
                       TextOf(window),
                       static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE)),
                       static_cast<DWORD>(GetWindowLongW(window, GWL_EXSTYLE)),
                       {},
                       static_cast<UINT_PTR>(GetWindowLongPtrW(window, GWLP_ID)),
                       {}};
    GetWindowRect(window, &control.frame);
    if (const HWND parent = GetAncestor(window, GA_PARENT); parent != GetDesktopWindow())
        MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&control.frame), 2);
    if (const LRESULT font = SendMessageW(window, WM_GETFONT, 0, 0))
        GetObjectW(reinterpret_cast<HFONT>(font), sizeof control.font, &control.font);
    return control;
}

// The dialog first, then its controls in their order.
std::vector<Control> DescribeAll(HWND dialog) {
    std::vector<Control> all = {Describe(dialog)};
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        all.push_back(Describe(child));
    return all;
}

// --- The bare loop

constexpr wchar_t kSavedProcedure[] = L"BareSavedProcedure", kEditOwner[] = L"BareEditOwner";

LRESULT CALLBACK AnswerAsSaved(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    const auto saved = reinterpret_cast<WNDPROC>(GetPropW(window, kSavedProcedure));
    return saved ? CallWindowProcW(saved, window, message, wparam, lparam) : 0;
}

LRESULT CALLBACK AnswerEdit(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    return AnswerAsSaved(window, message, wparam, lparam);
}

LRESULT CALLBACK AnswerDialog(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    return DefWindowProcW(window, message, wparam, lparam);
}

LONG_PTR TakeProcedure(HWND window, WNDPROC procedure) {
    return SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
}

class BareDialog {
public:
    explicit BareDialog(const std::vector<Control>& all) {
        MakeDialog(all.front());
        fonts.reserve(all.size());
        for (std::size_t place = 1; place < all.size(); ++place) MakeControl(all[place]);
    }
    BareDialog(const BareDialog&) = delete;
    BareDialog& operator=(const BareDialog&) = delete;
    ~BareDialog() {
        for (const HFONT font : fonts) DeleteObject(font);
        DestroyWindow(window);
    }
    HWND Window() const { return window; }

private:
    static HWND Make(const Control& control, HWND parent) {
        const RECT& frame = control.frame;
        return platform::IsolatedCall([&] {
            return CreateWindowExW(control.extendedStyle | (parent ? WS_EX_TOPMOST : 0),
                                   control.className.c_str(), control.text.c_str(),
                                   control.style & ~DWORD{WS_VISIBLE}, frame.left, frame.top,
                                   frame.right - frame.left, frame.bottom - frame.top, parent,
                                   reinterpret_cast<HMENU>(control.id), platform::OwnModule(), nullptr);
        });
    }

    void MakeDialog(const Control& dialog) {
        GetSystemMetrics(SM_CXFULLSCREEN);
        GetSystemMetrics(SM_CYFULLSCREEN);
        window = Make(dialog, nullptr);
        TakeProcedure(window, AnswerDialog);
        SendMessageW(window, WM_CHANGEUISTATE, 0x20003, 0);
        RECT outer = {}, client = {};
        GetWindowRect(window, &outer);
        GetClientRect(window, &client);
        const RECT& frame = dialog.frame;
        MoveWindow(window, frame.left, frame.top, frame.right - frame.left, frame.bottom - frame.top, TRUE);
        const HMENU menu = GetSystemMenu(window, FALSE);
        for (int place = GetMenuItemCount(menu) - 1; place >= 0; --place) {
            const UINT id = GetMenuItemID(menu, place);
            if (id != SC_MOVE && id != SC_CLOSE) DeleteMenu(menu, static_cast<UINT>(place), MF_BYPOSITION);
        }
    }

    void MakeControl(const Control& control) {
        const HWND made = Make(control, window);
        const LONG_PTR saved = TakeProcedure(made, AnswerAsSaved);
        SetPropW(made, kSavedProcedure, reinterpret_cast<HANDLE>(saved));
        fonts.push_back(MakeFont(made, control));
        SendMessageW(made, WM_SETFONT, reinterpret_cast<WPARAM>(fonts.back()), TRUE);
        ShowWindow(made, SW_SHOW);
        EnableWindow(made, TRUE);
        if (lstrcmpiW(control.className.c_str(), L"edit") != 0) return;
        SetPropW(made, kEditOwner, this);
        TakeProcedure(made, AnswerEdit);
    }

    static HFONT MakeFont(HWND forWindow, const Control& control) {
        const HDC device = GetDC(forWindow);
        GetDeviceCaps(device, LOGPIXELSY);
        ReleaseDC(forWindow, device);
        LOGFONTW system = {};
        GetObjectW(GetStockObject(SYSTEM_FONT), sizeof system, &system);
        return CreateFontIndirectW(&control.font);
    }

    HWND window = nullptr;
    std::vector<HFONT> fonts;
};

// --- Measuring

double Now() { // milliseconds
    LARGE_INTEGER ticks, frequency;
    QueryPerformanceCounter(&ticks);
    QueryPerformanceFrequency(&frequency);
    return 1000.0 * static_cast<double>(ticks.QuadPart) / static_cast<double>(frequency.QuadPart);
}

template <class Dialog, class Source>
double Cost(const Source& source) {
    const double begin = Now();
    { const Dialog dialog(source); }
    return Now() - begin;
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

int Measure(int rounds) {
    ZeveInitialize();
    const std::string description = Description();
    std::vector<Control> all;
    {
        const ToolkitDialog dialog(description);
        all = DescribeAll(dialog.Window());
    }
    if (all.size() != kControls + 1 || DescribeAll(BareDialog(all).Window()) != all) {
        std::puts("dialog_bench: the bare loop does not make the same controls");
        return 1;
    }
    std::vector<double> toolkit, bare, ratios;
    for (int round = 0; round < rounds; ++round) {
        const bool isBareFirst = round % 2;
        if (isBareFirst) bare.push_back(Cost<BareDialog>(all));
        toolkit.push_back(Cost<ToolkitDialog>(description));
        if (!isBareFirst) bare.push_back(Cost<BareDialog>(all));
        ratios.push_back(toolkit.back() / bare.back());
    }
    const double ratio = Median(ratios);
    std::printf("%d controls, %d rounds, medians: toolkit %.2f ms, bare loop %.2f ms; ratio %.3f, at most "
                "%.2f   %s\n",
                kControls, rounds, Median(toolkit), Median(bare), ratio, kBar,
                ratio <= kBar ? "met" : "MISSED");
    return 0;
}

} // namespace
} // namespace bench

int main(int argumentCount, char** arguments) {
    return bench::Measure(argumentCount > 1 ? std::max(1, std::atoi(arguments[1])) : 101);
}
