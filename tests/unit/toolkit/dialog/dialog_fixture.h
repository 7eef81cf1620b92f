// A host of dialogs in the headless window system: it records its events and answers as the test says.
#pragma once

#include "toolkit/dialog/zeve_dialog.h"
#include "toolkit/event_record.h"
#include "toolkit/platform/headless/headless.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace brixen::zeve {

inline constexpr std::uint32_t kUser = 0x0400; // the first message that means what a window wants it to

// An event that the host received. Numbers are 0 and texts empty where the record had no such key.
struct HeardEvent {
    std::int32_t what = 0;
    std::uint32_t message = 0;
    std::uintptr_t wparam = 0;
    std::intptr_t lparam = 0;
    NativeWindow window = nullptr, control = nullptr, subControl = nullptr;
    std::string keyword;
};

class TestHost {
public:
    static std::uint64_t Callback(std::int32_t what, EventRecord& record, void* params);

    // Returns the events of kWhatMessage with that number.
    std::vector<HeardEvent> Messages(std::uint32_t number) const;
    std::vector<HeardEvent> OfWhat(std::int32_t what) const;

    std::vector<HeardEvent> events;
    // Called for each event after it was recorded. If unset, command 1 ends positively, command 2 negatively,
    // and the system answers all else.
    std::function<std::uint64_t(std::int32_t what, EventRecord& record)> answer;
};

struct DeleteDialog {
    void operator()(ZeveDialog* dialog) const { ZeveDelete(dialog); }
};
using DialogOwner = std::unique_ptr<ZeveDialog, DeleteDialog>;

// Resets the state of the process before and after a test.
class DialogTest : public ::testing::Test {
protected:
    DialogTest();
    ~DialogTest() override;
};

inline constexpr char kTwoButtons[] = "dialog(name: 'Two buttons') {"
                                      "  button(name: 'OK', view_id: 1);"
                                      "  button(name: 'Cancel', view_id: 2);"
                                      "}";

// Returns a dialog with that view, not made yet.
DialogOwner NewDialog(const char* view = kTwoButtons, NativeWindow parent = nullptr);
// Returns the same, made.
DialogOwner MadeDialog(TestHost& host, const char* view = kTwoButtons, NativeWindow parent = nullptr);
// Makes a bare top-level window, such as a host application's.
NativeWindow PlainWindow();

} // namespace brixen::zeve
