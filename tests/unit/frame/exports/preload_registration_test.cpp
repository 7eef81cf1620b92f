// Preparing Registration ahead, with the library's own table of workflows.
#include "support/resource_folder.h"
#include "toolkit/message_numbers.h"
#include "toolkit/platform/headless/headless.h"
#include "unit/frame/exports/exports_fixture.h"
#include "workflow/catalogue/registration_views.h"
#include "workflow/platform/resource_platform.h"
#include "workflow/resources/resource_layer.h"

namespace brixen::pvn {
namespace {

using namespace pvn_workflow;

class PreloadRegistration : public Exports {
protected:
    void SetUp() override {
        Exports::SetUp();
        zeve::headless::Reset();
        GetFrameState().testLaunchers = nullptr;
        Pavane_Initialize(0, PAVANE_HOST_OPTIONS(0x0409, 0));
        // The first language and the root stay until the resources are shut down.
        SelectLanguage("en_US");
        SetResourceRootBelow(files.Utf8());
        for (const char* name : {"connection_settings.exv", "en_US/service.zdct"}) {
            files.Copy(name, std::filesystem::path(platform::LibraryFolder()) / "PVResources" / name);
        }
    }
    void TearDown() override {
        Pavane_Terminate();
        zeve::headless::Reset();
        Exports::TearDown();
    }
    void CopyView() {
        files.Copy("registration.exv",
                   std::filesystem::path(platform::LibraryFolder()) / "PVResources/registration.exv");
    }
    static void ThenPressLater() {
        zeve::headless::State().script.push_back([] {
            zeve::NativeWindow dialog = nullptr;
            for (const auto& window : zeve::headless::State().windows)
                if (window->className == u"#32770") dialog = window->handle;
            zeve::platform::Send(dialog, zeve::kMessageCommand, registration::kLaterButton, 0);
        });
    }

    pavane_test::ResourceFolder files;
};

TEST_F(PreloadRegistration, WithoutItsViewFailsAndFailsTheRunThatFollows) {
    EXPECT_EQ(Pavane_PreloadWorkflow(2), 33289);
    CopyView();
    EXPECT_EQ(Pavane_RunWorkflow(2, nullptr), 33289) << "though the view is there now";
    ThenPressLater();
    EXPECT_EQ(Pavane_RunWorkflow(2, nullptr), 35075) << "the next run prepares again";
    EXPECT_TRUE(zeve::headless::State().script.empty());
}

} // namespace
} // namespace brixen::pvn
