// The exported calls over a launcher table that records what it is asked, in place of the engine's.
#pragma once

#include "frame/exports/launcher_table.h"
#include "frame/frame_state.h"
#include "frame/log.h"
#include "frame/pavane_context.h"
#include "pavane.h"
#include "support/log_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace brixen::pvn {

// What the launcher table of the tests was asked, and how it answers.
struct EngineRecord {
    std::vector<std::string> calls;
    std::function<Status(T_StorageInterface&)> run;
    std::function<void(const std::string&)> onSelect;
    std::function<void()> onLoad;
    std::function<void()> onShutDown;
};
inline EngineRecord gEngine;

inline Status RecordRun(T_StorageInterface& bag) {
    gEngine.calls.push_back("run");
    return gEngine.run ? gEngine.run(bag) : kStatusSuccess;
}

inline void RecordSelect(const std::string& language) {
    gEngine.calls.push_back("select " + language);
    if (gEngine.onSelect) gEngine.onSelect(language);
}

inline std::string RecordLoad(const std::string& name) {
    gEngine.calls.push_back("load " + name);
    if (gEngine.onLoad) gEngine.onLoad();
    return "text of the view";
}

inline void RecordShutDown() {
    gEngine.calls.push_back("shut down");
    if (gEngine.onShutDown) gEngine.onShutDown();
}

inline void RecordAbandon() noexcept { gEngine.calls.push_back("abandon run"); }

inline constexpr WorkflowRow kTestWorkflows[] = {
    {.name = "First", .run = RecordRun, .type = 11, .number = 1},
    {.name = "Second",
     .run = RecordRun,
     .preloadView = "second",
     .type = 12,
     .number = 2,
     .showsHostName = true,
     .offersCancel = true,
     .keepsProxy = true},
    {.name = "Third", .run = nullptr, .type = 13, .number = 3},
    {.name = "Fourth", .run = RecordRun, .type = 14, .number = 4, .showsHostName = true},
};

inline constexpr LauncherTable kTestLaunchers = {kTestWorkflows, RecordSelect, RecordLoad, RecordShutDown,
                                                 RecordAbandon};

class Exports : public testing::Test {
protected:
    void SetUp() override {
        gEngine = {};
        ResetFrameState();
        GetFrameState().testLaunchers = &kTestLaunchers;
        GetFrameTwin().hostProgram.productName = "The Host";
    }
    void TearDown() override {
        ResetFrameState();
        gEngine = {};
    }

    std::vector<std::string> Lines() const { return log.Bodies(); }

    pavane_test::LogFile log;
};

} // namespace brixen::pvn
