#include "values/platform/values_platform.h"

#include "support/failing_allocator.h"
#include "support/temporary_folder.h"
#include "values/unicode/text_conversion.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>

using namespace brixen::lyr::gen;

namespace {

std::u16string Widened(unsigned codePage, std::string_view bytes) {
    const CodePageResult counted = CodePageToWide(codePage, bytes, nullptr, 0);
    EXPECT_EQ(counted.status, CodePageStatus::kDone);
    std::u16string wide(counted.length, u'\0');
    EXPECT_EQ(CodePageToWide(codePage, bytes, wide.data(), wide.size()).length, wide.size());
    return wide;
}

std::string Narrowed(unsigned codePage, std::u16string_view wide) {
    const CodePageResult counted = WideToCodePage(codePage, wide, nullptr, 0);
    EXPECT_EQ(counted.status, CodePageStatus::kDone);
    std::string bytes(counted.length, '\0');
    EXPECT_EQ(WideToCodePage(codePage, wide, bytes.data(), bytes.size()).length, bytes.size());
    return bytes;
}

TEST(CodePages, ConvertUtf8) {
    EXPECT_EQ(Widened(kCodePageUtf8, "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80"), u"a\u00E9\u20AC\U0001F600");
    EXPECT_EQ(Narrowed(kCodePageUtf8, u"a\u00E9\u20AC\U0001F600"), "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
}

TEST(CodePages, ReplaceUnpairedSurrogatesInUtf8) {
    const std::u16string wide = {u'a', 0xD800, u'b', 0xDC00};
    EXPECT_EQ(Narrowed(kCodePageUtf8, wide), "a\xEF\xBF\xBD"
                                             "b\xEF\xBF\xBD");
}

TEST(CodePages, RefuseBytesThatAreNotUtf8) {
    for (const char* const bytes : {"\x80", "a\xC0\x80", "\xED\xA0\x80", "abc\xE2\x82"}) {
        EXPECT_EQ(CodePageToWide(kCodePageUtf8, bytes, nullptr, 0).status, CodePageStatus::kFailed) << bytes;
    }
}

TEST(CodePages, ConvertTheCodePageOfTheProcess) {
    EXPECT_EQ(Widened(kCodePageProcess, "a\x80\xE9\x95"), u"a\u20AC\u00E9\u2022");
    EXPECT_EQ(Narrowed(kCodePageProcess, u"a\u20AC\u00E9\u2022"), "a\x80\xE9\x95");
    EXPECT_EQ(Narrowed(kCodePageProcess, u"a\u4E2Db\u0101"), "a?b?");
}

TEST(CodePages, ReportAnOutputThatIsTooSmall) {
    std::array<char16_t, 4> wide{};
    std::array<char, 4> bytes{};
    EXPECT_EQ(CodePageToWide(kCodePageUtf8, "abc", wide.data(), 2).status, CodePageStatus::kOutputTooSmall);
    EXPECT_EQ(CodePageToWide(kCodePageProcess, "abc", wide.data(), 0).status,
              CodePageStatus::kOutputTooSmall);
    EXPECT_EQ(WideToCodePage(kCodePageUtf8, u"\u20AC\u20AC", bytes.data(), 4).status,
              CodePageStatus::kOutputTooSmall);
    EXPECT_EQ(WideToCodePage(kCodePageProcess, u"abc", bytes.data(), 0).status,
              CodePageStatus::kOutputTooSmall);
}

TEST(CodePages, ConvertAnEmptyTextToAnEmptyOne) {
    EXPECT_EQ(Widened(kCodePageUtf8, ""), u"");
    EXPECT_EQ(Widened(kCodePageProcess, ""), u"");
    EXPECT_EQ(Narrowed(kCodePageUtf8, u""), "");
    EXPECT_EQ(Narrowed(kCodePageProcess, u""), "");
}

TEST(NarrowText, HoldsOneByteForEachCharacterOfLatin1) {
    std::array<char, 8> narrow{};
    EXPECT_EQ(NarrowSize(u"a\u00E9"), 2u);
    EXPECT_EQ(WideToNarrow(narrow.data(), u"a\u00E9", 8), 2u);
    EXPECT_EQ(std::string(narrow.data()), "a\xE9");
    EXPECT_EQ(NarrowSize(u"a\u4E2D"), 2u) << "counted without a look at the characters";
    EXPECT_EQ(WideToNarrow(narrow.data(), u"\u4E2D", 8), kNoNarrowText);
}

TEST(NarrowText, IsCutAtTheSize) {
    std::array<char, 8> narrow{};
    EXPECT_EQ(WideToNarrow(narrow.data(), u"abc", 2), 2u);
    EXPECT_EQ(std::string(narrow.data()), "ab");
}

TEST(NarrowText, WidensEachByte) {
    std::array<char16_t, 8> wide{};
    EXPECT_EQ(WideSize("a\xE9"), 2u);
    EXPECT_EQ(NarrowToWide(wide.data(), "a\xE9", 8), 2u);
    EXPECT_EQ(std::u16string(wide.data()), u"a\u00E9");
    EXPECT_EQ(NarrowToWide(wide.data(), "abc", 2), 2u);
}

using Reader = std::optional<std::string> (*)(const std::u16string& path);

// A folder whose name no code page holds, deleted when the test ends.
class WideFiles : public testing::Test {
protected:
    std::u16string Write(const std::string& bytes) {
        std::ofstream(file, std::ios::binary) << bytes;
        return file.u16string();
    }

    const pavane_test::TemporaryFolder owner{u"pavane_\u4E2D\u05D0_files"};
    const std::filesystem::path& folder = owner.Path();
    const std::filesystem::path file = folder / "file.bin";
};

TEST_F(WideFiles, AreReadUnchanged) {
    for (const std::size_t length : {0U, 1U, 4095U, 4096U, 4097U, 10000U}) {
        std::string bytes(length, '\n');
        if (length > 2) bytes[1] = '\x1A';
        for (const Reader read : {Reader(ReadWholeFile), Reader(ReadWholeFileAlone)}) {
            const std::optional<std::string> got = read(Write(bytes));
            ASSERT_TRUE(got.has_value());
            EXPECT_EQ(*got, bytes);
            EXPECT_EQ(got->c_str()[length], '\0');
        }
    }
}

TEST_F(WideFiles, AreAbsentWhenTheyCannotBeOpened) {
    for (const Reader read : {Reader(ReadWholeFile), Reader(ReadWholeFileAlone)}) {
        EXPECT_FALSE(read((folder / "absent").u16string()).has_value());
        EXPECT_FALSE(read(folder.u16string()).has_value());
    }
}

TEST_F(WideFiles, AreAbsentWithoutMemory) {
    const std::u16string path = Write(std::string(10000, 'x'));
    int nothing = 0;
    pavane_test::ForEveryFailingAllocation([&path, &nothing] {
        try {
            if (!ReadWholeFile(path)) ++nothing;
        } catch (const std::bad_alloc&) { // for the path, before the file is open
        }
    });
    EXPECT_GT(nothing, 0);
}

TEST_F(WideFiles, AreReadFromTheirEnd) {
    const std::u16string path = Write("ab\r\n\x1A"
                                      "c");
    EXPECT_EQ(ReadEndOfFile(path, 100), "ab\r\n\x1A"
                                        "c");
    EXPECT_EQ(ReadEndOfFile(path, 6), "ab\r\n\x1A"
                                      "c");
    EXPECT_EQ(ReadEndOfFile(path, 5), "b\r\n\x1A"
                                      "c");
    EXPECT_EQ(ReadEndOfFile(path, 1), "c");
    EXPECT_EQ(ReadEndOfFile(path, 0), "");
    EXPECT_EQ(ReadEndOfFile(Write(""), 5), "");
    EXPECT_FALSE(ReadEndOfFile((folder / "absent").u16string(), 5).has_value());
    EXPECT_FALSE(ReadEndOfFile(folder.u16string(), 5).has_value());
}

TEST_F(WideFiles, AreClosedAfterReading) {
    const std::u16string path = Write("x");
    EXPECT_TRUE(ReadWholeFileAlone(path).has_value());
    EXPECT_TRUE(ReadEndOfFile(path, 1).has_value());
    EXPECT_TRUE(ReadWholeFileAlone(path).has_value());
    EXPECT_TRUE(std::filesystem::remove(file));
}

TEST_F(WideFiles, ReportWhyTheyCannotBeRead) {
    std::string error = "untouched";
    EXPECT_EQ(ReadWholeFile(Write("x"), error), "x");
    EXPECT_EQ(error, "untouched");
    EXPECT_FALSE(ReadWholeFile((folder / "absent").u16string(), error).has_value());
    EXPECT_EQ(error, std::strerror(ENOENT));
    error.clear();
    EXPECT_FALSE(ReadWholeFile(folder.u16string(), error).has_value());
    EXPECT_FALSE(error.empty());
}

TEST_F(WideFiles, AreWrittenUnchanged) {
    const std::u16string path = file.u16string();
    std::string error = "untouched";
    const std::string bytes("a\n\r\n\x1A\0b", 7);
    for (const std::string& written : {bytes + bytes, bytes, std::string()}) {
        EXPECT_TRUE(WriteWholeFile(path, written, error));
        EXPECT_EQ(ReadWholeFile(path), written);
    }
    EXPECT_EQ(error, "untouched");
}

TEST_F(WideFiles, ReportWhyTheyCannotBeWritten) {
    std::string error;
    EXPECT_FALSE(WriteWholeFile((folder / "absent" / "file").u16string(), "x", error));
    EXPECT_EQ(error, std::strerror(ENOENT));
    error.clear();
    EXPECT_FALSE(WriteWholeFile(folder.u16string(), "x", error));
    EXPECT_FALSE(error.empty());
}

TEST_F(WideFiles, ExistWithEitherSeparator) {
    const std::u16string path = Write("x");
    EXPECT_TRUE(FileExists(path));
    EXPECT_TRUE(FileExists(folder.u16string() + u"\\file.bin"));
    EXPECT_TRUE(ReadWholeFile(folder.u16string() + u"\\file.bin").has_value());
    EXPECT_FALSE(FileExists(path + u"x"));
    EXPECT_FALSE(FileExists(folder.u16string()));
}

} // namespace
