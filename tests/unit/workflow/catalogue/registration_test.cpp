#include "workflow/catalogue/registration.h"

#include "net/transport/communication_detail.h"
#include "toolkit/boxes/item_list.h"
#include "toolkit/control_styles.h"
#include "unit/workflow/catalogue/service_workflow_fixture.h"
#include "unit/workflow/without_memory.h"
#include "workflow/catalogue/connection_settings_views.h"
#include "workflow/catalogue/registration_views.h"

#include <map>

namespace brixen::pvn::pvn_workflow {
namespace {

using namespace registration;
using namespace connection_settings;

constexpr Status kDenied = 0x8501, kUnavailable = 0x8502;

class Registration : public ServiceWorkFlow<PVNRegistrationWorkFlow> {
protected:
    static void ThenFillDetails() {
        ThenType(kNameField, u" Ann Example ");
        ThenType(kOrganizationField, u"Example");
        ThenType(kEmailField, u"ann@example.com");
        ThenSelectCountry("FR");
        ThenType(kSerialField, u"ABC-123");
        Then([] {
            if (const auto* const box = Control(kNewsCheckBox)) {
                zeve::platform::Send(box->handle, zeve::kButtonSetCheck, zeve::kChecked, 0);
            }
        });
    }
    static void ThenSelectCountry(std::string code) {
        Then([code] { SetControlValue(kCountryPopup, code); });
    }
    static void SetControlValue(std::uint16_t id, const std::string& value) {
        zeve::EventRecord record;
        record.StorePointer(zeve::kKeySetValue, value.c_str());
        zeve::ZeveSetValue(OpenDialog(), id, record);
    }
    static zeve::ZeveDialog* OpenDialog() { return openDialog; }

    void ThenOpenDetails() {
        Then([this] {
            void* dialog = nullptr;
            GetPtr(bag, PvnWFKey_ZeveRef, dialog);
            openDialog = static_cast<zeve::ZeveDialog*>(dialog);
        });
        ThenPress(kContinueButton);
    }
    // Goes on to the busy pane.
    void ThenRegister() {
        ThenOpenDetails();
        ThenFillDetails();
        ThenStart(kRegisterButton);
    }
    void ThenFail(Status status) {
        ThenRegister();
        ThenEndWith(status);
    }
    void ThenLeave() { ThenPressEsc(); }

    static inline zeve::ZeveDialog* openDialog = nullptr;
};

TEST_F(Registration, WalkedToItsEndIsASuccessWithTheNumberOfTheService) {
    ThenExpectPane("registration/introduction");
    ThenExpectText(kProductText, "Product: Salt && Sugar");
    ThenExpectShown({kContinueButton, kLaterButton, kQuitButton, kPrivacyLink, kConnectionLink});
    ThenExpectHidden({kBackButton, kRegisterButton, kDoneButton, kTryAgainButton, kCancelButton, kNameField});
    ThenRegister();
    ThenExpectPane("registration/registering");
    ThenExpectShown({kBusyBar, kBusyText, kCancelButton, kCancelNote});
    ThenExpectBusy(kBusyBar, kMessageStartWorker);
    ThenEndWith(kStatusSuccess, [](T_StorageInterface& workerBag) {
        SetString(workerBag, PvnWFKey_ConfirmationNumber, "R-2026-17");
    });
    ThenExpectPane("registration/registered");
    ThenExpectText(kNumberField, "R-2026-17");
    ThenExpectShown({kDoneButton, kNumberField});
    ThenExpectHidden({kBackButton, kLaterButton, kQuitButton, kCancelButton});
    ThenPress(kDoneButton);
    EXPECT_EQ(Run(), kStatusSuccess);
    EXPECT_EQ(StoredText(PvnWFKey_ConfirmationNumber), "R-2026-17");
}

TEST_F(Registration, ANameOfTheHostThatMisleadsIsNeutralizedWhereverItGoes) {
    SetString(bag, PvnWFKey_ProductName, "Salt\n\u202EraguS\xFF & Co");
    ThenExpectText(kProductText, "Product: Salt \uFFFDraguS\uFFFD && Co");
    ThenRegister();
    Then([this] {
        std::string product;
        GetString(context->workerBag->values, PvnWFKey_ProductName, product);
        EXPECT_EQ(product, "Salt \uFFFDraguS\uFFFD & Co");
    });
    ThenEndWith(kUnavailable);
    ThenLeave();
    Run();
}

TEST_F(Registration, TheWorkerGetsTheDetailsWithoutBlanksAtTheirEnds) {
    ThenRegister();
    Then([this] {
        T_StorageInterface& values = context->workerBag->values;
        const std::map<const char*, std::string> expected = {
            {PvnWFKey_RegistrationName, "Ann Example"},
            {PvnWFKey_RegistrationOrganization, "Example"},
            {PvnWFKey_RegistrationEmail, "ann@example.com"},
            {PvnWFKey_RegistrationCountry, "FR"},
            {PvnWFKey_RegistrationSerial, "ABC-123"},
            {PvnWFKey_RegistrationNews, "1"},
            {PvnWFKey_PageLocale, "en_US"},
            {PvnWFKey_ProductName, "Salt & Sugar"},
            {PvnWFKey_ServiceUrl, Word("service/url")},
        };
        for (const auto& [key, text] : expected) {
            std::string stored = "none";
            GetString(values, key, stored);
            EXPECT_EQ(stored, text) << key;
        }
    });
    ThenEndWith(kStatusNoThread);
    ThenLeave();
    Run();
}

TEST_F(Registration, EachFieldIsCheckedInTheOrderOfThePageAndTakesTheFocus) {
    ThenRegister();
    ThenEndWith(kStatusCallTimedOut);
    ThenPress(kProblemBackButton);
    const auto thenRefuse = [](std::uint16_t field, std::u16string text, std::string alert) {
        ThenType(field, text);
        ThenPress(kRegisterButton);
        ThenExpectAlert(alert, field);
    };
    // From the last field to the first, so that each fault is before those found earlier.
    thenRefuse(kSerialField, u"ABC 1", "serial_malformed");
    thenRefuse(kSerialField, u"  ", "serial_missing");
    ThenSelectCountry("");
    ThenPress(kRegisterButton);
    ThenExpectAlert("country_missing", kCountryPopup);
    thenRefuse(kEmailField, u"ann@example", "email_malformed");
    thenRefuse(kEmailField, u"", "email_missing");
    thenRefuse(kNameField, u"\u3000 ", "name_missing");
    ThenExpectPane("registration/details");
    ThenLeave();
    EXPECT_EQ(Run(), kStatusUserCancel);
}

TEST_F(Registration, ATextThatIsTooLongToPasteIsRefusedAndNotCut) {
    ThenRegister();
    ThenEndWith(kStatusCallTimedOut);
    ThenPress(kProblemBackButton);
    for (const std::size_t length : {std::size_t{41}, std::size_t{1001}}) {
        ThenPaste(kSerialField, std::u16string(length, u'1'));
        ThenPress(kRegisterButton);
        ThenExpectAlert("serial_malformed", kSerialField);
    }
    const std::u16string name = u"ann@example.";
    for (const std::size_t length : {std::size_t{255}, std::size_t{1001}}) {
        ThenPaste(kEmailField, name + std::u16string(length - name.size(), u'c'));
        ThenPress(kRegisterButton);
        ThenExpectAlert("email_malformed", kEmailField);
    }
    ThenLeave();
    Run();
}

TEST_F(Registration, APastedTabIsABlankAndAControlCharacterIsGone) {
    ThenOpenDetails();
    ThenFillDetails();
    ThenType(kNameField, u"Ann\tExample");
    ThenType(kOrganizationField, u"Exam\1ple\tInc.");
    ThenStart(kRegisterButton);
    Then([this] {
        std::string name, organization;
        GetString(context->workerBag->values, PvnWFKey_RegistrationName, name);
        GetString(context->workerBag->values, PvnWFKey_RegistrationOrganization, organization);
        EXPECT_EQ(name, "Ann Example");
        EXPECT_EQ(organization, "Example Inc.");
    });
    ThenEndWith(kStatusNoThread);
    ThenLeave();
    Run();
}

TEST_F(Registration, TheLocaleIsThatOfThePagesWhereTheLanguageHasNoWords) {
    SetLanguage("es_ES");
    ThenRegister();
    Then([this] {
        std::string locale;
        GetString(context->workerBag->values, PvnWFKey_PageLocale, locale);
        EXPECT_EQ(locale, "en_US");
    });
    ThenEndWith(kStatusNoThread);
    ThenLeave();
    Run();
}

TEST_F(Registration, TheTextToCorrectIsSelected) {
    std::vector<std::pair<std::uintptr_t, std::intptr_t>> selected;
    System().answer = [&](const zeve::headless::Message& message) -> std::optional<std::intptr_t> {
        if (message.number == zeve::kEditSetSelection && message.window == Control(kNameField)->handle) {
            selected.emplace_back(message.wparam, message.lparam);
        }
        return std::nullopt;
    };
    ThenPress(kContinueButton);
    ThenPress(kRegisterButton);
    ThenPress(101);
    Then([&selected] {
        EXPECT_THAT(selected, testing::ElementsAre(testing::Pair(std::uintptr_t{0}, std::intptr_t{-1})));
    });
    ThenLeave();
    Run();
}

TEST_F(Registration, AfterACorrectionThePageBeginsInItsFirstFieldAgain) {
    ThenPress(kContinueButton);
    ThenType(kNameField, u"Ann");
    ThenPress(kRegisterButton);
    ThenExpectAlert("email_missing", kEmailField);
    ThenPress(kBackButton);
    ThenPress(kContinueButton);
    ThenExpectFocus(kNameField);
    ThenLeave();
    Run();
}

TEST_F(Registration, EnterNeverSendsTheDetails) {
    ThenRegister();
    ThenEndWith(kDenied);
    ThenPress(kProblemBackButton);
    Then([] {
        for (const std::uint16_t id : {kBackButton, kRegisterButton, kLaterButton, kQuitButton})
            EXPECT_EQ(Control(id)->style & 0xF, zeve::style::kPushButton) << id;
    });
    ThenPressEnter();
    ThenExpectPane("registration/details");
    ThenLeave();
    Run();
}

TEST_F(Registration, EnterOnProblemLeadsBackAndSendsNothing) {
    ThenFail(kUnavailable);
    ThenPressEnter();
    ThenExpectPane("registration/details");
    ThenLeave();
    Run();
}

TEST_F(Registration, EnterOnTheFirstAndTheLastPaneGoesOn) {
    ThenPressEnter();
    ThenExpectPane("registration/details");
    ThenPress(kBackButton);
    ThenExpectPane("registration/introduction");
    ThenRegister();
    ThenEndWith(kStatusSuccess);
    ThenPressEnter();
    EXPECT_EQ(Run(), kStatusSuccess);
}

TEST_F(Registration, TheFocusBeginsInTheNameAndAfterARefusalInTheSerialNumber) {
    ThenPress(kContinueButton);
    ThenExpectFocus(kNameField);
    ThenPress(kBackButton);
    ThenFail(kDenied);
    ThenPress(kProblemBackButton);
    ThenExpectFocus(kSerialField);
    ThenStart(kRegisterButton);
    ThenEndWith(kStatusCallTimedOut);
    ThenPress(kProblemBackButton);
    ThenExpectFocus(kNameField);
    ThenLeave();
    Run();
}

TEST_F(Registration, EachPaneBeginsInItsFirstControl) {
    ThenExpectFocus(kContinueButton);
    ThenRegister();
    ThenExpectFocus(kCancelButton);
    ThenEndWith(kUnavailable);
    ThenExpectFocus(kProblemBackButton);
    ThenPress(kProblemConnectionLink);
    ThenExpectFocus(kSystemProxy);
    ThenPress(kSettingsBackButton);
    ThenExpectFocus(kProblemBackButton);
    ThenStart(kTryAgainButton);
    ThenEndWith(kStatusSuccess);
    ThenExpectFocus(kDoneButton);
    ThenPress(kDoneButton);
    Run();
}

TEST_F(Registration, TheNumberAndTheErrorCodeCanBeCopiedAndNotChanged) {
    ThenFail(kUnavailable);
    ThenExpectLocked(kErrorCodeField);
    ThenStart(kTryAgainButton);
    ThenEndWith(kStatusSuccess);
    ThenExpectLocked(kNumberField);
    ThenPress(kDoneButton);
    Run();
}

TEST_F(Registration, EveryFailureLeadsToTheProblem) {
    ExpectEveryFailureToLeadTo("registration/problem", [this] { ThenRegister(); });
}

TEST_F(Registration, AFaultIsShownInEveryLanguage) {
    const auto thenShow = [] {
        ThenPress(kContinueButton);
        ThenPress(kRegisterButton);
    };
    ExpectAlertInEveryLanguage(thenShow, "registration/details", kNameField);
}

TEST_F(Registration, WhatWasEnteredIsStillThereAfterAProblem) {
    ThenFail(kStatusHttpError);
    ThenPress(kProblemBackButton);
    ThenExpectText(kNameField, " Ann Example ");
    ThenExpectText(kSerialField, "ABC-123");
    ThenLeave();
    Run();
}

TEST_F(Registration, EveryFailureHasWordsAndItsCode) {
    constexpr Failure kFailures[] = {
        {53250, "timed_out", "208:2"},    {53411, "refused", "208:163"},
        {53426, "name", "208:178"},       {53427, "secure", "208:179"},
        {53251, "content", "208:3"},      {53425, "address", "208:177"},
        {53410, "memory", "208:162"},     {33286, "memory", "130:6"},
        {33410, "thread", "130:130"},     {0x8501, "registration_denied", "133:1"},
        {0x8502, "unavailable", "133:2"}, {0x85FF, "unavailable", "133:255"},
        {33289, "other", "130:9"},        {53409, "other", "208:161"},
        {53249, "other", "208:1"},        {0x8500, "other", "133:0"},
        {0x8600, "other", "134:0"},
    };
    for (const Failure& failure : kFailures) {
        SCOPED_TRACE(failure.status);
        ThenFail(failure.status);
        ThenExpectFailure(failure, "registration/problem", kProblemText, kErrorCodeField);
        ThenExpectShown({kProblemBackButton, kTryAgainButton, kProblemLaterButton, kProblemConnectionLink});
        ThenExpectHidden({kQuitButton, kCancelButton, kBackButton});
        ThenPressEsc();
        EXPECT_EQ(Run(), failure.status) << "Esc keeps the failure";
    }
}

TEST_F(Registration, TryAgainSendsOnceMore) {
    ThenFail(kUnavailable);
    ThenStart(kTryAgainButton);
    ThenExpectPane("registration/registering");
    ThenEndWith(kStatusSuccess);
    ThenExpectPane("registration/registered");
    ThenPressEsc();
    EXPECT_EQ(Run(), kStatusSuccess);
}

TEST_F(Registration, CancelAfterTryAgainLeadsBackToTheDetails) {
    for (const std::uint16_t cancel : {kCancelButton, kIdEscape}) {
        ThenFail(kDenied);
        ThenStart(kTryAgainButton);
        ThenPress(cancel);
        ThenExpectText(kBusyText, Word("busy/canceling"));
        ThenEndWith(kStatusCallCanceled);
        ThenExpectPane("registration/details");
        ThenExpectFocus(kNameField);
        ThenExpectText(kSerialField, "ABC-123");
        ThenStart(kRegisterButton);
        ThenExpectText(kBusyText, Word("busy/waiting"));
        ThenEndWith(kStatusSuccess);
        ThenPress(kDoneButton);
        EXPECT_EQ(Run(), kStatusSuccess);
    }
}

TEST_F(Registration, LaterHasAStatusOfItsOwn) {
    ThenPress(kLaterButton);
    EXPECT_EQ(Run(), 35075);
    ThenPress(kContinueButton);
    ThenPress(kLaterButton);
    EXPECT_EQ(Run(), 35075);
    ThenFail(kUnavailable);
    ThenPress(kProblemLaterButton);
    EXPECT_EQ(Run(), 35075) << "not the failure";
}

TEST_F(Registration, QuitAsksFirst) {
    ThenPress(kQuitButton);
    ThenPress(101);
    EXPECT_EQ(Run(), 35073) << "from the first pane";
    ThenPress(kQuitButton);
    ThenPress(102);
    ThenExpectPane("registration/introduction");
    ThenPress(kContinueButton);
    ThenPress(kQuitButton);
    ThenPress(102);
    ThenExpectPane("registration/details");
    ThenPress(kQuitButton);
    ThenPress(101);
    EXPECT_EQ(Run(), 35073);
}

// The host's quit message takes nothing back of a call that has ended.
TEST_F(Registration, AQuitOfTheHostKeepsTheStatusOfTheCall) {
    const auto expectQuitAs = [this](std::uint16_t status) {
        Then([] { zeve::platform::PostQuit(0); });
        EXPECT_EQ(Run(), status);
        System().quit.reset(); // posted again for the host
    };
    expectQuitAs(kStatusUserCancel);
    ThenFail(kUnavailable);
    ThenPress(kProblemBackButton);
    expectQuitAs(kUnavailable);
    ThenRegister();
    ThenEndWith(kStatusSuccess);
    expectQuitAs(kStatusSuccess);
}

TEST_F(Registration, EscBeforeTheCallCancelsTheRun) {
    ThenPressEsc();
    EXPECT_EQ(Run(), 35074);
    ThenFail(kUnavailable);
    ThenPress(kProblemBackButton);
    ThenPressEsc();
    EXPECT_EQ(Run(), 35074) << "not the failure";
}

TEST_F(Registration, ACanceledCallLeadsBackToTheDetails) {
    for (const std::uint16_t cancel : {kCancelButton, kIdEscape}) {
        ThenRegister();
        ThenPress(cancel);
        ThenExpectPane("registration/registering");
        Then([] { EXPECT_TRUE(gProgressCancel); });
        ThenExpectText(kBusyText, Word("busy/canceling"));
        ThenEndWith(kStatusCallCanceled);
        ThenExpectPane("registration/details");
        ThenExpectText(kSerialField, "ABC-123");
        ThenExpectFocus(kNameField);
        ThenPress(kLaterButton);
        EXPECT_EQ(Run(), 35075);
    }
}

TEST_F(Registration, WithoutTheHostsLeaveThereIsNoCancel) {
    SetLong(bag, PvnWFKey_AllowCancel, 0);
    ThenRegister();
    ThenExpectHidden({kCancelButton, kCancelNote});
    ThenPress(kCancelButton);
    ThenPressEsc();
    Then([] { EXPECT_FALSE(gProgressCancel); });
    ThenEndWith(kStatusSuccess);
    ThenPress(kDoneButton);
    EXPECT_EQ(Run(), kStatusSuccess);
}

TEST_F(Registration, AHiddenButtonChangesNothing) {
    const auto thenPressAllBut = [](const std::vector<std::uint16_t>& shown) {
        ThenPressAllBut(shown, kBackButton, kUseSettingsButton);
    };
    thenPressAllBut({kContinueButton, kLaterButton, kQuitButton, kProblemLaterButton});
    ThenExpectPane("registration/introduction");
    ThenRegister();
    thenPressAllBut({kCancelButton});
    ThenExpectPane("registration/registering");
    ThenEndWith(kUnavailable);
    thenPressAllBut({kProblemBackButton, kTryAgainButton, kProblemLaterButton, kBackButton, kLaterButton});
    ThenExpectPane("registration/problem");
    Then([this] { EXPECT_EQ(StoredLong(PvnWFKey_WorkFlowResult), kUnavailable); });
    ThenPress(kProblemConnectionLink);
    thenPressAllBut({kSettingsBackButton, kUseSettingsButton});
    ThenExpectPane("connection/settings");
    ThenPress(kSettingsBackButton);
    ThenPressEsc();
    EXPECT_EQ(Run(), kUnavailable);
}

TEST_F(Registration, TheSettingsLeadBackToWhereTheyWereOpened) {
    ThenPress(kConnectionLink);
    ThenExpectPane("connection/settings");
    ThenExpectShown({kSystemProxy, kOwnProxy, kSettingsBackButton, kUseSettingsButton});
    ThenPress(kSettingsBackButton);
    ThenExpectPane("registration/introduction");
    ThenPress(kConnectionLink);
    ThenPress(kUseSettingsButton);
    ThenExpectPane("registration/introduction");
    ThenPress(kConnectionLink);
    ThenPressEsc();
    ThenExpectPane("registration/introduction");
    ThenFail(kStatusNameNotResolved);
    ThenPress(kProblemConnectionLink);
    ThenPressEsc();
    ThenExpectPane("registration/problem");
    ThenPress(kProblemConnectionLink);
    ThenPressEnter();
    ThenExpectPane("registration/problem");
    ThenExpectFocus(kProblemBackButton);
    ThenPress(kProblemBackButton);
    ThenExpectPane("registration/details");
    ThenLeave();
    Run();
}

TEST_F(Registration, SettingsThatAreUsedReachTheWorkerAndTheBag) {
    ThenPress(kConnectionLink);
    ThenPress(kOwnProxy);
    ThenType(kHostField, u"proxy.example.com");
    ThenType(kPortField, u"8080");
    ThenPress(kUseSettingsButton);
    ThenRegister();
    Then([this] {
        std::uint32_t port = 0;
        GetLong(context->workerBag->values, PvnWFKey_ProxyPort, port);
        EXPECT_EQ(port, 8080u);
    });
    ThenEndWith(kUnavailable);
    ThenLeave();
    Run();
    EXPECT_EQ(StoredText(PvnWFKey_ProxyHost), "proxy.example.com");
    EXPECT_EQ(StoredLong(PvnWFKey_ProxyPort), 8080u);
}

TEST_F(Registration, ChangedSettingsReachTheNextWorker) {
    const auto thenExpectHost = [this](const std::string& expected) {
        Then([this, expected] {
            std::string host = "none";
            GetString(context->workerBag->values, PvnWFKey_ProxyHost, host);
            EXPECT_EQ(host, expected);
        });
    };
    SetString(bag, PvnWFKey_ProxyHost, "old.example.com");
    SetLong(bag, PvnWFKey_ProxyPort, 3128);
    ThenRegister();
    thenExpectHost("old.example.com");
    ThenEndWith(kUnavailable);
    ThenPress(kProblemConnectionLink);
    ThenType(kHostField, u"new.example.com");
    ThenPress(kUseSettingsButton);
    ThenStart(kTryAgainButton);
    thenExpectHost("new.example.com");
    ThenEndWith(kUnavailable);
    ThenLeave();
    Run();
}

TEST_F(Registration, TheWorkerGetsNothingOfAProxyAfterThatOfTheSystemWasChosen) {
    SetString(bag, PvnWFKey_ProxyHost, "old.example.com");
    SetLong(bag, PvnWFKey_ProxyPort, 3128);
    SetString(bag, PvnWFKey_ProxyUserName, "bob");
    SetString(bag, PvnWFKey_ProxyPassword, "hidden");
    ThenPress(kConnectionLink);
    ThenExpectSentence("connection/settings/unsent");
    ThenPress(kSystemProxy);
    ThenPress(kUseSettingsButton);
    ThenRegister();
    Then([this] {
        T_StorageInterface& values = context->workerBag->values;
        std::string text;
        for (const char* key : {PvnWFKey_ProxyHost, PvnWFKey_ProxyUserName, PvnWFKey_ProxyPassword})
            EXPECT_FALSE(GetString(values, key, text)) << key;
        std::uint32_t port = 0;
        EXPECT_FALSE(GetLong(values, PvnWFKey_ProxyPort, port));
    });
    ThenEndWith(kUnavailable);
    ThenLeave();
    Run();
}

TEST_F(Registration, ThePrivacyStatementOpensInTheBrowser) {
    ThenPress(kPrivacyLink);
    ThenExpectPane("registration/introduction");
    ThenLeave();
    Run();
    ASSERT_EQ(platform::ThePaneRecorder().started.size(), 1u);
    EXPECT_THAT(lyr::gen::ToUtf8(platform::ThePaneRecorder().started[0].arguments),
                testing::HasSubstr(Word("service/privacy_url")));
}

TEST_F(Registration, TheCountryOfTheUserIsSelectedOnce) {
    platform::TheRegionRecorder().country = "JP";
    std::string selected;
    const auto thenReadCountry = [&] {
        Then([&] { selected = zeve::ZeveGetValue(openDialog, kCountryPopup, false).text.value_or("none"); });
    };
    ThenOpenDetails();
    thenReadCountry();
    Then([&selected] { EXPECT_EQ(selected, "JP"); });
    ThenSelectCountry("DE");
    ThenPress(kBackButton);
    ThenPress(kContinueButton);
    thenReadCountry();
    Then([&selected] { EXPECT_EQ(selected, "DE"); });
    ThenLeave();
    Run();
}

// A field without a choice would not show that one is missing.
TEST_F(Registration, WithoutTheCountryOfTheUserInTheListItAsksForOne) {
    for (const char* const country : {"XK", "ZZ", "de", ""}) {
        platform::TheRegionRecorder().country = country;
        std::intptr_t selected = -1;
        ThenOpenDetails();
        Then([&selected] {
            const Window popup = Control(kCountryPopup)->handle;
            selected = zeve::platform::Send(popup, zeve::kComboGetSelection, 0, 0);
        });
        ThenType(kNameField, u"Ann");
        ThenType(kEmailField, u"ann@example.com");
        ThenPress(kRegisterButton);
        ThenExpectAlert("country_missing", kCountryPopup);
        ThenLeave();
        Run();
        EXPECT_EQ(selected, 0) << country;
    }
}

TEST_F(Registration, TheCountriesHaveTheOrderOfTheDictionary) {
    for (const std::string& locale : pavane_test::Locales()) {
        SetLanguage(locale);
        std::vector<std::string> added;
        System().answer = [&added](const zeve::headless::Message& message) -> std::optional<std::intptr_t> {
            if (message.number == zeve::kComboAddString)
                added.push_back(lyr::gen::ToUtf8(reinterpret_cast<const char16_t*>(message.lparam)));
            return std::nullopt;
        };
        ThenLeave();
        Run();
        ShutDownResources();
        const Words words = ReadWords(kSources / "dictionaries" / locale / "service.txt");
        std::vector<std::string> labels;
        for (const zeve::ListItem& item :
             zeve::ParseItemList(words.at("$$$/pvn/registration/details/countries"), zeve::Separators::kKeep))
            labels.push_back(item.label);
        EXPECT_EQ(labels.size(), 250u);
        EXPECT_EQ(added, labels) << locale;
    }
}

TEST_F(Registration, ATourVisitsThePanesInOrderAndStartsNoWorker) {
    GetFrameTwin().startsUntilRefusal = 1;
    ThenVisit({{"registration/introduction", kContinueButton},
               {"registration/details", kRegisterButton},
               {"registration/registering", kCancelButton},
               {"registration/registered", kDoneButton},
               {"registration/problem", kTryAgainButton},
               {"connection/settings", kUseSettingsButton}});
    EXPECT_EQ(Run(true), kStatusSuccess);
    EXPECT_EQ(GetFrameTwin().startsUntilRefusal, 1) << "no worker was started";
}

TEST_F(Registration, RunsFromABagInEveryLanguage) {
    ExpectToRunInEveryLanguage("registration/introduction", kLaterButton, kStatusUserOutcome3);
}

// With a failure in the middle of the run.
class RegistrationWithoutMemory : public WithoutMemory<Registration, PVNRegistrationWorkFlow> {
protected:
    void WriteScript() override {
        ThenOpenDetails();
        ThenFillDetails();
        ThenRunWorker(kRegisterButton, kUnavailable);
        ThenRunWorker(kTryAgainButton, kStatusSuccess);
        ThenPress(kDoneButton);
    }
};

TEST_F(RegistrationWithoutMemory, EndsInAStatusLeavesNothingAndRunsAgain) {
    constexpr std::size_t kStride = 53;
    ExpectToHoldOut({kStatusUserCancel}, kStride);
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
