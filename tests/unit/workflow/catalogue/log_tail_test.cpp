#include "workflow/catalogue/log_tail.h"

#include "support/log_file.h"

#include <gtest/gtest.h>

#include <fstream>

namespace brixen::pvn::pvn_workflow {
namespace {

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

TEST(TailOfLog, IsTextThatMarkupCanHold) {
    EXPECT_EQ(TailOfLog(std::string("a\0b\r\nc\x01\xFF"
                                    "d",
                                    9),
                        1),
              u"a?b\nc?d");
    EXPECT_EQ(TailOfLog("\x80tail", 1), u"?tail") << "a whole log begins as it is";
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
