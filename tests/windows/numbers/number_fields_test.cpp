// Number fields in real windows: what they show, what they return for typed texts, the message about a limit,
// and the decimal sign of the user.
#include "dictionaries/dictionaries_state.h"
#include "dictionaries/translation.h"
#include "toolkit/dialog/zeve_dialog.h"
#include "toolkit/event_record.h"
#include "toolkit/platform/toolkit_platform.h"
#include "values/unicode/text_conversion.h"
#include "workflow/panes/number_fields.h"

#include <windows.h>

#include <clocale>
#include <iterator>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace brixen::zeve {
namespace {

using pvn::pvn_workflow::NumberFieldReader;

constexpr std::uint16_t kField = 3, kSecondField = 4;
constexpr UINT kTick = 20; // ms

HWND Handle(NativeWindow window) { return reinterpret_cast<HWND>(window); }

std::string Utf8(const wchar_t* text) {
    return lyr::gen::ToUtf8(reinterpret_cast<const char16_t*>(text), true);
}

std::string TextOf(HWND window) {
    wchar_t text[512] = {};
    GetWindowTextW(window, text, 512);
    return Utf8(text);
}

// --- The user in front of a message box

struct MessageBoxSeen {
    HWND owner = nullptr;
    std::string text, title, textOfField;
    bool wasDialogEnabled = true;
    HICON icon = nullptr;
};

// Presses the button of each message box that a thread shows, and notes the box.
class User {
public:
    explicit User(HWND dialog) : dialog(dialog) {
        gUser = this;
        timer = SetTimer(nullptr, 0, kTick, Tick);
    }
    ~User() {
        KillTimer(nullptr, timer);
        gUser = nullptr;
    }
    User(const User&) = delete;
    User& operator=(const User&) = delete;

    std::vector<MessageBoxSeen> seen;

private:
    static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD) {
        if (gUser != nullptr) EnumThreadWindows(GetCurrentThreadId(), PressIfMessageBox, 0);
    }
    static BOOL CALLBACK PressIfMessageBox(HWND window, LPARAM) {
        const HWND button = FindWindowExW(window, nullptr, L"Button", nullptr);
        if (window == gUser->dialog || window == gUser->pressed || !button || !IsWindowVisible(window))
            return TRUE;
        gUser->Press(window, button);
        return FALSE;
    }
    void Press(HWND window, HWND button) {
        pressed = window;
        MessageBoxSeen box;
        box.owner = GetWindow(window, GW_OWNER);
        box.title = TextOf(window);
        box.textOfField = TextOf(GetDlgItem(dialog, kField));
        box.wasDialogEnabled = IsWindowEnabled(dialog);
        for (HWND label = nullptr; (label = FindWindowExW(window, label, L"Static", nullptr)) != nullptr;) {
            box.text += TextOf(label);
            if (const LRESULT icon = SendMessageW(label, STM_GETICON, 0, 0))
                box.icon = reinterpret_cast<HICON>(icon);
        }
        seen.push_back(box);
        PostMessageW(button, BM_CLICK, 0, 0);
    }

    static inline User* gUser = nullptr;
    HWND dialog, pressed = nullptr;
    UINT_PTR timer;
};

// --- The user's decimal sign

// Sets the user's decimal sign in the registry, as the control panel does, and restores the former one.
class DecimalSignOfUser {
public:
    explicit DecimalSignOfUser(const wchar_t* sign) {
        GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, before, static_cast<int>(std::size(before)));
        Set(sign);
    }
    ~DecimalSignOfUser() { Set(before); }
    DecimalSignOfUser(const DecimalSignOfUser&) = delete;
    DecimalSignOfUser& operator=(const DecimalSignOfUser&) = delete;

private:
    // Wine keeps the settings of a process, so a change of the registry alone would not be seen here.
    static void Set(const wchar_t* sign) {
        EXPECT_TRUE(SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, sign));
        wchar_t stored[8] = {};
        DWORD bytes = sizeof stored;
        EXPECT_EQ(RegGetValueW(HKEY_CURRENT_USER, L"Control Panel\\International", L"sDecimal", RRF_RT_REG_SZ,
                               nullptr, stored, &bytes),
                  ERROR_SUCCESS);
        EXPECT_STREQ(stored, sign);
    }

    wchar_t before[8] = {};
};

// --- Dialogs of one or two number fields

class NumberFieldTest : public testing::Test {
protected:
    NumberFieldTest() {
        kestrel_private::ResetState();
        ZeveInitialize();
    }
    ~NumberFieldTest() override {
        ZeveDelete(dialog);
        kestrel_private::ResetState();
    }

    // Makes and shows a dialog with a number field of these attributes.
    void Make(const std::string& attributes, const std::string& others = "") {
        MakeView("dialog(name: 'Numbers', width: 300) { edit_number(view_id: 3, width: 120, " + attributes +
                 "); " + others + " edit_text(view_id: 9, width: 40); }");
    }
    void MakeView(const std::string& view) {
        ZeveDelete(dialog);
        ZeveInitRecord record;
        record.callback = [](std::int32_t, EventRecord&, void*) -> std::uint64_t { return kAnswerDefault; };
        record.instance = platform::LibraryModule();
        dialog = ZeveNew(&record);
        ZeveAddViewText(dialog, view.c_str());
        window = Handle(ZeveMakeDialog(dialog, nullptr));
        ASSERT_TRUE(IsWindow(window));
        ShowWindow(window, SW_SHOW);
        SetFocus(Control(9));
    }
    HWND Control(int id = kField) const { return GetDlgItem(window, id); }
    std::string Set(const char* value, std::uint16_t id = kField) {
        EventRecord record;
        record.StorePointer(kKeySetValue, value);
        EXPECT_TRUE(ZeveSetValue(dialog, id, record));
        return TextOf(Control(id));
    }
    void Type(const wchar_t* text, std::uint16_t id = kField) const {
        SendMessageW(Control(id), EM_SETSEL, 0, -1);
        for (; *text; ++text) SendMessageW(Control(id), WM_CHAR, *text, 1);
    }
    std::string Read(const wchar_t* typed) {
        Type(typed);
        return Value();
    }
    std::string Value(bool honorSubCheck = false) {
        return ZeveGetValue(dialog, kField, honorSubCheck).text.value_or("<none>");
    }

    ZeveDialog* dialog = nullptr;
    HWND window = nullptr;
};

struct ShownCase {
    const char* format;
    const char* value;
    const char* shown;
};

TEST_F(NumberFieldTest, ShowsAnyFormOfValueInItsOwnFormat) {
    constexpr ShownCase kCases[] = {
        {"whole", "1.5", "2"},
        {"whole", "7/2", "4"},
        {"whole", "16:9", "16"},
        {"decimal", "1", "1.00"},
        {"decimal", "1.125", "1.13"},
        {"decimal", "3/2", "1.50"},
        {"decimal", "16:9", "16.00"},
        {"fraction", "7", "7/1"},
        {"fraction", "12.34", "1234/100"},
        {"fraction", "16:9", "16/9"},
        {"ratio", "7", "7:1"},
        {"ratio", "3/4", "3/4:1"},
        {"apex_aperture", "4/1", "4.0"},
        {"apex_aperture", "8/1", "16"},
        {"apex_aperture", "-1/1", ">f/1024"},
        {"apex_shutterspeed", "6/1", "1/60"},
        {"apex_shutterspeed", "1/1", "0.5"},
        {"apex_shutterspeed", "-11/1", ">1024 sec"},
        {"apex_brightness", "5/2", "2.50"},
    };
    for (const ShownCase& each : kCases) {
        Make("precision: 2, format: '" + std::string(each.format) + "'");
        EXPECT_EQ(Set(each.value), each.shown) << each.format << " " << each.value;
        EXPECT_EQ(Value(), each.value) << "unchanged";
    }
}

struct TypedCase {
    const char* format;
    const char* value;
    const wchar_t* typed;
    const char* read;
};

TEST_F(NumberFieldTest, ReturnsATypedNumberInTheFormOfItsValue) {
    constexpr TypedCase kCases[] = {
        {"whole", "1", L"12", "12"},
        {"decimal", "1.5", L"2", "2.0"},
        {"decimal", "3/2", L"1.7", "17/10"},
        {"decimal", "16:9", L"4", "4:1"},
        {"fraction", "1/2", L" 3 / 4 ", "3/4"},
        {"apex_shutterspeed", "6/1", L"1/125", "1/125"},
        {"apex_aperture", "4/1", L"5.6", "56/10"},
        {"whole", "", L"3/4", "3/4"},
        {"whole", "1/2", L"abc", "abc/1"},
    };
    for (const TypedCase& each : kCases) {
        Make("format: '" + std::string(each.format) + "'");
        Set(each.value);
        EXPECT_EQ(Read(each.typed), each.read) << each.format << " " << each.value;
    }
}

TEST_F(NumberFieldTest, MovesATimeToTheSeriesThatCamerasShow) {
    Make("format: 'apex_shutterspeed', format_addin: '^0 s'");
    constexpr std::pair<const char*, const char*> kTimes[] = {
        {"7/1", "1/125 s"}, {"13/2", "1/90 s"}, {"5/1", "1/30 s"}, {"-5/1", "32.0 s"}, {"10/1", "1/1000 s"},
    };
    for (const auto& [value, shown] : kTimes) EXPECT_EQ(Set(value), shown) << value;
}

TEST_F(NumberFieldTest, ShowsItsAddInAndReadsWithoutIt) {
    Make("format: 'decimal', format_addin: '$$$/weight=about ^0 kg'");
    EXPECT_EQ(Set("3"), "about 3.0 kg");
    EXPECT_EQ(Value(), "3");
    EXPECT_EQ(Read(L"about 4.5 kg"), "4.5");
    EXPECT_EQ(Read(L"5"), "5.0");
    EXPECT_EQ(Set(""), "");
    EXPECT_EQ(Value(), "<none>");
}

TEST_F(NumberFieldTest, TakesTheDecimalSignThatTheUserHasNow) {
    const std::string locale = std::setlocale(LC_NUMERIC, nullptr);
    Make("format: 'decimal'");
    Set("1.5");
    EXPECT_EQ(platform::DecimalSign(), ".");
    EXPECT_EQ(Read(L"2.5"), "2.5");
    {
        const DecimalSignOfUser comma(L",");
        EXPECT_EQ(platform::DecimalSign(), ",");
        EXPECT_EQ(Read(L"3,5"), "3.5");
        EXPECT_EQ(Read(L"3.5"), "3.5");
        EXPECT_EQ(Set("4.5"), "4.5") << "values are shown with a point";
        EXPECT_EQ(Value(), "4.5") << "unchanged";
    }
    {
        const DecimalSignOfUser arabic(L"\u066B");
        EXPECT_EQ(Read(L"6\u066B5"), "6.5");
    }
    EXPECT_EQ(Read(L"7,5"), "7.0") << "a comma ends the number again";
    EXPECT_EQ(std::setlocale(LC_NUMERIC, nullptr), locale) << "the process keeps its locale";
}

TEST_F(NumberFieldTest, ShowsAMessageAboutALimitAndThenTheClosestNumber) {
    AddKeyValue("$$$/brixen/zeve/error/out_of_range=\u00DCber ^0, unter ^1!  So.");
    Make("format: 'decimal', min_value: '1/2', max_value: '10'");
    Set("0.75");
    Type(L"1/4");
    User user(window);
    EXPECT_EQ(Value(), "0.50");
    ASSERT_EQ(user.seen.size(), 1u);
    const MessageBoxSeen& box = user.seen.front();
    EXPECT_EQ(box.text, "\u00DCber 1/2, unter 10!  So.");
    EXPECT_EQ(box.title, "");
    EXPECT_NE(box.icon, nullptr);
    EXPECT_EQ(box.owner, window) << "the top-level window of the field";
    EXPECT_FALSE(box.wasDialogEnabled);
    EXPECT_EQ(box.textOfField, "1/4") << "until the user has read the message";
    EXPECT_EQ(TextOf(Control()), "0.500000");
    EXPECT_TRUE(IsWindowEnabled(window));

    EXPECT_EQ(Read(L"11"), "10.00");
    EXPECT_EQ(user.seen.size(), 2u);
    EXPECT_EQ(TextOf(Control()), "10.000000");
    EXPECT_EQ(Read(L"5"), "5.00");
    EXPECT_EQ(user.seen.size(), 2u);
}

TEST_F(NumberFieldTest, HasAMessageOfItsOwnForASingleLimit) {
    Make("min_value: '1'");
    Type(L"0");
    {
        User user(window);
        EXPECT_EQ(Value(), "1");
        ASSERT_EQ(user.seen.size(), 1u);
        EXPECT_EQ(user.seen[0].text, "A number more than 1 is required.  Closest value inserted.");
    }
    Make("max_value: '65535'");
    Type(L"70000");
    User user(window);
    EXPECT_EQ(Value(), "65535");
    ASSERT_EQ(user.seen.size(), 1u);
    EXPECT_EQ(user.seen[0].text, "A number less than 65535 is required.  Closest value inserted.");
}

TEST_F(NumberFieldTest, IsCorrectedOnceAClickAndHasTheFocusThen) {
    Make("max_value: '65535'", "edit_number(view_id: 4, max_value: '9', width: 80);");
    Type(L"70000");
    Type(L"10", kSecondField);
    User user(window);
    NumberFieldReader fields(dialog);
    EXPECT_EQ(fields.Read(kField), std::nullopt);
    EXPECT_EQ(fields.Read(kSecondField), std::nullopt);
    EXPECT_TRUE(fields.HasCorrected());
    EXPECT_EQ(user.seen.size(), 1u);
    EXPECT_EQ(TextOf(Control()), "65535");
    EXPECT_EQ(TextOf(Control(kSecondField)), "10");
    EXPECT_EQ(GetFocus(), Control());

    NumberFieldReader second(dialog);
    EXPECT_EQ(second.Read(kField), "65535");
    EXPECT_EQ(second.Read(kSecondField), std::nullopt);
    EXPECT_TRUE(second.HasCorrected());
    EXPECT_EQ(user.seen.size(), 2u);
    EXPECT_EQ(TextOf(Control(kSecondField)), "9");
    EXPECT_EQ(GetFocus(), Control(kSecondField));
}

TEST_F(NumberFieldTest, AnUncheckedSubCheckWithholdsTheNumber) {
    Make("check_box_aware: true");
    Set("7");
    const HWND subCheck = FindWindowExW(window, nullptr, L"Button", nullptr);
    ASSERT_TRUE(IsWindow(subCheck));
    EXPECT_EQ(Value(true), "<none>");
    EXPECT_EQ(Value(false), "7");
    SendMessageW(subCheck, BM_CLICK, 0, 0);
    EXPECT_EQ(Value(true), "7");
    Make("name: '7'");
    EXPECT_EQ(Value(true), "7") << "a field without sub check";
}

TEST_F(NumberFieldTest, AReadOnlyFieldReturnsNothing) {
    Make("locked: true");
    EXPECT_EQ(Set("7"), "7");
    EXPECT_EQ(Value(), "<none>");
    Type(L"8");
    EXPECT_EQ(TextOf(Control()), "7");
}

TEST_F(NumberFieldTest, TakesThousandsOfDigits) {
    Make("format: 'decimal', max_value: '1e308'");
    const std::string digits(4'000, '7');
    EXPECT_EQ(Set(digits.c_str()).size(), 254u);
    EXPECT_EQ(Value(), digits) << "unchanged";
    SetWindowTextW(Control(), std::wstring(4'000, L'7').c_str());
    User user(window);
    EXPECT_EQ(Value().size(), 254u);
    EXPECT_EQ(user.seen.size(), 1u);
}

} // namespace
} // namespace brixen::zeve
