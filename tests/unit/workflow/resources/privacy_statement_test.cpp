// Privacy statements: which file is taken for a language, and what is read from it.
#include "support/failing_allocator.h"
#include "unit/workflow/resources/resource_fixture.h"
#include "workflow/resources/privacy_statement_handler.h"

#include <gmock/gmock.h>

namespace brixen::pvn::pvn_workflow {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string LittleEndian(std::u16string_view text) {
    std::string bytes = "\xFF\xFE";
    for (const char16_t unit : text) bytes += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
    return bytes;
}
std::string BigEndian(std::u16string_view text) {
    std::string bytes = "\xFE\xFF";
    for (const char16_t unit : text) bytes += {static_cast<char>(unit >> 8), static_cast<char>(unit & 0xFF)};
    return bytes;
}

std::string Entry(const std::string& language, const std::string& fileName) {
    return "<LANGUAGE_INFO><LANGID>" + language + "</LANGID><LANGNAME>name of " + language +
           "</LANGNAME><FILE_NAME>" + fileName + "</FILE_NAME></LANGUAGE_INFO>";
}

TEST(StatementText, IsUtf16OfEitherByteOrderAfterItsMark) {
    const std::u16string text = u"Ein Satz. \u05D0\u65E5\U0001F600\r\n";
    EXPECT_EQ(DecodeStatement(LittleEndian(text)), text);
    EXPECT_EQ(DecodeStatement(BigEndian(text)), text);
}

TEST(StatementText, IsEmptyWithoutAMark) {
    for (const char* bytes : {"", "p", "plain text", "\xEF\xBB\xBFUTF-8", "\xFF", "\xFE", "\xFF\xFF",
                              "\xFE\xFE", "\xFF\xFD!", " \xFF\xFE"})
        EXPECT_EQ(DecodeStatement(bytes), u"") << bytes;
}

TEST(StatementText, OfTheMarkAloneIsEmpty) {
    EXPECT_EQ(DecodeStatement("\xFF\xFE"), u"");
    EXPECT_EQ(DecodeStatement("\xFE\xFF"), u"");
}

TEST(StatementText, EndsAtTheFirstNulUnit) {
    const std::u16string text(u"before\0after", 12);
    EXPECT_EQ(DecodeStatement(LittleEndian(text)), u"before");
    EXPECT_EQ(DecodeStatement(BigEndian(text)), u"before");
    EXPECT_EQ(DecodeStatement(LittleEndian(std::u16string(1, u'\0'))), u"");
}

TEST(StatementText, DropsHalfAUnitAtItsEnd) {
    EXPECT_EQ(DecodeStatement(LittleEndian(u"ab") + "c"), u"ab");
    EXPECT_EQ(DecodeStatement(BigEndian(u"ab") + "c"), u"ab");
    EXPECT_EQ(DecodeStatement("\xFF\xFE!"), u"");
}

TEST(StatementText, MayHoldAnyUnit) {
    std::u16string text;
    for (char32_t unit = 1; unit <= 0xFFFF; ++unit) text += static_cast<char16_t>(unit);
    EXPECT_EQ(DecodeStatement(LittleEndian(text)), text);
    EXPECT_EQ(DecodeStatement(BigEndian(text)), text);
}

TEST(StatementPaths, HoldANameOf1024Units) {
    EXPECT_EQ(StatementPath(std::string(1024, 'n')),
              u"privacystatements\\" + std::u16string(1024, u'n') + u".txt");
    EXPECT_EQ(StatementPath(std::string(1025, 'n')), u"");
}

class PrivacyStatements : public ResourceFixture {
protected:
    PrivacyStatements() { Select("en_US"); }

    void WriteList(const std::string& entries) {
        files.Write("privacyinfolist.xml", "<PVN_PRIVACY_INFO>" + entries + "</PVN_PRIVACY_INFO>");
    }
    void WriteStatement(const std::string& fileName, std::u16string_view text) {
        files.Write("privacystatements/" + fileName + ".txt", LittleEndian(text));
    }
    // The text that the handler returns; "(null)" for null.
    std::u16string Load(const std::string& locale, const std::string& name = "", std::uint32_t mode = 0) {
        const auto* text = static_cast<const char16_t*>(handler.Load(name, locale, mode));
        return text ? text : u"(null)";
    }
    // The statement of a list that has one entry with that file name.
    std::u16string LoadNamed(const std::string& fileName) {
        WriteList(Entry("x", fileName));
        PVNPrivacyStatementHandler fresh;
        const auto* text = static_cast<const char16_t*>(fresh.Load("", "x", 0));
        return text ? text : u"(null)";
    }

    PVNPrivacyStatementHandler handler;
};

TEST_F(PrivacyStatements, AreFoundByTheLocaleThroughTheList) {
    WriteList(Entry("en_US", "english") + Entry("de_DE", "german"));
    WriteStatement("english", u"hello");
    WriteStatement("german", u"hallo");
    EXPECT_EQ(Load("de_DE"), u"hallo");
    EXPECT_EQ(Load("en_US"), u"hello");
}

TEST_F(PrivacyStatements, DoNotDependOnNameOrMode) {
    WriteList(Entry("en_US", "english"));
    WriteStatement("english", u"hello");
    for (const std::uint32_t mode : {0u, 3u, 99u}) EXPECT_EQ(Load("en_US", "anything", mode), u"hello");
}

TEST_F(PrivacyStatements, TreatDefaultLocaleAsAnyLocale) {
    WriteList(Entry("en_US", "english"));
    WriteStatement("english", u"hello");
    EXPECT_EQ(Load("default_locale"), u"(null)");
    WriteList(Entry("default_locale", "english"));
    PVNPrivacyStatementHandler fresh;
    EXPECT_NE(fresh.Load("", "default_locale", 0), nullptr);
}

TEST_F(PrivacyStatements, AreNullForALocaleThatIsNotInTheList) {
    WriteList(Entry("en_US", "english"));
    WriteStatement("english", u"hello");
    EXPECT_EQ(Load("de_DE"), u"(null)");
    EXPECT_EQ(Load("en"), u"(null)");
    WriteStatement("", u"a file without a name");
    EXPECT_EQ(Load("de_DE"), u"a file without a name") << "an empty entry has an empty file name";
}

TEST_F(PrivacyStatements, AreNullWithoutAFile) {
    WriteList(Entry("en_US", "english"));
    EXPECT_EQ(Load("en_US"), u"(null)");
    std::filesystem::create_directories(files.PathOf("privacystatements/english.txt"));
    EXPECT_EQ(Load("en_US"), u"(null)");
}

TEST_F(PrivacyStatements, AreEmptyTextsWhereTheFileIsNoUtf16) {
    WriteList(Entry("en_US", "english"));
    files.Write("privacystatements/english.txt", "hello");
    EXPECT_EQ(Load("en_US"), u"");
}

TEST_F(PrivacyStatements, AreInTheirFolderOnly) {
    for (const char* elsewhere : {"outside.txt", "en_US/outside.txt", "privacystatements/in/outside.txt"})
        files.Write(elsewhere, LittleEndian(u"outside"));
    WriteStatement("..hidden", u"outside");
    WriteStatement("in..side", u"outside");
    for (const char* name :
         {"..\\outside", "../outside", "in\\outside", "in/outside", "\\outside", "/outside", "..hidden",
          "in..side", "..", ".", "C:outside", "outside:stream", ":", "\\", "outside"})
        EXPECT_EQ(LoadNamed(name), u"(null)") << name;
    EXPECT_EQ(LoadNamed(std::string("outside\0x", 9)), u"(null)");
}

TEST_F(PrivacyStatements, MayHaveOtherNames) {
    for (const char* name : {"plain", "with blank", "with.dot", "100%", "a-b_c", "#"}) {
        WriteStatement(name, u"text");
        EXPECT_EQ(LoadNamed(name), u"text") << name;
    }
}

TEST_F(PrivacyStatements, AreNamedInTheCodePageOfTheMachine) {
    files.Write("privacystatements/\xC3\xA9t\xC3\xA9.txt", LittleEndian(u"text"));
    EXPECT_EQ(LoadNamed("\xE9t\xE9"), u"text");
    EXPECT_EQ(LoadNamed("\xC3\xA9t\xC3\xA9"), u"(null)");
}

TEST_F(PrivacyStatements, WithAPathBeyondTheBufferAreNotFound) {
    const std::size_t folder = files.PathOf("privacystatements").u16string().size() + 1;
    const std::string fits(259 - folder - 4, 'n');
    WriteStatement(fits, u"text");
    WriteStatement(fits + "n", u"text");
    EXPECT_EQ(LoadNamed(fits), u"text");
    EXPECT_EQ(LoadNamed(fits + "n"), u"(null)");
    for (const std::size_t length : {255u, 1023u, 1024u, 1025u, 100000u})
        EXPECT_EQ(LoadNamed(std::string(length, 'n')), u"(null)") << length;
}

TEST_F(PrivacyStatements, ReadTheListOnceUnlessItIsEmpty) {
    WriteStatement("english", u"hello");
    EXPECT_EQ(Load("en_US"), u"(null)") << "no list yet";
    EXPECT_TRUE(handler.Languages().IsEmpty());
    WriteList(Entry("en_US", "english"));
    EXPECT_EQ(Load("en_US"), u"hello");
    WriteList(Entry("de_DE", "english"));
    EXPECT_EQ(Load("en_US"), u"hello") << "not the new one";
    files.Remove("privacyinfolist.xml");
    EXPECT_EQ(Load("en_US"), u"hello");
    EXPECT_THAT(handler.Languages().Languages(), ElementsAre("en_US"));
}

TEST_F(PrivacyStatements, TakeTheListFromTheRootAlone) {
    files.Write("en_US/privacyinfolist.xml",
                "<PVN_PRIVACY_INFO>" + Entry("en_US", "english") + "</PVN_PRIVACY_INFO>");
    EXPECT_TRUE(handler.Languages().IsEmpty());
    EXPECT_EQ(handler.Languages().ErrorCode(), 0) << "without a file nothing happens";
}

TEST_F(PrivacyStatements, KeepTheErrorOfTheList) {
    files.Write("privacyinfolist.xml", "<other/>");
    EXPECT_EQ(handler.Languages().ErrorCode(), -4);
    EXPECT_EQ(handler.Languages().ErrorText(), "Not an PVN Privacy Info");
    EXPECT_EQ(Load("en_US"), u"(null)");
}

TEST_F(PrivacyStatements, AreFoundInTheEntriesBeforeAnErrorOfTheList) {
    WriteList(Entry("en_US", "english") + "<broken/>");
    WriteStatement("english", u"hello");
    EXPECT_EQ(Load("en_US"), u"hello");
}

TEST_F(PrivacyStatements, StayValidWhenAnotherIsLoaded) {
    WriteList(Entry("en_US", "english") + Entry("de_DE", "german"));
    WriteStatement("english", u"hello");
    WriteStatement("german", u"hallo");
    const auto* first = static_cast<const char16_t*>(handler.Load("", "en_US", 0));
    const auto* second = static_cast<const char16_t*>(handler.Load("", "de_DE", 0));
    EXPECT_NE(first, second);
    handler.Release("");
    EXPECT_EQ(std::u16string(first), u"hello") << "only the one loaded last is freed";
}

TEST_F(PrivacyStatements, AreFreedOnRelease) {
    WriteList(Entry("en_US", "english"));
    WriteStatement("english", std::u16string(1000, u'x'));
    handler.Load("", "en_US", 0);
    handler.Release("any");
    const std::size_t before = pavane_test::LiveBlocks();
    handler.Load("", "en_US", 0);
    EXPECT_GT(pavane_test::LiveBlocks(), before);
    handler.Release("any");
    EXPECT_EQ(pavane_test::LiveBlocks(), before);
    handler.Release("any");
}

TEST_F(PrivacyStatements, ArriveInAWorkflowAsTexts) {
    WriteList(Entry("en_US", "english") + Entry("de_DE", "absent") + Entry("en_US", "again"));
    WriteStatement("english", u"hello");
    const std::vector<StatementLanguage> languages = PrivacyStatementLanguages();
    ASSERT_EQ(languages.size(), 3u);
    EXPECT_EQ(languages[1].locale, "de_DE");
    EXPECT_EQ(languages[1].name, "name of de_DE");
    EXPECT_EQ(LoadPrivacyStatement("en_US"), u"hello");
    EXPECT_EQ(LoadPrivacyStatement("de_DE"), u"");
    EXPECT_EQ(LoadPrivacyStatement("ja_JP"), u"");
    EXPECT_EQ(Logged(), "") << "statements are optional";
}

TEST_F(PrivacyStatements, AreNoneWithoutTheLayer) {
    ShutDownResources();
    EXPECT_THAT(PrivacyStatementLanguages(), IsEmpty());
    EXPECT_EQ(LoadPrivacyStatement("en_US"), u"");
    PVNResourceManager::Destroy();
}

TEST_F(PrivacyStatements, LeakNothingWhenMemoryRunsOut) {
    WriteList(Entry("en_US", "english"));
    WriteStatement("english", std::u16string(10000, u'x'));
    const std::size_t failures = pavane_test::ForEveryFailingAllocation([] {
        PVNPrivacyStatementHandler shortLived;
        try {
            shortLived.Load("", "en_US", 0);
        } catch (const std::bad_alloc&) {
        }
        shortLived.Release("");
    });
    EXPECT_GT(failures, 10u);
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
