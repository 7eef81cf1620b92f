// A hyperlink on a control of the window system's twin.
#include "workflow/controls/hyper_link.h"

#include "toolkit/dialog/window_procedures.h"
#include "toolkit/kept_exception.h"
#include "toolkit/message_numbers.h"
#include "toolkit/platform/headless/headless.h"
#include "workflow/platform/headless/accessible_recorder.h"
#include "workflow/platform/headless/control_recorder.h"
#include "workflow/platform/headless/painting_recorder.h"
#include "workflow/platform/headless/pane_recorder.h"
#include "workflow/platform/headless/text_recorder.h"
#include "workflow/platform/message_numbers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <memory>
#include <stdexcept>

namespace brixen::pvn::pvn_workflow {
namespace {

namespace toolkit = zeve::platform;
using toolkit::Rectangle;
using zeve::headless::Message;

constexpr std::uint32_t kChild = 0x40000000, kShown = 0x10000000;
constexpr std::uint32_t kTabStop = 0x10000, kNotify = 0x100;
constexpr std::uint16_t kId = 70;
constexpr std::intptr_t kInside = 5 | 5 << 16, kOutside = 190 | 5 << 16; // places of the mouse
constexpr std::intptr_t kBrush = 0x4242;
const auto kDevice = reinterpret_cast<zeve::NativeDrawing>(std::uintptr_t(0x77));
const std::u16string kAddress = u"http://example.com/?a&b";

void ResetTwins() {
    zeve::headless::Reset();
    zeve::ForgetKeptException();
    platform::TheAccessibleRecorder().Reset();
    platform::TheControlRecorder().Reset();
    platform::ThePaintingRecorder().Reset();
    platform::ThePaneRecorder().Reset();
    platform::TheTextRecorder().Reset();
}

class HyperLinkTest : public testing::Test {
protected:
    HyperLinkTest() {
        ResetTwins();
        zeve::InstallWindowProcedures();
        System().answer = [this](const Message& message) { return Answer(message); };
        toolkit::WindowRequest request;
        request.className = u"#32770";
        request.style = 0x80C00000 | kShown;
        request.width = request.height = 400;
        parent = toolkit::MakeWindow(request);
        control = MakeControl(u"The &label");
        const toolkit::FontRecord tahoma{.height = -11, .weight = 400, .face = u"Tahoma"};
        controlFont = toolkit::MakeFont(tahoma);
    }
    ~HyperLinkTest() override {
        link.reset();
        ResetTwins();
    }

    static zeve::headless::System& System() { return zeve::headless::State(); }
    static platform::ControlRecorder& Seen() { return platform::TheControlRecorder(); }

    zeve::NativeWindow MakeControl(const char16_t* text, std::uint32_t style = 0, std::uint32_t extended = 0,
                                   const char16_t* className = u"Static") const {
        toolkit::WindowRequest request;
        request.className = className;
        request.text = text;
        request.style = kChild | kShown | style;
        request.extendedStyle = extended;
        request.width = 200;
        request.height = 40;
        request.parent = parent;
        request.id = kId;
        const zeve::NativeWindow made = toolkit::MakeWindow(request);
        toolkit::TakeControlProcedure(made);
        return made;
    }
    // What the control, its parent and the system answer.
    std::optional<std::intptr_t> Answer(const Message& message) {
        if (message.window == parent && message.number == zeve::kMessageColorStatic) {
            if (atColor) atColor();
            return brush;
        }
        if (message.window == parent && message.number == kMessageGetFont) return Number(parentFont);
        if (message.window == parent) {
            toParent.push_back(message);
            if (message.number == kMessageNotify) {
                header = *reinterpret_cast<const platform::NotificationHeader*>(message.lparam);
            }
            if (atParent) atParent();
            return 0;
        }
        if (message.number == kMessageGetFont) return Number(controlFont);
        if (message.number == kMessageQueryUiState) return uiState;
        if (message.number == zeve::kMessagePaint) ++paintsOfControl;
        return std::nullopt;
    }
    template <class Handle>
    static std::intptr_t Number(Handle handle) {
        return reinterpret_cast<std::intptr_t>(handle);
    }

    HyperLink& Attach(std::uint32_t style = 0) {
        link->extendedStyle = style;
        EXPECT_TRUE(link->Attach(control));
        System().calls.clear();
        return *link;
    }
    HyperLink& AttachCommand(std::uint32_t style = 0) { return Attach(style | HyperLink::kCommandButton); }
    HyperLink& AttachAddress(std::uint32_t style = 0) {
        link->url = kAddress;
        return Attach(style);
    }
    std::intptr_t Tell(std::uint32_t number, std::uintptr_t wparam = 0, std::intptr_t lparam = 0) const {
        return toolkit::Send(control, number, wparam, lparam);
    }
    void Click(std::intptr_t down, std::intptr_t up) const {
        Tell(kMessageLeftButtonDown, 1, down);
        Tell(kMessageLeftButtonUp, 0, up);
    }
    // The press of Enter, as the keyboard rules of a dialog announce it.
    void PressEnter() const { EXPECT_NE(Tell(kMessageDialogCode, 13, 1), 0); }
    static bool HasReachedControl(std::uint32_t number) {
        const auto passed = zeve::headless::CallsOf("AnswerBelowLayer");
        return std::any_of(passed.begin(), passed.end(), [number](const zeve::headless::Call& call) {
            return call.numbers.at(0) == number;
        });
    }
    static std::size_t Invalidations() { return zeve::headless::CallsOf("Invalidate").size(); }
    const zeve::headless::Window& Control() const { return *zeve::headless::FindWindow(control); }
    int Commands() const {
        return static_cast<int>(std::ranges::count_if(
            toParent, [](const Message& message) { return message.number == zeve::kMessageCommand; }));
    }
    static const std::vector<platform::DrawnText>& Drawn() { return platform::TheTextRecorder().texts; }
    static platform::Color ColorOf(std::int32_t index) { return platform::SystemColor(index); }

    zeve::NativeWindow parent = nullptr, control = nullptr;
    zeve::NativeFont controlFont = nullptr, parentFont = nullptr;
    std::intptr_t brush = kBrush, uiState = 0;
    std::vector<Message> toParent;
    platform::NotificationHeader header;
    std::function<void()> atColor, atParent;
    int paintsOfControl = 0;
    std::unique_ptr<HyperLink> link = std::make_unique<HyperLink>();
};

bool Same(const Rectangle& one, const Rectangle& other) {
    return one.left == other.left && one.top == other.top && one.right == other.right &&
           one.bottom == other.bottom;
}

using AttachedLink = HyperLinkTest;
using LabelOfLink = HyperLinkTest;
using FontsOfLink = HyperLinkTest;
using ColorsOfLink = HyperLinkTest;
using PaintedLink = HyperLinkTest;
using MouseOnLink = HyperLinkTest;
using KeysOnLink = HyperLinkTest;
using NavigatingLink = HyperLinkTest;
using EndOfLink = HyperLinkTest;

// What assistive technology is told.
class SpokenLink : public HyperLinkTest {
protected:
    static platform::AccessibleRecorder& Heard() { return platform::TheAccessibleRecorder(); }
    // The link as assistive technology knows it.
    const platform::AccessibleControl& Ask() const {
        EXPECT_EQ(Tell(platform::kMessageGetObject, 0, platform::kObjectOfControl), 1);
        return **Heard().objects.back();
    }
    std::size_t TimesAnnounced(platform::AccessibleChange change) const {
        return static_cast<std::size_t>(std::count(Heard().announced.begin(), Heard().announced.end(),
                                                   platform::Announcement{control, change}));
    }
};

// --- Attaching ---

TEST_F(AttachedLink, HasDefaults) {
    const HyperLink fresh;
    EXPECT_EQ(fresh.state, 1u);
    EXPECT_EQ(fresh.extendedStyle, 0u);
    EXPECT_EQ(fresh.linkColor, 0xFF0000u);
    EXPECT_EQ(fresh.visitedColor, 0x800080u);
}

TEST_F(AttachedLink, LetsAStaticSendNotificationsAndBeReachedByTab) {
    Attach();
    EXPECT_EQ(link->window, control);
    EXPECT_EQ(Control().style, kChild | kShown | kNotify | kTabStop);
    EXPECT_NE(link->cursor, nullptr);
    EXPECT_TRUE(link->state & HyperLink::kPaintsLabel);
}

TEST_F(AttachedLink, LeavesTheStyleOfAnotherClass) {
    control = MakeControl(u"text", 3, 0, u"button");
    Attach();
    EXPECT_EQ(Control().style, kChild | kShown | 3);
    EXPECT_TRUE(link->state & HyperLink::kPaintsLabel);
}

TEST_F(AttachedLink, PaintsNoLabelOnPicturesAndFrames) {
    for (std::uint32_t kind = 0; kind < 20; ++kind) {
        const bool isPicture = (kind >= 3 && kind <= 9) || (kind >= 13 && kind <= 15);
        HyperLink other;
        ASSERT_TRUE(other.Attach(MakeControl(u"", kind, 0, u"STATIC")));
        EXPECT_EQ(other.state & HyperLink::kPaintsLabel, isPicture ? 0u : 1u) << kind;
        if (isPicture) {
            EXPECT_TRUE(Same(other.linkRect, {0, 0, 200, 40})) << "the whole picture reacts";
        }
    }
}

TEST_F(AttachedLink, OfAPictureLeavesThePaintingToTheControl) {
    control = MakeControl(u"", 14);
    AttachCommand();
    Tell(zeve::kMessagePaint);
    EXPECT_EQ(paintsOfControl, 1);
    EXPECT_TRUE(Drawn().empty());
    Click(kInside, kInside);
    EXPECT_EQ(Commands(), 1);
}

TEST_F(AttachedLink, IsRefusedWithoutAControl) {
    EXPECT_FALSE(link->Attach(nullptr));
    System().refuseLayer = 1;
    EXPECT_FALSE(link->Attach(control));
    EXPECT_EQ(link->window, nullptr);
    EXPECT_EQ(System().fonts.size(), 1u) << "no font is left";
    EXPECT_TRUE(link->Attach(control));
}

TEST_F(AttachedLink, LeavesItsFormerControl) {
    Attach();
    const zeve::NativeWindow former = control;
    control = MakeControl(u"other");
    AttachCommand();
    EXPECT_EQ(zeve::headless::FindWindow(former)->layer, nullptr);
    EXPECT_EQ(link->window, control);
}

TEST_F(AttachedLink, GoesOnWithoutATooltip) {
    System().refuseWindow = 1;
    AttachCommand();
    EXPECT_EQ(link->toolTip, nullptr);
    Tell(kMessageMouseMove, 0, kInside);
    Click(kInside, kInside);
    EXPECT_EQ(Commands(), 1);
}

TEST_F(AttachedLink, WithoutAnAddressShowsNoTooltip) {
    AttachAddress();
    const auto activations = [this] {
        std::vector<std::int64_t> states;
        for (const auto& call : zeve::headless::CallsOf("Send"))
            if (call.window == link->toolTip && call.numbers[0] == kTooltipActivate)
                states.push_back(call.numbers[1]);
        return states;
    };
    link->SetHyperLink(u"");
    EXPECT_EQ(activations(), std::vector<std::int64_t>{0});
    link->SetHyperLink(u"http://example.com");
    EXPECT_EQ(activations(), (std::vector<std::int64_t>{0, 1}));
}

TEST_F(AttachedLink, MakesATooltipOfTheAddress) {
    link->url = kAddress;
    ASSERT_TRUE(link->Attach(control));
    const zeve::headless::Window* tooltip = zeve::headless::FindWindow(link->toolTip);
    ASSERT_NE(tooltip, nullptr);
    EXPECT_EQ(tooltip->className, u"tooltips_class32");
    EXPECT_EQ(tooltip->style, 0u);
    EXPECT_EQ(tooltip->parent, control);
    EXPECT_EQ(static_cast<std::uint32_t>(tooltip->frame.left), 0x80000000u);
    ASSERT_EQ(Seen().tools.size(), 1u);
    EXPECT_EQ(Seen().tools[0].control, control);
    EXPECT_EQ(Seen().tools[0].text, kAddress);
    EXPECT_TRUE(Same(Seen().tools[0].area, link->linkRect));
    const auto sent = zeve::headless::CallsOf("Send");
    EXPECT_TRUE(std::ranges::any_of(sent, [&](const zeve::headless::Call& call) {
        return call.window == link->toolTip && call.numbers == std::vector<std::int64_t>{1025, 1, 0};
    })) << "it is switched on";
}

TEST_F(AttachedLink, OfACommandHasAToolWithoutAnAddress) {
    AttachCommand();
    ASSERT_EQ(Seen().tools.size(), 1u);
    EXPECT_EQ(Seen().tools[0].text, u"");
    EXPECT_EQ(link->url, u"");
}

TEST_F(AttachedLink, WithoutAnAddressTakesItsLabelForOne) {
    Attach();
    EXPECT_EQ(link->label, u"The &label");
    EXPECT_EQ(link->url, u"The label") << "an address never has the mark of an access key";
    ASSERT_EQ(Seen().tools.size(), 1u);
    EXPECT_EQ(Seen().tools[0].text, u"The label");
}

TEST_F(AttachedLink, WithTagsTakesTheLinkPartForAnAddress) {
    control = MakeControl(u"See <A>&http://x</A>.");
    Attach(HyperLink::kHasTags);
    EXPECT_EQ(link->url, u"http://x");
}

TEST_F(AttachedLink, WithoutAnyTextHasNoAddress) {
    control = MakeControl(u"");
    Attach();
    EXPECT_EQ(link->url, u"");
    EXPECT_TRUE(Seen().tools.empty());
}

// --- Label ---

TEST_F(LabelOfLink, IsTheControlsTextUnlessItIsSetBefore) {
    link->label = u"Another";
    Attach();
    EXPECT_EQ(link->label, u"Another");
    EXPECT_EQ(Control().text, u"Another") << "the system looks for access keys there";
}

TEST_F(LabelOfLink, IsMeasuredAsTheLink) {
    Attach();
    EXPECT_TRUE(Same(link->linkRect, {0, 0, 60, 13}));
    EXPECT_EQ(platform::TheTextRecorder().measuredFormats.back(), 1040u);
}

TEST_F(LabelOfLink, WithoutOneTheAddressIsMeasured) {
    control = MakeControl(u"");
    AttachAddress();
    EXPECT_TRUE(Same(link->linkRect, {0, 0, 6 * 23, 13}));
    EXPECT_EQ(platform::TheTextRecorder().measuredFormats.back(), 1040u | 0x800u) << "its & is shown";
    Tell(zeve::kMessagePaint);
    ASSERT_EQ(Drawn().size(), 1u);
    EXPECT_EQ(Drawn()[0].text, kAddress);
}

TEST_F(LabelOfLink, ReactsBetweenItsTags) {
    control = MakeControl(u"Read <A>more</a> now");
    AttachCommand(HyperLink::kHasTags);
    EXPECT_TRUE(Same(link->linkRect, {30, 0, 54, 13}));
}

TEST_F(LabelOfLink, WithATagMissingReactsNowhere) {
    control = MakeControl(u"Read more</A> now");
    AttachCommand(HyperLink::kHasTags);
    EXPECT_EQ(link->linkRect.Width(), 0);
    for (int x = 0; x < 200; ++x) Click(x | 5 << 16, x | 5 << 16);
    EXPECT_EQ(Commands(), 0);
}

TEST_F(LabelOfLink, WithoutTheStyleItsTagsAreText) {
    control = MakeControl(u"<A>x</A>");
    AttachCommand();
    EXPECT_EQ(link->linkRect.right, 48);
}

TEST_F(LabelOfLink, FollowsTheAlignmentOfTheControl) {
    control = MakeControl(u"0123456789", 1);
    AttachCommand();
    EXPECT_TRUE(Same(link->linkRect, {70, 0, 130, 13})) << "centered";
    control = MakeControl(u"0123456789", 2);
    AttachCommand();
    EXPECT_TRUE(Same(link->linkRect, {140, 0, 200, 13})) << "at the right";
}

TEST_F(LabelOfLink, OfAMirroredControlIsAtTheRightAndItsPartsReadFromThere) {
    control = MakeControl(u"abc<A>de</A>f", 0, 0x3000);
    AttachCommand(HyperLink::kHasTags);
    EXPECT_TRUE(Same(link->linkRect, {200 - 18 - 12, 0, 200 - 18, 13}));
    Tell(zeve::kMessagePaint);
    EXPECT_TRUE(Drawn()[0].look.format & 0x20000) << "the system reads it so, too";
}

TEST_F(LabelOfLink, CanBeSetLater) {
    AttachCommand();
    const std::size_t tools = Seen().tools.size();
    link->SetLabel(u"abc");
    EXPECT_EQ(Control().text, u"abc");
    EXPECT_EQ(link->linkRect.right, 18);
    ASSERT_EQ(Seen().tools.size(), tools + 1);
    EXPECT_EQ(Seen().tools.back().area.right, 18);
    EXPECT_EQ(Invalidations(), 1u);
}

TEST_F(LabelOfLink, BeforeTheControlOnlyWaits) {
    link->SetLabel(u"abc");
    link->SetHyperLink(u"http://x");
    EXPECT_TRUE(System().calls.empty() || Invalidations() == 0);
    Attach();
    EXPECT_EQ(link->linkRect.right, 18);
    EXPECT_EQ(Seen().tools.back().text, u"http://x");
}

TEST_F(LabelOfLink, FollowsTheTextOfTheControl) {
    Attach();
    toolkit::SetText(control, u"ne&w");
    EXPECT_EQ(link->label, u"ne&w");
    EXPECT_EQ(link->linkRect.right, 24);
    EXPECT_EQ(link->url, u"new") << "the address was the label";
    EXPECT_EQ(zeve::headless::CallsOf("DefaultAnswer").size(), 1u) << "the control would paint it at once";
    EXPECT_TRUE(zeve::headless::CallsOf("AnswerBelowLayer").empty());
}

TEST_F(LabelOfLink, KeepsAnAddressThatWasSet) {
    Attach();
    link->SetHyperLink(kAddress);
    EXPECT_EQ(Seen().tools.back().text, kAddress);
    link->SetLabel(u"abc");
    EXPECT_EQ(link->url, kAddress);
}

TEST_F(LabelOfLink, IsMeasuredAgainInAControlOfAnotherSize) {
    control = MakeControl(u"0123456789", 2);
    AttachCommand();
    toolkit::MoveTo(control, 0, 0, 100, 40);
    Tell(kMessageSize);
    EXPECT_EQ(link->linkRect.right, 100);
    EXPECT_EQ(Seen().tools.back().area.right, 100);
    EXPECT_EQ(Invalidations(), 1u);
}

// --- Fonts ---

TEST_F(FontsOfLink, AreACopyOfTheControlsAndAnUnderlinedOne) {
    Attach();
    ASSERT_NE(link->normalFont, nullptr);
    EXPECT_NE(link->normalFont, controlFont);
    EXPECT_EQ(System().fonts.at(link->normalFont).height, -11);
    EXPECT_EQ(System().fonts.at(link->normalFont).underline, 0);
    EXPECT_EQ(System().fonts.at(link->linkFont).underline, 1);
    EXPECT_EQ(System().fonts.at(link->linkFont).weight, 400);
    EXPECT_EQ(System().fonts.at(link->linkFont).height, -11);
    EXPECT_TRUE(link->state & HyperLink::kOwnsLinkFont);
}

TEST_F(FontsOfLink, AreNotUnderlinedWithThatStyle) {
    Attach(HyperLink::kNeverUnderlined);
    EXPECT_EQ(System().fonts.at(link->linkFont).underline, 0);
}

TEST_F(FontsOfLink, AreBoldWithBothStyles) {
    Attach(HyperLink::kHasTags | HyperLink::kBoldLink);
    EXPECT_EQ(System().fonts.at(link->linkFont).weight, 700);
    EXPECT_EQ(System().fonts.at(link->linkFont).underline, 0);
}

TEST_F(FontsOfLink, AreNotBoldWithOneStyle) {
    Attach(HyperLink::kBoldLink);
    EXPECT_EQ(System().fonts.at(link->linkFont).weight, 400);
    EXPECT_EQ(System().fonts.at(link->linkFont).underline, 1);
    Attach(HyperLink::kHasTags);
    EXPECT_EQ(System().fonts.at(link->linkFont).weight, 400);
}

TEST_F(FontsOfLink, OfAControlWithoutOneAreTheParents) {
    parentFont = std::exchange(controlFont, nullptr);
    Attach();
    EXPECT_EQ(link->normalFont, parentFont);
    EXPECT_EQ(System().fonts.at(link->linkFont).underline, 1);
    link.reset();
    EXPECT_TRUE(System().fonts.contains(parentFont)) << "it is the parent's";
}

TEST_F(FontsOfLink, WithoutAnyAreTheSystems) {
    controlFont = nullptr;
    Attach();
    EXPECT_EQ(link->normalFont, platform::StockFont(13));
    EXPECT_EQ(System().fonts.at(link->linkFont).weight, 700);
}

TEST_F(FontsOfLink, AFontOfThePaneStaysThePanes) {
    link->linkFont = controlFont;
    Attach();
    EXPECT_EQ(link->linkFont, controlFont);
    EXPECT_FALSE(link->state & HyperLink::kOwnsLinkFont);
    link.reset();
    EXPECT_TRUE(System().fonts.contains(controlFont));
}

TEST_F(FontsOfLink, CanBeAskedForAndSet) {
    Attach();
    EXPECT_EQ(Tell(kMessageGetFont), Number(link->normalFont));
    const zeve::NativeFont other = toolkit::MakeFont({.height = -20, .face = u"Tahoma"});
    Tell(zeve::kMessageSetFont, reinterpret_cast<std::uintptr_t>(other), 0);
    EXPECT_EQ(Invalidations(), 0u);
    EXPECT_EQ(link->normalFont, other);
    EXPECT_EQ(Tell(kMessageGetFont), Number(other));
    EXPECT_EQ(System().fonts.at(link->linkFont).height, -20) << "it is a copy of the normal font";
    EXPECT_EQ(System().fonts.at(link->linkFont).underline, 1);
    EXPECT_EQ(System().fonts.size(), 3u) << "with the control's; no copy is left";
    Tell(zeve::kMessageSetFont, reinterpret_cast<std::uintptr_t>(other), 1);
    EXPECT_EQ(Invalidations(), 1u);
    link.reset();
    EXPECT_EQ(System().fonts.size(), 2u) << "the font that was set is its owner's";
}

TEST_F(FontsOfLink, ThatAreRefusedLeaveTheNormalOne) {
    System().refuseFont = 2;
    Attach();
    EXPECT_EQ(link->linkFont, nullptr);
    EXPECT_FALSE(link->state & HyperLink::kOwnsLinkFont);
    Tell(zeve::kMessagePaint);
    EXPECT_EQ(Drawn().at(0).look.font, link->normalFont);
}

// --- Colors ---

platform::UserSetting TextSetting(std::u16string_view text) {
    platform::UserSetting setting{.type = 1, .size = (text.size() + 1) * 2};
    std::memcpy(setting.bytes.data(), text.data(), text.size() * 2);
    return setting;
}

TEST_F(ColorsOfLink, AreThoseOfTheUser) {
    Seen().settings[u"Anchor Color"] = TextSetting(u"1,2,3");
    Seen().settings[u"Anchor Color Visited"] = TextSetting(u"4,5,6");
    Attach();
    EXPECT_EQ(link->linkColor, 0x030201u);
    EXPECT_EQ(link->visitedColor, 0x060504u);
    EXPECT_EQ(Seen().settingsKey, u"Software\\Microsoft\\Internet Explorer\\Settings");
}

TEST_F(ColorsOfLink, ThatCannotBeReadKeepTheDefault) {
    Seen().settings[u"Anchor Color"] = TextSetting(u"blue");
    Attach();
    EXPECT_EQ(link->linkColor, 0xFF0000u);
    EXPECT_EQ(link->visitedColor, 0x800080u);
}

TEST_F(ColorsOfLink, AreNotReadForAPicture) {
    Seen().settings[u"Anchor Color"] = TextSetting(u"1,2,3");
    control = MakeControl(u"", 14);
    Attach();
    EXPECT_EQ(link->linkColor, 0xFF0000u);
}

// --- Painting ---

TEST_F(PaintedLink, DrawsItsLabelOnTheParentsBrush) {
    AttachCommand();
    EXPECT_EQ(Tell(zeve::kMessagePaint), 0);
    EXPECT_EQ(paintsOfControl, 0);
    ASSERT_EQ(Drawn().size(), 1u);
    EXPECT_EQ(Drawn()[0].text, u"The &label");
    EXPECT_EQ(Drawn()[0].look.color, 0xFF0000u);
    EXPECT_EQ(Drawn()[0].look.font, link->linkFont);
    EXPECT_EQ(Drawn()[0].look.format, 16u);
    EXPECT_TRUE(Same(Drawn()[0].area, {0, 0, 200, 40}));
    const auto fills = platform::PaintingCallsOf("FillBrush");
    ASSERT_EQ(fills.size(), 1u);
    EXPECT_EQ(fills[0].numbers, (std::vector<std::int64_t>{0, 0, 200, 40, kBrush}));
    EXPECT_EQ(fills[0].device, Drawn()[0].device);
}

TEST_F(PaintedLink, WithoutABrushHasTheFaceColor) {
    brush = 0;
    platform::ThePaintingRecorder().systemColors[15] = 0xABCDEF;
    AttachCommand();
    Tell(zeve::kMessagePaint);
    EXPECT_EQ(platform::PaintingCallsOf("FillColor").at(0).numbers.back(), 0xABCDEF);
}

TEST_F(PaintedLink, IsDrawnOnADeviceOfTheCaller) {
    AttachCommand();
    Tell(kMessagePrintClient, reinterpret_cast<std::uintptr_t>(kDevice));
    EXPECT_EQ(Drawn().size(), 1u);
    EXPECT_FALSE(HasReachedControl(kMessagePrintClient));
}

TEST_F(PaintedLink, ErasesNothing) {
    AttachCommand();
    EXPECT_EQ(Tell(zeve::kMessageEraseBackground, 1), 1);
    EXPECT_TRUE(zeve::headless::CallsOf("AnswerBelowLayer").empty());
}

TEST_F(PaintedLink, DrawsItsPartsWithTags) {
    control = MakeControl(u"Read <A>more</A> now");
    AttachCommand(HyperLink::kHasTags);
    Tell(zeve::kMessagePaint);
    ASSERT_EQ(Drawn().size(), 3u);
    EXPECT_EQ(Drawn()[0].text, u"more");
    EXPECT_EQ(Drawn()[0].look.color, 0xFF0000u);
    EXPECT_EQ(Drawn()[0].look.font, link->linkFont);
    EXPECT_TRUE(Same(Drawn()[0].area, link->linkRect));
    EXPECT_EQ(Drawn()[1].text, u"Read ");
    EXPECT_TRUE(Same(Drawn()[1].area, {0, 0, 30, 13}));
    EXPECT_EQ(Drawn()[2].text, u" now");
    EXPECT_TRUE(Same(Drawn()[2].area, {54, 0, 78, 13}));
    for (const std::size_t part : {1u, 2u}) {
        EXPECT_EQ(Drawn()[part].look.font, link->normalFont);
        EXPECT_EQ(Drawn()[part].look.color, platform::TheTextRecorder().textColor) << "the parent's choice";
    }
}

TEST_F(PaintedLink, HasTheColorOfItsState) {
    platform::ThePaintingRecorder().systemColors = {{17, 0x111111}, {26, 0x222222}};
    AttachCommand();
    link->state |= HyperLink::kVisited;
    Tell(zeve::kMessagePaint);
    EXPECT_EQ(Drawn().back().look.color, 0x800080u);
    platform::ThePaneRecorder().isHighContrast = true;
    Tell(zeve::kMessagePaint);
    EXPECT_EQ(Drawn().back().look.color, 0x222222u) << "of the user's own scheme";
    toolkit::Enable(control, false);
    Tell(zeve::kMessagePaint);
    EXPECT_EQ(Drawn().back().look.color, 0x111111u);
}

TEST_F(PaintedLink, IsUnderlinedOnlyUnderTheMouseWithThatStyle) {
    AttachCommand(HyperLink::kUnderlinedOnHover);
    Tell(zeve::kMessagePaint);
    EXPECT_EQ(Drawn().back().look.font, link->normalFont);
    Tell(kMessageMouseMove, 0, kInside);
    Tell(zeve::kMessagePaint);
    EXPECT_EQ(Drawn().back().look.font, link->linkFont);
}

TEST_F(PaintedLink, IsAlignedByTheSystem) {
    control = MakeControl(u"abc", 1);
    AttachCommand();
    Tell(zeve::kMessagePaint);
    EXPECT_EQ(Drawn().back().look.format, 17u);
    control = MakeControl(u"abc", 2);
    AttachCommand();
    Tell(zeve::kMessagePaint);
    EXPECT_EQ(Drawn().back().look.format, 18u);
}

TEST_F(PaintedLink, HidesAccessKeysAsTheDialogDoes) {
    AttachCommand();
    uiState = 2;
    Tell(zeve::kMessagePaint);
    EXPECT_EQ(Drawn().back().look.format, 16u | 0x100000u);
    uiState = 1; // hides the focus alone
    Tell(zeve::kMessagePaint);
    EXPECT_EQ(Drawn().back().look.format, 16u);
    System().calls.clear();
    Tell(kMessageUpdateUiState);
    EXPECT_EQ(Invalidations(), 1u);
    EXPECT_TRUE(zeve::headless::CallsOf("AnswerBelowLayer").empty());
}

TEST_F(PaintedLink, HasAFrameWithTheFocus) {
    AttachCommand();
    Tell(zeve::kMessagePaint);
    EXPECT_TRUE(platform::TheTextRecorder().focusFrames.empty());
    toolkit::Focus(control);
    Tell(zeve::kMessagePaint);
    ASSERT_EQ(platform::TheTextRecorder().focusFrames.size(), 1u);
    EXPECT_TRUE(Same(platform::TheTextRecorder().focusFrames[0], link->linkRect));
}

TEST_F(PaintedLink, IsPaintedAgainWhenTheFocusMoves) {
    AttachCommand();
    Tell(zeve::kMessageSetFocus);
    EXPECT_EQ(Invalidations(), 1u);
    Tell(kMessageLosesFocus);
    EXPECT_EQ(Invalidations(), 2u);
    EXPECT_EQ(zeve::headless::CallsOf("AnswerBelowLayer").size(), 2u) << "the control hears both";
}

TEST_F(PaintedLink, ThatIsDisabledIsPaintedAgainByItself) {
    AttachCommand();
    Tell(kMessageEnable, 0);
    EXPECT_EQ(Invalidations(), 1u);
    EXPECT_TRUE(zeve::headless::CallsOf("AnswerBelowLayer").empty());
    EXPECT_EQ(zeve::headless::CallsOf("DefaultAnswer").size(), 1u);
}

TEST_F(PaintedLink, EndsQuietlyIfTheParentEndsItMeanwhile) {
    AttachCommand();
    atColor = [this] { link.reset(); };
    Tell(zeve::kMessagePaint);
    EXPECT_TRUE(Drawn().empty());
    link = std::make_unique<HyperLink>();
    AttachCommand();
    atColor = [this] { toolkit::CloseWindow(control); };
    Tell(zeve::kMessagePaint);
    EXPECT_TRUE(Drawn().empty());
}

TEST_F(PaintedLink, KeepsAnExceptionOfTheHost) {
    AttachCommand();
    atColor = [] { throw std::runtime_error("of the host"); };
    EXPECT_EQ(Tell(zeve::kMessagePaint), 0);
    EXPECT_TRUE(zeve::IsExceptionKept());
}

// --- Mouse ---

TEST_F(MouseOnLink, ShowsTheHandOverTheLinkAlone) {
    AttachCommand();
    Tell(kMessageMouseMove, 0, kInside);
    EXPECT_EQ(Seen().cursorsShown, 1);
    Tell(kMessageMouseMove, 0, kOutside);
    EXPECT_EQ(Seen().cursorsShown, 1);
    Seen().mouse = {5, 5};
    EXPECT_EQ(Tell(kMessageSetCursor), 1);
    Seen().mouse = {190, 5};
    EXPECT_EQ(Tell(kMessageSetCursor), 0);
}

TEST_F(MouseOnLink, WithoutATargetShowsNoHand) {
    control = MakeControl(u"");
    Attach();
    link->label = u"text";
    link->linkRect = {0, 0, 24, 13};
    Tell(kMessageMouseMove, 0, kInside);
    EXPECT_EQ(Seen().cursorsShown, 0);
    Seen().mouse = {5, 5};
    EXPECT_EQ(Tell(kMessageSetCursor), 0);
}

TEST_F(MouseOnLink, HoversWithThatStyle) {
    AttachCommand(HyperLink::kUnderlinedOnHover);
    Tell(kMessageMouseMove, 0, kInside);
    EXPECT_TRUE(link->state & HyperLink::kHovered);
    EXPECT_EQ(Seen().leavesAskedFor, std::vector<zeve::NativeWindow>{control});
    EXPECT_EQ(Invalidations(), 1u);
    Tell(kMessageMouseMove, 0, kInside);
    EXPECT_EQ(Invalidations(), 1u) << "nothing changes";
    Tell(kMessageMouseMove, 0, kOutside);
    EXPECT_FALSE(link->state & HyperLink::kHovered);
    EXPECT_EQ(Invalidations(), 2u);
    Tell(kMessageMouseMove, 0, kInside);
    Tell(kMessageMouseLeave);
    EXPECT_FALSE(link->state & HyperLink::kHovered);
    EXPECT_EQ(Invalidations(), 4u);
}

TEST_F(MouseOnLink, DoesNotHoverWithoutIt) {
    AttachCommand();
    Tell(kMessageMouseMove, 0, kInside);
    EXPECT_FALSE(link->state & HyperLink::kHovered);
    EXPECT_TRUE(Seen().leavesAskedFor.empty());
    EXPECT_EQ(Invalidations(), 0u);
}

TEST_F(MouseOnLink, RelaysEveryMouseMessageToTheTooltip) {
    AttachCommand();
    for (std::uint32_t number = 511; number <= 526; ++number) Tell(number, 7, kOutside);
    ASSERT_EQ(Seen().relayed.size(), 14u);
    EXPECT_EQ(Seen().relayed.front().number, 512u);
    EXPECT_EQ(Seen().relayed.back().number, 525u);
    EXPECT_EQ(Seen().relayed[0].window, control);
    EXPECT_EQ(Seen().relayed[0].wparam, 7u);
    EXPECT_EQ(Seen().relayed[0].lparam, kOutside);
}

TEST_F(MouseOnLink, RelaysNothingWithoutATooltip) {
    AttachCommand(HyperLink::kNoTooltip);
    Tell(kMessageMouseMove, 0, kInside);
    EXPECT_TRUE(Seen().relayed.empty());
    EXPECT_EQ(Seen().cursorsShown, 1) << "the rest of the table still holds";
}

TEST_F(MouseOnLink, TakesFocusAndMouseAndClicksOnTheWayUp) {
    AttachCommand();
    Tell(kMessageLeftButtonDown, 1, kInside);
    EXPECT_EQ(System().focus, control);
    EXPECT_EQ(System().mouse, control);
    EXPECT_EQ(Commands(), 0);
    Tell(kMessageLeftButtonUp, 0, kInside);
    EXPECT_EQ(System().mouse, nullptr);
    EXPECT_EQ(Commands(), 1);
}

TEST_F(MouseOnLink, DoesNothingBesideTheLink) {
    AttachCommand();
    Click(kOutside, kInside);
    EXPECT_EQ(System().focus, nullptr);
    EXPECT_EQ(System().mouse, nullptr);
    EXPECT_EQ(Commands(), 0);
    Click(kInside, kOutside);
    EXPECT_EQ(System().mouse, nullptr) << "released";
    EXPECT_EQ(Commands(), 0);
}

TEST_F(MouseOnLink, CountsTheEdgesOfTheLink) {
    AttachCommand(); // 60 by 13
    const auto clicks = [this](int x, int y) {
        toParent.clear();
        const std::intptr_t place = (x & 0xFFFF) | (y & 0xFFFF) << 16;
        Click(place, place);
        return Commands();
    };
    EXPECT_EQ(clicks(0, 0), 1);
    EXPECT_EQ(clicks(59, 12), 1);
    EXPECT_EQ(clicks(60, 12), 0);
    EXPECT_EQ(clicks(59, 13), 0);
    EXPECT_EQ(clicks(-1, 0), 0);
    EXPECT_EQ(clicks(0, -1), 0);
}

TEST_F(MouseOnLink, KeepsPressesFromTheControlWhichWouldReportThem) {
    AttachCommand();
    for (const std::intptr_t place : {kInside, kOutside}) {
        EXPECT_EQ(Tell(kMessageLeftButtonDown, 1, place), 0);
        EXPECT_EQ(Tell(kMessageLeftDoubleClick, 1, place), 0);
    }
    EXPECT_TRUE(zeve::headless::CallsOf("AnswerBelowLayer").empty());
}

TEST_F(MouseOnLink, ClicksOnceForADoubleClick) {
    AttachCommand();
    Click(kInside, kInside);
    Tell(kMessageLeftDoubleClick, 1, kInside);
    Tell(kMessageLeftButtonUp, 0, kInside);
    EXPECT_EQ(Commands(), 1);
}

TEST_F(MouseOnLink, ThatIsDisabledClicksNothing) {
    AttachCommand();
    toolkit::Enable(control, false);
    Click(kInside, kInside);
    Tell(zeve::kMessageCharacter, ' ');
    Tell(kButtonClick);
    PressEnter();
    Tell(zeve::kMessageKeyUp, 13);
    EXPECT_EQ(Commands(), 0);
}

// --- Keyboard ---

TEST_F(KeysOnLink, OpenItByEnterAndSpace) {
    AttachCommand();
    EXPECT_EQ(Tell(zeve::kMessageCharacter, 13), 0);
    EXPECT_EQ(Commands(), 1);
    Tell(zeve::kMessageCharacter, 32);
    EXPECT_EQ(Commands(), 2);
    Tell(zeve::kMessageCharacter, 'x');
    EXPECT_EQ(Commands(), 2);
}

TEST_F(KeysOnLink, AnEnterCountsWhenItIsReleasedWhereItWasPressed) {
    AttachCommand();
    PressEnter();
    EXPECT_EQ(Commands(), 0);
    EXPECT_EQ(Tell(zeve::kMessageKeyUp, 13), 1);
    EXPECT_EQ(Commands(), 1);
    EXPECT_EQ(Tell(zeve::kMessageKeyUp, 13), 0) << "it counts once";
    EXPECT_EQ(Commands(), 1);
}

TEST_F(KeysOnLink, AnEnterThatWasPressedElsewhereCountsNothing) {
    AttachCommand();
    EXPECT_EQ(Tell(zeve::kMessageKeyUp, 13), 0);
    Tell(kMessageDialogCode, 0, 0); // asked for no key
    Tell(kMessageDialogCode, 13, 0);
    Tell(kMessageDialogCode, 'A', 1);
    EXPECT_EQ(Tell(zeve::kMessageKeyUp, 13), 0);
    PressEnter();
    Tell(kMessageLosesFocus); // an alert, or another pane
    EXPECT_EQ(Tell(zeve::kMessageKeyUp, 13), 0);
    EXPECT_EQ(Commands(), 0);
}

TEST_F(KeysOnLink, AnEnterThatWasHeldWhenTheFocusCameCountsNothing) {
    AttachCommand();
    Seen().isKeyHeld = true;
    PressEnter();
    EXPECT_EQ(Tell(zeve::kMessageKeyUp, 13), 0);
    Tell(zeve::kMessageKeyDown, 13, kKeyRepeats);
    EXPECT_EQ(Tell(zeve::kMessageKeyUp, 13), 0);
    EXPECT_EQ(Commands(), 0);
}

TEST_F(KeysOnLink, AnEnterThatIsHeldOnItCountsOnce) {
    AttachCommand();
    PressEnter();
    Seen().isKeyHeld = true;
    PressEnter();
    Tell(zeve::kMessageKeyUp, 13);
    EXPECT_EQ(Commands(), 1);
}

TEST_F(KeysOnLink, AHeldSpaceCountsOnce) {
    AttachCommand();
    Tell(zeve::kMessageCharacter, 32, 1);
    for (int repeat = 0; repeat < 3; ++repeat) Tell(zeve::kMessageCharacter, 32, kKeyRepeats | 1);
    Tell(zeve::kMessageCharacter, 13, kKeyRepeats | 1);
    EXPECT_EQ(Commands(), 1);
}

TEST_F(KeysOnLink, ALabelWithoutALinkOpensNothing) {
    control = MakeControl(u"Read more</A> now");
    AttachCommand(HyperLink::kHasTags);
    Tell(zeve::kMessageCharacter, 32);
    Tell(kButtonClick);
    PressEnter();
    Tell(zeve::kMessageKeyUp, 13);
    EXPECT_EQ(Commands(), 0);
}

TEST_F(KeysOnLink, AnEnterWithoutADialogCountsOnce) {
    AttachCommand();
    Tell(zeve::kMessageKeyDown, 13);
    Tell(zeve::kMessageCharacter, 13);
    Tell(zeve::kMessageKeyUp, 13);
    EXPECT_EQ(Commands(), 1);
    Tell(zeve::kMessageKeyDown, 13); // the key's character was taken by another
    Tell(zeve::kMessageKeyUp, 13);
    EXPECT_EQ(Commands(), 2);
    Tell(zeve::kMessageKeyDown, 'A');
    Tell(zeve::kMessageKeyUp, 13);
    EXPECT_EQ(Commands(), 2);
}

TEST_F(KeysOnLink, OtherKeysAreTheControls) {
    AttachCommand();
    PressEnter();
    System().calls.clear();
    Tell(zeve::kMessageKeyUp, 'A');
    EXPECT_EQ(zeve::headless::CallsOf("AnswerBelowLayer").size(), 1u);
    EXPECT_EQ(Tell(zeve::kMessageKeyUp, 13), 1) << "Enter is still down";
}

TEST_F(KeysOnLink, AreWantedAndAnAccessKeyIsAnnounced) {
    AttachCommand();
    EXPECT_EQ(Tell(kMessageDialogCode), 0x2080);
    link->SetLabel(u"R&&D");
    EXPECT_EQ(Tell(kMessageDialogCode), 0x80);
}

TEST_F(KeysOnLink, AnAccessKeyFocusesAndOpens) {
    AttachCommand();
    EXPECT_EQ(Tell(kButtonClick), 0);
    EXPECT_EQ(System().focus, control);
    EXPECT_EQ(Commands(), 1);
}

// --- Navigate ---

TEST_F(NavigatingLink, SendsACommandToTheParent) {
    AttachCommand();
    link->url = kAddress;
    link->Navigate();
    ASSERT_EQ(toParent.size(), 1u);
    EXPECT_EQ(toParent[0].number, zeve::kMessageCommand);
    EXPECT_EQ(toParent[0].wparam, kId);
    EXPECT_EQ(toParent[0].lparam, Number(control));
    EXPECT_TRUE(Seen().opened.empty()) << "no browser";
    EXPECT_FALSE(link->state & HyperLink::kVisited);
}

TEST_F(NavigatingLink, SendsANotificationWithBothStyles) {
    AttachCommand(HyperLink::kSendsNotify);
    link->Navigate();
    ASSERT_EQ(toParent.size(), 1u);
    EXPECT_EQ(toParent[0].number, 78u);
    EXPECT_EQ(toParent[0].wparam, kId);
    EXPECT_EQ(header.window, control);
    EXPECT_EQ(header.id, kId);
    EXPECT_EQ(header.code, -2);
}

TEST_F(NavigatingLink, OpensTheAddressAndIsVisited) {
    AttachAddress();
    link->Navigate();
    EXPECT_EQ(Seen().opened, std::vector<std::u16string>{kAddress});
    EXPECT_TRUE(link->state & HyperLink::kVisited);
    EXPECT_EQ(Invalidations(), 1u);
    EXPECT_TRUE(toParent.empty());
}

TEST_F(NavigatingLink, WithTheStyleOfANotificationAloneOpensTheAddress) {
    AttachAddress(HyperLink::kSendsNotify);
    link->Navigate();
    EXPECT_EQ(Seen().opened.size(), 1u);
}

TEST_F(NavigatingLink, IsNotVisitedWhenNothingOpens) {
    AttachAddress();
    Seen().refuseToOpen = true;
    link->Navigate();
    EXPECT_EQ(Seen().opened.size(), 1u);
    EXPECT_FALSE(link->state & HyperLink::kVisited);
    EXPECT_EQ(Invalidations(), 0u);
}

TEST_F(NavigatingLink, OpensNothingThatIsNoAddress) {
    Attach(); // the label became the address
    link->Navigate();
    for (const char16_t* url :
         {u"calc.exe", u"c:\\windows\\system32\\calc.exe", u"http://a b", u"ftp://x", u""}) {
        link->SetHyperLink(url);
        link->Navigate();
    }
    EXPECT_TRUE(Seen().opened.empty());
    EXPECT_FALSE(link->state & HyperLink::kVisited);
    link->SetHyperLink(u"MAILTO:a@b.c");
    link->Navigate();
    EXPECT_EQ(Seen().opened, std::vector<std::u16string>{u"MAILTO:a@b.c"});
}

TEST_F(NavigatingLink, OpensALabelThatIsAnAddress) {
    control = MakeControl(u"http://example.com");
    Attach();
    Click(kInside, kInside);
    EXPECT_EQ(Seen().opened, std::vector<std::u16string>{u"http://example.com"});
}

TEST_F(NavigatingLink, MayBeEndedWhileTheShellOpens) {
    AttachAddress();
    Seen().whileOpening = [this] { link.reset(); };
    link->Navigate();
    EXPECT_EQ(Invalidations(), 1u) << "of the control that has no link any more";
    link = std::make_unique<HyperLink>();
    AttachAddress();
    Seen().whileOpening = [this] { toolkit::CloseWindow(control); };
    link->Navigate();
    EXPECT_TRUE(link->state & HyperLink::kVisited);
}

TEST_F(NavigatingLink, MayBeEndedByTheCommandItSends) {
    for (const auto& act : std::initializer_list<std::function<void()>>{
             [this] { Click(kInside, kInside); }, [this] { Tell(kButtonClick); },
             [this] { Tell(zeve::kMessageCharacter, 32); },
             [this] {
                 PressEnter();
                 Tell(zeve::kMessageKeyUp, 13);
             }}) {
        link = std::make_unique<HyperLink>();
        AttachCommand();
        toParent.clear();
        atParent = [this] { link.reset(); };
        act();
        EXPECT_EQ(Commands(), 1);
        link = std::make_unique<HyperLink>();
        AttachCommand();
        atParent = [this] { toolkit::CloseWindow(control); };
        act();
        EXPECT_EQ(link->window, nullptr);
        control = MakeControl(u"The &label");
    }
}

TEST_F(NavigatingLink, KeepsAnExceptionOfTheHost) {
    AttachCommand();
    atParent = [] { throw std::runtime_error("of the host"); };
    Click(kInside, kInside);
    EXPECT_TRUE(zeve::IsExceptionKept());
}

// --- Assistive technology ---

TEST_F(SpokenLink, IsALinkNamedByItsLinkPart) {
    control = MakeControl(u"Read <A>&more</A> && more");
    AttachCommand(HyperLink::kHasTags);
    EXPECT_EQ(Ask().AccessibleRole(), 30);
    EXPECT_EQ(Ask().AccessibleName(), u"more");
    EXPECT_EQ(Ask().AccessibleDescription(), u"Read more & more");
    EXPECT_EQ(Ask().AccessibleValue(), u"");
    EXPECT_EQ(Ask().DefaultActionName(), u"Jump");
}

TEST_F(SpokenLink, OfAWholeLabelSaysItOnce) {
    AttachAddress();
    EXPECT_EQ(Ask().AccessibleName(), u"The label");
    EXPECT_EQ(Ask().AccessibleDescription(), u"");
    EXPECT_EQ(Ask().AccessibleValue(), kAddress);
}

TEST_F(SpokenLink, HasTheStateOfItsControl) {
    AttachAddress();
    EXPECT_EQ(Ask().AccessibleState(), 0x500000u);
    toolkit::Focus(control);
    link->Navigate();
    EXPECT_EQ(Ask().AccessibleState(), 0xD00004u) << "focused and visited";
    toolkit::Enable(control, false);
    EXPECT_EQ(Ask().AccessibleState(), 0xD00005u);
}

TEST_F(SpokenLink, AnnouncesItsChanges) {
    AttachAddress();
    Heard().announced.clear();
    link->Navigate();
    EXPECT_EQ(TimesAnnounced(platform::AccessibleChange::kState), 1u);
    Tell(kMessageEnable, 0);
    EXPECT_EQ(TimesAnnounced(platform::AccessibleChange::kState), 2u);
    link->SetLabel(u"new");
    EXPECT_EQ(TimesAnnounced(platform::AccessibleChange::kName), 1u);
}

TEST_F(SpokenLink, AnnouncesItsFirstNameOnce) {
    link->label = u"first";
    AttachCommand();
    EXPECT_EQ(TimesAnnounced(platform::AccessibleChange::kName), 1u);
    EXPECT_EQ(Control().text, u"first");
}

TEST_F(SpokenLink, OnAPictureIsNamedWithoutATextOfTheControl) {
    zeve::headless::FindWindow(control)->style |= 0xE; // a bitmap
    AttachCommand();
    link->SetLabel(u"new");
    EXPECT_EQ(TimesAnnounced(platform::AccessibleChange::kName), 2u) << "at the start and now";
    EXPECT_EQ(link->label, u"new");
    EXPECT_NE(Control().text, u"new");
}

TEST_F(SpokenLink, OpensByItsDefaultActionAfterTheQuestion) {
    AttachCommand();
    Tell(platform::kMessageGetObject, 0, platform::kObjectOfControl);
    (*Heard().objects.back())->DoDefaultAction();
    EXPECT_EQ(Commands(), 0);
    ASSERT_EQ(System().posted.size(), 1u);
    zeve::headless::Deliver(System().posted[0]);
    EXPECT_EQ(Commands(), 1);
}

TEST_F(SpokenLink, LeavesOtherQuestionsToTheControl) {
    AttachCommand();
    EXPECT_EQ(Tell(platform::kMessageGetObject, 0, platform::kObjectOfWindow), 0);
    EXPECT_TRUE(HasReachedControl(platform::kMessageGetObject));
    Heard().refuseObjects = true;
    System().calls.clear();
    EXPECT_EQ(Tell(platform::kMessageGetObject, 0, platform::kObjectOfControl), 0);
    EXPECT_TRUE(HasReachedControl(platform::kMessageGetObject));
}

TEST_F(SpokenLink, AnObjectIsCutOffWhenTheLinkOrItsControlEnds) {
    AttachCommand();
    Ask();
    link.reset();
    EXPECT_EQ(*Heard().objects[0], nullptr);
    link = std::make_unique<HyperLink>();
    AttachCommand();
    Ask();
    toolkit::CloseWindow(control);
    EXPECT_EQ(*Heard().objects[1], nullptr);
    control = MakeControl(u"again");
    AttachCommand();
    EXPECT_EQ(Ask().AccessibleName(), u"The label");
    EXPECT_EQ(*Heard().objects[1], nullptr) << "that of the former control stays cut off";
}

// --- End ---

TEST_F(EndOfLink, BeforeItsControlLeavesItAsItWas) {
    Attach();
    const zeve::NativeWindow tooltip = link->toolTip;
    link.reset();
    EXPECT_EQ(Control().layer, nullptr);
    EXPECT_EQ(zeve::headless::FindWindow(tooltip), nullptr);
    EXPECT_EQ(System().fonts.size(), 1u);
    EXPECT_EQ(Tell(kMessageGetFont), Number(controlFont));
}

TEST_F(EndOfLink, OfItsControlEndsTooltipThenFonts) {
    Attach();
    const zeve::NativeWindow tooltip = link->toolTip;
    toolkit::CloseWindow(control);
    EXPECT_EQ(zeve::headless::FindWindow(tooltip), nullptr);
    EXPECT_EQ(link->toolTip, nullptr);
    EXPECT_EQ(link->window, nullptr);
    EXPECT_EQ(link->linkFont, nullptr);
    EXPECT_EQ(link->normalFont, nullptr);
    EXPECT_FALSE(link->state & HyperLink::kOwnsLinkFont);
    EXPECT_EQ(System().fonts.size(), 1u);
    System().calls.clear();
    link.reset();
    EXPECT_TRUE(zeve::headless::CallsOf("DropLayer").empty()) << "a pane's end touches no window";
    EXPECT_TRUE(zeve::headless::CallsOf("Invalidate").empty());
    EXPECT_TRUE(zeve::headless::CallsOf("DeleteFont").empty());
}

TEST_F(EndOfLink, FontsAreDeletedAfterTheWindowsLastMessage) {
    Attach();
    const std::size_t fonts = System().fonts.size();
    Tell(kMessageDestroy);
    EXPECT_EQ(System().fonts.size(), fonts);
    EXPECT_EQ(link->toolTip, nullptr);
    Tell(zeve::kMessageWindowGone);
    EXPECT_EQ(System().fonts.size(), fonts - 2);
}

TEST_F(EndOfLink, WithTheDialogIsTheSame) {
    Attach();
    toolkit::CloseWindow(parent);
    EXPECT_EQ(link->window, nullptr);
    link->SetLabel(u"x");
    link->SetHyperLink(u"http://x");
    EXPECT_EQ(link->label, u"x");
}

TEST_F(EndOfLink, ALinkCanBeAttachedAgain) {
    AttachAddress();
    link->Navigate();
    toolkit::CloseWindow(control);
    control = MakeControl(u"again");
    AttachAddress();
    EXPECT_TRUE(link->state & HyperLink::kOwnsLinkFont);
    EXPECT_TRUE(link->state & HyperLink::kVisited) << "it stays visited";
    EXPECT_EQ(System().fonts.size(), 3u);
}

TEST_F(EndOfLink, OnANewControlAFormerPressOfEnterCountsNothing) {
    AttachCommand();
    PressEnter();
    toolkit::CloseWindow(control);
    control = MakeControl(u"again");
    AttachCommand();
    EXPECT_EQ(Tell(zeve::kMessageKeyUp, 13), 0);
    EXPECT_EQ(Commands(), 0);
}

TEST_F(EndOfLink, OnANewControlTheAddressIsStillTheLabel) {
    Attach();
    toolkit::CloseWindow(control);
    control = MakeControl(u"again");
    Attach();
    link->SetLabel(u"http://x");
    EXPECT_EQ(link->url, u"http://x");
}

TEST_F(EndOfLink, HundredsOfLinksLeaveNothing) {
    for (int i = 0; i < 300; ++i) {
        HyperLink other;
        const zeve::NativeWindow window = MakeControl(u"text");
        ASSERT_TRUE(other.Attach(window));
        if (i % 2 == 0) toolkit::CloseWindow(window);
    }
    EXPECT_EQ(System().fonts.size(), 1u);
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
