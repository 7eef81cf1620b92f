// The privacy statements that are shipped and the list that names them: every locale has a whole one, and the
// build turns each source into the bytes that the statement handler reads.
#include "support/languages.h"
#include "unit/workflow/resources/resource_fixture.h"
#include "unit/workflow/resources/shipped_texts.h"

#include "values/unicode/text_conversion.h"

#include <gmock/gmock.h>

#include <set>

namespace brixen::pvn::pvn_workflow {

using pavane_test::Languages;
using pavane_test::Locales;

namespace {

constexpr std::ptrdiff_t kFewestParagraphs = 40;

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

// A heading is no paragraph: only what ends as a sentence does counts.
bool IsParagraph(const std::string& line) { return line.ends_with(".") || line.ends_with("。"); }

// The headings of the sections begin with their number.
bool IsHeading(const std::string& line) {
    return !line.empty() && std::isdigit(static_cast<unsigned char>(line[0])) != 0;
}

std::string ReadStatement(const std::string& locale) {
    return ReadText(kSources / "statements" / (locale + ".txt"));
}

std::vector<std::string> Paragraphs(const std::string& locale) {
    std::vector<std::string> found;
    for (const std::string& line : LinesOf(ReadStatement(locale)))
        if (IsParagraph(line)) found.push_back(line);
    return found;
}

std::vector<std::string> ElementsOf(const std::string& markup, const std::string& name) {
    const std::string open = "<" + name + ">";
    std::vector<std::string> found;
    for (std::size_t at = markup.find(open); at != markup.npos; at = markup.find(open, at)) {
        at += open.size();
        found.push_back(markup.substr(at, markup.find("</" + name + ">", at) - at));
    }
    return found;
}

// One unit's two bytes in the given order.
std::string UnitBytes(char16_t unit, bool bigEndian) {
    const char high = static_cast<char>(unit >> 8);
    const char low = static_cast<char>(unit & 0xFF);
    return bigEndian ? std::string{high, low} : std::string{low, high};
}

// A source as it is to be shipped: mark, CR LF, the byte order, and before each paragraph that is read from
// right to left the character that says so.
std::string Shipped(const pavane_test::Language& language) {
    const std::string direction = language.isRightToLeft ? "\u202B" : "";
    std::string text;
    for (const std::string& line : LinesOf(ReadStatement(language.locale)))
        text += line.empty() ? "\r\n" : direction + line + "\r\n";
    std::string bytes = UnitBytes(0xFEFF, language.isBigEndian);
    for (const char16_t unit : lyr::gen::ToUtf16(text)) bytes += UnitBytes(unit, language.isBigEndian);
    return bytes;
}

class ShippedStatements : public testing::TestWithParam<std::string> {};

} // namespace

TEST(ShippedStatementFiles, AreThereForEveryLocale) {
    std::vector<std::string> files;
    for (const std::string& locale : Locales()) files.push_back(locale + ".txt");
    EXPECT_THAT(NamesIn(kSources / "statements"), testing::UnorderedElementsAreArray(files));
}

TEST_P(ShippedStatements, HoldEnoughParagraphs) {
    EXPECT_GE(std::ssize(Paragraphs(GetParam())), kFewestParagraphs);
}

TEST_P(ShippedStatements, HaveTheShapeOfTheEnglishOne) {
    const std::vector<std::string> lines = LinesOf(ReadStatement(GetParam()));
    const std::vector<std::string> english = LinesOf(ReadStatement("en_US"));
    ASSERT_EQ(lines.size(), english.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        EXPECT_EQ(lines[i].empty(), english[i].empty()) << "line " << i + 1;
        EXPECT_EQ(IsParagraph(lines[i]), IsParagraph(english[i])) << "line " << i + 1;
        EXPECT_EQ(IsHeading(lines[i]), IsHeading(english[i])) << "line " << i + 1;
    }
}

// The field shows plain text, so blank lines are what can set a heading apart.
TEST_P(ShippedStatements, HaveOneBlankLineBetweenParagraphsAndTwoAboveHeadings) {
    const std::vector<std::string> lines = LinesOf(ReadStatement(GetParam()));
    std::size_t blankLines = 0;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        if (lines[i].empty()) {
            ++blankLines;
            continue;
        }
        EXPECT_EQ(blankLines, IsHeading(lines[i]) ? 2u : 1u) << "line " << i + 1;
        blankLines = 0;
    }
}

TEST_P(ShippedStatements, RepeatNoParagraph) {
    const std::vector<std::string> paragraphs = Paragraphs(GetParam());
    EXPECT_EQ(std::set(paragraphs.begin(), paragraphs.end()).size(), paragraphs.size());
}

TEST_P(ShippedStatements, HoldNoEnglishInDisguise) {
    if (GetParam() == "en_US") return;
    const std::vector<std::string> english = Paragraphs("en_US");
    for (const std::string& line : Paragraphs(GetParam()))
        EXPECT_EQ(std::count(english.begin(), english.end(), line), 0) << line;
}

TEST_P(ShippedStatements, UseThePunctuationOfTheirLanguage) {
    for (const std::string& line : LinesOf(ReadStatement(GetParam())))
        EXPECT_TRUE(HasNoForeignMarks(line, GetParam()) && (GetParam() != "fr_FR" || HasFrenchSpacing(line)))
            << line;
}

INSTANTIATE_TEST_SUITE_P(Locales, ShippedStatements, testing::ValuesIn(Locales()),
                         [](const auto& info) { return info.param; });

// What is built beside the program.
class BuiltStatements : public ResourceFixture {
protected:
    static std::filesystem::path Root() {
        SelectLanguage("en_US");
        const PathUnits list =
            PVNResourceManager::Get().FindResourceFile("privacyinfolist", "xml", "en_US", kSearchRoot);
        if (!list) return {};
        std::string path = std::filesystem::path(list.get()).string();
        std::replace(path.begin(), path.end(), '\\', '/'); // the library joins its paths as Windows does
        return std::filesystem::path(path).parent_path();
    }
};

TEST_F(BuiltStatements, AreTheSourcesAsUtf16OfBothByteOrders) {
    const std::filesystem::path root = Root();
    ASSERT_FALSE(root.empty());
    for (const pavane_test::Language& language : Languages()) {
        const std::string bytes =
            ReadText(root / "privacystatements" / ("privacy_" + language.locale + ".txt"));
        // Compared without printing: the texts are long.
        EXPECT_TRUE(bytes == Shipped(language)) << language.locale;
    }
    EXPECT_FALSE(std::ranges::all_of(Languages(), &pavane_test::Language::isBigEndian));
    EXPECT_TRUE(std::ranges::any_of(Languages(), &pavane_test::Language::isBigEndian));
}

TEST_F(BuiltStatements, AreListedInTheOrderOfTheTable) {
    const std::string list = ReadText(Root() / "privacyinfolist.xml");
    std::vector<std::string> locales, names, groups, files, places;
    for (const pavane_test::Language& language : Languages()) {
        locales.push_back(language.locale);
        names.push_back(language.name);
        groups.push_back(language.group);
        files.push_back("privacy_" + language.locale);
        places.push_back(std::to_string(places.size() + 1));
    }
    EXPECT_EQ(ElementsOf(list, "LANGUAGE_INFO").size(), locales.size());
    EXPECT_EQ(ElementsOf(list, "LANGID"), locales);
    EXPECT_EQ(ElementsOf(list, "LANGNAME"), names);
    EXPECT_EQ(ElementsOf(list, "LANG_GRP_ID"), groups);
    EXPECT_EQ(ElementsOf(list, "FILE_NAME"), files);
    EXPECT_EQ(ElementsOf(list, "SEQ_ID"), places);
}

} // namespace brixen::pvn::pvn_workflow
