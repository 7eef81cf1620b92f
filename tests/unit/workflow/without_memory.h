// A whole run with one allocation after the other failing: each ends in one of its statuses, leaves no block
// behind, and the next run works.
#pragma once

#include "dictionaries/process_dictionary.h"
#include "frame/status.h"
#include "support/failing_allocator.h"
#include "unit/workflow/panes/dialog_fixture.h"
#include "workflow/run_workflow.h"

#include <algorithm>
#include <initializer_list>

namespace brixen::pvn::pvn_workflow {

// `Fixture` is a DialogFixture with the bag of the run.
template <class Fixture, class WorkFlow>
class WithoutMemory : public Fixture {
protected:
    // What the user does in each run. Undisturbed, it leads to success.
    virtual void WriteScript() = 0;

    // `outcomes`: the statuses that are possible besides success and exception. Until the dialog is open one
    // of `strideOfOpening` allocations fails, and after that each one.
    void ExpectToHoldOut(std::initializer_list<std::uint16_t> outcomes, std::size_t strideOfOpening = 1) {
        constexpr std::size_t kEvery = 16;
        // Objects that are made once must exist: the dictionary makes its index after some thousands of
        // comparisons.
        constexpr int kMostRounds = 1000;
        const auto& entries = kestrel_private::ProcessDictionary().Entries();
        EXPECT_EQ(RunOnce(), kStatusSuccess); // the dictionary may have its index from another test
        for (int round = 0; round < kMostRounds && !entries.IsIndexed(); ++round) {
            EXPECT_EQ(RunOnce(), kStatusSuccess);
        }
        ASSERT_TRUE(entries.IsIndexed());
        const std::size_t opening = AllocationsOfOpening();
        const std::size_t before = pavane_test::LiveBlocks();
        std::size_t n = 1;
        for (; RunFailing(n, outcomes) && !testing::Test::HasFailure();
             n += n < opening ? strideOfOpening : 1) {
            const bool isClean = pavane_test::LiveBlocks() == before;
            // An object that a whole run replaces may be missing or be an earlier one.
            if (!isClean || n % kEvery == 0) {
                EXPECT_EQ(RunOnce(), kStatusSuccess) << n;
            }
            EXPECT_EQ(pavane_test::LiveBlocks(), before) << n;
        }
        EXPECT_GT(n, 100u);
    }

private:
    std::uint16_t RunOnce() {
        WriteScript();
        const std::uint16_t status = RunWorkFlowFromBag<WorkFlow>(this->bag);
        CleanUp();
        return status;
    }

    std::size_t AllocationsOfOpening() {
        const std::size_t before = pavane_test::AllocationCount();
        std::size_t after = before;
        this->Then([&after] { after = pavane_test::AllocationCount(); });
        EXPECT_EQ(RunOnce(), kStatusSuccess);
        return after - before;
    }

    // Returns whether the n-th allocation was reached.
    bool RunFailing(std::size_t n, std::initializer_list<std::uint16_t> outcomes) {
        WriteScript();
        std::uint16_t status = 0;
        bool hasFailed = false;
        {
            const pavane_test::FailNthAllocation failure(n);
            status = RunWorkFlowFromBag<WorkFlow>(this->bag);
            hasFailed = failure.HasFailed();
        }
        const bool isKnown = status == kStatusSuccess || status == kStatusException ||
                             std::find(outcomes.begin(), outcomes.end(), status) != outcomes.end();
        EXPECT_TRUE(isKnown) << status << " at " << n;
        EXPECT_EQ(this->System().locked, nullptr) << n;
        EXPECT_EQ(this->TopDialog(), nullptr) << n;
        EXPECT_TRUE(this->System().fonts.empty()) << n;
        const platform::PaintingRecorder painted = platform::ThePaintingRecorder();
        CleanUp();
        EXPECT_TRUE(platform::TheResourceRecorder().liveBitmaps.empty()) << n;
        EXPECT_TRUE(painted.bitmaps.empty()) << n;
        EXPECT_TRUE(painted.brushes.empty()) << n;
        EXPECT_TRUE(painted.devices.empty()) << n;
        return hasFailed;
    }

    static void CleanUp() {
        ShutDownResources();
        zeve::headless::Reset();
        platform::ThePaintingRecorder().Reset();
        zeve::gToolkit.lastViewId = Fixture::kFirstId;
    }
};

} // namespace brixen::pvn::pvn_workflow
