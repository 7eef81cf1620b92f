// What is opened for the user, and what never is.
#include "workflow/controls/open_in_browser.h"

#include "dictionaries/translation.h"
#include "unit/workflow/resources/resource_fixture.h"
#include "values/storage.h"
#include "workflow/controls/openable_target.h"
#include "workflow/platform/headless/control_recorder.h"
#include "workflow/platform/headless/pane_recorder.h"

namespace brixen::pvn::pvn_workflow {
namespace {

const std::u16string kAddress = u"https://example.com/a?b=1&c=2#d";

TEST(WebAddress, HasOneOfThreeSchemes) {
    for (const char16_t* address :
         {u"http://example.com", u"https://example.com", u"mailto:a@b.c", u"HTTP://X", u"hTtPs://x",
          u"MailTo:x", u"http:x", u"https://example.com/a?b=1&c=2#d"}) {
        EXPECT_TRUE(IsWebAddress(address)) << testing::PrintToString(std::u16string(address));
    }
    for (const char16_t* address : {u"",
                                    u"http",
                                    u"http:",
                                    u"https:",
                                    u"mailto:",
                                    u"httpx://x",
                                    u"xhttp://x",
                                    u" http://x",
                                    u"\thttp://x",
                                    u"<http://x>",
                                    u"ftp://x",
                                    u"file:///c:/x",
                                    u"javascript:alert(1)",
                                    u"data:text/html,x",
                                    u"//x",
                                    u"www.x",
                                    u"c:\\windows\\notepad.exe",
                                    u"\\\\server\\share",
                                    u"calc.exe",
                                    u"ms-settings:x",
                                    u"search-ms:x"}) {
        EXPECT_FALSE(IsWebAddress(address)) << testing::PrintToString(std::u16string(address));
    }
}

TEST(WebAddress, HoldsNoBlankQuoteControlOrForeignCharacter) {
    for (char16_t unit = 0; unit < 0x120; ++unit) {
        const bool isFine = unit > 0x20 && unit < 0x7F && unit != u'"' && unit != u'\'' && unit != u'`';
        EXPECT_EQ(IsWebAddress(std::u16string(u"http://a") + unit + u"b"), isFine) << static_cast<int>(unit);
        EXPECT_EQ(IsWebAddress(std::u16string(u"http://a") + unit), isFine) << static_cast<int>(unit);
    }
    for (const char16_t unit : {u'\x2028', u'\x202E', u'\xD800', u'\xFF0F', u'\xFFFF'}) {
        EXPECT_FALSE(IsWebAddress(std::u16string(u"http://a") + unit));
    }
}

class Browser : public ResourceFixture {
protected:
    Browser() { Forget(); }
    ~Browser() override { Forget(); }

    static void Forget() {
        platform::ThePaneRecorder().Reset();
        platform::TheControlRecorder().Reset();
    }
    static const std::vector<platform::StartedProgram>& Started() {
        return platform::ThePaneRecorder().started;
    }
    static const std::vector<std::u16string>& Opened() { return platform::TheControlRecorder().opened; }
};

TEST_F(Browser, GetsTheAddressAsOneQuotedArgument) {
    OpenInBrowser(kAddress);
    ASSERT_EQ(Started().size(), 1u);
    EXPECT_EQ(Started()[0].program, u"iexplore.exe");
    EXPECT_EQ(Started()[0].arguments, u"\"" + kAddress + u"\"");
    EXPECT_EQ(Started()[0].showCommand, 9);
    EXPECT_TRUE(Opened().empty());
}

TEST_F(Browser, ThatDoesNotStartLeavesTheTargetToTheUsersOwn) {
    platform::ThePaneRecorder().installed = u"";
    OpenInBrowser(kAddress);
    EXPECT_EQ(Started().size(), 1u);
    EXPECT_EQ(Opened(), std::vector<std::u16string>{kAddress});
}

TEST_F(Browser, IsNotStartedForAnythingElse) {
    for (const char16_t* target : {u"", u"notepad.exe", u"http://a b", u"http://a\" -x \"", u"file:///c:/x",
                                   u"c:\\windows\\system32\\calc.exe", u"-embedding"}) {
        OpenInBrowser(target);
    }
    EXPECT_TRUE(Started().empty());
    EXPECT_TRUE(Opened().empty());
}

TEST_F(Browser, OpensALocalPageThatWasFound) {
    files.Write("en_US/page.html", "");
    files.Write("en_US/other.html", "");
    Select("en_US");
    const std::u16string page = FindLocalPage("page");
    ASSERT_FALSE(page.empty());
    OpenInBrowser(page);
    ASSERT_EQ(Started().size(), 1u);
    EXPECT_EQ(Started()[0].arguments, u"\"" + page + u"\"");
    std::u16string other = page;
    other.replace(other.rfind(u"page"), 4, u"other");
    OpenInBrowser(other);
    OpenInBrowser(page + u" ");
    EXPECT_EQ(Started().size(), 1u) << "only the page that was found";
}

TEST_F(Browser, ForgetsThePagesOfAFormerRun) {
    files.Write("en_US/page.html", "");
    Select("en_US");
    const std::u16string page = FindLocalPage("page");
    EXPECT_TRUE(IsOpenable(page));
    ShutDownResources();
    EXPECT_FALSE(IsOpenable(page));
}

TEST_F(Browser, OpensTheAddressOfAContextKey) {
    T_Storage context;
    OpenContextAddress(context, "Address");
    SetString(context, "Address", "https://example.com/a?b=1&c=2#d");
    SetString(context, "Bad", "ftp://example.com");
    OpenContextAddress(context, "Bad");
    EXPECT_TRUE(Started().empty());
    OpenContextAddress(context, "Address");
    ASSERT_EQ(Started().size(), 1u);
    EXPECT_EQ(Started()[0].arguments, u"\"" + kAddress + u"\"");
}

TEST_F(Browser, OpensTheAddressThatIsADictionaryText) {
    Select("en_US");
    OpenTextAddress("$$$/test/address=https://example.com/a?b=1&c=2#d");
    ASSERT_EQ(Started().size(), 1u);
    EXPECT_EQ(Started()[0].arguments, u"\"" + kAddress + u"\"");
    OpenTextAddress("$$$/test/missing");
    OpenTextAddress("");
    OpenTextAddress("$$$/test/foreign=https://example.com/\xC3\xA4");
    EXPECT_EQ(Started().size(), 1u);
}

TEST_F(Browser, TakesADictionaryTextOfUpTo1023Units) {
    Select("en_US");
    const std::string longest = "http://" + std::string(1016, 'x');
    OpenTextAddress("$$$/test/long=" + longest + "x");
    EXPECT_TRUE(Started().empty());
    OpenTextAddress("$$$/test/longest=" + longest);
    ASSERT_EQ(Started().size(), 1u);
    EXPECT_EQ(Started()[0].arguments.size(), 1025u);
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
