// The resolution context of the thread while dialogs are shown. tests/end_to_end/scaled_screen.sh runs this
// on a screen of 144 pixels an inch too.
#include "toolkit/dialog/abandon_dialogs.h"
#include "toolkit/dialog/dpi_unaware_scope.h"
#include "toolkit/platform/toolkit_platform.h"
#include "windows/dpi_of_thread.h"
#include "windows/toolkit/patched_import.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <windows.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace brixen::zeve {
namespace {

using pavane_test::DpiAwareness;
using pavane_test::DpiAwarenessOfThread;
using testing::ElementsAre;
using testing::IsEmpty;

// --- On the system itself ---

class Resolution : public testing::Test {
protected:
    const pavane_test::PerMonitorAwareHost host;
};

TEST_F(Resolution, OutsideAScopeIsThatOfTheScreen) {
    const char* const ofScreen = std::getenv("PAVANE_SCREEN_RESOLUTION");
    EXPECT_EQ(platform::ScreenResolution(), ofScreen != nullptr ? std::atoi(ofScreen) : 96);
    EXPECT_EQ(DpiAwarenessOfThread(), DpiAwareness::kPerMonitor);
}

TEST_F(Resolution, WithinAScopeIs96OnEveryScreen) {
    {
        const DpiUnawareScope outer;
        {
            const DpiUnawareScope inner;
            EXPECT_EQ(DpiAwarenessOfThread(), DpiAwareness::kUnaware);
        }
        EXPECT_EQ(DpiAwarenessOfThread(), DpiAwareness::kUnaware);
        EXPECT_EQ(platform::ScreenResolution(), 96);
    }
    EXPECT_EQ(DpiAwarenessOfThread(), DpiAwareness::kPerMonitor);
}

TEST_F(Resolution, IsPutBackWhenDialogsAreAbandoned) {
    const DpiUnawareScope outer, inner;
    AbandonDialogs();
    EXPECT_EQ(DpiAwarenessOfThread(), DpiAwareness::kPerMonitor);
}

// --- What the system is asked for ---

std::vector<std::intptr_t> gAsked; // contexts, in order
bool gRefusesGdiScaled = false, gRefusesAll = false, gHasContexts = true;

constexpr std::intptr_t kFormer = 0x77;

void* WINAPI NoteContext(void* context) {
    gAsked.push_back(reinterpret_cast<std::intptr_t>(context));
    const bool isRefused = gRefusesAll || (gRefusesGdiScaled && gAsked.back() == -5);
    return isRefused ? nullptr : reinterpret_cast<void*>(kFormer);
}

FARPROC WINAPI FindNoteContext(HMODULE module, const char* name) {
    if (std::strcmp(name, "SetThreadDpiAwarenessContext") != 0) return GetProcAddress(module, name);
    return gHasContexts ? reinterpret_cast<FARPROC>(reinterpret_cast<void*>(&NoteContext)) : nullptr;
}

class ResolutionContext : public testing::Test {
protected:
    ResolutionContext() {
        EXPECT_TRUE(lookup.IsPatched());
        gAsked.clear();
        gRefusesGdiScaled = gRefusesAll = false;
        gHasContexts = true;
    }
    static std::intptr_t SetUnaware() { return reinterpret_cast<std::intptr_t>(platform::SetDpiUnaware()); }

private:
    const pavane_test::PatchedImport lookup{"GetProcAddress", &FindNoteContext};
};

TEST_F(ResolutionContext, IsTheOneThatTheSystemScalesAndThenTheFormerOne) {
    const NativeDpiContext former = platform::SetDpiUnaware();
    EXPECT_THAT(gAsked, ElementsAre(-5));
    platform::RestoreDpi(former);
    EXPECT_THAT(gAsked, ElementsAre(-5, kFormer));
}

TEST_F(ResolutionContext, IsTheUnawareOneWhereTheSystemRefusesThat) {
    gRefusesGdiScaled = true;
    EXPECT_EQ(SetUnaware(), kFormer);
    EXPECT_THAT(gAsked, ElementsAre(-5, -1));
}

TEST_F(ResolutionContext, StaysWhereTheSystemRefusesBothOrHasNone) {
    gRefusesAll = true;
    EXPECT_EQ(SetUnaware(), 0);
    gAsked.clear();
    platform::RestoreDpi(nullptr);
    gHasContexts = false;
    EXPECT_EQ(SetUnaware(), 0);
    platform::RestoreDpi(reinterpret_cast<NativeDpiContext>(kFormer));
    EXPECT_THAT(gAsked, IsEmpty());
}

} // namespace
} // namespace brixen::zeve
