#include "values/narrow_text.h"

#include "support/failing_allocator.h"

#include <gtest/gtest.h>

#include <string>

using namespace brixen::lyr::gen;

namespace {

TEST(CodePage, KeepsAsciiOfEveryLengthAroundTheLocalRoom) {
    for (const std::size_t length : {0U, 1U, 254U, 255U, 256U, 257U, 1000U}) {
        const std::string text(length, 'x');
        EXPECT_EQ(Utf8ToCodePage(text), text);
        EXPECT_EQ(CodePageToUtf8(text), text);
    }
}

TEST(CodePage, WidensOneByteToSeveral) {
    const std::string utf8 = Utf8ToCodePage("Gr\xC3\xBC\xC3\x9F"
                                            "e");
    EXPECT_EQ(utf8, "Gr\xFC\xDF"
                    "e");
    EXPECT_EQ(CodePageToUtf8(utf8), "Gr\xC3\xBC\xC3\x9F"
                                    "e");
    EXPECT_EQ(CodePageToUtf8(std::string(200, '\xFC')).size(), 400u);
}

TEST(CodePage, AllocatesOnlyTheResultForAShortText) {
    const std::string text(255, 'x');
    std::size_t before = pavane_test::AllocationCount();
    const std::string narrow = Utf8ToCodePage(text);
    EXPECT_EQ(pavane_test::AllocationCount() - before, 1u);
    before = pavane_test::AllocationCount();
    EXPECT_EQ(CodePageToUtf8(narrow), text);
    EXPECT_EQ(pavane_test::AllocationCount() - before, 1u);
}

TEST(CodePage, IsEmptyForATextThatTheLocaleCannotShow) { EXPECT_EQ(Utf8ToCodePage("a\xE4\xB8\xAD"), ""); }

TEST(CodePage, IsEmptyForATextThatIsTooLong) {
    constexpr std::size_t kTooLong = std::size_t{1} << 29;
    // Not one character of it is looked at.
    EXPECT_EQ(Utf8ToCodePage(std::string_view("a", kTooLong)), "");
    EXPECT_EQ(CodePageToUtf8(std::string_view("a", kTooLong)), "");
}

TEST(CodePage, EndsAtANul) {
    EXPECT_EQ(Utf8ToCodePage(std::string_view("ab\0c", 4)), "ab");
    EXPECT_EQ(CodePageToUtf8(std::string_view("ab\0c", 4)), "ab");
}

} // namespace
