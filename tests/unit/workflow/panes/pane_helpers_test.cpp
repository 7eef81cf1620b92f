#include "workflow/panes/pane_helpers.h"

#include "dictionaries/translation.h"
#include "toolkit/control_styles.h"
#include "toolkit/kept_exception.h"
#include "unit/workflow/panes/pane_host_fixture.h"

#include <gmock/gmock.h>

#include <optional>
#include <stdexcept>

namespace brixen::pvn::pvn_workflow {
namespace {

using testing::Contains;
using testing::ElementsAre;
using zeve::headless::CallsOf;

// The helpers, on a dialog that is open.

class PaneHelpers : public PaneHost {
protected:
    PaneHelpers() {
        host.Connect(machine, context);
        host.Init();
        void* opened = nullptr;
        GetPtr(bag, PvnWFKey_ZeveRef, opened);
        dialog = static_cast<zeve::ZeveDialog*>(opened);
    }
    std::u16string Title() const { return zeve::platform::TextOf(host.Window()); }

    Window TopDialogsFirst() const { return zeve::platform::TopChild(host.Window()); }

    zeve::ZeveDialog* dialog = nullptr;
};

TEST_F(PaneHelpers, ATitleIsThePrefixAndTheText) {
    zeve::AddKeyValue("$$$/pvn/dlg/common/window_title/prefix=Guide: ");
    zeve::AddKeyValue("$$$/pvn/common/window_title=Common");
    zeve::AddKeyValue("$$$/pvn/test/title=T\xC3\xBCr");
    SetWindowTitle("$$$/pvn/test/title", host.Window());
    EXPECT_EQ(Title(), u"Guide: T\u00FCr");
    SetWindowTitle("", host.Window());
    EXPECT_EQ(Title(), u"Guide: Common");
}

TEST_F(PaneHelpers, ATitleIsCutAt255UnitsAndNeverInsideACharacter) {
    zeve::AddKeyValue("$$$/pvn/dlg/common/window_title/prefix=");
    zeve::AddKeyValue("$$$/pvn/test/long=" + std::string(300, 'x'));
    SetWindowTitle("$$$/pvn/test/long", host.Window());
    EXPECT_EQ(Title(), std::u16string(255, u'x'));
    zeve::AddKeyValue("$$$/pvn/test/long=" + std::string(254, 'x') + "\xF0\x9F\x98\x80!");
    SetWindowTitle("$$$/pvn/test/long", host.Window());
    EXPECT_EQ(Title(), std::u16string(254, u'x'));
}

TEST_F(PaneHelpers, ANormalButtonThrowsTheExceptionThatItsMessageRaised) {
    System().answer = [](const zeve::headless::Message& message) -> std::optional<std::intptr_t> {
        if (message.number != zeve::kMessageActivate) return std::nullopt;
        try {
            throw std::runtime_error("of a window procedure");
        } catch (const std::runtime_error&) {
            zeve::KeepException();
        }
        return 0;
    };
    EXPECT_THROW(MakeNormalButton(dialog, kBack), std::runtime_error);
}

TEST_F(PaneHelpers, AControlShowsATextUntranslated) {
    SetControlText(dialog, kField, "$$$/a=\xC3\xA4");
    EXPECT_EQ(zeve::platform::ControlText(host.Window(), kField), u"$$$/a=\u00E4");
    SetControlText(dialog, 999, "nobody");
}

TEST_F(PaneHelpers, ADefaultButtonGetsStyleFocusAndAPostedFocusMessage) {
    MakeDefaultButton(dialog, kBack);
    EXPECT_EQ(Control(kBack)->style, 0x40010001u);
    EXPECT_EQ(System().focus, Control(kBack)->handle);
    ASSERT_EQ(System().posted.size(), 1u);
    EXPECT_EQ(System().posted[0].window, host.Window());
    EXPECT_EQ(System().posted[0].number, zeve::kMessageSetFocus);
    EXPECT_EQ(System().posted[0].wparam, 0u);
    SetVisible(dialog, kBack, true);
    EXPECT_EQ(Control(kBack)->style, 0x50010001u);
}

TEST_F(PaneHelpers, ANormalButtonAlsoActivatesTheDialog) {
    MakeNormalButton(dialog, kBack);
    EXPECT_EQ(Control(kBack)->style, 0x40010000u);
    EXPECT_EQ(System().focus, Control(kBack)->handle);
    EXPECT_EQ(System().posted.size(), 1u);
    const auto sent = CallsOf("Send").back();
    EXPECT_EQ(sent.window, host.Window());
    EXPECT_THAT(sent.numbers, ElementsAre(6, 1, 0));
}

TEST_F(PaneHelpers, ATabStopIsAddedToTheStyle) {
    Control(kPicture)->style = 0x4000000E;
    AddTabStop(dialog, kPicture);
    EXPECT_EQ(Control(kPicture)->style, 0x4001000Eu);
}

TEST_F(PaneHelpers, APictureIsShownAndTakenBackWithTheDialog) {
    files.Copy("photo.png", Picture("rgba.png"));
    SetResourceRootBelow(files.Utf8());
    ShowBitmapInControl(host, "photo", kPicture);
    const auto shown = Control(kPicture)->remembered[zeve::kStaticSetImage];
    EXPECT_NE(shown, 0);
    const auto living = platform::TheResourceRecorder().liveBitmaps;
    host.Destroy();
    std::vector<std::vector<std::int64_t>> sent;
    for (const auto& call : CallsOf("Send")) sent.push_back(call.numbers);
    EXPECT_THAT(sent, Contains(ElementsAre(zeve::kStaticSetImage, 0, 0)));
    EXPECT_EQ(platform::TheResourceRecorder().liveBitmaps, living);
}

TEST_F(PaneHelpers, APictureReplacesAnEarlierOne) {
    for (const char* name : {"one.png", "two.png", "copy.png"}) files.Copy(name, Picture("rgba.png"));
    SetResourceRootBelow(files.Utf8());
    ShowBitmapInControl(host, "one", kPicture);
    const zeve::NativeBitmap copy = LoadBitmapResource("copy", 3);
    Control(kPicture)->remembered[zeve::kStaticSetImage] = reinterpret_cast<std::intptr_t>(copy);
    auto living = platform::TheResourceRecorder().liveBitmaps;
    living.erase(copy);
    ShowBitmapInControl(host, "two", kPicture);
    const zeve::NativeBitmap two = LoadBitmapResource("two", 3);
    living.insert(two);
    EXPECT_EQ(Control(kPicture)->remembered[zeve::kStaticSetImage], reinterpret_cast<std::intptr_t>(two));
    EXPECT_EQ(platform::TheResourceRecorder().liveBitmaps, living) << "the control's copy is freed";
    host.Destroy();
    EXPECT_EQ(platform::TheResourceRecorder().liveBitmaps, living) << "the layer's stay";
}

TEST_F(PaneHelpers, ANamedSubCheckIsBeforeTheFieldAndItsLabel) {
    NameSubCheck(dialog, kLabeled, "Send the &size");
    const Window check = zeve::ZeveSubControl(dialog, kLabeled);
    EXPECT_EQ(zeve::platform::TextOf(check), u"Send the &size");
    const Window label = zeve::platform::NextSibling(check);
    EXPECT_EQ(zeve::platform::TextOf(label), u"Size:");
    EXPECT_EQ(zeve::platform::NextSibling(label), Control(kLabeled)->handle);
}

TEST_F(PaneHelpers, ANamedSubCheckIsDirectlyBeforeAFieldWithoutALabel) {
    NameSubCheck(dialog, kUnlabeled, "Send it");
    EXPECT_EQ(zeve::platform::NextSibling(zeve::ZeveSubControl(dialog, kUnlabeled)),
              Control(kUnlabeled)->handle);
}

TEST_F(PaneHelpers, APictureOrALinkBeforeAFieldIsNoLabel) {
    for (const std::uint32_t kind : {0x0Eu, 0x03u, 0x07u, 0x10u, 0x100u}) {
        auto* label = zeve::headless::FindWindow(zeve::platform::PreviousSibling(Control(kLabeled)->handle));
        label->style = 0x50000000 | kind;
        NameSubCheck(dialog, kLabeled, "Send it");
        const Window check = zeve::ZeveSubControl(dialog, kLabeled);
        EXPECT_EQ(zeve::platform::NextSibling(check), Control(kLabeled)->handle) << kind;
        zeve::platform::PutBefore(check, TopDialogsFirst());
    }
}

TEST_F(PaneHelpers, AFieldFollowsItsNamedSubCheck) {
    NameSubCheck(dialog, kLabeled, "Send the &size");
    const Window check = zeve::ZeveSubControl(dialog, kLabeled), field = Control(kLabeled)->handle;
    const auto set = [check](std::uintptr_t mark) {
        zeve::platform::Send(check, zeve::kButtonSetCheck, mark, 0);
    };
    System().focus = field;
    FollowSubCheck(dialog, kLabeled);
    EXPECT_FALSE(IsSubCheckSet(dialog, kLabeled));
    EXPECT_FALSE(zeve::platform::IsEnabled(field));
    EXPECT_EQ(System().focus, check);
    EXPECT_EQ(zeve::platform::NextSibling(check), field) << "after the label";
    FollowSubCheck(dialog, kLabeled);
    EXPECT_EQ(zeve::platform::NextSibling(check), field) << "as before";
    set(zeve::kChecked);
    FollowSubCheck(dialog, kLabeled);
    EXPECT_TRUE(IsSubCheckSet(dialog, kLabeled));
    EXPECT_TRUE(zeve::platform::IsEnabled(field));
    EXPECT_EQ(System().focus, check) << "the focus stays";
    const Window label = zeve::platform::NextSibling(check);
    EXPECT_EQ(zeve::platform::TextOf(label), u"Size:");
    EXPECT_EQ(zeve::platform::NextSibling(label), field);
    System().focus = TopDialog();
    set(0);
    FollowSubCheck(dialog, kLabeled);
    EXPECT_EQ(System().focus, TopDialog()) << "it was not in the field";
    FollowSubCheck(dialog, kUnlabeled);
    EXPECT_EQ(zeve::platform::NextSibling(zeve::ZeveSubControl(dialog, kUnlabeled)),
              Control(kUnlabeled)->handle);
}

TEST_F(PaneHelpers, ASubCheckIsInFrontOfItsFieldWhereReadingBegins) {
    const Window check = zeve::ZeveSubControl(dialog, kLabeled), field = Control(kLabeled)->handle;
    const auto place = [&](bool isRightToLeft) {
        zeve::platform::MoveTo(check, 40, 90, 13, 15);
        zeve::platform::MoveTo(field, 60, 96, 90, 24);
        PlaceSubCheck(dialog, kLabeled, isRightToLeft);
    };
    using zeve::platform::FrameInParent, zeve::platform::Rectangle;
    place(false);
    EXPECT_EQ(FrameInParent(check), (Rectangle{40, 100, 53, 115}));
    EXPECT_EQ(FrameInParent(field), (Rectangle{60, 96, 150, 120}));
    place(true);
    EXPECT_EQ(FrameInParent(check), (Rectangle{137, 100, 150, 115}));
    EXPECT_EQ(FrameInParent(field), (Rectangle{40, 96, 130, 120}));
}

TEST_F(PaneHelpers, AFieldWithoutASubCheckStaysAsItIs) {
    zeve::platform::Enable(Control(kField)->handle, true);
    FollowSubCheck(dialog, kField);
    FollowSubCheck(dialog, 999);
    EXPECT_TRUE(zeve::platform::IsEnabled(Control(kField)->handle));
    EXPECT_FALSE(IsSubCheckSet(dialog, kField));
    EXPECT_FALSE(IsSubCheckSet(dialog, 999));
}

TEST_F(PaneHelpers, AFieldWithoutASubCheckHasNoneToName) {
    const std::size_t moved = CallsOf("PutBefore").size();
    NameSubCheck(dialog, kField, "Send it");
    NameSubCheck(dialog, 999, "Send it");
    EXPECT_EQ(zeve::ZeveSubControl(dialog, kField), nullptr);
    EXPECT_EQ(zeve::ZeveSubControl(dialog, 999), nullptr);
    EXPECT_EQ(zeve::platform::TextOf(Control(kField)->handle), u"");
    for (std::size_t i = moved; i < CallsOf("PutBefore").size(); ++i)
        EXPECT_EQ(CallsOf("PutBefore")[i].window, nullptr);
}

TEST_F(PaneHelpers, AMissingPictureEmptiesItsControl) {
    files.Copy("photo.png", Picture("rgba.png"));
    files.Copy("copy.png", Picture("rgba.png"));
    SetResourceRootBelow(files.Utf8());
    const auto shown = [] { return Control(kPicture)->remembered[zeve::kStaticSetImage]; };
    Control(kPicture)->remembered[zeve::kStaticSetImage] = 77;
    ShowBitmapInControl(host, "missing", kPicture);
    EXPECT_EQ(shown(), 0);
    ShowBitmapInControl(host, "photo", kPicture);
    EXPECT_NE(shown(), 0);
    const zeve::NativeBitmap copy = LoadBitmapResource("copy", 3);
    Control(kPicture)->remembered[zeve::kStaticSetImage] = reinterpret_cast<std::intptr_t>(copy);
    auto living = platform::TheResourceRecorder().liveBitmaps;
    living.erase(copy);
    ShowBitmapInControl(host, "missing", kPicture);
    EXPECT_EQ(shown(), 0) << "nor does the earlier one stay";
    EXPECT_EQ(platform::TheResourceRecorder().liveBitmaps, living) << "the control's copy of it is freed";
    ShowBitmapInControl(host, "photo", 999);
}

TEST_F(PaneHelpers, ACopyThatAControlMadeOfItsPictureIsFreed) {
    files.Copy("photo.png", Picture("rgba.png"));
    files.Copy("copy.png", Picture("rgba.png"));
    SetResourceRootBelow(files.Utf8());
    ShowBitmapInControl(host, "photo", kPicture);
    const zeve::NativeBitmap copy = LoadBitmapResource("copy", 3);
    Control(kPicture)->remembered[zeve::kStaticSetImage] = reinterpret_cast<std::intptr_t>(copy);
    auto living = platform::TheResourceRecorder().liveBitmaps;
    host.Destroy();
    living.erase(copy);
    EXPECT_EQ(platform::TheResourceRecorder().liveBitmaps, living);
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
