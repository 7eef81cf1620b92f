#include "workflow/catalogue/privacy.h"

#include "dictionaries/translation.h"
#include "frame/status.h"
#include "support/languages.h"
#include "toolkit/control_styles.h"
#include "unit/workflow/catalogue/shipped_workflow_fixture.h"
#include "unit/workflow/without_memory.h"
#include "values/unicode/text_conversion.h"
#include "workflow/catalogue/privacy_data.h"
#include "workflow/catalogue/privacy_views.h"
#include "workflow/context/context_keys.h"
#include "workflow/context/workflow_context.h"
#include "workflow/panes/pane_host.h"
#include "workflow/panes/window_message.h"
#include "workflow/platform/message_numbers.h"
#include "workflow/run_workflow.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <sstream>

namespace brixen::pvn::pvn_workflow {
namespace {

using namespace privacy;
using pavane_test::IsRightToLeft;
using pavane_test::Locales;

constexpr std::intptr_t kKeyWasDown = 1 << 30;

std::string ReadBytes(const std::filesystem::path& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

// The units of a built statement, whichever its byte order.
std::u16string Statement(const std::string& locale) {
    const std::string bytes = ReadBytes(std::filesystem::path(platform::LibraryFolder()) / "PVResources" /
                                        "privacystatements" / ("privacy_" + locale + ".txt"));
    const bool isBigEndian = bytes.starts_with("\xFE\xFF");
    std::u16string text;
    for (std::size_t i = 2; i + 1 < bytes.size(); i += 2) {
        const auto high = static_cast<unsigned char>(bytes[isBigEndian ? i : i + 1]);
        const auto low = static_cast<unsigned char>(bytes[isBigEndian ? i + 1 : i]);
        text += static_cast<char16_t>(high << 8 | low);
    }
    return text;
}

// With the shipped resources.
class Privacy : public ShippedWorkFlow<PVNPrivacyWorkFlow> {
protected:
    std::string StoredLanguage() {
        std::string language = "none";
        GetString(bag, PvnWFKey_PrivacyLanguage, language);
        return language;
    }

    static void ThenExpectPane(std::u16string title, std::vector<std::uint16_t> shown,
                               std::vector<std::uint16_t> hidden) {
        Then([=] {
            EXPECT_EQ(zeve::platform::TextOf(TopDialog()), title);
            for (const std::uint16_t id : shown) EXPECT_TRUE(IsControlShown(id)) << id;
            for (const std::uint16_t id : hidden) EXPECT_FALSE(IsControlShown(id)) << id;
        });
    }
    static void ThenExpectChoose() {
        ThenExpectPane(u"Getting started: Your privacy", {kLanguagePopup, kContinueButton, kCancelButton},
                       {kBackButton, kAcceptButton, kDeclineButton, kReturnButton, kLeftToRightField,
                        kRightToLeftField});
    }
    static void ThenExpectStatement(std::uint16_t field = kLeftToRightField) {
        const std::uint16_t other = field == kLeftToRightField ? kRightToLeftField : kLeftToRightField;
        ThenExpectPane(u"Getting started: Privacy statement",
                       {field, kBackButton, kAcceptButton, kDeclineButton, kCancelButton},
                       {other, kLanguagePopup, kContinueButton, kReturnButton});
    }
    static void ThenExpectMissing() {
        ThenExpectPane(u"Getting started: This statement cannot be shown", {kReturnButton, kCancelButton},
                       {kBackButton, kAcceptButton, kDeclineButton, kContinueButton, kLanguagePopup,
                        kLeftToRightField, kRightToLeftField});
    }

    // Whether the page of that group is on screen: its words are those of `key` in en_US.
    static void ThenExpectWords(const std::string& key, bool isShown = true) {
        Then([key, isShown] {
            const std::u16string words = lyr::gen::ToUtf16(zeve::ZeveTranslate("$$$/pvn/privacy/" + key));
            const auto window = std::ranges::find_if(System().windows, [&words](const auto& candidate) {
                return candidate->parent == TopDialog() && candidate->text == words;
            });
            ASSERT_NE(window, System().windows.end()) << key;
            EXPECT_EQ(((*window)->style & zeve::style::kVisible) != 0, isShown) << key;
        });
    }

    static std::intptr_t SelectedRow() {
        return zeve::platform::Send(Control(kLanguagePopup)->handle, zeve::kComboGetSelection, 0, 0);
    }
    static void ThenSelectRow(std::uintptr_t row) {
        Then([row] {
            const Window popup = zeve::platform::ChildWithId(TopDialog(), kLanguagePopup);
            zeve::platform::Send(popup, zeve::kComboSetSelection, row, 0);
        });
    }
    static void ThenExpectRow(std::intptr_t row) {
        Then([row] { EXPECT_EQ(SelectedRow(), row); });
    }
    // A key in the field: the toolkit hands it on to the dialog.
    static void ThenPressInField(std::uintptr_t key, std::intptr_t lparam = 0) {
        Then([key, lparam] { Tell(TopDialog(), zeve::kMessageKeyDown, key, lparam); });
    }
    static void ThenNotify(std::uint16_t id, std::uint16_t notification) {
        Then([id, notification] {
            Tell(TopDialog(), zeve::kMessageCommand, std::uintptr_t{notification} << 16 | id);
        });
    }
};

TEST_F(Privacy, AcceptedIsASuccess) {
    ThenExpectChoose();
    ThenPress(kContinueButton);
    ThenExpectStatement();
    ThenPress(kAcceptButton);
    EXPECT_EQ(Run(), kStatusSuccess);
    EXPECT_EQ(StoredLanguage(), "en_US");
    EXPECT_TRUE(System().script.empty());
}

TEST_F(Privacy, DeclinedHasAStatusOfItsOwn) {
    ThenPress(kContinueButton);
    ThenPress(kDeclineButton);
    EXPECT_EQ(Run(), 35075);
    EXPECT_EQ(StoredResult(), 35075u);
}

TEST_F(Privacy, CanBeCanceledOnEachPane) {
    for (const std::uint16_t cancel : {kCancelButton, kIdEscape}) {
        ThenPress(cancel);
        EXPECT_EQ(Run(), 35074);
        ThenPress(kContinueButton);
        ThenPress(cancel);
        EXPECT_EQ(Run(), 35074);
        EXPECT_EQ(StoredResult(), 35074u);
        EXPECT_TRUE(System().script.empty());
    }
}

TEST_F(Privacy, ThePopupHoldsTheLanguagesByTheirNamesAndTheUsersOwnIsSelected) {
    std::vector<std::u16string> names;
    for (const pavane_test::Language& language : pavane_test::Languages())
        names.push_back(lyr::gen::ToUtf16(language.name));
    std::intptr_t row = 0;
    for (const std::string& locale : Locales()) {
        SetLanguage(locale);
        std::vector<std::u16string> added;
        System().answer = [&added](const zeve::headless::Message& message) -> std::optional<std::intptr_t> {
            if (message.number == zeve::kComboAddString)
                added.emplace_back(reinterpret_cast<const char16_t*>(message.lparam));
            return std::nullopt;
        };
        ThenExpectRow(row++);
        ThenPress(kCancelButton);
        Run();
        EXPECT_EQ(added, names) << locale;
        System().answer = nullptr;
    }
}

TEST_F(Privacy, TheChoiceHasItsPictureUnlessInHighContrast) {
    for (const bool isHighContrast : {false, true}) {
        platform::ThePaneRecorder().isHighContrast = isHighContrast;
        Then([isHighContrast] {
            EXPECT_TRUE(IsControlShown(kChoosePicture));
            EXPECT_EQ(Control(kChoosePicture)->remembered[zeve::kStaticSetImage] == 0, isHighContrast);
        });
        ThenPress(kCancelButton);
        Run();
    }
    EXPECT_TRUE(platform::TheResourceRecorder().liveBitmaps.empty());
}

TEST_F(Privacy, TheFieldShowsTheStatementOfTheLanguageThatWasChosen) {
    std::uintptr_t row = 0;
    for (const std::string& locale : Locales()) {
        const std::uint16_t field = IsRightToLeft(locale) ? kRightToLeftField : kLeftToRightField;
        ThenSelectRow(row++);
        ThenPress(kContinueButton);
        ThenExpectStatement(field);
        Then([locale, field] {
            EXPECT_TRUE(Control(field)->text == Statement(locale)) << locale;
            EXPECT_GT(Control(field)->text.size(), 3000u);
            EXPECT_TRUE(zeve::platform::IsEnabled(Control(field)->handle));
            const std::uint16_t other = field == kLeftToRightField ? kRightToLeftField : kLeftToRightField;
            EXPECT_FALSE(zeve::platform::IsEnabled(Control(other)->handle)) << locale;
        });
        Then([this, locale] { EXPECT_EQ(StoredLanguage(), locale); });
        ThenPress(kBackButton);
        ThenExpectChoose();
    }
    ThenPress(kIdEscape);
    EXPECT_EQ(Run(), 35074);
    EXPECT_TRUE(System().script.empty());
}

TEST_F(Privacy, EachFieldReadsInItsDirectionInEveryDialog) {
    using namespace zeve::extended;
    for (const std::string& locale : Locales()) {
        SetLanguage(locale);
        Then([locale] {
            EXPECT_EQ(Control(kLeftToRightField)->extendedStyle & kRightToLeft, 0u) << locale;
            EXPECT_EQ(Control(kRightToLeftField)->extendedStyle & kRightToLeft, kRightToLeft) << locale;
            for (const std::uint16_t field : {kLeftToRightField, kRightToLeftField}) {
                constexpr std::uint32_t kStyle = zeve::style::kEditReadOnly | zeve::style::kEditMultiline |
                                                 zeve::style::kVerticalScroll | zeve::style::kTabStop;
                EXPECT_EQ(Control(field)->style & kStyle, kStyle);
            }
        });
        ThenPress(kCancelButton);
        Run();
    }
}

TEST_F(Privacy, TheChoiceIsKeptWhenTheUserGoesBack) {
    ThenSelectRow(3);
    ThenPress(kContinueButton);
    ThenPress(kBackButton);
    ThenExpectChoose();
    ThenExpectRow(3);
    ThenPress(kCancelButton);
    Run();
    EXPECT_EQ(StoredLanguage(), "ja_JP");
    ThenExpectRow(3);
    ThenPress(kCancelButton);
    Run();
    EXPECT_TRUE(System().script.empty());
}

TEST_F(Privacy, TheChoiceStartsInThePopup) {
    Then([] { EXPECT_EQ(System().focus, Control(kLanguagePopup)->handle); });
    ThenPress(kContinueButton);
    ThenPress(kBackButton);
    Then([] { EXPECT_EQ(System().focus, Control(kLanguagePopup)->handle); });
    ThenPress(kCancelButton);
    Run();
    EXPECT_TRUE(System().script.empty());
}

TEST_F(Privacy, GoingBackDoesNotFillThePopupAgain) {
    std::size_t added = 0;
    System().answer = [&added](const zeve::headless::Message& message) -> std::optional<std::intptr_t> {
        if (message.number == zeve::kComboAddString) ++added;
        return std::nullopt;
    };
    ThenPress(kContinueButton);
    ThenPress(kBackButton);
    ThenPress(kContinueButton);
    ThenPress(kBackButton);
    ThenPress(kCancelButton);
    Run();
    EXPECT_EQ(added, Locales().size());
    EXPECT_TRUE(System().script.empty());
}

TEST_F(Privacy, AFieldIsDisabledWhenItsPaneIsLeft) {
    ThenSelectRow(0);
    ThenPress(kContinueButton);
    Then([] { EXPECT_TRUE(zeve::platform::IsEnabled(Control(kLeftToRightField)->handle)); });
    ThenPress(kBackButton);
    Then([] { EXPECT_FALSE(zeve::platform::IsEnabled(Control(kLeftToRightField)->handle)); });
    ThenPress(kCancelButton);
    Run();
    EXPECT_TRUE(System().script.empty());
}

TEST_F(Privacy, TheFieldHasNoCaret) {
    ThenPress(kContinueButton);
    Then([] { EXPECT_EQ(platform::ThePaneRecorder().hiddenCarets, 0); });
    ThenNotify(kRightToLeftField, kNotificationEditHasFocus); // the hidden one
    ThenNotify(kLeftToRightField, kNotificationEditLosesFocus);
    Then([] { EXPECT_EQ(platform::ThePaneRecorder().hiddenCarets, 0); });
    for (const int times : {1, 2}) {
        ThenNotify(kLeftToRightField, kNotificationEditHasFocus);
        Then([times] {
            EXPECT_EQ(platform::ThePaneRecorder().hiddenCarets, times);
            EXPECT_EQ(platform::ThePaneRecorder().withoutCaret, Control(kLeftToRightField)->handle);
        });
    }
    ThenPress(kCancelButton);
    Run();
    EXPECT_TRUE(System().script.empty());
}

TEST_F(Privacy, TheReaderStartsInTheFieldWhereEnterDecidesNothingAndEscCancels) {
    ThenPress(kIdEnter);
    ThenExpectStatement();
    Then([] { EXPECT_EQ(System().focus, Control(kLeftToRightField)->handle); });
    ThenPressInField(zeve::kKeyEnter);
    ThenPress(kIdEnter);
    ThenExpectStatement();
    ThenPress(kAcceptButton);
    EXPECT_EQ(Run(), kStatusSuccess);
    ThenPress(kIdEnter);
    ThenPressInField(zeve::kKeyEscape);
    EXPECT_EQ(Run(), 35074);
    EXPECT_TRUE(System().script.empty());
}

TEST_F(Privacy, AHeldKeyDecidesNothing) {
    ThenPress(kIdEnter);
    ThenPressInField(zeve::kKeyEnter, kKeyWasDown);
    ThenPressInField(zeve::kKeyEscape, kKeyWasDown);
    ThenPressInField(' ');
    ThenExpectStatement();
    ThenPress(kDeclineButton);
    EXPECT_EQ(Run(), 35075);
    EXPECT_TRUE(System().script.empty());
}

TEST_F(Privacy, KeysOutsideTheFieldAreTheKeyboardRules) {
    ThenPressInField(zeve::kKeyEnter); // of the popup, which closes its list with it
    ThenPressInField(zeve::kKeyEscape);
    ThenExpectChoose();
    ThenPress(kCancelButton);
    EXPECT_EQ(Run(), 35074);
    EXPECT_TRUE(System().script.empty());
}

TEST_F(Privacy, TheFieldKeepsItsSelectionWhileTheFocusIsElsewhere) {
    System().answer = [](const zeve::headless::Message& message) -> std::optional<std::intptr_t> {
        if (message.number != zeve::kEditGetSelection) return std::nullopt;
        *reinterpret_cast<std::uint32_t*>(message.wparam) = 70000;
        *reinterpret_cast<std::uint32_t*>(message.lparam) = 70010;
        return 0;
    };
    std::vector<std::pair<std::uintptr_t, std::intptr_t>> set;
    const auto inner = System().answer;
    System().answer = [&set, inner](const zeve::headless::Message& message) {
        if (message.number == zeve::kEditSetSelection) set.emplace_back(message.wparam, message.lparam);
        return inner(message);
    };
    ThenPress(kContinueButton);
    ThenNotify(kLeftToRightField, kNotificationEditHasFocus);
    ThenNotify(kLeftToRightField, kNotificationEditLosesFocus);
    ThenNotify(kRightToLeftField, kNotificationEditHasFocus); // the hidden one
    ThenNotify(kLeftToRightField, kNotificationEditHasFocus);
    ThenPress(kBackButton);
    ThenPress(kContinueButton);
    ThenNotify(kLeftToRightField, kNotificationEditHasFocus);
    ThenPress(kAcceptButton);
    EXPECT_EQ(Run(), kStatusSuccess);
    using Range = std::pair<std::uintptr_t, std::intptr_t>;
    EXPECT_THAT(set, testing::ElementsAre(Range(0, 0), Range(70000, 70010), Range(0, 0)));
}

TEST_F(Privacy, TheChoiceHasADefaultButtonAndTheStatementHasNone) {
    Then([] { EXPECT_EQ(Control(kContinueButton)->style, 0x50010001u); });
    ThenPress(kContinueButton);
    Then([] {
        for (const std::uint16_t id : {kBackButton, kAcceptButton, kDeclineButton, kCancelButton})
            EXPECT_EQ(Control(id)->style, 0x50010000u) << id;
    });
    ThenPress(kAcceptButton);
    Run();
}

TEST_F(Privacy, TheDefaultButtonIsFramedWhileThePopupHasTheFocusButNotDuringTab) {
    std::vector<std::pair<Window, std::uintptr_t>> framed;
    System().answer = [&framed](const zeve::headless::Message& message) -> std::optional<std::intptr_t> {
        if (message.number == zeve::kButtonSetStyle) framed.emplace_back(message.window, message.wparam);
        return std::nullopt;
    };
    const auto thenExpect = [&framed](std::uint16_t button, std::uintptr_t style) {
        Then([&framed, button, style] {
            EXPECT_THAT(framed, testing::ElementsAre(std::pair(Control(button)->handle, style)));
            framed.clear();
        });
    };
    const auto thenTab = [] { Then([] { Tell(TopDialog(), zeve::kMessageNextDialogControl); }); };
    thenTab();
    thenExpect(kContinueButton, 0);
    ThenNotify(kLanguagePopup, kNotificationPopupHasFocus);
    thenExpect(kContinueButton, 1);
    ThenNotify(kLanguagePopup, 1); // another row
    ThenPress(kContinueButton);
    ThenNotify(kLeftToRightField, kNotificationEditHasFocus);
    ThenNotify(kLanguagePopup, kNotificationPopupHasFocus);
    thenTab();
    Then([&framed] { EXPECT_TRUE(framed.empty()) << "the statement has no default button"; });
    ThenPress(kAcceptButton);
    EXPECT_EQ(Run(), kStatusSuccess);
    EXPECT_TRUE(System().script.empty());
}

TEST_F(Privacy, AHiddenButtonChangesNothing) {
    for (const std::uint16_t id : {kAcceptButton, kDeclineButton, kBackButton, kReturnButton}) ThenPress(id);
    ThenExpectChoose();
    Then([this] { EXPECT_EQ(StoredResult(), 35074u); });
    ThenPress(kContinueButton);
    ThenPress(kContinueButton);
    ThenExpectStatement();
    isEndedFromOutside = true;
    Then([] { zeve::platform::CloseWindow(TopDialog()); });
    EXPECT_EQ(Run(), 35074);
}

TEST_F(Privacy, NothingIsDeliveredAfterTheEnd) {
    ThenPress(kContinueButton);
    Then([] {
        for (const std::uint16_t id : {kAcceptButton, kDeclineButton, kIdEnter, kCancelButton})
            zeve::platform::Post(TopDialog(), zeve::kMessageCommand, id, 0);
        zeve::platform::Post(TopDialog(), zeve::kMessageKeyDown, zeve::kKeyEscape, 0);
        zeve::platform::Post(TopDialog(), kMessageFirstFocus, 0, 0);
    });
    EXPECT_EQ(Run(), kStatusSuccess);
    EXPECT_EQ(StoredResult(), 35074u) << "as it was";
}

TEST_F(Privacy, TheButtonsOfAPaneAreSideBySideWithBackApart) {
    const auto expectOrder = [](std::vector<std::uint16_t> ids, bool isMirrored) {
        Then([ids, isMirrored] {
            for (std::size_t i = 1; i < ids.size(); ++i) {
                const auto& left = Control(ids[isMirrored ? i : i - 1])->frame;
                const auto& right = Control(ids[isMirrored ? i - 1 : i])->frame;
                EXPECT_GT(right.left, left.right) << ids[i];
                EXPECT_LE(right.left, left.right + 12) << ids[i];
                EXPECT_EQ(right.top, left.top);
            }
        });
    };
    for (const std::string& language : Locales()) {
        const bool isMirrored = IsRightToLeft(language);
        SetLanguage(language);
        expectOrder({kContinueButton, kCancelButton}, isMirrored);
        expectOrder({kAcceptButton, kDeclineButton, kCancelButton}, isMirrored);
        Then([isMirrored] {
            const auto& back = Control(kBackButton)->frame;
            EXPECT_EQ(back.top, Control(kAcceptButton)->frame.top);
            EXPECT_EQ(isMirrored ? 560 - back.right : back.left, 28) << "at the edge of the column";
        });
        expectOrder({kReturnButton, kCancelButton}, isMirrored);
        ThenPress(kCancelButton);
        Run();
    }
}

TEST_F(Privacy, ATourVisitsThePanesInOrder) {
    PVNWorkFlowContext context(bag);
    SelectLanguage("en_US");
    PVNPrivacyWorkFlow workFlow(context);
    ThenExpectChoose();
    ThenPress(kContinueButton);
    ThenExpectStatement();
    ThenPress(kAcceptButton);
    ThenExpectMissing();
    ThenPress(kReturnButton);
    Then([] {
        EXPECT_EQ(zeve::platform::TextOf(TopDialog()),
                  u"Getting started: There is no privacy statement to show");
    });
    ThenPress(kCancelButton);
    EXPECT_TRUE(workFlow.Run(true));
    EXPECT_TRUE(System().script.empty());
}

TEST_F(Privacy, WithoutAWindowIsAnException) {
    System().refuseWindow = 1;
    EXPECT_EQ(Run(), kStatusException);
    EXPECT_TRUE(zeve::platform::IsEnabled(mainWindow));
}

// With a language list of the test's own. A run that finds the layer set up takes its root for what it needs
// before the dialog is there.
class PrivacyFiles : public Privacy {
protected:
    PrivacyFiles() {
        const auto built = std::filesystem::path(platform::LibraryFolder()) / "PVResources";
        for (const char* name : {"privacy.exv", "en_US/guide.zdct"}) files.Copy(name, built / name);
        Select("en_US");
    }

    void WriteList(const std::string& bytes) { files.Write("privacyinfolist.xml", bytes); }
    static std::string Entry(const std::string& language, const std::string& name, const std::string& file) {
        return "<LANGUAGE_INFO><LANGID>" + language + "</LANGID><LANGNAME>" + name +
               "</LANGNAME><FILE_NAME>" + file + "</FILE_NAME></LANGUAGE_INFO>";
    }
};

TEST_F(PrivacyFiles, AMissingStatementHasAPaneAndAnotherCanBeChosen) {
    WriteList("<PVN_PRIVACY_INFO>" + Entry("de_DE", "Deutsch", "gone") +
              Entry("en_US", "English", "privacy_en_US") + "</PVN_PRIVACY_INFO>");
    ThenExpectRow(1);
    ThenSelectRow(0);
    ThenPress(kContinueButton);
    ThenExpectMissing();
    ThenExpectWords("missing/title");
    ThenExpectWords("missing/text");
    ThenExpectWords("choose/text", false);
    Then([] { EXPECT_EQ(Control(kReturnButton)->style, 0x50010001u); });
    ThenPress(kIdEnter);
    ThenExpectChoose();
    ThenExpectWords("missing/text", false);
    ThenExpectWords("choose/text");
    ThenSelectRow(1);
    ThenPress(kContinueButton);
    ThenExpectStatement();
    ThenPress(kBackButton);
    ThenSelectRow(0);
    ThenPress(kContinueButton);
    ThenExpectMissing();
    ThenPress(kReturnButton);
    ThenExpectChoose();
    ThenPress(kCancelButton);
    EXPECT_EQ(Run(), 35074);
    EXPECT_TRUE(System().script.empty());
}

TEST_F(PrivacyFiles, AStatementThatCannotBeShownCanBeCanceled) {
    WriteList("<PVN_PRIVACY_INFO>" + Entry("en_US", "English", "..\\privacy_en_US") + "</PVN_PRIVACY_INFO>");
    ThenPress(kContinueButton);
    ThenExpectMissing();
    ThenPress(kAcceptButton);
    ThenPress(kDeclineButton);
    ThenExpectMissing();
    ThenPress(kIdEscape);
    EXPECT_EQ(Run(), 35074);
    EXPECT_TRUE(System().script.empty());
}

TEST_F(PrivacyFiles, WithoutItsViewOrItsDictionaryIsAnException) {
    for (const auto& [file, line] : std::map<std::string, std::string>{
             {"privacy.exv", "PVN: _info_: Missing Resource(Type: Exvw, Name: privacy)\n"},
             {"en_US/guide.zdct", "PVN: _info_: Missing Resource(Type: Zdct, Name: Privacy)\n"}}) {
        const std::string bytes = ReadBytes(files.PathOf(file));
        files.Remove(file);
        ShutDownResources();
        Select("en_US");
        const std::size_t logged = Logged().size();
        EXPECT_EQ(Run(), 33289) << file;
        EXPECT_EQ(Logged().substr(logged), line);
        files.Write(file, bytes);
    }
}

TEST_F(PrivacyFiles, AnEmptyLanguageListHasAPaneOfItsOwn) {
    for (const char* bytes :
         {"", "<PVN_PRIVACY_INFO/>", "<other/>", "<PVN_PRIVACY_INFO><LANGUAGE_INFO/></PVN_PRIVACY_INFO>"}) {
        WriteList(bytes);
        Select("en_US");
        Then([] {
            EXPECT_EQ(zeve::platform::TextOf(TopDialog()),
                      u"Getting started: There is no privacy statement to show");
            EXPECT_TRUE(IsControlShown(kCancelButton));
            EXPECT_EQ(Control(kCancelButton)->style, 0x50010001u);
            for (const std::uint16_t id : {kContinueButton, kBackButton, kAcceptButton, kDeclineButton,
                                           kReturnButton, kLanguagePopup, kLeftToRightField})
                EXPECT_FALSE(IsControlShown(id)) << id;
        });
        ThenExpectWords("none/title");
        ThenExpectWords("none/text");
        ThenExpectWords("choose/text", false);
        ThenPress(kContinueButton);
        ThenPress(kAcceptButton);
        ThenPress(kIdEnter);
        EXPECT_EQ(Run(), 35074);
        EXPECT_TRUE(System().script.empty());
    }
}

class PrivacyWithoutMemory : public WithoutMemory<Privacy, PVNPrivacyWorkFlow> {
protected:
    void WriteScript() override {
        ThenSelectRow(4);
        ThenPress(kContinueButton);
        ThenPress(kBackButton);
        ThenSelectRow(0);
        ThenPress(kContinueButton);
        ThenPress(kAcceptButton);
    }
};

TEST_F(PrivacyWithoutMemory, EndsInAStatusLeavesNothingAndRunsAgain) { ExpectToHoldOut({kStatusUserCancel}); }

} // namespace
} // namespace brixen::pvn::pvn_workflow
