// A host of dialogs in the headless window system: it notes what it hears and answers as it is told.
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

// What the host heard. Numbers are 0 and texts empty where the record had no such key.
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

    // The messages heard with what 0 and that number.
    std::vector<HeardEvent> Messages(std::uint32_t number) const;
    std::vector<HeardEvent> OfWhat(std::int32_t what) const;

    std::vector<HeardEvent> events;
    // Asked for each event after it was noted. Unset: command 1 ends positively, command 2 negatively, all
    // else goes to the system.
    std::function<std::uint64_t(std::int32_t what, EventRecord& record)> answer;
};

struct DeleteDialog {
    void operator()(ZeveDialog* dialog) const { ZeveDelete(dialog); }
};
using DialogOwner = std::unique_ptr<ZeveDialog, DeleteDialog>;

// Puts everything that the process keeps back to its beginning, before and after a test.
class DialogTest : public ::testing::Test {
protected:
    DialogTest();
    ~DialogTest() override;
};

inline constexpr char kTwoButtons[] = "dialog(name: 'Two buttons') {"
                                      "  button(name: 'OK', view_id: 1);"
                                      "  button(name: 'Cancel', view_id: 2);"
                                      "}";

// A dialog with that view, not made yet.
DialogOwner NewDialog(const char* view = kTwoButtons, NativeWindow parent = nullptr);
// The same, made.
DialogOwner MadeDialog(TestHost& host, const char* view = kTwoButtons, NativeWindow parent = nullptr);
// A bare top-level window, such as a host application's.
NativeWindow PlainWindow();

} // namespace brixen::zeve
