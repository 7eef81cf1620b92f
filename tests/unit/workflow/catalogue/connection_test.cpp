#include "workflow/catalogue/connection.h"

#include "net/transport/communication_detail.h"
#include "toolkit/control_styles.h"
#include "unit/workflow/catalogue/service_workflow_fixture.h"
#include "unit/workflow/without_memory.h"
#include "workflow/catalogue/connection_settings_views.h"
#include "workflow/catalogue/connection_views.h"

namespace brixen::pvn::pvn_workflow {
namespace {

using namespace connection;
using namespace connection_settings;

class Connection : public ServiceWorkFlow<PVNConnectionWorkFlow> {
protected:
    static void ThenEnterProxy() {
        ThenPress(kOwnProxy);
        ThenType(kHostField, u"proxy.example.com");
        ThenType(kPortField, u"3128");
        ThenType(kUserNameField, u"ann");
        ThenType(kPasswordField, u"secret");
    }
    void SetProxy() {
        SetString(bag, PvnWFKey_ProxyHost, "old.example.com");
        SetLong(bag, PvnWFKey_ProxyPort, 8080);
        SetString(bag, PvnWFKey_ProxyUserName, "bob");
        SetString(bag, PvnWFKey_ProxyPassword, "hidden");
    }
    bool HasText(const char* key) {
        std::string text;
        return GetString(bag, key, text);
    }
    static void ThenExpectMarked(std::uint16_t marked) {
        Then([marked] {
            for (const std::uint16_t id : {kSystemProxy, kOwnProxy}) {
                const auto check = zeve::platform::Send(Control(id)->handle, zeve::kButtonGetCheck, 0, 0);
                EXPECT_EQ(check == zeve::kChecked, id == marked) << id;
            }
            for (const std::uint16_t id : {kHostField, kPortField, kUserNameField, kPasswordField})
                EXPECT_EQ(zeve::platform::IsEnabled(Control(id)->handle), marked == kOwnProxy) << id;
        });
    }
    // Enters a text, and expects the alert.
    static void ThenRefuse(std::uint16_t field, std::u16string text, std::string alert) {
        ThenType(field, std::move(text));
        ThenPress(kTestButton);
        ThenExpectAlert(alert, field);
    }
};

TEST_F(Connection, AReachedServiceIsShownWithTheTimeThatTheAnswerTook) {
    ThenExpectPane("connection/settings");
    ThenExpectShown({kSystemProxy, kOwnProxy, kHostField, kTestButton, kCancelButton});
    ThenExpectHidden({kReachedDoneButton, kUnreachedDoneButton, kTryAgainButton, kCancelTestButton});
    ThenStart(kTestButton);
    ThenExpectPane("connection/testing");
    ThenExpectShown({kBusyBar, kBusyText, kCancelTestButton, kCancelNote});
    ThenExpectBusy(kBusyBar, kMessageStartSecondWorker);
    ThenEndWith(kStatusSuccess,
                [](T_StorageInterface& workerBag) { SetLong(workerBag, PvnWFKey_ConnectionTime, 142); });
    ThenExpectPane("connection/reached");
    ThenExpectText(kReachedText, "Salt && Sugar reached the service. The answer took 142 ms.\n\n" +
                                     Word("connection/reached/kept"));
    ThenExpectShown({kReachedBackButton, kReachedDoneButton});
    ThenPress(kReachedBackButton);
    ThenExpectPane("connection/settings");
    ThenStart(kTestButton);
    ThenEndWith(kStatusSuccess);
    ThenPressEnter();
    EXPECT_EQ(Run(), kStatusSuccess);
}

TEST_F(Connection, ATimeFromOneSecondOnIsInSeconds) {
    const std::pair<std::uint32_t, const char*> kTimes[] = {
        {0, "0 ms"},
        {1, "1 ms"},
        {999, "999 ms"},
        {1000, "1.0 s"},
        {1049, "1.0 s"},
        {1050, "1.1 s"},
        {9949, "9.9 s"},
        {9950, "10.0 s"},
        {45000, "45.0 s"},
        {59999, "60.0 s"},
        {4294967295, "4294967.3 s"},
    };
    for (const auto& [milliseconds, words] : kTimes) {
        ThenStart(kTestButton);
        ThenEndWith(kStatusSuccess, [time = milliseconds](T_StorageInterface& workerBag) {
            SetLong(workerBag, PvnWFKey_ConnectionTime, time);
        });
        ThenExpectText(kReachedText, std::string("Salt && Sugar reached the service. The answer took ") +
                                         words + ".\n\n" + Word("connection/reached/kept"));
        ThenPressEsc();
        Run();
    }
}

TEST_F(Connection, ATimeHasTheDecimalMarkOfTheLanguage) {
    const std::pair<const char*, std::u16string> kTimes[] = {
        {"en_US", u"12.3 s"}, {"de_DE", u"12,3\u00A0s"}, {"fr_FR", u"12,3\u00A0s"},
        {"ja_JP", u"12.3 "},  {"he_IL", u"12.3 "},       {"ar_AE", u"12.3 "},
    };
    for (const auto& [locale, words] : kTimes) {
        SetLanguage(locale);
        ThenStart(kTestButton);
        ThenEndWith(kStatusSuccess, [](T_StorageInterface& workerBag) {
            SetLong(workerBag, PvnWFKey_ConnectionTime, 12345);
        });
        Then([time = words] { EXPECT_NE(Control(kReachedText)->text.find(time), time.npos); });
        ThenPressEsc();
        Run();
        ShutDownResources();
    }
}

TEST_F(Connection, EscAfterSuccessIsASuccess) {
    ThenStart(kTestButton);
    ThenEndWith(kStatusSuccess);
    ThenPressEsc();
    EXPECT_EQ(Run(), kStatusSuccess);
}

TEST_F(Connection, EveryFailureHasWordsAndItsCode) {
    constexpr Failure kFailures[] = {
        {53250, "timed_out", "208:2"},    {53411, "refused", "208:163"},
        {53427, "secure", "208:179"},     {0x8501, "connection_denied", "133:1"},
        {0x8502, "unavailable", "133:2"}, {33410, "thread", "130:130"},
    };
    for (const Failure& failure : kFailures) {
        SCOPED_TRACE(failure.status);
        ThenStart(kTestButton);
        ThenEndWith(failure.status);
        ThenExpectFailure(failure, "connection/unreached", kUnreachedText, kErrorCodeField);
        ThenExpectShown({kUnreachedBackButton, kTryAgainButton, kUnreachedDoneButton, kErrorCodeField});
        ThenPressEsc();
        EXPECT_EQ(Run(), failure.status) << "Esc keeps the failure";
    }
}

TEST_F(Connection, EveryFailureLeadsToUnreached) {
    ExpectEveryFailureToLeadTo("connection/unreached", [] { ThenStart(kTestButton); });
}

TEST_F(Connection, EachPaneBeginsInItsFirstControl) {
    ThenExpectFocus(kSystemProxy);
    ThenStart(kTestButton);
    ThenExpectFocus(kCancelTestButton);
    ThenEndWith(kStatusHttpError);
    ThenExpectFocus(kUnreachedBackButton);
    ThenExpectLocked(kErrorCodeField);
    ThenStart(kTryAgainButton);
    ThenEndWith(kStatusSuccess);
    ThenExpectFocus(kReachedDoneButton);
    ThenPressEsc();
    Run();
}

TEST_F(Connection, CancelAfterTryAgainLeadsBackToTheSettings) {
    for (const std::uint16_t cancel : {kCancelTestButton, kIdEscape}) {
        ThenEnterProxy();
        ThenStart(kTestButton);
        ThenEndWith(kStatusHttpError);
        ThenStart(kTryAgainButton);
        ThenPress(cancel);
        ThenEndWith(kStatusCallCanceled);
        ThenExpectPane("connection/settings");
        ThenExpectMarked(kOwnProxy);
        ThenExpectFocus(kHostField);
        ThenPressEsc();
        EXPECT_EQ(Run(), 35074) << "neither the failure nor the cancel of the call";
    }
}

TEST_F(Connection, ThePageSaysThatTheLogInIsNotSent) {
    ThenExpectSentence("connection/settings/unsent");
    ThenPressEsc();
    Run();
}

TEST_F(Connection, AFaultIsShownInEveryLanguage) {
    const auto thenShow = [] {
        ThenPress(kOwnProxy);
        ThenPress(kTestButton);
    };
    ExpectAlertInEveryLanguage(thenShow, "connection/settings", kHostField);
}

TEST_F(Connection, TheWorkerGetsTheLocaleAndNoNameOfTheProduct) {
    SetLanguage("de_DE");
    ThenStart(kTestButton);
    Then([this] {
        std::string locale, product;
        GetString(context->workerBag->values, PvnWFKey_PageLocale, locale);
        EXPECT_EQ(locale, "de_DE");
        EXPECT_FALSE(GetString(context->workerBag->values, PvnWFKey_ProductName, product));
    });
    ThenEndWith(kStatusSuccess);
    ThenPressEsc();
    Run();
}

TEST_F(Connection, TheLocaleIsThatOfThePagesWhereTheLanguageHasNoWords) {
    SetLanguage("es_ES");
    ThenStart(kTestButton);
    Then([this] {
        std::string locale;
        GetString(context->workerBag->values, PvnWFKey_PageLocale, locale);
        EXPECT_EQ(locale, "en_US");
    });
    ThenEndWith(kStatusSuccess);
    ThenPressEsc();
    Run();
}

TEST_F(Connection, DoneAfterAFailureIsASuccess) {
    ThenStart(kTestButton);
    ThenEndWith(kStatusCallTimedOut);
    ThenPress(kUnreachedDoneButton);
    EXPECT_EQ(Run(), kStatusSuccess);
}

TEST_F(Connection, AFailedTestCanBeRepeatedOrItsSettingsChanged) {
    ThenEnterProxy();
    ThenStart(kTestButton);
    ThenEndWith(kStatusNameNotResolved);
    ThenStart(kTryAgainButton);
    ThenExpectPane("connection/testing");
    ThenEndWith(kStatusNameNotResolved);
    ThenPressEnter();
    ThenExpectPane("connection/settings");
    ThenExpectFocus(kHostField);
    ThenExpectText(kHostField, "proxy.example.com");
    ThenPress(kCancelButton);
    EXPECT_EQ(Run(), 35074) << "not the failure";
}

TEST_F(Connection, CanBeCanceledBeforeTheTest) {
    for (const std::uint16_t cancel : {kCancelButton, kIdEscape}) {
        ThenPress(cancel);
        EXPECT_EQ(Run(), 35074);
    }
}

TEST_F(Connection, ACanceledTestLeadsBackToTheSettings) {
    for (const std::uint16_t cancel : {kCancelTestButton, kIdEscape}) {
        ThenEnterProxy();
        ThenStart(kTestButton);
        ThenPress(cancel);
        ThenExpectText(kBusyText, Word("busy/canceling"));
        ThenEndWith(kStatusCallCanceled);
        ThenExpectPane("connection/settings");
        ThenExpectMarked(kOwnProxy);
        ThenExpectText(kPasswordField, "secret");
        ThenExpectFocus(kHostField);
        ThenPressEsc();
        EXPECT_EQ(Run(), 35074);
    }
}

TEST_F(Connection, EnterNeverSendsTheTest) {
    Then([] {
        for (const std::uint16_t id : {kTestButton, kCancelButton})
            EXPECT_EQ(Control(id)->style & 0xF, zeve::style::kPushButton) << id;
    });
    ThenPressEnter();
    ThenExpectPane("connection/settings");
    ThenPressEsc();
    Run();
}

TEST_F(Connection, WhatWasEnteredIsInTheWorkersBagAndInTheBagOfTheRun) {
    ThenEnterProxy();
    ThenStart(kTestButton);
    Then([this] {
        std::string host, password;
        GetString(context->workerBag->values, PvnWFKey_ProxyHost, host);
        GetString(context->workerBag->values, PvnWFKey_ProxyPassword, password);
        EXPECT_EQ(host, "proxy.example.com");
        EXPECT_EQ(password, "secret");
    });
    ThenEndWith(kStatusSuccess);
    ThenPress(kReachedDoneButton);
    Run();
    EXPECT_EQ(StoredText(PvnWFKey_ProxyHost), "proxy.example.com");
    EXPECT_EQ(StoredLong(PvnWFKey_ProxyPort), 3128u);
    EXPECT_EQ(StoredText(PvnWFKey_ProxyUserName), "ann");
    EXPECT_EQ(StoredText(PvnWFKey_ProxyPassword), "secret");
}

TEST_F(Connection, TheWorkerHasNoPasswordWhereNoneWasEntered) {
    SetProxy();
    ThenType(kUserNameField, u"");
    ThenType(kPasswordField, u"");
    ThenStart(kTestButton);
    ThenEndWith(kStatusSuccess);
    ThenPress(kReachedDoneButton);
    Run();
    EXPECT_FALSE(HasText(PvnWFKey_ProxyUserName));
    EXPECT_FALSE(HasText(PvnWFKey_ProxyPassword));
    EXPECT_EQ(StoredText(PvnWFKey_ProxyHost), "old.example.com");
}

TEST_F(Connection, TheSettingsOfTheBagAreShown) {
    SetProxy();
    ThenExpectMarked(kOwnProxy);
    ThenExpectText(kHostField, "old.example.com");
    ThenExpectText(kPortField, "8080");
    ThenExpectText(kUserNameField, "bob");
    ThenExpectText(kPasswordField, "hidden");
    ThenExpectFocus(kHostField);
    ThenPressEsc();
    Run();
}

TEST_F(Connection, WithoutHostOrPortTheProxyIsTheSystems) {
    SetProxy();
    bag.Remove(PvnWFKey_ProxyPort, kValueTypeLong);
    SetLong(bag, PvnWFKey_UseUserProxySetting, 1);
    ThenExpectMarked(kSystemProxy);
    ThenExpectFocus(kSystemProxy);
    ThenPressEsc();
    Run();
}

TEST_F(Connection, AFailureWithTheProxyOfTheSystemLeavesTheChoiceAsItWas) {
    ThenStart(kTestButton);
    ThenEndWith(kStatusHttpError);
    ThenPress(kUnreachedBackButton);
    Then([this] { EXPECT_EQ(StoredLong(PvnWFKey_UseUserProxySetting), 1u); });
    ThenExpectMarked(kSystemProxy);
    ThenPressEsc();
    Run();
}

TEST_F(Connection, ChoosingTheProxyOfTheSystemRemovesTheKeysAndKeepsWhatWasTyped) {
    SetProxy();
    ThenPress(kSystemProxy);
    ThenExpectMarked(kSystemProxy);
    ThenStart(kTestButton);
    ThenEndWith(kStatusHttpError);
    ThenPress(kUnreachedBackButton);
    ThenExpectMarked(kSystemProxy);
    ThenExpectText(kHostField, "old.example.com");
    ThenExpectText(kPasswordField, "hidden");
    ThenPressEsc();
    Run();
    for (const char* key : {PvnWFKey_ProxyHost, PvnWFKey_ProxyUserName, PvnWFKey_ProxyPassword})
        EXPECT_FALSE(HasText(key)) << key;
    EXPECT_EQ(StoredLong(PvnWFKey_ProxyPort), 0xFFFFFFFFu);
}

TEST_F(Connection, TheArrowKeysChooseToo) {
    ThenNotify(kOwnProxy, kNotificationButtonHasFocus);
    ThenExpectMarked(kOwnProxy);
    ThenNotify(kSystemProxy, kNotificationButtonHasFocus);
    ThenExpectMarked(kSystemProxy);
    ThenPressEsc();
    Run();
}

TEST_F(Connection, EachFieldIsCheckedAndTakesTheFocus) {
    ThenEnterProxy();
    ThenRefuse(kPasswordField, std::u16string(33, u'x'), "password_long");
    ThenRefuse(kUserNameField, std::u16string(17, u'\u00E4'), "user_name_long");
    ThenRefuse(kPortField, u"", "port_missing");
    ThenRefuse(kHostField, u"https://proxy.example.com", "host_malformed");
    ThenRefuse(kHostField, u"m\u00FCller.example.com", "host_malformed");
    ThenRefuse(kHostField, std::u16string(129, u'x'), "host_long");
    ThenRefuse(kHostField, u"", "host_missing");
    ThenExpectPane("connection/settings");
    ThenPressEsc();
    Run();
    EXPECT_FALSE(HasText(PvnWFKey_ProxyHost));
    EXPECT_FALSE(HasText(PvnWFKey_ProxyPassword));
}

TEST_F(Connection, TheLongestTextsAreTaken) {
    ThenEnterProxy();
    ThenType(kHostField, std::u16string(128, u'x'));
    ThenType(kUserNameField, std::u16string(32, u'u'));
    ThenType(kPasswordField, std::u16string(16, u'\u00E4'));
    ThenStart(kTestButton);
    ThenEndWith(kStatusSuccess);
    ThenPress(kReachedDoneButton);
    EXPECT_EQ(Run(), kStatusSuccess);
    EXPECT_EQ(StoredText(PvnWFKey_ProxyHost).size(), 128u);
    EXPECT_EQ(StoredText(PvnWFKey_ProxyPassword).size(), 32u);
}

TEST_F(Connection, ATextThatIsTooLongToPasteIsRefusedAndNotCut) {
    constexpr struct {
        std::uint16_t field;
        std::size_t longest;
        const char* alert;
    } kPastes[] = {
        {kPasswordField, 32, "password_long"},
        {kUserNameField, 32, "user_name_long"},
        {kHostField, 128, "host_long"},
    };
    ThenEnterProxy();
    for (const auto& paste : kPastes) {
        for (const std::size_t length : {paste.longest + 1, std::size_t{1001}}) {
            ThenPaste(paste.field, std::u16string(length, u'x'));
            ThenPress(kTestButton);
            ThenExpectAlert(paste.alert, paste.field);
        }
    }
    ThenPressEsc();
    Run();
    EXPECT_FALSE(HasText(PvnWFKey_ProxyHost));
}

TEST_F(Connection, APastedPortIsNotCutToAnotherOne) {
    ThenEnterProxy();
    ThenPaste(kPortField, u"312899");
    ThenPress(kTestButton);
    ThenExpectPane("connection/settings");
    ThenExpectText(kPortField, "65535");
    ThenPressEsc();
    Run();
}

// A number field takes them.
TEST_F(Connection, APortThatIsNoWholeNumberInDigitsIsRefused) {
    ThenEnterProxy();
    for (const char16_t* port : {u"+80", u"5e4", u".5e5", u"3,128", u"8.8", u"80ab", u"80/2", u"3:128"}) {
        ThenRefuse(kPortField, port, "port_malformed");
    }
    ThenPressEsc();
    Run();
    EXPECT_FALSE(HasText(PvnWFKey_ProxyHost));
    EXPECT_EQ(StoredLong(PvnWFKey_ProxyPort), 0xFFFFFFFFu);
}

TEST_F(Connection, APortIsRefusedInTheSameWayWhereOneWasShown) {
    SetProxy();
    for (const char16_t* port : {u"8.8", u"80/2", u"3:128"}) ThenRefuse(kPortField, port, "port_malformed");
    ThenPressEsc();
    Run();
    EXPECT_EQ(StoredLong(PvnWFKey_ProxyPort), 8080u);
}

TEST_F(Connection, AStoredPortIsThatOfTheFieldAndIsShownAgain) {
    const std::pair<const char16_t*, std::uint32_t> kPorts[] = {
        {u"1", 1}, {u"0080", 80}, {u" 443 ", 443}, {u"65535", 65535}};
    for (const auto& [text, port] : kPorts) {
        ThenEnterProxy();
        ThenType(kPortField, text);
        ThenStart(kTestButton);
        Then([this, port = port] {
            std::uint32_t sent = 0;
            GetLong(context->workerBag->values, PvnWFKey_ProxyPort, sent);
            EXPECT_EQ(sent, port);
        });
        ThenEndWith(kStatusSuccess);
        ThenPress(kReachedBackButton);
        ThenExpectText(kPortField, std::to_string(port));
        ThenPressEsc();
        Run();
        EXPECT_EQ(StoredLong(PvnWFKey_ProxyPort), port);
    }
}

TEST_F(Connection, APortBeyondItsLimitsIsCorrectedBeforeAnythingIsSent) {
    ThenEnterProxy();
    ThenType(kPortField, u"70000");
    ThenPress(kTestButton);
    ThenExpectPane("connection/settings");
    ThenExpectText(kPortField, "65535");
    ThenExpectFocus(kPortField);
    ThenPressEsc();
    Run();
    EXPECT_FALSE(HasText(PvnWFKey_ProxyHost));
}

TEST_F(Connection, AHiddenButtonChangesNothing) {
    const auto thenPressAllBut = [](const std::vector<std::uint16_t>& shown) {
        ThenPressAllBut(shown, kTestButton, kUnreachedDoneButton);
    };
    thenPressAllBut({kTestButton, kCancelButton});
    ThenExpectPane("connection/settings");
    ThenStart(kTestButton);
    thenPressAllBut({kCancelTestButton});
    ThenExpectPane("connection/testing");
    ThenEndWith(kStatusHttpError);
    thenPressAllBut({kUnreachedBackButton, kTryAgainButton, kUnreachedDoneButton, kReachedBackButton,
                     kReachedDoneButton});
    ThenExpectPane("connection/unreached");
    ThenPressEsc();
    EXPECT_EQ(Run(), kStatusHttpError);
}

TEST_F(Connection, ThePasswordIsInAFieldThatHidesIt) {
    Then([] {
        EXPECT_NE(Control(kPasswordField)->style & zeve::style::kEditPassword, 0u);
        EXPECT_EQ(Control(kUserNameField)->style & zeve::style::kEditPassword, 0u);
    });
    ThenPressEsc();
    Run();
}

TEST_F(Connection, ThePasswordIsOverwrittenInItsFieldBeforeTheWindowGoes) {
    Window field = nullptr;
    ThenEnterProxy();
    Then([&field] { field = Control(kPasswordField)->handle; });
    ThenPressEsc();
    Run();
    std::vector<std::u16string> texts;
    bool isClosed = false;
    for (const auto& call : System().calls) {
        if (call.name == "CloseWindow") isClosed = true;
        if (call.name != "SetText" || call.window != field) continue;
        EXPECT_FALSE(isClosed);
        texts.push_back(call.text);
    }
    EXPECT_THAT(texts, testing::ElementsAre(u"secret", u"      ", u""));
}

TEST_F(Connection, ThePasswordIsInNoLineOfTheLog) {
    ThenEnterProxy();
    ThenStart(kTestButton);
    ThenEndWith(kStatusUnexpectedContent);
    ThenPressEsc();
    Run();
    EXPECT_THAT(Logged(), testing::Not(testing::HasSubstr("secret")));
}

TEST_F(Connection, ATourVisitsThePanesInOrder) {
    ThenVisit({{"connection/settings", kTestButton},
               {"connection/testing", kCancelTestButton},
               {"connection/reached", kReachedDoneButton},
               {"connection/unreached", kUnreachedDoneButton}});
    EXPECT_EQ(Run(true), kStatusSuccess);
}

TEST_F(Connection, RunsFromABagInEveryLanguage) {
    ExpectToRunInEveryLanguage("connection/settings", kCancelButton, kStatusUserCancel);
}

// With a failure in the middle of the run.
class ConnectionWithoutMemory : public WithoutMemory<Connection, PVNConnectionWorkFlow> {
protected:
    void WriteScript() override {
        ThenEnterProxy();
        ThenRunWorker(kTestButton, kStatusCallTimedOut);
        ThenRunWorker(kTryAgainButton, kStatusSuccess);
        ThenPress(kReachedDoneButton);
    }
};

TEST_F(ConnectionWithoutMemory, EndsInAStatusLeavesNothingAndRunsAgain) {
    constexpr std::size_t kStride = 53;
    ExpectToHoldOut({kStatusUserCancel}, kStride);
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
