// The public header agrees with the library.
#include "pavane.h"

#include "frame/exports/host_configuration.h"
#include "frame/exports/launcher_table.h"
#include "frame/version.h"
#include "unit/frame/exports/exports_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

extern "C" {
std::uint32_t VersionSeenFromC(void);
std::uint16_t WholeRoundFromC(std::int32_t hostApp, std::uint32_t hostOptions);
std::uint32_t HostOptionsFromC(std::uint16_t language, std::uint16_t flags);
}

namespace brixen::pvn {
namespace {

TEST(PavaneHeader, StatusCodesEqualThoseOfTheLibrary) {
    EXPECT_EQ(PAVANE_SUCCESS, kStatusSuccess);
    EXPECT_EQ(PAVANE_NOT_INITIALIZED, kStatusNotInitialized);
    EXPECT_EQ(PAVANE_NULL_ARGUMENT, kStatusNullArgument);
    EXPECT_EQ(PAVANE_BAD_ARGUMENT, kStatusBadArgument);
    EXPECT_EQ(PAVANE_NO_MEMORY, kStatusNoMemory);
    EXPECT_EQ(PAVANE_EXCEPTION, kStatusException);
    EXPECT_EQ(PAVANE_NO_THREAD, kStatusNoThread);
    EXPECT_EQ(PAVANE_UNMAPPED_OUTCOME, kStatusUnmappedOutcome);
    EXPECT_EQ(PAVANE_USER_QUIT, kStatusUserQuit);
    EXPECT_EQ(PAVANE_USER_CANCEL, kStatusUserCancel);
    EXPECT_EQ(PAVANE_USER_OUTCOME3, kStatusUserOutcome3);
    EXPECT_EQ(PAVANE_USER_OUTCOME4, kStatusUserOutcome4);
}

TEST(PavaneHeader, StatusCodesAreTheDocumentedNumbers) {
    EXPECT_EQ(PAVANE_NOT_INITIALIZED, 33025);
    EXPECT_EQ(PAVANE_NULL_ARGUMENT, 33026);
    EXPECT_EQ(PAVANE_BAD_ARGUMENT, 33030);
    EXPECT_EQ(PAVANE_NO_MEMORY, 33286);
    EXPECT_EQ(PAVANE_EXCEPTION, 33289);
    EXPECT_EQ(PAVANE_NO_THREAD, 33410);
    EXPECT_EQ(PAVANE_UNMAPPED_OUTCOME, 33793);
    EXPECT_EQ(PAVANE_SERVICE_DENIED, 34049);
    EXPECT_EQ(PAVANE_SERVICE_UNAVAILABLE, 34050);
    EXPECT_EQ(PAVANE_USER_QUIT, 35073);
    EXPECT_EQ(PAVANE_USER_OUTCOME4, 35076);
    EXPECT_EQ(PAVANE_CALL_CANCELED, 53249);
    EXPECT_EQ(PAVANE_CALL_TIMED_OUT, 53250);
    EXPECT_EQ(PAVANE_CALL_BAD_ANSWER, 53251);
    EXPECT_EQ(PAVANE_CALL_SYSTEM_ERROR, 53409);
    EXPECT_EQ(PAVANE_CALL_NO_MEMORY, 53410);
    EXPECT_EQ(PAVANE_CALL_HTTP_ERROR, 53411);
    EXPECT_EQ(PAVANE_CALL_INVALID_URL, 53425);
    EXPECT_EQ(PAVANE_CALL_NAME_UNRESOLVED, 53426);
    EXPECT_EQ(PAVANE_CALL_SECURE_FAILURE, 53427);
}

TEST(PavaneHeader, RecognizesTheDecisionsOfTheUser) {
    EXPECT_TRUE(PAVANE_IS_USER_DECISION(PAVANE_USER_QUIT));
    EXPECT_TRUE(PAVANE_IS_USER_DECISION(0x89FF));
    EXPECT_FALSE(PAVANE_IS_USER_DECISION(PAVANE_UNMAPPED_OUTCOME));
    EXPECT_FALSE(PAVANE_IS_USER_DECISION(PAVANE_SUCCESS));
}

TEST(PavaneHeader, RecognizesTheRepliesOfTheService) {
    EXPECT_TRUE(PAVANE_IS_SERVICE_REPLY(PAVANE_SERVICE_DENIED));
    EXPECT_TRUE(PAVANE_IS_SERVICE_REPLY(0x85FF));
    EXPECT_FALSE(PAVANE_IS_SERVICE_REPLY(PAVANE_UNMAPPED_OUTCOME));
    EXPECT_FALSE(PAVANE_IS_SERVICE_REPLY(PAVANE_CALL_BAD_ANSWER));
}

TEST(PavaneHeader, VersionEqualsTheVersionWordAndTheVersionText) {
    EXPECT_EQ(PAVANE_VERSION, kVersionWord);
    const std::string text =
        std::to_string(kVersionWord >> 27) + "." + std::to_string(kVersionWord >> 23 & 15) + "." +
        std::to_string(kVersionWord >> 15 & 255) + "." + std::to_string(kVersionWord & 0x7FFF);
    EXPECT_EQ(text, kVersionText);
}

TEST(PavaneHeader, HostOptionsHoldTheLanguageInTheHighWord) {
    EXPECT_EQ(PAVANE_HOST_OPTIONS(0x040D, PAVANE_OPTION_WITHHOLD_CANCEL), 0x040D0001u);
    EXPECT_EQ(PAVANE_HOST_OPTIONS(-1, 0), 0xFFFF0000u);
    EXPECT_EQ(HostOptionsFromC(0x8001, 0xFFFF), 0x8001FFFFu);
    EXPECT_EQ(std::uint32_t{PAVANE_OPTION_WITHHOLD_CANCEL}, kOptionWithholdCancel);
}

class PavaneFromC : public Exports {};

TEST_F(PavaneFromC, InitializesRunsAndTerminates) {
    EXPECT_EQ(VersionSeenFromC(), PAVANE_VERSION);
    EXPECT_EQ(WholeRoundFromC(2, 0), PAVANE_BAD_ARGUMENT);
    gEngine.run = [](T_StorageInterface&) { return kStatusUserQuit; };
    EXPECT_EQ(WholeRoundFromC(0, 0), PAVANE_USER_QUIT);
    EXPECT_EQ(WholeRoundFromC(0, 0), PAVANE_USER_QUIT);
}

// In any order, and with workflows of an author's own beside them.
TEST(LauncherTable, HasTheWorkflowsThatTheHeaderNames) {
    constexpr struct {
        std::uint16_t number;
        const char* name;
    } kWorkflows[] = {{PAVANE_WORKFLOW_WELCOME, "Welcome"},
                      {PAVANE_WORKFLOW_REGISTRATION, "Registration"},
                      {PAVANE_WORKFLOW_PRIVACY, "Privacy"},
                      {PAVANE_WORKFLOW_CONNECTION, "Connection"},
                      {PAVANE_WORKFLOW_FEEDBACK, "Feedback"}};
    for (const auto& [number, name] : kWorkflows) {
        const WorkflowRow* const row = kLauncherTable.Find(number);
        ASSERT_NE(row, nullptr) << name;
        EXPECT_EQ(row->type, number) << name;
        EXPECT_STREQ(row->name, name);
    }
    EXPECT_EQ(kLauncherTable.Find(0), nullptr);
    EXPECT_EQ(kLauncherTable.Find(0xFFFF), nullptr);
}

TEST(LauncherTable, WorkflowsThatCallTheServiceShowTheHostOfferCancelAndKeepTheProxy) {
    for (const WorkflowRow& row : kLauncherTable.workflows) {
        const bool callsTheService = row.number == 2 || row.number == 4 || row.number == 5;
        EXPECT_EQ(row.showsHostName, callsTheService) << row.name;
        EXPECT_EQ(row.offersCancel, callsTheService) << row.name;
        EXPECT_EQ(row.keepsProxy, callsTheService) << row.name;
        EXPECT_EQ(row.preloadView != nullptr, row.number == 2) << row.name;
    }
}

} // namespace
} // namespace brixen::pvn
