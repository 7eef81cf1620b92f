// Privacy in a real window, with the shipped files: the field and the popup as the system shows them.
#include "workflow/catalogue/privacy.h"

#include "frame/frame_state.h"
#include "frame/pavane_context.h"
#include "support/languages.h"
#include "values/storage.h"
#include "values/unicode/text_conversion.h"
#include "workflow/catalogue/privacy_views.h"
#include "workflow/context/context_keys.h"
#include "workflow/run_workflow.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <set>
#include <string>
#include <vector>

namespace brixen::pvn::pvn_workflow {
namespace {

using namespace privacy;
using pavane_test::IsRightToLeft;
using pavane_test::Locales;

constexpr UINT kTick = 30; // milliseconds from one step to the next
constexpr DWORD kRightToLeftBits = WS_EX_RTLREADING | WS_EX_RIGHT | WS_EX_LEFTSCROLLBAR;

int FieldOf(const std::string& locale) {
    return IsRightToLeft(locale) ? kRightToLeftField : kLeftToRightField;
}

// The units of a built statement, whichever its byte order.
std::wstring StatementFile(const std::string& locale) {
    wchar_t program[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    const std::filesystem::path path = std::filesystem::path(program).parent_path() / "PVResources" /
                                       "privacystatements" / ("privacy_" + locale + ".txt");
    std::ifstream file(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    const bool isBigEndian = bytes.starts_with("\xFE\xFF");
    std::wstring text;
    for (std::size_t i = 2; i + 1 < bytes.size(); i += 2) {
        const auto high = static_cast<unsigned char>(bytes[isBigEndian ? i : i + 1]);
        const auto low = static_cast<unsigned char>(bytes[isBigEndian ? i + 1 : i]);
        text += static_cast<wchar_t>(high << 8 | low);
    }
    return text;
}

BOOL CALLBACK TakeDialog(HWND window, LPARAM result) {
    wchar_t name[20] = {};
    GetClassNameW(window, name, 20);
    if (!IsWindowVisible(window) || wcscmp(name, L"#32770") != 0) return TRUE;
    *reinterpret_cast<HWND*>(result) = window;
    return FALSE;
}

// A run on this thread. The user's actions are a list of steps, one for each tick of a timer once the dialog
// is shown. A run that continues after the last step is canceled, and the test fails.
class PrivacyWindow : public testing::Test {
protected:
    PrivacyWindow() : savedContext(GetFrameState().gPavaneContext) {
        GetFrameState().gPavaneContext = &frame;
        gTest = this;
    }
    ~PrivacyWindow() override {
        GetFrameState().gPavaneContext = savedContext;
        gTest = nullptr;
    }

    std::uint16_t Run(const std::string& language) {
        T_Storage bag;
        SetString(bag, PvnWFKey_Language, language);
        idleTicks = 0;
        const UINT_PTR timer = SetTimer(nullptr, 0, kTick, Tick);
        const std::uint16_t status = RunWorkFlowFromBag<PVNPrivacyWorkFlow>(bag);
        KillTimer(nullptr, timer);
        EXPECT_TRUE(steps.empty()) << language;
        return status;
    }

    void Then(std::function<void()> step) { steps.push_back(std::move(step)); }
    void ThenClick(int id) {
        Then([this, id] { PostMessageW(Control(id), BM_CLICK, 0, 0); });
    }
    void ThenChoose(int row) {
        Then([this, row] {
            SendMessageW(Control(kLanguagePopup), CB_SETCURSEL, static_cast<WPARAM>(row), 0);
        });
        ThenClick(kContinueButton);
    }

    HWND Dialog() const {
        HWND dialog = nullptr;
        EnumThreadWindows(GetCurrentThreadId(), TakeDialog, reinterpret_cast<LPARAM>(&dialog));
        return dialog;
    }
    HWND Control(int id) const { return GetDlgItem(Dialog(), id); }
    static std::wstring TextOf(HWND control) {
        std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(control)) + 1, L'\0');
        text.resize(
            static_cast<std::size_t>(GetWindowTextW(control, text.data(), static_cast<int>(text.size()))));
        return text;
    }
    static std::pair<DWORD, DWORD> SelectionOf(HWND field) {
        DWORD start = 1, end = 2;
        SendMessageW(field, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
        return {start, end};
    }
    // The colors of the screen from a caret's place in that field downward.
    static std::vector<COLORREF> PixelsOfCaret(HWND field) {
        const auto place = static_cast<DWORD>(SendMessageW(field, EM_POSFROMCHAR, 0, 0));
        const HDC screen = GetDC(field);
        std::vector<COLORREF> pixels;
        for (int y = 0; y < 12; ++y) {
            for (int x = -2; x < 3; ++x) {
                pixels.push_back(GetPixel(screen, static_cast<short>(LOWORD(place)) + x,
                                          static_cast<short>(HIWORD(place)) + y));
            }
        }
        ReleaseDC(field, screen);
        return pixels;
    }
    static LRESULT FirstLine(HWND field) { return SendMessageW(field, EM_GETFIRSTVISIBLELINE, 0, 0); }

private:
    static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD) {
        if (!gTest->Dialog()) return;
        if (!gTest->steps.empty()) {
            const auto step = std::move(gTest->steps.front());
            gTest->steps.pop_front();
            return step();
        }
        if (++gTest->idleTicks != 200) return;
        ADD_FAILURE() << "the run did not end";
        PostQuitMessage(0);
    }

    static inline PrivacyWindow* gTest = nullptr;
    std::deque<std::function<void()>> steps;
    int idleTicks = 0;
    PavaneContext frame;
    PavaneContext* savedContext;
};

TEST_F(PrivacyWindow, ShowsTheTextOfTheFileInAReadOnlyField) {
    for (const char* dialogLanguage : {"en_US", "he_IL"}) {
        int row = 0;
        for (const std::string& locale : Locales()) {
            ThenChoose(row++);
            Then([this, locale] {
                const HWND field = Control(FieldOf(locale));
                EXPECT_TRUE(IsWindowVisible(field)) << locale;
                EXPECT_TRUE(IsWindowEnabled(field)) << locale;
                const std::wstring text = TextOf(field);
                EXPECT_GT(text.size(), 3000u) << locale;
                EXPECT_TRUE(text == StatementFile(locale)) << locale;
                EXPECT_EQ(SelectionOf(field), std::pair(DWORD{0}, DWORD{0})) << locale;
                EXPECT_EQ(FirstLine(field), 0) << locale;
                EXPECT_EQ(GetFocus(), field) << locale;
                const LONG wanted = ES_READONLY | ES_MULTILINE | WS_VSCROLL | WS_TABSTOP;
                EXPECT_EQ(GetWindowLongW(field, GWL_STYLE) & wanted, wanted) << locale;
            });
            ThenClick(kBackButton);
        }
        ThenClick(kCancelButton);
        EXPECT_EQ(Run(dialogLanguage), 35074);
    }
}

TEST_F(PrivacyWindow, NoCaretBlinksInTheStatement) {
    std::set<std::vector<COLORREF>> seen;
    ThenClick(kContinueButton);
    Then([] {}); // the field takes the focus and paints itself
    for (UINT time = 0; time < 3 * GetCaretBlinkTime(); time += kTick) {
        Then([this, &seen] { seen.insert(PixelsOfCaret(Control(kLeftToRightField))); });
    }
    Then([this] { EXPECT_EQ(GetFocus(), Control(kLeftToRightField)); });
    ThenClick(kCancelButton);
    EXPECT_EQ(Run("en_US"), 35074);
    EXPECT_EQ(seen.size(), 1u);
}

TEST_F(PrivacyWindow, ReadsInTheDirectionOfTheStatementInEveryDialog) {
    for (const char* dialogLanguage : {"en_US", "de_DE", "he_IL", "ar_AE"}) {
        int row = 0;
        for (const std::string& locale : Locales()) {
            ThenChoose(row++);
            Then([this, locale] {
                const auto style = static_cast<DWORD>(GetWindowLongW(Control(FieldOf(locale)), GWL_EXSTYLE));
                EXPECT_EQ(style & kRightToLeftBits, IsRightToLeft(locale) ? kRightToLeftBits : 0) << locale;
                const int other = IsRightToLeft(locale) ? kLeftToRightField : kRightToLeftField;
                EXPECT_FALSE(IsWindowVisible(Control(other))) << locale;
            });
            ThenClick(kBackButton);
        }
        ThenClick(kCancelButton);
        EXPECT_EQ(Run(dialogLanguage), 35074);
    }
}

TEST_F(PrivacyWindow, ScrollsToTheEndOfTheStatementAndStartsAtItsTopAgain) {
    ThenClick(kContinueButton);
    Then([this] {
        const HWND field = Control(kLeftToRightField);
        SendMessageW(field, WM_VSCROLL, SB_BOTTOM, 0);
        RECT area;
        GetClientRect(field, &area);
        const auto last = static_cast<WPARAM>(GetWindowTextLengthW(field) - 1);
        const auto position = SendMessageW(field, EM_POSFROMCHAR, last, 0);
        EXPECT_GT(FirstLine(field), 50);
        EXPECT_GE(static_cast<short>(HIWORD(position)), 0);
        EXPECT_LT(static_cast<short>(HIWORD(position)), area.bottom);
    });
    ThenClick(kBackButton);
    ThenClick(kContinueButton);
    Then([this] { EXPECT_EQ(FirstLine(Control(kLeftToRightField)), 0); });
    ThenClick(kAcceptButton);
    EXPECT_EQ(Run("en_US"), 0);
}

TEST_F(PrivacyWindow, KeepsTheSelectionOfTheReaderWhileTheFocusIsElsewhere) {
    const auto tab = [this](bool backwards) {
        Then([this, backwards] { SendMessageW(Dialog(), WM_NEXTDLGCTL, backwards, FALSE); });
    };
    ThenClick(kContinueButton);
    tab(false);
    Then([this] { EXPECT_EQ(GetFocus(), Control(kBackButton)); });
    tab(true);
    Then([this] {
        EXPECT_EQ(GetFocus(), Control(kLeftToRightField));
        EXPECT_EQ(SelectionOf(GetFocus()), std::pair(DWORD{0}, DWORD{0}));
        SendMessageW(GetFocus(), EM_SETSEL, 300, 310);
    });
    tab(true);
    Then([this] { EXPECT_EQ(GetFocus(), Control(kCancelButton)); });
    tab(false);
    Then([this] {
        EXPECT_EQ(GetFocus(), Control(kLeftToRightField));
        EXPECT_EQ(SelectionOf(GetFocus()), std::pair(DWORD{300}, DWORD{310}));
    });
    ThenClick(kDeclineButton);
    EXPECT_EQ(Run("en_US"), 35075);
}

TEST_F(PrivacyWindow, OffersTheLanguagesByTheirNames) {
    std::vector<std::wstring> names;
    for (const pavane_test::Language& language : pavane_test::Languages()) {
        const std::u16string name = lyr::gen::ToUtf16(language.name);
        names.emplace_back(name.begin(), name.end());
    }
    int row = 0;
    for (const std::string& language : Locales()) {
        Then([this, &names, row, language] {
            const HWND popup = Control(kLanguagePopup);
            std::vector<std::wstring> shown;
            const LRESULT count = SendMessageW(popup, CB_GETCOUNT, 0, 0);
            for (LRESULT i = 0; i < count; ++i) {
                wchar_t text[100] = {};
                SendMessageW(popup, CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text));
                shown.emplace_back(text);
            }
            EXPECT_EQ(shown, names) << language;
            EXPECT_EQ(SendMessageW(popup, CB_GETCURSEL, 0, 0), row) << language;
            EXPECT_EQ(TextOf(popup), names[static_cast<std::size_t>(row)]) << language;
        });
        ThenClick(kCancelButton);
        EXPECT_EQ(Run(language), 35074);
        ++row;
    }
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
