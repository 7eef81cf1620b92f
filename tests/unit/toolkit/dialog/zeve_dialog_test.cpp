#include "toolkit/dialog/zeve_dialog.h"

#include "dictionaries/translation.h"
#include "support/failing_allocator.h"
#include "toolkit/boxes/eve_box.h"
#include "toolkit/dialog/modal_run.h"
#include "toolkit/kept_exception.h"
#include "toolkit/language_tag.h"
#include "toolkit/message_numbers.h"
#include "toolkit/toolkit_state.h"
#include "unit/toolkit/dialog/dialog_fixture.h"
#include "view/scope/expression_scope.h"

#include <new>
#include <optional>
#include <stdexcept>
#include <string>

namespace brixen::zeve {
namespace {

using headless::CallsOf;
using headless::State;

class ZeveDialogTest : public DialogTest {
protected:
    // Returns the text of the logic error that the operation throws; empty if it throws none.
    template <class Operation>
    std::string ErrorOf(Operation operation) {
        try {
            operation();
        } catch (const std::logic_error& error) {
            return error.what();
        }
        return "";
    }
    // Makes `sender` the keyword of a box, and the host throw in every message.
    template <class Sender>
    void ThrowInMessagesOf() {
        ZeveInitialize();
        gToolkit.keywords.Define("sender",
                                 []() -> std::unique_ptr<CEveBox> { return std::make_unique<Sender>(); });
        host.answer = [](std::int32_t what, EventRecord&) -> std::uint64_t {
            if (what == kWhatMessage) throw std::out_of_range("message");
            return 0;
        };
    }
    headless::Window& ControlOf(ZeveDialog* dialog, std::uint16_t id) {
        return *headless::FindWindow(platform::ChildWithId(ZeveTopWindow(dialog), id));
    }

    TestHost host;
};

TEST_F(ZeveDialogTest, LaterInitializationsDoNothing) {
    ZeveInitialize();
    ZeveInitialize();
    EXPECT_EQ(CallsOf("LoadRichEdit").size(), 1u);
    EXPECT_EQ(CallsOf("RegisterCommonControls").size(), 1u);
}

TEST_F(ZeveDialogTest, InitializingFillsTheKeywordTable) {
    ZeveInitialize();
    EXPECT_NE(gToolkit.keywords.Find("button"), nullptr);
}

TEST_F(ZeveDialogTest, TheRichEditLibraryIsFreedByTheFirstDeleteAndNotAgain) {
    ZeveInitialize();
    EXPECT_EQ(State().richEditLoads, 1);
    NewDialog().reset();
    EXPECT_EQ(State().richEditLoads, 0);
    NewDialog().reset();
    EXPECT_EQ(State().richEditLoads, 0);
    EXPECT_EQ(CallsOf("UnloadModule").size(), 1u);
}

TEST_F(ZeveDialogTest, ARichEditLibraryThatWasNotLoadedIsNotFreed) {
    NewDialog().reset();
    State().refuseRichEdit = 1;
    ZeveInitialize();
    NewDialog().reset();
    EXPECT_TRUE(CallsOf("UnloadModule").empty());
}

TEST_F(ZeveDialogTest, ANullRecordIsRefused) {
    EXPECT_EQ(ErrorOf([] { (void)ZeveNew(nullptr); }), "Invalid Zeve dialog initialization record pointer.");
}

TEST_F(ZeveDialogTest, ANullHandleThrows) {
    const EventRecord record;
    EXPECT_EQ(ErrorOf([] { ZeveAddViewText(nullptr, ""); }), "nil pointer");
    EXPECT_EQ(ErrorOf([] { (void)ZeveMakeDialog(nullptr, nullptr); }), "nil pointer");
    EXPECT_EQ(ErrorOf([] { (void)ZeveRunModal(nullptr); }), "nil pointer");
    EXPECT_EQ(ErrorOf([] { (void)ZeveTopWindow(nullptr); }), "nil pointer");
    EXPECT_EQ(ErrorOf([] { ZeveRetranslate(nullptr); }), "nil pointer");
    EXPECT_EQ(ErrorOf([&] { ZeveSetValue(nullptr, 1, record); }), "nil pointer");
    EXPECT_EQ(ErrorOf([] { (void)ZeveGetValue(nullptr, 1, false); }), "nil pointer");
}

TEST_F(ZeveDialogTest, ShowingEnablingAndDeletingIgnoreANullHandle) {
    EXPECT_NO_THROW(ZeveShow(nullptr, 1));
    EXPECT_NO_THROW(ZeveHide(nullptr, 1));
    EXPECT_NO_THROW(ZeveEnable(nullptr, 1));
    EXPECT_NO_THROW(ZeveDisable(nullptr, 1));
    EXPECT_NO_THROW(ZeveDelete(nullptr));
}

TEST_F(ZeveDialogTest, TheTopWindowExistsOnceTheDialogIsMade) {
    DialogOwner dialog = NewDialog();
    EXPECT_EQ(ZeveTopWindow(dialog.get()), nullptr);
    const NativeWindow window = ZeveMakeDialog(dialog.get(), &host);
    EXPECT_NE(window, nullptr);
    EXPECT_EQ(ZeveTopWindow(dialog.get()), window);
}

TEST_F(ZeveDialogTest, TheViewTextMayBeAddedInPieces) {
    DialogOwner dialog = NewDialog("dialog(name: 'Piece");
    ZeveAddViewText(dialog.get(), "s');");
    ZeveAddViewText(dialog.get(), nullptr);
    const NativeWindow window = ZeveMakeDialog(dialog.get(), &host);
    EXPECT_EQ(platform::TextOf(window), u"Pieces");
}

TEST_F(ZeveDialogTest, TheViewReadsATextThatWasDefined) {
    DialogOwner dialog = NewDialog("eval(part); dialog(name: title) { eval(buttons); }");
    ZeveDefineText(dialog.get(), "title", "never seen");
    ZeveDefineText(dialog.get(), "title", "Defined");
    ZeveDefineText(dialog.get(), "part", "ok = 'Yes';");
    ZeveDefineText(dialog.get(), "buttons", "button(name: ok, view_id: 7);");
    const NativeWindow window = ZeveMakeDialog(dialog.get(), &host);
    EXPECT_EQ(platform::TextOf(window), u"Defined");
    EXPECT_EQ(ControlOf(dialog.get(), 7).text, u"Yes");
}

TEST_F(ZeveDialogTest, ATextCannotTakeTheNameOfAnAttributeOfTheToolkit) {
    DialogOwner dialog = NewDialog(kTwoButtons);
    ZeveDefineText(dialog.get(), "__callback", "text");
    EXPECT_NE(ZeveMakeDialog(dialog.get(), &host), nullptr);
    EXPECT_FALSE(host.OfWhat(kWhatViewMade).empty());
}

TEST_F(ZeveDialogTest, ATextIsDefinedBeforeTheDialogIsMade) {
    DialogOwner dialog = MadeDialog(host);
    EXPECT_EQ(ErrorOf([&] { ZeveDefineText(dialog.get(), "title", "late"); }),
              "You have already used this instance to create a dialog.");
    EXPECT_EQ(ErrorOf([] { ZeveDefineText(nullptr, "title", "nowhere"); }), "nil pointer");
}

TEST_F(ZeveDialogTest, ARootThatIsNoDialogHasNoWindow) {
    DialogOwner dialog = NewDialog("column(name: 'Nothing');");
    EXPECT_EQ(ZeveMakeDialog(dialog.get(), &host), nullptr);
    EXPECT_EQ(ZeveTopWindow(dialog.get()), nullptr);
}

TEST_F(ZeveDialogTest, ADialogIsMadeOnce) {
    DialogOwner dialog = MadeDialog(host);
    EXPECT_EQ(ErrorOf([&] { (void)ZeveMakeDialog(dialog.get(), &host); }),
              "You have already used this instance to create a dialog.");
    EXPECT_NE(ZeveTopWindow(dialog.get()), nullptr) << "the dialog that exists stays";
}

TEST_F(ZeveDialogTest, ASecondMakingSetsEverythingUpBeforeItIsRefused) {
    DialogOwner dialog = MadeDialog(host);
    gToolkit.keywords = KeywordTable();
    TestHost other;
    EXPECT_NE(ErrorOf([&] { (void)ZeveMakeDialog(dialog.get(), &other); }), "");
    EXPECT_NE(gToolkit.keywords.Find("button"), nullptr);
    platform::Send(ZeveTopWindow(dialog.get()), kMessageTimer, 0, 0);
    EXPECT_TRUE(host.Messages(kMessageTimer).empty());
    EXPECT_EQ(other.Messages(kMessageTimer).size(), 1u) << "the new params are used";
}

TEST_F(ZeveDialogTest, ARootThatReturnsNoBoxMakesNoDialog) {
    class NeverMade : public CEveBox {
        CEveBox* Create(CExpressionScope&, CEveBox*) override { return nullptr; }
    };
    ZeveInitialize();
    DialogOwner dialog = NewDialog("never_made();");
    gToolkit.keywords.Define("never_made",
                             []() -> std::unique_ptr<CEveBox> { return std::make_unique<NeverMade>(); });
    EXPECT_EQ(ZeveMakeDialog(dialog.get(), &host), nullptr);
    EXPECT_EQ(ZeveTopWindow(dialog.get()), nullptr);
    EXPECT_TRUE(host.events.empty());
    EXPECT_EQ(ErrorOf([&] { ZeveRetranslate(dialog.get()); }), "nil pointer");
}

TEST_F(ZeveDialogTest, AnUnreadableTextThrowsAndLeavesNothing) {
    DialogOwner dialog = NewDialog("dialog(name: 'Broken') { button(name: 'OK');");
    EXPECT_NE(ErrorOf([&] { (void)ZeveMakeDialog(dialog.get(), &host); }), "");
    EXPECT_EQ(ZeveTopWindow(dialog.get()), nullptr);
    dialog.reset();
    EXPECT_TRUE(State().windows.empty());
}

TEST_F(ZeveDialogTest, TheHostIsCalledForEachViewWhenItIsMade) {
    DialogOwner dialog = MadeDialog(host);
    const auto top = host.OfWhat(kWhatTopLevelMade), others = host.OfWhat(kWhatViewMade);
    ASSERT_EQ(top.size(), 1u);
    EXPECT_EQ(top[0].keyword, "dialog");
    EXPECT_EQ(top[0].window, ZeveTopWindow(dialog.get()));
    ASSERT_EQ(others.size(), 2u);
    EXPECT_EQ(others[0].control, platform::ChildWithId(top[0].window, 1));
    EXPECT_EQ(others[1].control, platform::ChildWithId(top[0].window, 2));
}

TEST_F(ZeveDialogTest, TheHostReceivesBothControlsOfAView) {
    DialogOwner dialog =
        MadeDialog(host, "dialog(name: 'Checks') {"
                         " edit_text(name: '', view_id: 1, width: 90, check_box_aware: true); }");
    const auto made = host.OfWhat(kWhatViewMade);
    ASSERT_EQ(made.size(), 1u);
    EXPECT_EQ(platform::IdOf(made[0].control), 1);
    EXPECT_EQ(platform::IdOf(made[0].subControl), 10003) << "the dialog used the two ids before it";
}

TEST_F(ZeveDialogTest, MessagesFindTheDialogWhileItsChildrenAreMade) {
    host.answer = [](std::int32_t what, EventRecord& record) {
        if (what == kWhatTopLevelMade)
            platform::Send(record.ReadPointer<NativeWindow>(kKeyWindow), kMessageTimer, 0, 0);
        return std::uint64_t(0);
    };
    DialogOwner dialog = MadeDialog(host);
    EXPECT_EQ(host.Messages(kMessageTimer).size(), 1u);
}

TEST_F(ZeveDialogTest, TheHostFillsThePlacesOfHyperlinks) {
    std::vector<NativeWindow> filled;
    host.answer = [&filled](std::int32_t what, EventRecord& record) {
        if (what == kWhatViewMade) filled.push_back(ZeveFillPlace(record));
        return std::uint64_t(0);
    };
    DialogOwner dialog = MadeDialog(host, "dialog(name: 'Links') {"
                                          " button(name: 'OK', view_id: 1);"
                                          " group(view_id: 4, visible: false) {"
                                          "  hyperlink(name: 'More', view_id: 2, width: 80, height: 14);"
                                          " } row(view_id: 3); }");
    ASSERT_EQ(filled.size(), 4u);
    EXPECT_EQ(filled[0], nullptr);
    EXPECT_EQ(filled[1], nullptr);
    EXPECT_EQ(filled[3], nullptr);
    const headless::Window& link = ControlOf(dialog.get(), 2);
    EXPECT_EQ(filled[2], link.handle);
    EXPECT_EQ(link.className, u"static");
    EXPECT_EQ(link.text, u"More");
    EXPECT_EQ(link.style, 0x40000000u) << "hidden with its group";
    EXPECT_EQ(link.extendedStyle, 8u);
    EXPECT_EQ(link.frame.Width(), 80);
    EXPECT_EQ(link.frame.Height(), 14);
    ZeveShow(dialog.get(), 4);
    EXPECT_EQ(link.style, 0x50000000u);
    ZeveDisable(dialog.get(), 4);
    EXPECT_EQ(link.style, 0x58000000u);
}

TEST_F(ZeveDialogTest, APlaceIsEmptyUntilTheHostFillsIt) {
    DialogOwner dialog = MadeDialog(host, "dialog(name: 'Links') { hyperlink(name: 'More', view_id: 2); }");
    EXPECT_EQ(platform::ChildWithId(ZeveTopWindow(dialog.get()), 2), nullptr);
}

TEST_F(ZeveDialogTest, ThePlaceOfAHyperlinkIsMirroredAndTranslated) {
    host.answer = [](std::int32_t what, EventRecord& record) {
        if (what == kWhatViewMade) ZeveFillPlace(record);
        return std::uint64_t(0);
    };
    ZeveInitialize();
    ZeveInitRecord record;
    record.callback = TestHost::Callback;
    record.language = "he_IL";
    DialogOwner dialog(ZeveNew(&record));
    ZeveAddViewText(dialog.get(), "dialog(name: 'x') { hyperlink(name: '$$$/more=More', view_id: 2); }");
    (void)ZeveMakeDialog(dialog.get(), &host);
    const headless::Window& link = ControlOf(dialog.get(), 2);
    EXPECT_EQ(link.extendedStyle, 0x7008u);
    EXPECT_EQ(link.text, u"More");
    AddKeyValue("$$$/more=Mehr");
    ZeveRetranslate(dialog.get());
    EXPECT_EQ(link.text, u"Mehr");
}

TEST_F(ZeveDialogTest, APlaceThatTheSystemRefusesStaysEmpty) {
    std::size_t places = 0;
    host.answer = [&places](std::int32_t what, EventRecord& record) {
        if (what != kWhatViewMade) return std::uint64_t(0);
        State().refuseWindow = 1;
        EXPECT_EQ(ZeveFillPlace(record), nullptr);
        ++places;
        return std::uint64_t(0);
    };
    DialogOwner dialog = MadeDialog(host, "dialog(name: 'Links') { hyperlink(name: 'More', view_id: 2); }");
    EXPECT_EQ(places, 1u);
}

TEST_F(ZeveDialogTest, AnExceptionOfTheHostLeavesTheMaking) {
    host.answer = [](std::int32_t what, EventRecord&) -> std::uint64_t {
        if (what == kWhatViewMade) throw std::out_of_range("host");
        return 0;
    };
    DialogOwner dialog = NewDialog();
    EXPECT_THROW((void)ZeveMakeDialog(dialog.get(), &host), std::out_of_range);
    dialog.reset();
    EXPECT_TRUE(State().windows.empty());
    EXPECT_TRUE(State().fonts.empty());
}

TEST_F(ZeveDialogTest, AnExceptionInAMessageDuringTheMakingLeavesItToo) {
    host.answer = [](std::int32_t what, EventRecord& record) -> std::uint64_t {
        if (what == kWhatViewMade)
            platform::Send(platform::ParentOf(record.ReadPointer<NativeWindow>(kKeyControl)), kMessageTimer,
                           0, 0);
        if (what == kWhatMessage && record.Read(kKeyEventRecord) == kMessageTimer)
            throw std::out_of_range("message");
        return 0;
    };
    DialogOwner dialog = NewDialog();
    EXPECT_THROW((void)ZeveMakeDialog(dialog.get(), &host), std::out_of_range);
    EXPECT_FALSE(IsExceptionKept());
}

TEST_F(ZeveDialogTest, TheHostIsNotCalledForAViewWhoseMakingThrew) {
    class Sender : public CEveBox {
        CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override {
            CEveBox::Create(attributes, parentBox);
            platform::Send(TopLevelWindow(), kMessageTimer, 0, 0);
            return this;
        }
    };
    ThrowInMessagesOf<Sender>();
    DialogOwner dialog = NewDialog("dialog(name: 'Sends') { sender(); }");
    EXPECT_THROW((void)ZeveMakeDialog(dialog.get(), &host), std::out_of_range);
    EXPECT_TRUE(host.OfWhat(kWhatViewMade).empty());
}

TEST_F(ZeveDialogTest, AnExceptionOfAnotherKindReturnsNull) {
    host.answer = [](std::int32_t what, EventRecord&) -> std::uint64_t {
        if (what == kWhatTopLevelMade) throw 42;
        return 0;
    };
    DialogOwner dialog = NewDialog();
    EXPECT_EQ(ZeveMakeDialog(dialog.get(), &host), nullptr);
}

TEST_F(ZeveDialogTest, DeletingFreesWindowsAndFonts) {
    DialogOwner dialog = MadeDialog(host);
    EXPECT_EQ(State().windows.size(), 3u);
    EXPECT_EQ(State().fonts.size(), 2u);
    host.events.clear();
    dialog.reset();
    EXPECT_TRUE(State().windows.empty());
    EXPECT_TRUE(State().fonts.empty());
    EXPECT_TRUE(host.events.empty()) << "the host is not called for the deletion";
}

TEST_F(ZeveDialogTest, LeavesTheRegistryBeforeItsBoxesAreDeleted) {
    // With the low style bit, the window is asked for an icon.
    DialogOwner dialog = MadeDialog(host, "dialog(name: 'Icon?', win_style: 1);");
    host.events.clear();
    State().calls.clear();
    dialog.reset();
    EXPECT_EQ(CallsOf("Send").size(), 1u);
    EXPECT_TRUE(host.events.empty());
}

TEST_F(ZeveDialogTest, SeveralDialogsLiveAtOnceEachWithItsHost) {
    TestHost otherHost;
    DialogOwner one = MadeDialog(host), other = MadeDialog(otherHost);
    platform::Send(ZeveTopWindow(other.get()), kMessageTimer, 5, 0);
    EXPECT_TRUE(host.Messages(kMessageTimer).empty());
    EXPECT_EQ(otherHost.Messages(kMessageTimer).size(), 1u);
    one.reset();
    platform::Send(ZeveTopWindow(other.get()), kMessageTimer, 6, 0);
    EXPECT_EQ(otherHost.Messages(kMessageTimer).size(), 2u);
}

TEST_F(ZeveDialogTest, ShowsAndHidesByViewId) {
    DialogOwner dialog = MadeDialog(host);
    constexpr std::uint32_t kShown = 0x10000000;
    EXPECT_NE(ControlOf(dialog.get(), 1).style & kShown, 0u);
    ZeveHide(dialog.get(), 1);
    EXPECT_EQ(ControlOf(dialog.get(), 1).style & kShown, 0u);
    EXPECT_NE(ControlOf(dialog.get(), 2).style & kShown, 0u);
    ZeveShow(dialog.get(), 1);
    EXPECT_NE(ControlOf(dialog.get(), 1).style & kShown, 0u);
}

TEST_F(ZeveDialogTest, EnablesAndDisablesByViewId) {
    DialogOwner dialog = MadeDialog(host);
    const NativeWindow button = ControlOf(dialog.get(), 1).handle;
    ZeveDisable(dialog.get(), 1);
    EXPECT_FALSE(platform::IsEnabled(button));
    ZeveEnable(dialog.get(), 1);
    EXPECT_TRUE(platform::IsEnabled(button));
}

TEST_F(ZeveDialogTest, ShowingAndEnablingForgetAnExceptionOfTheHost) {
    class Sender : public CEveBox {
        void SetVisible(bool) override { platform::Send(TopLevelWindow(), kMessageTimer, 0, 0); }
        void SetEnabled(bool) override { platform::Send(TopLevelWindow(), kMessageTimer, 0, 0); }
    };
    ThrowInMessagesOf<Sender>();
    DialogOwner dialog = MadeDialog(host, "dialog(name: 'Sends') { sender(view_id: 3); }");
    for (const auto operation : {ZeveShow, ZeveHide, ZeveEnable, ZeveDisable}) {
        host.events.clear();
        operation(dialog.get(), 3);
        EXPECT_EQ(host.Messages(kMessageTimer).size(), 1u);
        EXPECT_FALSE(IsExceptionKept());
    }
}

TEST_F(ZeveDialogTest, AnUnknownIdIsIgnoredOrReturnsFalse) {
    DialogOwner made = MadeDialog(host), unmade = NewDialog();
    EventRecord record;
    record.StorePointer(kKeySetValue, "text");
    for (ZeveDialog* dialog : {made.get(), unmade.get()}) {
        State().calls.clear();
        EXPECT_NO_THROW(ZeveShow(dialog, 77));
        EXPECT_NO_THROW(ZeveHide(dialog, 77));
        EXPECT_NO_THROW(ZeveEnable(dialog, 77));
        EXPECT_NO_THROW(ZeveDisable(dialog, 77));
        EXPECT_FALSE(ZeveSetValue(dialog, 77, record));
        const BoxValue value = ZeveGetValue(dialog, 77, false);
        EXPECT_FALSE(value.number || value.text);
        EXPECT_TRUE(State().calls.empty());
    }
}

TEST_F(ZeveDialogTest, SetsAValueByViewId) {
    DialogOwner dialog = MadeDialog(host);
    EventRecord record;
    record.StorePointer(kKeySetValue, "Other words");
    EXPECT_TRUE(ZeveSetValue(dialog.get(), 2, record));
    EXPECT_EQ(ControlOf(dialog.get(), 2).text, u"Other words");
}

TEST_F(ZeveDialogTest, GetsTheValueOfEachKindOfBox) {
    struct Case {
        const char* box;
        std::optional<std::int64_t> number;
        std::optional<std::string> text;
    };
    const Case kCases[] = {
        {"radio(initial_value: 1", 1, {}},
        {"check_box(initial_value: 0", 0, {}},
        {"edit_text(name: 'Zermatt'", {}, "Zermatt"},
        {"edit_text(name: ''", {}, {}},
        {"edit_number(name: '1.5'", {}, "1.5"},
        {"edit_number(name: ' '", {}, ""},
        {"static_text(name: 'Label'", {}, "Label"},
        {"popup(items: 'One{1};Two{2}'", {}, "1"},
        {"button_popup(items: 'One{1};Two{2}'", {}, "1"},
        {"button(name: 'Go'", {}, {}},
        {"picture(name: 'x'", {}, {}},
    };
    for (const Case& each : kCases) {
        DialogOwner dialog = MadeDialog(
            host, (std::string("dialog(name: 'Values') { ") + each.box + ", view_id: 3); }").c_str());
        const BoxValue value = ZeveGetValue(dialog.get(), 3, false);
        EXPECT_EQ(value.number, each.number) << each.box;
        EXPECT_EQ(value.text, each.text) << each.box;
    }
}

TEST_F(ZeveDialogTest, AnUncheckedSubCheckWithholdsTheValueIfItIsHonored) {
    DialogOwner dialog = MadeDialog(host, "dialog(name: 'Sub') {"
                                          "  edit_number(name: '7', view_id: 3, check_box_aware: 1); }");
    EXPECT_EQ(ZeveGetValue(dialog.get(), 3, true).text, std::nullopt);
    EXPECT_EQ(ZeveGetValue(dialog.get(), 3, false).text, "7");
    platform::Send(State().windows.back()->handle, kButtonSetCheck, 1, 0);
    EXPECT_EQ(ZeveGetValue(dialog.get(), 3, true).text, "7");
}

TEST_F(ZeveDialogTest, GettingAValueLeaksNothingWhenAnAllocationFails) {
    DialogOwner dialog = MadeDialog(host, "dialog(name: 'Memory') { edit_number(name: '7', view_id: 3); }");
    const auto get = [&] {
        try {
            (void)ZeveGetValue(dialog.get(), 3, false);
        } catch (const std::bad_alloc&) {
            // no memory for a text
        }
        State().calls.clear();
        State().calls.shrink_to_fit();
    };
    EXPECT_GT(pavane_test::ForEveryFailingAllocation(get), 2u);
}

TEST_F(ZeveDialogTest, GettingAValueThrowsTheExceptionOfTheHostAndFreesTheText) {
    DialogOwner dialog =
        MadeDialog(host, "dialog(name: 'Throws') { edit_number(name: '70', view_id: 3, max_value: '9'); }");
    State().duringErrorMessage = [] {
        try {
            throw std::out_of_range("of the host");
        } catch (const std::out_of_range&) {
            KeepException();
        }
    };
    State().keepsCalls = false;
    std::size_t blocks = 0;
    for (int round = 0; round < 3; ++round) { // the first one makes objects that are made once
        platform::SetText(ControlOf(dialog.get(), 3).handle, u"1234567890123456789");
        if (round == 1) blocks = pavane_test::LiveBlocks();
        EXPECT_EQ(ErrorOf([&] { (void)ZeveGetValue(dialog.get(), 3, false); }), "of the host");
    }
    platform::SetText(ControlOf(dialog.get(), 3).handle, u"1234567890123456789");
    EXPECT_EQ(pavane_test::LiveBlocks(), blocks);
}

TEST_F(ZeveDialogTest, AnEmptyRecordThrowsInTheBoxThatReadsIt) {
    DialogOwner dialog = MadeDialog(host);
    EXPECT_EQ(ErrorOf([&] { ZeveSetValue(dialog.get(), 1, EventRecord()); }), "hash table index not found");
}

TEST_F(ZeveDialogTest, RetranslatingShowsTheNamesAgain) {
    DialogOwner dialog = MadeDialog(host);
    ControlOf(dialog.get(), 1).text = u"overwritten";
    ZeveRetranslate(dialog.get());
    EXPECT_EQ(ControlOf(dialog.get(), 1).text, u"OK");
}

TEST_F(ZeveDialogTest, RetranslatingADialogThatWasNotMadeThrows) {
    DialogOwner dialog = NewDialog();
    EXPECT_EQ(ErrorOf([&] { ZeveRetranslate(dialog.get()); }), "nil pointer");
}

TEST_F(ZeveDialogTest, TheFlagsAreVariablesOfTheView) {
    struct Case {
        std::uint64_t flags;
        std::int32_t width;
    };
    for (const Case& c : {Case{0, 100}, Case{kZeveRightToLeftAware, 101}, Case{kZeveReadOnly, 122},
                          Case{kZeveCheckBoxAware, 140}, Case{7, 163}}) {
        ZeveInitRecord record;
        record.callback = &TestHost::Callback;
        record.flags = c.flags;
        DialogOwner dialog(ZeveNew(&record));
        ZeveAddViewText(dialog.get(),
                        "dialog(name: 'Flags', height: 50, width: 100 + rtl_aware + 2 * __read_only_mode"
                        " + 20 * read_only_aware + 40 * check_box_aware);");
        const NativeWindow window = ZeveMakeDialog(dialog.get(), &host);
        EXPECT_EQ(platform::ClientArea(window).Width(), c.width) << c.flags;
    }
}

TEST_F(ZeveDialogTest, TheHostsReferencesReachTheWindow) {
    const NativeWindow parent = PlainWindow();
    ZeveInitRecord record;
    record.callback = &TestHost::Callback;
    record.parentWindow = parent;
    record.instance = platform::LibraryModule();
    record.parentReference = 150;
    DialogOwner dialog(ZeveNew(&record));
    ZeveAddViewText(dialog.get(), "dialog(name: 'References', height: 50, width: __parent);");
    const headless::Window* window = headless::FindWindow(ZeveMakeDialog(dialog.get(), &host));
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->parent, parent);
    EXPECT_EQ(window->instance, record.instance);
    EXPECT_EQ(platform::ClientArea(window->handle).Width(), 150);
}

TEST_F(ZeveDialogTest, ALanguageFromRightToLeftMirrorsTheLayout) {
    const auto leftOfFirst = [this](const char* language) {
        ZeveInitRecord record;
        record.callback = &TestHost::Callback;
        record.language = language;
        DialogOwner dialog(ZeveNew(&record));
        ZeveAddViewText(dialog.get(), "dialog(name: 'Mirror', width: 400) { row(placement: place_row) {"
                                      " button(name: 'A', view_id: 1); button(name: 'B', view_id: 2); } }");
        (void)ZeveMakeDialog(dialog.get(), &host);
        return ControlOf(dialog.get(), 1).frame.left < ControlOf(dialog.get(), 2).frame.left;
    };
    EXPECT_TRUE(leftOfFirst("en_US"));
    EXPECT_TRUE(leftOfFirst(nullptr));
    EXPECT_FALSE(leftOfFirst("he_IL"));
    EXPECT_FALSE(leftOfFirst("AR_ae"));
}

TEST_F(ZeveDialogTest, TheLanguageReachesTheControls) {
    constexpr std::uint32_t kRightToLeftReading = 0x2000;
    for (const char* language : {"en-US", "he-IL"}) {
        ZeveInitRecord record;
        record.callback = &TestHost::Callback;
        record.language = language;
        DialogOwner dialog(ZeveNew(&record));
        ZeveAddViewText(dialog.get(), kTwoButtons);
        (void)ZeveMakeDialog(dialog.get(), &host);
        const bool isRightToLeft = (ControlOf(dialog.get(), 1).extendedStyle & kRightToLeftReading) != 0;
        EXPECT_EQ(isRightToLeft, IsRightToLeftLanguage(language)) << language;
    }
}

TEST_F(ZeveDialogTest, RunningOutOfMemoryAnywhereLeaksNothing) {
    static constexpr char kOwnClass[] =
        "dialog(name: 'Own class', create_system_dialog: false) {"
        " button(name: 'OK', view_id: 1); button(name: 'Cancel', view_id: 2); }";
    const auto live = [] {
        try {
            TestHost own;
            ZeveInitialize();
            DialogOwner dialog = MadeDialog(own, kOwnClass);
            headless::ScriptMessage(ZeveTopWindow(dialog.get()), kMessageCommand, 1);
            (void)ZeveRunModal(dialog.get());
            ZeveHide(dialog.get(), 2);
        } catch (const std::exception&) {
            // Out of memory, or the logic error of a control that could not be made.
        }
        EXPECT_TRUE(State().windows.empty());
        EXPECT_TRUE(State().fonts.empty());
        EXPECT_TRUE(State().classes.empty());
        EXPECT_FALSE(IsExceptionKept());
        EXPECT_FALSE(IsModalRunUnderWay());
        State().quit.reset();
        State().script.clear();
        State().calls.clear();
    };
    EXPECT_GT(pavane_test::ForEveryFailingAllocation(live), 50u);
}

TEST_F(ZeveDialogTest, MadeUpReferencesInADescriptionDoNoHarm) {
    DialogOwner dialog =
        NewDialog("__callback = 4660; __callback_params = 4660; __zeveInternalObj = 4660;"
                  "__hInstance = 4660; __parentWindow = 4660; __eveBoxObj = 4660; __gen = 4660;"
                  "dialog(name: 'Made up', __eveBoxObj: 4660) { button(name: 'OK'); }");
    EXPECT_NE(ZeveMakeDialog(dialog.get(), &host), nullptr);
    EXPECT_TRUE(host.events.empty());
}

} // namespace
} // namespace brixen::zeve
