#include "workflow/catalogue/log_tail.h"

#include "support/log_file.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <utility>

namespace brixen::pvn::pvn_workflow {
namespace {

std::u16string Units(const std::string& ascii) { return {ascii.begin(), ascii.end()}; }

TEST(LogTail, IsTheEndOfTheLog) {
    const pavane_test::LogFile log;
    std::ofstream(log.Path(), std::ios::binary)
        << "start" << std::string(kMostKiBOfLog * kKiB - 3, 'x') << "end";
    const std::string tail = ReadLogTail();
    EXPECT_EQ(tail.size(), kMostKiBOfLog * kKiB);
    EXPECT_EQ(tail.substr(tail.size() - 4), "xend");
    EXPECT_EQ(tail.front(), 'x');
}

TEST(LogTail, OfAShortLogIsAllOfItAndOfNoLogNothing) {
    const pavane_test::LogFile log;
    EXPECT_EQ(ReadLogTail(), "");
    std::ofstream(log.Path(), std::ios::binary) << "short";
    EXPECT_EQ(ReadLogTail(), "short");
}

TEST(LogTail, BeginsWithAWholeLineAtTheCutOrNearIt) {
    const pavane_test::LogFile log;
    const std::string most(kMostKiBOfLog * kKiB, 'x');
    std::ofstream(log.Path(), std::ios::binary) << "start\n" << most;
    EXPECT_EQ(ReadLogTail(), most) << "the line begins at the cut";
    std::ofstream(log.Path(), std::ios::binary) << "start\n" << most << "y";
    EXPECT_EQ(ReadLogTail(), most.substr(1) + "y") << "the line begins before the cut";
    std::ofstream(log.Path(), std::ios::binary) << "start\nrest\n" << most.substr(5);
    EXPECT_EQ(ReadLogTail(), "rest\n" + most.substr(5));
    std::ofstream(log.Path(), std::ios::binary) << "start\nrest\n" << most.substr(4);
    EXPECT_EQ(ReadLogTail(), most.substr(4));
}

// A reader of the whole file would need all of it in memory.
TEST(LogTail, OfAHugeLogIsReadAlone) {
    const pavane_test::LogFile log;
    std::ofstream(log.Path(), std::ios::binary) << "start";
    std::filesystem::resize_file(log.Path(), std::uintmax_t{1} << 40); // takes no room on the disk
    std::ofstream(log.Path(), std::ios::binary | std::ios::app) << "\nend";
    const std::string tail = ReadLogTail();
    EXPECT_EQ(tail.size(), kMostKiBOfLog * kKiB);
    EXPECT_TRUE(tail.ends_with("\nend"));
}

TEST(KiBOf, CountsAPartAsOne) {
    EXPECT_EQ(KiBOf(""), 0u);
    EXPECT_EQ(KiBOf("x"), 1u);
    EXPECT_EQ(KiBOf(std::string(kKiB, 'x')), 1u);
    EXPECT_EQ(KiBOf(std::string(kKiB + 1, 'x')), 2u);
}

TEST(TailOfLog, HasTheChosenLength) {
    const std::string log = std::string(3 * kKiB, 'a') + std::string(kKiB, 'b');
    EXPECT_EQ(TailOfLog(log, 0), u"");
    EXPECT_EQ(TailOfLog(log, 1), std::u16string(kKiB, u'b'));
    EXPECT_EQ(TailOfLog(log, 2), std::u16string(kKiB, u'a') + std::u16string(kKiB, u'b'));
    EXPECT_EQ(TailOfLog(log, 9).size(), 4 * kKiB);
    EXPECT_EQ(TailOfLog("", 1), u"");
}

// The cut falls on each byte of a character of three bytes in turn.
TEST(TailOfLog, BeginsWithAWholeCharacter) {
    for (const std::size_t after : {kKiB - 1, kKiB - 2}) {
        EXPECT_EQ(TailOfLog("ab\u20AC" + std::string(after, 'x'), 1), std::u16string(after, u'x'));
    }
    EXPECT_EQ(TailOfLog("ab\u20AC" + std::string(kKiB - 3, 'x'), 1),
              u"\u20AC" + std::u16string(kKiB - 3, u'x'));
}

// Bytes that look like the rest of a character and are of none.
TEST(TailOfLog, LosesNoMoreThanTheRestOfOneCharacter) {
    const std::u16string tail = TailOfLog(std::string(2 * kKiB, '\x80'), 1);
    EXPECT_EQ(tail, std::u16string(kKiB - 3, u'\uFFFD'));
}

TEST(TailOfLog, BeginsWithAWholeLineIfOneIsNear) {
    const std::string rest(kKiB, 'x');
    EXPECT_EQ(TailOfLog("first\nsecond\nthird" + rest.substr(8), 1), u"third" + Units(rest.substr(8)))
        << "after the end of the second line";
    EXPECT_EQ(TailOfLog("first\n" + rest, 1), Units(rest)) << "at the cut";
    for (const auto& [before, isNear] : {std::pair{254u, true}, {255u, false}}) {
        const std::string end = std::string(before, 'a') + "\n" + rest.substr(before + 1);
        EXPECT_EQ(TailOfLog("first" + end, 1), Units(isNear ? rest.substr(before + 1) : end)) << before;
    }
}

TEST(TailOfLog, OfTheWholeLogBeginsAsItIs) {
    EXPECT_EQ(TailOfLog("first\nsecond", 1), u"first\nsecond");
    EXPECT_EQ(TailOfLog("\x80tail", 1), u"\uFFFDtail");
}

TEST(TailOfLog, IsTextThatMarkupCanHold) {
    EXPECT_EQ(TailOfLog(std::string("a\0b\r\nc\x01\xFF"
                                    "d",
                                    9),
                        1),
              u"ab\nc\uFFFDd");
}

// Neither a code page of the system nor half a character is taken for text.
TEST(TailOfLog, ReplacesWhatIsNoUtf8) {
    for (const char* bytes : {"Gr\xFC\xDF", "Gr\xC3\xDF", "Gr\xED\xA0", "Gr\xE2\x82", "Gr\xC0\x80"})
        EXPECT_EQ(TailOfLog(bytes, 1), u"Gr\uFFFD\uFFFD") << bytes;
    EXPECT_EQ(TailOfLog("\xED\xA0\x80", 1), u"\uFFFD\uFFFD\uFFFD") << "half a surrogate pair";
    EXPECT_EQ(TailOfLog("\xF0\x9F\x93\xB7", 1), u"\U0001F4F7");
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
