#include "toolkit/platform/toolkit_platform.h"

#include <gtest/gtest.h>

namespace brixen::zeve::platform {
namespace {

constexpr std::uint32_t kChild = 0x40000000, kTabStop = 0x00010000, kShown = 0x10000000,
                        kDisabled = 0x08000000;
constexpr std::uint32_t kPopupWithCaption = 0x80C00000;

NativeWindow MakeTop(NativeWindow owner = nullptr) {
    WindowRequest request;
    request.className = u"#32770";
    request.text = u"Top";
    request.style = kPopupWithCaption;
    request.left = 20;
    request.top = 30;
    request.width = 300;
    request.height = 200;
    request.parent = owner;
    request.instance = LibraryModule();
    return MakeWindow(request);
}

NativeWindow MakeChild(NativeWindow parent, std::uint16_t id, const char16_t* className = u"button") {
    WindowRequest request;
    request.className = className;
    request.text = u"Child";
    request.style = kChild | kTabStop;
    request.left = 5;
    request.top = 6;
    request.width = 70;
    request.height = 20;
    request.parent = parent;
    request.id = id;
    request.instance = LibraryModule();
    return MakeWindow(request);
}

class Windows : public ::testing::Test {
protected:
    ~Windows() override { CloseWindow(top); }

    NativeWindow top = MakeTop();
    NativeWindow one = MakeChild(top, 101);
    NativeWindow two = MakeChild(top, 102, u"static");
};

TEST_F(Windows, KnowTheirParentsAndChildren) {
    EXPECT_TRUE(IsWindowAlive(top));
    EXPECT_EQ(ParentOf(one), top);
    EXPECT_EQ(TopLevelOf(one), top);
    EXPECT_EQ(TopLevelOf(top), top);
    EXPECT_EQ(IdOf(one), 101);
    EXPECT_EQ(ChildWithId(top, 102), two);
    EXPECT_EQ(ChildWithId(top, 103), nullptr);
    EXPECT_EQ(TopChild(top), one) << "the first made is the top one";
    EXPECT_EQ(NextSibling(one), two);
    EXPECT_EQ(NextSibling(two), nullptr);
    EXPECT_EQ(NextSibling(nullptr), nullptr);
    EXPECT_EQ(PreviousSibling(two), one);
    EXPECT_EQ(PreviousSibling(one), nullptr);
    EXPECT_EQ(PreviousSibling(nullptr), nullptr);
}

TEST_F(Windows, MoveBeforeTheirSiblings) {
    const NativeWindow three = MakeChild(top, 103);
    const auto expectOrder = [&](NativeWindow first, NativeWindow second, NativeWindow third) {
        EXPECT_EQ(TopChild(top), first);
        EXPECT_EQ(NextSibling(first), second);
        EXPECT_EQ(NextSibling(second), third);
        EXPECT_EQ(NextSibling(third), nullptr);
    };
    PutBefore(three, two);
    expectOrder(one, three, two);
    PutBefore(three, two);
    expectOrder(one, three, two);
    PutBefore(two, one);
    expectOrder(two, one, three);
    PutBefore(two, three);
    expectOrder(one, two, three);
    PutBefore(nullptr, one);
    PutBefore(one, nullptr);
    expectOrder(one, two, three);
}

TEST_F(Windows, AnOwnerIsTheParentOfATopLevelWindowButNotItsRoot) {
    const NativeWindow owned = MakeTop(top);
    EXPECT_EQ(ParentOf(owned), top);
    EXPECT_EQ(TopLevelOf(owned), owned);
    CloseWindow(owned);
}

TEST_F(Windows, TheRootOfADialogsParentOwnsTheDialog) {
    EXPECT_EQ(OwnerOfDialog(one), top);
    EXPECT_EQ(OwnerOfDialog(top), top);
    const NativeWindow owned = MakeTop(top);
    EXPECT_EQ(OwnerOfDialog(owned), owned);
    CloseWindow(owned);
    EXPECT_EQ(OwnerOfDialog(owned), nullptr) << "it is destroyed";
    EXPECT_EQ(OwnerOfDialog(nullptr), nullptr);
    EXPECT_EQ(OwnerOfDialog(reinterpret_cast<NativeWindow>(std::intptr_t(-3))), nullptr) << "HWND_MESSAGE";
}

TEST_F(Windows, AreDestroyedWithTheirChildren) {
    CloseWindow(top);
    EXPECT_FALSE(IsWindowAlive(top));
    EXPECT_FALSE(IsWindowAlive(one));
}

TEST_F(Windows, AreHiddenUntilTheyAreShown) {
    EXPECT_FALSE(IsShown(one));
    ShowOrHide(one, true);
    EXPECT_FALSE(IsShown(one)) << "its parent is hidden";
    EXPECT_NE(StyleOf(one) & kShown, 0u);
    ShowOrHide(top, true);
    EXPECT_TRUE(IsShown(one));
    EXPECT_FALSE(IsShown(two));
    ShowOrHide(one, false);
    EXPECT_FALSE(IsShown(one));
}

TEST_F(Windows, AreEnabledUntilTheyAreDisabled) {
    EXPECT_TRUE(IsEnabled(one));
    Enable(one, false);
    EXPECT_FALSE(IsEnabled(one));
    EXPECT_NE(StyleOf(one) & kDisabled, 0u);
    Enable(one, true);
    EXPECT_TRUE(IsEnabled(one));
}

TEST_F(Windows, TheWholeStyleCanBeReplaced) {
    ShowOrHide(one, true);
    SetStyle(one, kChild | kTabStop | 1);
    EXPECT_EQ(StyleOf(one), kChild | kTabStop | 1) << "the bit for shown is replaced too";
}

TEST_F(Windows, AChildIsFoundByClassAndExactStyle) {
    EXPECT_EQ(ChildOfClassAndStyle(top, u"Button", kChild | kTabStop), one);
    EXPECT_EQ(ChildOfClassAndStyle(top, u"STATIC", kChild | kTabStop), two);
    EXPECT_EQ(ChildOfClassAndStyle(top, u"Button", kChild), nullptr);
    EXPECT_EQ(ChildOfClassAndStyle(top, u"edit", kChild | kTabStop), nullptr);
}

TEST_F(Windows, KnowTheirClassWithoutRegardToCase) {
    EXPECT_TRUE(IsOfClass(two, u"STATIC"));
    EXPECT_TRUE(IsOfClass(two, u"static"));
    EXPECT_FALSE(IsOfClass(two, u"stati"));
    EXPECT_FALSE(IsOfClass(one, u"static"));
    EXPECT_FALSE(IsOfClass(nullptr, u"static"));
}

TEST_F(Windows, KnowTheirExtendedStyle) {
    WindowRequest request;
    request.extendedStyle = 0x3000;
    request.className = u"static";
    request.style = kChild;
    request.parent = top;
    const NativeWindow mirrored = MakeWindow(request);
    EXPECT_EQ(ExtendedStyleOf(mirrored) & 0x3000, 0x3000u);
    EXPECT_EQ(ExtendedStyleOf(one) & 0x3000, 0u);
    EXPECT_EQ(ExtendedStyleOf(nullptr), 0u);
}

TEST_F(Windows, MoveToAPlaceWithTheirWholeFrame) {
    MoveTo(top, 40, 50, 320, 220);
    const Rectangle frame = OuterFrame(top), client = ClientArea(top);
    EXPECT_EQ(frame.left, 40);
    EXPECT_EQ(frame.top, 50);
    EXPECT_EQ(frame.Width(), 320);
    EXPECT_EQ(frame.Height(), 220);
    EXPECT_EQ(client.left, 0);
    EXPECT_EQ(client.top, 0);
    EXPECT_LT(client.Width(), 320);
    EXPECT_LT(client.Height(), 220);
}

TEST_F(Windows, ChildrenAreInTheClientAreaAndHaveNoFrame) {
    const Rectangle first = OuterFrame(one);
    MoveTo(one, 15, 26, 71, 21);
    const Rectangle moved = OuterFrame(one);
    EXPECT_EQ(moved.left - first.left, 10);
    EXPECT_EQ(moved.top - first.top, 20);
    EXPECT_EQ(ClientArea(one).Width(), 71);
    EXPECT_EQ(ClientArea(one).Height(), 21);
    EXPECT_EQ(FrameInParent(one), (Rectangle{15, 26, 15 + 71, 26 + 21}));
    EXPECT_GT(first.top - OuterFrame(top).top, 6) << "below the caption";
}

TEST_F(Windows, KeepTheirText) {
    EXPECT_EQ(TextOf(top), u"Top");
    SetText(one, u"\u05D0 and \u65E5\u672C");
    EXPECT_EQ(TextOf(one), u"\u05D0 and \u65E5\u672C");
    SetText(one, u"");
    EXPECT_EQ(TextOf(one), u"");
    SetControlText(top, 102, u"by id");
    EXPECT_EQ(ControlText(top, 102), u"by id");
    EXPECT_EQ(TextOf(two), u"by id");
    EXPECT_EQ(ControlText(top, 999), u"");
}

TEST_F(Windows, ALongTextIsReturnedWhole) {
    const std::u16string text(5000, u'x');
    SetText(top, text.c_str());
    EXPECT_EQ(TextOf(top), text);
}

TEST_F(Windows, AreNotHarmedByTheOtherServices) {
    ShowOrHide(top, true);
    PaintNow(top);
    LockUpdates(top);
    UnlockUpdates();
    Invalidate(top);
    PaintFace(top);
    EraseFace(top, nullptr);
    SetInputMethodOpen(top, false);
    TrimSystemMenu(top);
    GrayCloseItem(top);
    EXPECT_TRUE(IsWindowAlive(top));
}

TEST(NoWindow, IsTheParentOfNoChild) {
    EXPECT_EQ(MakeChild(nullptr, 1), nullptr);
    const NativeWindow gone = MakeTop();
    CloseWindow(gone);
    EXPECT_EQ(MakeChild(gone, 1), nullptr);
}

TEST(NoWindow, IsHarmlessEverywhere) {
    EXPECT_FALSE(IsWindowAlive(nullptr));
    EXPECT_FALSE(IsShown(nullptr));
    EXPECT_FALSE(IsEnabled(nullptr));
    EXPECT_EQ(StyleOf(nullptr), 0u);
    EXPECT_EQ(IdOf(nullptr), 0);
    EXPECT_EQ(ParentOf(nullptr), nullptr);
    EXPECT_EQ(TopLevelOf(nullptr), nullptr);
    EXPECT_EQ(ChildWithId(nullptr, 1), nullptr);
    EXPECT_EQ(TopChild(nullptr), nullptr);
    EXPECT_EQ(ChildOfClassAndStyle(nullptr, u"button", kChild), nullptr);
    EXPECT_EQ(TextOf(nullptr), u"");
    EXPECT_EQ(OuterFrame(nullptr).Width(), 0);
    EXPECT_EQ(ClientArea(nullptr).Width(), 0);
    EXPECT_EQ(FrameInParent(nullptr), Rectangle{});
    EXPECT_EQ(WindowResolution(nullptr), 0);
    EXPECT_EQ(EditBoxOf(nullptr), nullptr);
    EXPECT_EQ(Send(nullptr, 0x0400, 0, 0), 0);
    EXPECT_FALSE(Post(nullptr, 0x0400, 0, 0));
    EXPECT_EQ(SavedAnswer(nullptr, 0x0400, 0, 0), 0);
    CloseWindow(nullptr);
    ShowOrHide(nullptr, true);
    Enable(nullptr, true);
    Focus(nullptr);
    PaintNow(nullptr);
    Invalidate(nullptr);
    SetText(nullptr, u"x");
    SetControlText(nullptr, 1, u"x");
    MoveTo(nullptr, 0, 0, 1, 1);
    SetStyle(nullptr, 0);
    TrimSystemMenu(nullptr);
    GrayCloseItem(nullptr);
    SetInputMethodOpen(nullptr, true);
    TakeDialogProcedure(nullptr);
    TakeControlProcedure(nullptr);
    TakeEditProcedure(nullptr, nullptr);
    DropLayer(nullptr);
    EXPECT_EQ(AnswerBelowLayer(nullptr, 0x0400, 0, 0), 0);
    CaptureMouse(nullptr);
    ReleaseMouse(nullptr);
    EXPECT_FALSE(HasMouse(nullptr));
}

TEST(DialogClass, IsRegisteredOnceUnderAName) {
    const std::u16string name = NewUniqueName();
    EXPECT_TRUE(RegisterDialogClass(name.c_str(), LibraryModule()));
    EXPECT_FALSE(RegisterDialogClass(name.c_str(), LibraryModule()));
    UnregisterDialogClass(name.c_str(), LibraryModule());
    EXPECT_TRUE(RegisterDialogClass(name.c_str(), LibraryModule()));
    UnregisterDialogClass(name.c_str(), LibraryModule());
}

TEST(UniqueName, HasTheFormOfAnIdAndIsNew) {
    const std::u16string one = NewUniqueName(), two = NewUniqueName();
    ASSERT_EQ(one.size(), 36u);
    for (std::size_t i = 0; i < one.size(); ++i) {
        const bool isDash = i == 8 || i == 13 || i == 18 || i == 23;
        EXPECT_EQ(one[i] == u'-', isDash) << i;
        if (!isDash) {
            EXPECT_NE(std::u16string_view(u"0123456789abcdef").find(one[i]), std::u16string_view::npos);
        }
    }
    EXPECT_NE(one, two);
}

TEST(WorkAreaOfTheScreen, HasASize) {
    EXPECT_GT(WorkArea().width, 0);
    EXPECT_GT(WorkArea().height, 0);
}

} // namespace
} // namespace brixen::zeve::platform
