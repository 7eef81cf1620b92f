#include "values/fixed_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>

using namespace brixen::lyr::gen;

namespace {

constexpr std::size_t kLargest = 0x7FFFFFFF;
constexpr std::size_t kTooLarge = kLargest + 1;

struct Field {
    std::array<char, 10> text{};
    explicit Field(std::string_view initial) { std::copy(initial.begin(), initial.end(), text.begin()); }
    std::string Shown() const { return text.data(); }
};

TEST(SafeCopy, CutsSilently) {
    Field field("#########");
    SafeCopy(field.text.data(), "abcd", 3);
    EXPECT_EQ(field.Shown(), "ab");
    EXPECT_EQ(field.text[3], '#');
}

TEST(SafeCopy, CopiesWhatFits) {
    Field field("#########");
    SafeCopy(field.text.data(), "abcd", 5);
    EXPECT_EQ(field.Shown(), "abcd");
    SafeCopy(field.text.data(), "xyz", 1);
    EXPECT_EQ(field.Shown(), "");
}

TEST(SafeCopy, AcceptsEverySizeUpToTheLargest) {
    Field field("old");
    SafeCopy(field.text.data(), "new", kLargest);
    EXPECT_EQ(field.Shown(), "new");
    SafeAppend(field.text.data(), "er", kLargest);
    EXPECT_EQ(field.Shown(), "newer");
    SafePrintf(field.text.data(), kLargest, "%d", 7);
    EXPECT_EQ(field.Shown(), "7");
}

TEST(SafeCopy, DoesNothingForASizeOfZeroOrTooMuch) {
    Field field("old");
    SafeCopy(field.text.data(), "new", 0);
    SafeCopy(field.text.data(), "new", kTooLarge);
    EXPECT_EQ(field.Shown(), "old");
}

TEST(SafeAppend, AppendsAtTheNul) {
    Field field("abc");
    SafeAppend(field.text.data(), "def", 6);
    EXPECT_EQ(field.Shown(), "abcde");
    SafeAppend(field.text.data(), "x", 6);
    EXPECT_EQ(field.Shown(), "abcde");
}

TEST(SafeAppend, DoesNothingWithoutANulInsideTheSize) {
    Field field("abcdef");
    SafeAppend(field.text.data(), "x", 6);
    EXPECT_EQ(field.Shown(), "abcdef");
    SafeAppend(field.text.data(), "x", 0);
    SafeAppend(field.text.data(), "x", kTooLarge);
    EXPECT_EQ(field.Shown(), "abcdef");
}

TEST(SafeCopyWide, CountsCharacters) {
    std::array<char16_t, 6> field = {u'#', u'#', u'#', u'#', u'#', u'#'};
    SafeCopyWide(field.data(), u"abcd", 3);
    EXPECT_EQ(std::u16string(field.data(), 4), std::u16string(u"ab\0#", 4));
    SafeAppendWide(field.data(), u"cdef", 5);
    EXPECT_EQ(std::u16string(field.data()), u"abcd");
    SafeCopyWide(field.data(), u"x", 0);
    SafeAppendWide(field.data(), u"x", kTooLarge);
    EXPECT_EQ(std::u16string(field.data()), u"abcd");
}

TEST(SafePrintf, CutsAndTerminates) {
    Field field("#########");
    SafePrintf(field.text.data(), 5, "%d-%s", 12, "abc");
    EXPECT_EQ(field.Shown(), "12-a");
    SafePrintf(field.text.data(), 10, "%d-%s", 12, "abc");
    EXPECT_EQ(field.Shown(), "12-abc");
    SafePrintf(field.text.data(), 1, "%d", 12);
    EXPECT_EQ(field.Shown(), "");
}

TEST(SafePrintf, DoesNothingForASizeOfZeroOrTooMuch) {
    Field field("old");
    SafePrintf(field.text.data(), 0, "new");
    SafePrintf(field.text.data(), kTooLarge, "new");
    EXPECT_EQ(field.Shown(), "old");
}

} // namespace
