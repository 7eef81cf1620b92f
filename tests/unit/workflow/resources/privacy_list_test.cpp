// The language list: its entries and its errors.
#include "workflow/resources/privacy_list.h"

#include "support/failing_allocator.h"
#include "unit/workflow/resources/resource_fixture.h"

#include <gmock/gmock.h>

namespace brixen::pvn::pvn_workflow {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string Element(const std::string& tag, const std::string& content) {
    return "<" + tag + ">" + content + "</" + tag + ">";
}
std::string Info(const std::string& content) { return Element("LANGUAGE_INFO", content); }
std::string Named(const std::string& language) { return Info(Element("LANGID", language)); }
std::string List(const std::string& content) { return Element("PVN_PRIVACY_INFO", content); }

class PrivacyList : public ResourceFixture {
protected:
    void Read(const std::string& bytes) {
        files.Write("list.xml", bytes);
        list.Read(Path("list.xml").c_str());
    }
    std::u16string Path(const std::string& name) const { return files.PathOf(name).u16string(); }

    void ExpectError(std::int32_t code, std::string_view text) const {
        EXPECT_EQ(list.ErrorCode(), code);
        EXPECT_EQ(list.ErrorText(), text);
    }
    void ExpectNoError() const { ExpectError(0, ""); }

    PVNPrivacyList list;
};

TEST_F(PrivacyList, ReadsTheFiveElementsInAnyOrder) {
    Read(List(Info("<SEQ_ID>7</SEQ_ID><FILE_NAME>privacy_de_DE</FILE_NAME><LANG_GRP_ID>2</LANG_GRP_ID>"
                   "<LANGNAME>Deutsch</LANGNAME><LANGID>de_DE</LANGID>")));
    ExpectNoError();
    EXPECT_THAT(list.Languages(), ElementsAre("de_DE"));
    const PVNPrivacyInfo& info = list.Find("de_DE");
    EXPECT_EQ(info.LANGID, "de_DE");
    EXPECT_EQ(info.LANGNAME, "Deutsch");
    EXPECT_EQ(info.LANG_GRP_ID, "2");
    EXPECT_EQ(info.FILE_NAME, "privacy_de_DE");
    EXPECT_EQ(info.SEQ_ID, "7");
}

TEST_F(PrivacyList, KeepsTheOrderOfTheDocument) {
    Read("<?xml version=\"1.0\"?>\r\n<!-- languages -->\r\n" +
         List("\r\n" + Named("ja_JP") + "<!-- between -->" + Named("de_DE") + "text" + Named("en_US")));
    ExpectNoError();
    EXPECT_THAT(list.Languages(), ElementsAre("ja_JP", "de_DE", "en_US"));
}

TEST_F(PrivacyList, TakesElementTextAloneAndUnescaped) {
    Read(List(Info("<LANGID name=\"no\">a&amp;b</LANGID><LANGNAME> two words </LANGNAME>"
                   "<FILE_NAME><![CDATA[x<y]]></FILE_NAME>")));
    EXPECT_EQ(list.Find("a&b").LANGNAME, " two words ");
    EXPECT_EQ(list.Find("a&b").FILE_NAME, "x<y");
}

TEST_F(PrivacyList, AnAbsentOrEmptyElementLeavesItsFieldEmpty) {
    Read(List(Info("<LANGID>a</LANGID><LANGNAME/><FILE_NAME></FILE_NAME>")));
    ExpectNoError();
    EXPECT_EQ(list.Find("a").LANGNAME, "");
    EXPECT_EQ(list.Find("a").FILE_NAME, "");
    EXPECT_EQ(list.Find("a").SEQ_ID, "");
}

TEST_F(PrivacyList, TheFirstEntryOfALanguageWins) {
    Read(List(Info("<LANGID>a</LANGID><LANGNAME>first</LANGNAME>") +
              Info("<LANGID>a</LANGID><LANGNAME>second</LANGNAME>")));
    EXPECT_EQ(list.Find("a").LANGNAME, "first");
    EXPECT_THAT(list.Languages(), ElementsAre("a", "a"));
}

TEST_F(PrivacyList, AnEntryWithoutChildrenHasEmptyFields) {
    Read(List("<LANGUAGE_INFO/><LANGUAGE_INFO></LANGUAGE_INFO>"));
    ExpectNoError();
    EXPECT_THAT(list.Languages(), ElementsAre("", ""));
    EXPECT_FALSE(list.IsEmpty());
    EXPECT_EQ(list.Find("").FILE_NAME, "");
}

TEST_F(PrivacyList, AListWithoutEntriesIsEmptyAndNoError) {
    for (const char* bytes : {"<PVN_PRIVACY_INFO/>", "<PVN_PRIVACY_INFO></PVN_PRIVACY_INFO>"}) {
        Read(bytes);
        ExpectNoError();
        EXPECT_TRUE(list.IsEmpty());
    }
}

TEST_F(PrivacyList, AnUnknownLanguageIsAnEmptyEntry) {
    Read(List(Named("de_DE")));
    EXPECT_EQ(list.Find("de_de").LANGID, "");
    EXPECT_EQ(list.Find("default_locale").FILE_NAME, "");
}

TEST_F(PrivacyList, ANullPathIsABadFileName) {
    list.Read(nullptr);
    ExpectError(-1, "Bad file name");
}

TEST_F(PrivacyList, AMissingFileCannotBeOpened) {
    list.Read(Path("absent.xml").c_str());
    ExpectError(-2, "Cannot open the file");
    std::filesystem::create_directory(files.PathOf("folder.xml"));
    list.Read(Path("folder.xml").c_str());
    ExpectError(-2, "Cannot open the file");
}

TEST_F(PrivacyList, AFileThatOpensAndDoesNotParseIsBadXml) {
    for (const char* bytes : {"", "no markup", "<PVN_PRIVACY_INFO>", "<PVN_PRIVACY_INFO></x>", "<",
                              "\xFF\xFE<", "<PVN_PRIVACY_INFO><a></b></PVN_PRIVACY_INFO>"}) {
        Read(bytes);
        ExpectError(-3, "Bad xml format");
    }
}

TEST_F(PrivacyList, AnotherRootIsNoList) {
    for (const char* bytes :
         {"<privacy/>", "<PVN_PRIVACY_INFOS/>", "<pvn_privacy_info/>", "<LANGUAGE_INFO/>"}) {
        Read(bytes);
        ExpectError(-4, "Not an PVN Privacy Info");
    }
}

TEST_F(PrivacyList, AnotherChildOfTheRootIsInvalid) {
    Read(List(Named("a") + "<LANGID>b</LANGID>" + Named("c")));
    ExpectError(-5, "Invalid tag in PVN_PRIVACY_INFO");
    EXPECT_THAT(list.Languages(), ElementsAre("a")) << "what came before the error stays";
}

TEST_F(PrivacyList, AnUnknownElementOfAnEntryIsInvalid) {
    for (const char* child : {"<LANG/>", "<LANGIDS>x</LANGIDS>", "<langid>x</langid>", "<LANGUAGE_INFO/>"}) {
        Read(List(Named("a") + Info(std::string("<LANGID>b</LANGID>") + child) + Named("c")));
        ExpectError(-5, "Invalid tag in LanguageInfo");
        EXPECT_THAT(list.Languages(), ElementsAre("a")) << child;
    }
}

TEST_F(PrivacyList, ARepeatedElementIsInvalidOnlyAfterAValue) {
    for (const char* tag : {"LANGID", "LANGNAME", "LANG_GRP_ID", "FILE_NAME", "SEQ_ID"}) {
        Read(List(Info(Element(tag, "1") + Element(tag, "2"))));
        ExpectError(-5, "Invalid tag in LanguageInfo");
        Read(List(Info(Element(tag, "1") + Element(tag, ""))));
        ExpectError(-5, "Invalid tag in LanguageInfo");
        Read(List(Info(Element(tag, "") + Element(tag, "2"))));
        ExpectNoError();
    }
    Read(List(Info("<LANGID></LANGID><LANGID>b</LANGID>")));
    EXPECT_THAT(list.Languages(), ElementsAre("b"));
}

TEST_F(PrivacyList, ANewListReplacesTheOldOne) {
    Read(List(Named("a") + Named("b")));
    Read(List(Named("c")));
    ExpectNoError();
    EXPECT_THAT(list.Languages(), ElementsAre("c"));
    EXPECT_EQ(list.Find("a").LANGID, "");
}

TEST_F(PrivacyList, AFileThatIsNoListLeavesTheOldOne) {
    Read(List(Named("a")));
    for (const char* bytes : {"", "<other/>"}) {
        Read(bytes);
        EXPECT_NE(list.ErrorCode(), 0);
        EXPECT_THAT(list.Languages(), ElementsAre("a"));
    }
    Read(List("<wrong/>"));
    EXPECT_THAT(list.Languages(), IsEmpty()) << "its root fits";
}

TEST_F(PrivacyList, MayBeUtf16) {
    const std::string ascii = List(Named("de_DE"));
    std::string bytes = "\xFF\xFE";
    for (const char c : ascii) bytes += {c, '\0'};
    Read(bytes);
    ExpectNoError();
    EXPECT_THAT(list.Languages(), ElementsAre("de_DE"));
}

TEST_F(PrivacyList, MayNestDeeply) {
    constexpr std::size_t kDepth = 100000;
    std::string deep, ends;
    for (std::size_t i = 0; i < kDepth; ++i) {
        deep += "<x>";
        ends += "</x>";
    }
    Read(deep);
    ExpectError(-3, "Bad xml format");
    Read(List(Info("<LANGID>" + deep + ends + "</LANGID>")));
    ExpectNoError();
    EXPECT_THAT(list.Languages(), ElementsAre("")) << "elements are no text";
}

TEST_F(PrivacyList, TakesTimeAndMemoryInProportionToItsSize) {
    std::string entries;
    constexpr int kEntries = 50000;
    for (int i = 0; i < kEntries; ++i) entries += Named(std::to_string(i));
    const std::size_t before = pavane_test::AllocationCount();
    Read(List(entries));
    EXPECT_EQ(list.Languages().size(), std::size_t{kEntries});
    EXPECT_EQ(list.Find("49999").LANGID, "49999");
    EXPECT_LT(pavane_test::AllocationCount() - before, std::size_t{kEntries} * 10);
}

TEST_F(PrivacyList, RunningOutOfMemoryLeavesAListThatCanBeReadAgain) {
    files.Write("list.xml", List(Info("<LANGID>a language id that needs a block of its own</LANGID>"
                                      "<LANGNAME>a language name that needs a block too</LANGNAME>") +
                                 Named("another language id of more than fifteen bytes")));
    const std::u16string path = Path("list.xml");
    const std::size_t failures = pavane_test::ForEveryFailingAllocation([&path] {
        PVNPrivacyList shortLived;
        try {
            shortLived.Read(path.c_str());
        } catch (const std::bad_alloc&) {
        }
        for (const std::string& language : shortLived.Languages())
            EXPECT_EQ(shortLived.Find(language).LANGID, language);
    });
    EXPECT_GT(failures, 10u);
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
