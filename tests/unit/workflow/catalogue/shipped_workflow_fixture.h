// A run of a workflow that works on its own, with the shipped resources.
#pragma once

#include "frame/status.h"
#include "unit/workflow/panes/dialog_fixture.h"
#include "workflow/context/context_keys.h"
#include "workflow/context/workflow_context.h"
#include "workflow/run_workflow.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace brixen::pvn::pvn_workflow {

template <class WorkFlow>
class ShippedWorkFlow : public DialogFixture {
protected:
    ShippedWorkFlow() { SetLanguage("en_US"); }

    void SetLanguage(const std::string& language) { SetString(bag, PvnWFKey_Language, language); }

    std::uint16_t Run() {
        SetPtr(bag, PvnWFKey_MainWindow, mainWindow);
        const std::uint16_t status = RunWorkFlowFromBag<WorkFlow>(bag);
        ExpectNoUseOfClosedWindows();
        // Without an end state the status would be the stored result all the same.
        if (status != kStatusException) {
            EXPECT_EQ(frame.workflowPhase == kPhaseEnded, !isEndedFromOutside);
        }
        return status;
    }
    std::uint32_t StoredResult() {
        std::uint32_t result = 0;
        GetLong(bag, PvnWFKey_WorkFlowResult, result);
        return result;
    }

    T_Storage bag;
    Window mainWindow = MakeMainWindow();
    bool isEndedFromOutside = false;
};

} // namespace brixen::pvn::pvn_workflow
