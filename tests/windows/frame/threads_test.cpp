// The threads of the library as the system sees them.
#include "frame/platform/frame_platform.h"

#include "windows/toolkit/patched_import.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace brixen::pvn {
namespace {

constexpr LANGID kGerman = 0x0407;

TEST(Threads, LeaveNoHandleWhenTheyAreClosed) {
    const NativeThread thread = StartThread([](void*) { return 0ul; }, nullptr);
    ASSERT_NE(thread, nullptr);
    const auto handle = reinterpret_cast<HANDLE>(thread);
    EXPECT_EQ(WaitForSingleObject(handle, INFINITE), WAIT_OBJECT_0);
    CloseThread(thread);
    DWORD flags = 0;
    EXPECT_FALSE(GetHandleInformation(handle, &flags));
}

LANGID WINAPI AnswerGerman() { return kGerman; }

TEST(Threads, HaveTheLanguageThatTheHostGaveThem) {
    const pavane_test::PatchedImport language("GetThreadUILanguage", &AnswerGerman);
    EXPECT_TRUE(language.IsPatched());
    EXPECT_EQ(ThreadLanguage(), kGerman);
}

} // namespace
} // namespace brixen::pvn
