#include "unit/workflow/panes/pane_host_fixture.h"
#include "workflow/panes/pane_host.h"
#include "workflow/platform/painting.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace brixen::pvn::pvn_workflow {
namespace {

using platform::PaintingCallsOf;
using testing::ElementsAre;
using testing::HasSubstr;

class PaneHostPainting : public PaneHost {
protected:
    PaneHostPainting() { context.servicePath = files.Utf8(); }

    static platform::PaintingRecorder& Recorder() { return platform::ThePaintingRecorder(); }
    static zeve::NativeDrawing Device() {
        return reinterpret_cast<zeve::NativeDrawing>(std::uintptr_t{0x77});
    }

    static void Erase() { Tell(TopDialog(), zeve::kMessageEraseBackground, 0x77); }
    std::intptr_t AskForBrush(std::uint16_t id) {
        const auto control = reinterpret_cast<std::intptr_t>(Control(id)->handle);
        return host.RouteHostMessage({TopDialog(), zeve::kMessageColorStatic, 0x77, control});
    }
    static std::int64_t TextColor() { return PaintingCallsOf("SetTransparentText").back().numbers[0]; }

    // Makes the bitmap of that resource one with pixels, as a decoder would.
    static void GivePixels(const char* name) {
        platform::GivePixels(LoadBitmapResource(name), {.extent = {8, 8}, .pixelBytes = 4, .bytes = {}});
    }
    void AddBitmaps(std::initializer_list<const char*> names) {
        for (const char* name : names) files.Copy(std::string(name) + ".png", Picture("rgb.png"));
    }
    static std::size_t LiveBitmaps() { return platform::TheResourceRecorder().liveBitmaps.size(); }
    void Name(const char* label) { SetString(bag, PvnWFKey_ProductLabelName, label); }
};

TEST_F(PaneHostPainting, TheBackdropIsRenderedBeforeTheWindowIsShown) {
    AddBitmaps({"background"});
    RunWith([&] {
        const auto client = zeve::platform::ClientArea(TopDialog());
        EXPECT_THAT(PaintingCallsOf("FillColor").at(0).numbers,
                    ElementsAre(0, 0, client.right, client.bottom, 0x8080FF));
        EXPECT_EQ(PaintingCallsOf("MakePatternBrush").size(), 1u);
        EXPECT_EQ(Recorder().brushes.size(), 1u);
        EXPECT_EQ(Recorder().bitmaps.size(), 1u);
        EXPECT_TRUE(zeve::headless::FindWindow(TopDialog())->closeGrayed);
    });
}

TEST_F(PaneHostPainting, EverythingIsFreedWithTheHost) {
    AddBitmaps({"background", "brixenlogo", "productlabel"});
    {
        TestHost shortLived(kView);
        PVNDialogStateMachine run(shortLived);
        run.SetTransition(1, kWFState_Done, "DoneButton");
        run.SetProperty(1, kPropertyPaneObject, &first);
        run.SetProperty(kWFState_Any, kPropertyWorkflowContext, &context);
        run.startState = 1;
        Then([] {
            Erase();
            EXPECT_EQ(LiveBitmaps(), 3u);
        });
        ThenPress(kDone);
        EXPECT_TRUE(run.Run());
        EXPECT_EQ(LiveBitmaps(), 3u) << "the host keeps them until its end";
    }
    EXPECT_EQ(LiveBitmaps(), 0u);
    EXPECT_TRUE(Recorder().bitmaps.empty());
    EXPECT_TRUE(Recorder().brushes.empty());
    EXPECT_TRUE(Recorder().devices.empty());
}

TEST_F(PaneHostPainting, ErasingDrawsTheBackdropWithLogoAndLabelInMemoryAndCopiesOnce) {
    AddBitmaps({"background", "brixenlogo", "productlabel"});
    RunWith([] {
        GivePixels("brixenlogo");
        GivePixels("productlabel");
        Recorder().calls.clear();
        Erase();
        std::vector<std::string> names;
        for (const auto& call : Recorder().calls) {
            if (call.name != "SetLayout") names.push_back(call.name);
        }
        EXPECT_THAT(names,
                    ElementsAre("DrawBitmap", "ReadPixels", "MakeBitmap", "WritePixels", "CopyToWindow"));
        EXPECT_EQ(PaintingCallsOf("CopyToWindow")[0].device, Device());
        EXPECT_NE(PaintingCallsOf("DrawBitmap")[0].device, Device());
        EXPECT_EQ(PaintingCallsOf("DrawBitmap")[0].device, PaintingCallsOf("WritePixels")[0].device);
    });
}

TEST_F(PaneHostPainting, WithoutMemoryTheBackdropIsTheFaceColor) {
    Recorder().refuseBitmap = true;
    RunWith([&] {
        Recorder().calls.clear();
        Erase();
        EXPECT_EQ(PaintingCallsOf("FillColor").at(0).numbers[4], platform::SystemColor(15));
        EXPECT_EQ(AskForBrush(kNext), 1) << "the system's own";
    });
}

TEST_F(PaneHostPainting, InHighContrastTheBackdropIsPlain) {
    AddBitmaps({"background", "brixenlogo", "productlabel"});
    RunWith([&] {
        GivePixels("brixenlogo");
        platform::ThePaneRecorder().isHighContrast = true;
        Recorder().calls.clear();
        Erase();
        host.PaintOverlay(Device());
        EXPECT_TRUE(Recorder().calls.empty());
        EXPECT_EQ(AskForBrush(kNext), 1);
    });
}

TEST_F(PaneHostPainting, TextControlsShowTheBackdropBehindThem) {
    RunWith([&] {
        zeve::platform::MoveTo(Control(kNext)->handle, 30, 40, 50, 79);
        EXPECT_EQ(AskForBrush(kNext), reinterpret_cast<std::intptr_t>(*Recorder().brushes.begin()));
        EXPECT_THAT(PaintingCallsOf("SetBrushOrigin").back().numbers, ElementsAre(-30, -40));
        EXPECT_EQ(TextColor(), platform::SystemColor(8));
        zeve::platform::MoveTo(Control(kNext)->handle, 30, 40, 50, 80);
        EXPECT_EQ(AskForBrush(kNext), reinterpret_cast<std::intptr_t>(platform::StockBrush(0)));
        EXPECT_EQ(TextColor(), platform::SystemColor(8));
    });
}

TEST_F(PaneHostPainting, MarkedControlsAreRedOrGreen) {
    first.marked = {{kNext, Mark::kError}, {kBack, Mark::kSuccess}};
    RunWith([&] {
        AskForBrush(kNext);
        EXPECT_EQ(TextColor(), 255);
        AskForBrush(kBack);
        EXPECT_EQ(TextColor(), 46080);
        AskForBrush(kThrow);
        EXPECT_EQ(TextColor(), platform::SystemColor(8));
        Tell(TopDialog(), zeve::kMessageCommand, kNext);
        AskForBrush(kNext);
        EXPECT_EQ(TextColor(), platform::SystemColor(8)) << "the other pane marks nothing";
    });
}

TEST_F(PaneHostPainting, TheLabelIsTheOneThatTheContextNames) {
    AddBitmaps({"productlabel", "otherlabel"});
    RunWith([&] {
        EXPECT_EQ(LiveBitmaps(), 0u);
        Erase();
        EXPECT_EQ(LiveBitmaps(), 1u) << "the first label's name is productlabel";
        Erase();
        EXPECT_EQ(platform::TheResourceRecorder().bitmapsMade, 1u) << "loaded once";
        Name("otherlabel");
        Erase();
        EXPECT_EQ(LiveBitmaps(), 1u) << "the old one is given back";
        EXPECT_EQ(platform::TheResourceRecorder().bitmapsMade, 2u);
        Name("");
        Erase();
        EXPECT_EQ(platform::TheResourceRecorder().bitmapsMade, 2u) << "an empty name changes nothing";
    });
}

TEST_F(PaneHostPainting, TheOldLabelIsGivenBackBeforeTheNewOneIsLoaded) {
    AddBitmaps({"productlabel", "otherlabel"});
    RunWith([&] {
        Erase();
        Name("otherlabel");
        platform::TheResourceRecorder().refuseBitmap = 2;
        Erase();
        EXPECT_EQ(LiveBitmaps(), 0u);
    });
}

TEST_F(PaneHostPainting, AMissingLabelIsLoggedOnce) {
    AddBitmaps({"background", "brixenlogo"});
    Name("absent");
    RunWith([] {
        Erase();
        Erase();
    });
    const std::string log = Logged();
    const std::string line = "Missing Resource(Type: Bitmap, Name: absent)";
    EXPECT_THAT(log, HasSubstr(line));
    EXPECT_EQ(log.find(line), log.rfind(line));
}

TEST_F(PaneHostPainting, ALabelThatIsShownElsewhereStaysLoaded) {
    AddBitmaps({"background", "brixenlogo", "productlabel", "picture"});
    RunWith([&] {
        SetResourceRootBelow(files.Utf8());
        ShowBitmapInControl(host, "picture", kPicture);
        for (const char* shared : {"brixenlogo", "background", "picture"}) {
            Name(shared);
            Erase();
            EXPECT_EQ(LiveBitmaps(), 3u) << shared;
        }
        Name("productlabel");
        Erase();
        EXPECT_EQ(LiveBitmaps(), 4u);
    });
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
