#include "dictionaries/files/dictionary_reader.h"

#include "dictionaries/files/source_streams.h"
#include "support/temporary_folder.h"

#include "unit/dictionaries/dictionary_support.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

using namespace kestrel_private;
using pavane_test::BigEndian;
using pavane_test::LittleEndian;

namespace {

using Lines = std::vector<std::u16string>;

std::unique_ptr<DictionaryReader> ReaderOf(const std::string& bytes) {
    const auto* const begin = reinterpret_cast<const std::uint8_t*>(bytes.data());
    return MakeReader(begin, begin + bytes.size());
}

Lines AllLines(DictionaryReader& reader) {
    Lines lines;
    while (const char16_t* const line = reader.NextLine()) {
        lines.emplace_back(line);
        EXPECT_EQ(lines.back(), reader.Line());
    }
    return lines;
}

std::optional<Lines> LinesOf(const std::string& bytes) {
    const auto reader = ReaderOf(bytes);
    if (!reader) return std::nullopt;
    return AllLines(*reader);
}

TEST(MakeReader, NeedsAtLeastTwoBytes) {
    EXPECT_FALSE(LinesOf("").has_value());
    EXPECT_FALSE(LinesOf("a").has_value());
    EXPECT_EQ(LinesOf("ab"), (Lines{u"ab"}));
}

TEST(MakeReader, ChoosesTheReaderByTheMark) {
    EXPECT_EQ(LinesOf(LittleEndian(u"ab")), (Lines{u"ab"}));
    EXPECT_EQ(LinesOf(BigEndian(u"ab\u20AC")), (Lines{u"ab\u20AC"}));
    EXPECT_EQ(LinesOf("\xFF\xFE"), Lines{});
    EXPECT_EQ(LinesOf("\xEF\xBB\xBF"
                      "a"),
              (Lines{u"\u00EF\u00BB\u00BF"
                     u"a"}))
        << "UTF-8 is not looked for";
}

TEST(UnicodeReader, EndsLinesAtEverySeparator) {
    EXPECT_EQ(LinesOf(LittleEndian(u"a\nb\rc\u2028d\u2029e")), (Lines{u"a", u"b", u"c", u"d", u"e"}));
    EXPECT_EQ(LinesOf(BigEndian(u"a\nb\rc\u2028d\u2029")), (Lines{u"a", u"b", u"c", u"d"}));
}

TEST(UnicodeReader, ReturnsAnEmptyLineBetweenCarriageReturnAndLineFeed) {
    EXPECT_EQ(LinesOf(LittleEndian(u"a\r\nb\r\n")), (Lines{u"a", u"", u"b", u""}));
}

TEST(UnicodeReader, EndsTheTextAtANul) {
    EXPECT_EQ(LinesOf(LittleEndian(std::u16string_view(u"a\nb\0c\nd", 7))), (Lines{u"a", u"b"}));
    EXPECT_EQ(LinesOf(LittleEndian(std::u16string_view(u"\0c", 2))), Lines{});
}

TEST(UnicodeReader, EndsTheTextAtHalfAUnit) {
    EXPECT_EQ(LinesOf(LittleEndian(u"ab") + "c"), (Lines{u"ab"}));
    EXPECT_EQ(LinesOf(BigEndian(u"a\n") + "c"), (Lines{u"a"}));
}

TEST(UnicodeReader, KeepsLoneSurrogates) {
    const std::u16string text = {u'a', 0xD800, u'b', 0xDC00};
    EXPECT_EQ(LinesOf(LittleEndian(text)), (Lines{text}));
}

TEST(UnicodeReader, TakesLinesOfAnyLength) {
    for (const std::size_t length : {254U, 255U, 256U, 257U, 384U, 385U, 1U << 20}) {
        const std::u16string line(length, u'x');
        EXPECT_EQ(LinesOf(LittleEndian(line + u"\nb")), (Lines{line, u"b"}));
    }
}

TEST(ByteSwapUnicodeReader, ReturnsTheSameLinesAsTheOtherOrder) {
    for (const char16_t end : {u'\n', u'\r', u'\u2028', u'\u2029', u'\0', u'\u0A00', u'\u2820'}) {
        for (const std::size_t length : {0U, 1U, 255U, 256U, 257U, 1000U}) {
            const std::u16string text = std::u16string(length, u'\u20AC') + end + u"after\nit";
            const auto lines = LinesOf(BigEndian(text));
            EXPECT_EQ(lines, LinesOf(LittleEndian(text))) << length;
        }
    }
}

TEST(MultibyteReader, ReadsTheCodePageOfTheProcess) {
    EXPECT_EQ(LinesOf("a\x80\nb\xE9\rc"), (Lines{u"a\u20AC", u"b\u00E9", u"c"}));
    EXPECT_EQ(LinesOf("\xE2\x82\xAC"), (Lines{u"\u00E2\u201A\u00AC"}));
}

TEST(MultibyteReader, EndsTheTextAtANul) {
    EXPECT_EQ(LinesOf(std::string("a\nb\0c\nd", 7)), (Lines{u"a", u"b"}));
    EXPECT_EQ(LinesOf(std::string("\0b", 2)), Lines{});
}

TEST(MultibyteReader, ReturnsEmptyLines) {
    EXPECT_EQ(LinesOf("\n\n"), (Lines{u"", u""}));
    EXPECT_EQ(LinesOf("a\r\nb"), (Lines{u"a", u"", u"b"}));
}

TEST(MultibyteReader, TakesLinesOfAnyLength) {
    for (const std::size_t length : {255U, 256U, 257U, 1U << 20}) {
        EXPECT_EQ(LinesOf(std::string(length, 'x') + "\nb"), (Lines{std::u16string(length, u'x'), u"b"}));
    }
}

TEST(MakeReader, ReadsAnyStream) {
    for (const std::string& bytes :
         {LittleEndian(u"a\nb\u20AC"), BigEndian(u"a\nb\u20AC"), std::string("a\nb\x80")}) {
        std::istringstream stream(bytes);
        const auto reader = MakeReader(SourceKind::kStream, stream);
        ASSERT_NE(reader, nullptr);
        EXPECT_EQ(AllLines(*reader), (Lines{u"a", u"b\u20AC"}));
    }
    std::istringstream shortStream("a");
    EXPECT_EQ(MakeReader(SourceKind::kStream, shortStream), nullptr);
}

TEST(MakeReader, ReadsAFile) {
    const pavane_test::TemporaryFolder folder;
    const auto path = folder / std::filesystem::path(u"\u4E2D_reader.txt");
    std::ofstream(path, std::ios::binary) << LittleEndian(u"a\nb");
    kestrel::basic_ifstream<char> stream(path.u16string());
    EXPECT_TRUE(stream.is_open());
    const auto reader = MakeReader(SourceKind::kFile, stream);
    ASSERT_NE(reader, nullptr);
    EXPECT_EQ(AllLines(*reader), (Lines{u"a", u"b"}));
    kestrel::basic_ifstream<char> absent((folder / "absent").u16string());
    EXPECT_FALSE(absent.is_open());
    EXPECT_EQ(MakeReader(SourceKind::kFile, absent), nullptr);
}

TEST(MakeReader, ReadsAResourceOnlyWhenItIsOpen) {
    kestrel::basic_irstream<char> stream;
    EXPECT_EQ(MakeReader(SourceKind::kResource, stream), nullptr);
    stream.open(LittleEndian(u"a\nb"));
    const auto reader = MakeReader(SourceKind::kResource, stream);
    ASSERT_NE(reader, nullptr);
    EXPECT_EQ(AllLines(*reader), (Lines{u"a", u"b"}));
    std::istringstream other("abc");
    EXPECT_EQ(MakeReader(SourceKind::kResource, other), nullptr);
}

} // namespace
