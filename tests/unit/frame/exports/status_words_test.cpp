// The words of the sample host for a status. tests/rules compares them with those of the header.
#include "pavane.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

extern "C" {
#include "host/log_lines.h"
#include "host/status_words.h"

// In place of the host's own, which reads the log on Windows: looks at one line.
bool LogMentions(const LogLines* lines, const char* words) { return std::strstr(lines->text[0], words); }
}

namespace {

std::string WordsOf(unsigned status, const char* logLine = "") {
    LogLines lines = {};
    std::strncpy(lines.text[0], logLine, kLogLineBytes - 1);
    return StatusWords(static_cast<std::uint16_t>(status), &lines);
}

TEST(StatusWords, AreOneSentenceForEveryStatusOfTheHeader) {
    EXPECT_EQ(WordsOf(PAVANE_SUCCESS), "Done.");
    EXPECT_EQ(WordsOf(PAVANE_USER_QUIT), "The user chose to quit the application.");
    EXPECT_EQ(WordsOf(PAVANE_SERVICE_DENIED), "The service denied the request.");
    EXPECT_EQ(WordsOf(PAVANE_CALL_SECURE_FAILURE), "The service's certificate is not trusted.");
}

TEST(StatusWords, OfAReplyWithoutANameAreThoseOfAServiceThatIsNotAvailable) {
    for (const unsigned status : {0x8502u, 0x8503u, 0x85FFu}) {
        EXPECT_EQ(WordsOf(status), "The service is not available now.") << status;
    }
}

TEST(StatusWords, OfAnUnknownStatusSayThatItIsTheWorkflowsOwn) {
    for (const unsigned status : {1u, 0x8103u, 0x84FFu, 0x8600u, 0xFFFFu}) {
        EXPECT_EQ(WordsOf(status), "A status of the workflow's own.") << status;
    }
}

TEST(StatusWords, OfAnExceptionNameTheCauseThatTheLogNames) {
    EXPECT_EQ(WordsOf(PAVANE_EXCEPTION), "The workflow failed by an exception.");
    EXPECT_EQ(WordsOf(PAVANE_EXCEPTION, "View cannot be read(File: a)"),
              "A view of the workflow cannot be read.");
    EXPECT_EQ(WordsOf(PAVANE_EXCEPTION, "Missing Resource(Type: Exvw, Name: a)"),
              "A file of the workflow is missing. Is PVResources beside the library?");
    EXPECT_EQ(WordsOf(PAVANE_EXCEPTION, "Missing Resource(Type: Zdct, Name: a)"),
              "A file of the workflow is missing. Is PVResources beside the library?");
    EXPECT_EQ(WordsOf(PAVANE_EXCEPTION, "Missing Resource(Type: Bitmap, Name: a)"),
              "The workflow failed by an exception.");
    EXPECT_EQ(WordsOf(PAVANE_USER_CANCEL, "Missing Resource(Type: Bitmap, Name: a)"),
              "The user canceled the workflow.");
}

} // namespace
