// An operation whose work the test chooses, and the context of a run that has it.
#pragma once

#include "frame/pavane_context.h"
#include "frame/platform/posix/frame_twin.h"
#include "net/transport/communication_detail.h"
#include "unit/workflow/panes/dialog_fixture.h"
#include "workflow/context/context_keys.h"
#include "workflow/worker/operation_context.h"
#include "workflow/worker/worker_start.h"

#include <gmock/gmock.h>

#include <atomic>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace brixen::pvn::pvn_workflow {

// What the worker does.
struct FakeWork {
    std::function<Status(T_StorageInterface& bag, const WorkerNotifier& notifier)> work;
    std::atomic<int> calls = 0;
};
inline FakeWork gFakeWork;

inline Status FakeEntry(T_StorageInterface& bag, const WorkerNotifier& notifier) {
    // The test may choose other work while this one runs.
    const auto work = gFakeWork.work;
    ++gFakeWork.calls;
    return work(bag, notifier);
}
inline void WorkReturns(Status status) {
    gFakeWork.work = [status](auto&, auto&) { return status; };
}

inline constexpr OperationTraits kFakeOperations[] = {
    {"PvnWF_Fake", FakeEntry, "Succeeded"},
    {"PvnWF_FakeAtOnce", FakeEntry, "SucceededAtOnce", true},
};

class FakeContext : public OperationContext {
public:
    using OperationContext::OperationContext;

    void FillWorkerBag(T_StorageInterface& values) override {
        OperationContext::FillWorkerBag(values);
        SetString(values, "input", "of the operation");
    }

    std::string ResultToEvent(Status status) override {
        ++consulted;
        return OperationContext::ResultToEvent(status);
    }

    int taken = 0, consulted = 0;
    std::string output;
    std::function<void()> whileTaken;

protected:
    std::span<const OperationTraits> Operations() const override { return kFakeOperations; }
    void TakeResults(T_StorageInterface& values) override {
        ++taken;
        GetString(values, "output", output);
        if (whileTaken) whileTaken();
    }
};

// The events that a busy state of this context must have transitions for, besides the success event.
inline std::set<std::string> EventsOfResults(OperationContext& context) {
    std::set<std::string> events = {kEventCanceledByUser};
    for (unsigned status = 1; status <= 0xFFFF; ++status) {
        events.insert(context.ResultToEvent(static_cast<Status>(status)));
    }
    return events;
}

// A worker waits here until the test opens it.
class Gate {
public:
    void Pass() const {
        while (!isOpen) std::this_thread::yield();
    }
    void Open() { isOpen = true; }

private:
    std::atomic<bool> isOpen = false;
};

class OperationFixture : public DialogFixture {
protected:
    OperationFixture() {
        gFakeWork.calls = 0;
        WorkReturns(kStatusSuccess);
        EndWorkerRun();
    }
    ~OperationFixture() override {
        AwaitWorkers();
        if (frame.threadHandle) CloseThread(frame.threadHandle);
        frame.threadHandle = nullptr;
        ResetFrameTwin();
        EXPECT_EQ(GetFrameTwin().openThreadHandles, 0);
        EndWorkerRun();
    }

    static void AwaitWorkers() {
        while (IsWorkerRunning()) std::this_thread::yield();
    }
    static void AwaitEnd() {
        while (gProgressPercent() != kPercentFinished) std::this_thread::yield();
    }
    static std::optional<std::string> TextOf(T_StorageInterface& from, const char* key) {
        std::string text;
        return GetString(from, key, text) ? std::optional(text) : std::nullopt;
    }
    static std::optional<std::uint32_t> LongOf(T_StorageInterface& from, const char* key) {
        std::uint32_t value = 0;
        return GetLong(from, key, value) ? std::optional(value) : std::nullopt;
    }
};

} // namespace brixen::pvn::pvn_workflow
