#include "toolkit/dialog/zeve_generator.h"

#include "dictionaries/translation.h"
#include "toolkit/boxes/box_makers.h"
#include "toolkit/boxes/eve_box.h"
#include "toolkit/dialog/dialog_registry.h"
#include "toolkit/dialog_link.h"
#include "toolkit/toolkit_state.h"
#include "toolkit/view_constants.h"
#include "unit/toolkit/dialog/dialog_fixture.h"
#include "view/reader/reader_state.h"
#include "view/reader/run_definition.h"
#include "view/scope/expression_scope.h"

#include <stdexcept>

namespace brixen::zeve {
namespace {

constexpr char kNotAllRead[] = "Warning! (*definition == 0)";

class ZeveGenerator : public DialogTest {
protected:
    ZeveGenerator() {
        FillKeywordTable();
        InstallViewConstants(view);
        link.callback = &TestHost::Callback;
        link.callbackParams = &host;
        view.DefineNumber("__callback", CallbackNumber(link.callback));
        view.DefineNumber("__callback_params", ReferenceNumber(&host));
        view.DefineNumber("__zeveInternalObj", ReferenceNumber(&link));
    }

    ~ZeveGenerator() override { ResetReaderState(); }

    std::int64_t Number(std::string_view name) { return attributes.GetLongOr(name, kUndefinedNumber); }
    CEveBox* Box() { return ReferenceFrom<CEveBox>(Number("__eveBoxObj")); }
    // Prepares and creates a view with attributes of its own.
    CEveBox* Make(std::string_view keyword, CEveBox* parent) {
        CExpressionScope own;
        generator.PrepareView(keyword, view, own);
        return generator.CreateView(keyword, own, parent);
    }

    // The failure of a description on a generator of its own; empty if there is none.
    std::string FailureOf(const std::string& text) {
        CZeveGenerator own{&link};
        const auto root = CreateViewScope(nullptr, &own, nullptr, nullptr, true);
        InstallViewConstants(*root);
        try {
            RunDefinition(*root, text.c_str());
        } catch (const std::logic_error& error) {
            return error.what();
        }
        return "";
    }

    // Expects that the description fits into a limit of `cost`, and into none that is lower.
    void ExpectCost(const std::string& text, std::size_t& limit, std::size_t cost) {
        limit = cost;
        EXPECT_EQ(FailureOf(text), "") << text;
        limit = cost - 1;
        EXPECT_EQ(FailureOf(text), kNotAllRead) << text;
    }

    TestHost host;
    DialogLink link;
    CZeveGenerator generator{&link};
    CExpressionScope view, attributes;
};

TEST_F(ZeveGenerator, AViewWithoutAnIdUsesTwo) {
    generator.PrepareView("button", view, attributes);
    EXPECT_EQ(Number("view_id"), 10001);
    EXPECT_EQ(Number("sub_view_id"), 10002);
}

TEST_F(ZeveGenerator, AViewWithAnIdUsesOne) {
    view.DefineNumber("view_id", 7);
    generator.PrepareView("button", view, attributes);
    EXPECT_EQ(Number("view_id"), 7);
    EXPECT_EQ(Number("sub_view_id"), 10001);
}

TEST_F(ZeveGenerator, ClashingIdsAreNotDetected) {
    view.DefineNumber("view_id", 7);
    for (const std::int64_t ownId : {10001, 10002}) {
        generator.PrepareView("button", view, attributes);
        EXPECT_EQ(Number("view_id"), 7);
        EXPECT_EQ(Number("sub_view_id"), ownId);
    }
}

TEST_F(ZeveGenerator, IdsAreCutTo16Bits) {
    view.DefineNumber("view_id", 70000);
    generator.PrepareView("button", view, attributes);
    EXPECT_EQ(Number("view_id"), 4464);
    view.DefineNumber("view_id", 65536);
    generator.PrepareView("button", view, attributes);
    EXPECT_EQ(Number("view_id"), 10002) << "its low half is 0, so it counts as absent";
}

TEST_F(ZeveGenerator, TheCounterWrapsAndSkipsNothing) {
    gToolkit.lastViewId = 65534;
    generator.PrepareView("button", view, attributes);
    EXPECT_EQ(Number("view_id"), 65535);
    EXPECT_EQ(Number("sub_view_id"), 0);
    generator.PrepareView("button", view, attributes);
    EXPECT_EQ(Number("view_id"), 1);
}

TEST_F(ZeveGenerator, CopiesTheCommonAttributesWherePresent) {
    CExpressionScope enclosing, inner(&enclosing);
    enclosing.DefineString("name", "from outside");
    inner.DefineNumber("margin_left", 5);
    inner.DefineNumber("locked", 12);
    inner.DefineNumber("unknown_to_the_generator", 1);
    generator.PrepareView("picture", inner, attributes);
    EXPECT_EQ(attributes.GetStringOr("name", ""), "from outside");
    EXPECT_EQ(Number("margin_left"), 5);
    EXPECT_EQ(Number("locked"), 1);
    EXPECT_FALSE(attributes.HasVariable("margin"));
    EXPECT_FALSE(attributes.HasVariable("unknown_to_the_generator"));
}

TEST_F(ZeveGenerator, CopiesEachCommonAttributeInItsType) {
    CExpressionScope plain;
    for (const char* text : {"name", "alt_name", "class_name", "__languageInfo"}) {
        plain.DefineString(text, "its text");
        generator.PrepareView("no_such_view", plain, attributes);
        EXPECT_EQ(attributes.GetStringOr(text, ""), "its text") << text;
    }
    for (const char* number : {"resource_id", "max_chars", "seven_bit_ascii", "font", "__callback",
                               "__callback_params", "__hInstance", "margin", "margin_top", "margin_bottom",
                               "margin_left", "margin_right", "margin_height", "margin_width"}) {
        plain.DefineNumber(number, 4294967303);
        generator.PrepareView("no_such_view", plain, attributes);
        EXPECT_EQ(Number(number), 4294967303) << number;
    }
    for (const char* boolean : {"word_wrap", "__read_only_mode", "locked", "check_box_aware"}) {
        plain.DefineNumber(boolean, -7);
        generator.PrepareView("no_such_view", plain, attributes);
        EXPECT_EQ(Number(boolean), 1) << boolean;
    }
}

TEST_F(ZeveGenerator, CopiesTheDialogsExtraAttributesInBothTypes) {
    link.extraAttributeNames = {"number_of_mine", "text_of_mine", "absent"};
    view.DefineNumber("number_of_mine", 3);
    view.DefineString("text_of_mine", "mine");
    generator.PrepareView("picture", view, attributes);
    EXPECT_EQ(Number("number_of_mine"), 3);
    EXPECT_EQ(attributes.GetStringOr("text_of_mine", ""), "mine");
    EXPECT_FALSE(attributes.HasVariable("absent"));
}

TEST_F(ZeveGenerator, ADescriptionCannotPointToAnotherDialog) {
    link.extraAttributeNames = {"mine"};
    view.DefineNumber("mine", 3);
    view.DefineNumber("__zeveInternalObj", 0x123456);
    generator.PrepareView("picture", view, attributes);
    EXPECT_FALSE(attributes.HasVariable("mine"));
}

TEST_F(ZeveGenerator, ADialogsBoxStoresItselfOnlyInItsOwnDialog) {
    DialogLink other;
    RegisterDialog(other); // it lives too, and its number can be guessed
    for (const DialogLink* named : {&other, &link}) {
        view.DefineNumber("__zeveInternalObj", ReferenceNumber(named));
        const CEveBox* root = Make("dialog", nullptr);
        EXPECT_EQ(link.rootBox, named == &link ? root : nullptr);
        EXPECT_EQ(other.rootBox, nullptr);
    }
    UnregisterDialog(other);
}

TEST_F(ZeveGenerator, DefinesItselfAndTheBox) {
    generator.PrepareView("button", view, attributes);
    EXPECT_EQ(ReferenceFrom<CGenerator>(Number("__gen")), &generator);
    ASSERT_NE(Box(), nullptr);
    EXPECT_EQ(Box()->classKeyword, "button");
    EXPECT_EQ(Number("height"), 22) << "the box prepared itself";
}

TEST_F(ZeveGenerator, TheHostReceivesTheWindowOfATopLevelBox) {
    CEveBox* root = Make("picture", nullptr);
    root->window = nullptr;
    ASSERT_EQ(host.events.size(), 1u);
    EXPECT_EQ(host.events[0].what, kWhatTopLevelMade);
    EXPECT_EQ(host.events[0].keyword, "picture");
    EXPECT_EQ(host.events[0].control, nullptr);
}

TEST_F(ZeveGenerator, TheHostReceivesTheControlsOfEveryOtherBox) {
    CEveBox* root = Make("picture", nullptr);
    host.events.clear();
    CEveBox* button = Make("button", root);
    ASSERT_EQ(host.events.size(), 1u);
    EXPECT_EQ(host.events[0].what, kWhatViewMade);
    EXPECT_EQ(host.events[0].control, button->control);
    EXPECT_EQ(host.events[0].window, nullptr);
    EXPECT_EQ(button->parent, root);
}

TEST_F(ZeveGenerator, TheHostReadsAndChangesTheAttributes) {
    host.answer = [](std::int32_t, EventRecord& record) {
        auto* scope = record.ReadPointer<CExpressionScope*>(kKeyScope);
        scope->DefineNumber("seen", scope->GetLongOr("view_id", 0));
        return std::uint64_t(0);
    };
    generator.PrepareView("picture", view, attributes);
    generator.CreateView("picture", attributes, nullptr);
    EXPECT_EQ(Number("seen"), 10001);
}

TEST_F(ZeveGenerator, TheHostIsCalledForAViewBeforeItsChildrenAreMade) {
    const auto root = CreateViewScope(nullptr, &generator, nullptr, nullptr, true);
    InstallViewConstants(*root);
    root->DefineNumber("__callback", CallbackNumber(link.callback));
    root->DefineNumber("__callback_params", ReferenceNumber(&host));
    host.answer = [](std::int32_t, EventRecord& record) {
        const auto* scope = record.ReadPointer<const CExpressionScope*>(kKeyScope);
        EXPECT_TRUE(ReferenceFrom<CEveBox>(scope->GetLongOr("__eveBoxObj", 0))->children.empty());
        return std::uint64_t(0);
    };
    const CEveBox* made = RunDefinition(*root, "picture(name: '1') { picture(name: '2') { button(); } }");
    EXPECT_EQ(made->children.size(), 1u);
    ASSERT_EQ(host.events.size(), 3u);
    EXPECT_EQ(host.events[0].what, kWhatTopLevelMade);
    EXPECT_EQ(host.events[2].keyword, "button");
}

TEST_F(ZeveGenerator, TextsThatBoxesKeepCountAsMemoryOfTheRun) {
    const std::string text(50000, 'x');
    for (const char* attribute : {"name", "alt_name", "items"}) {
        CZeveGenerator own{&link};
        const auto root = CreateViewScope(nullptr, &own, nullptr, nullptr, true);
        InstallViewConstants(*root);
        root->DefineString(attribute, text);
        gReaderState.limits.memory = text.size() * 3 * 3 + 60000;
        EXPECT_NO_THROW(RunDefinition(*root, "picture() { picture(); picture(); }")) << attribute;
        EXPECT_THROW(RunDefinition(*root, "picture() { picture(); picture(); picture(); }"), std::logic_error)
            << attribute;
        ResetReaderState();
    }
}

TEST_F(ZeveGenerator, ATranslationCountsAsMemoryOfTheRunToo) {
    AddKeyValue(("$$$/long=" + std::string(30000, 'x')).c_str());
    const auto fits = [&](std::size_t limit) {
        gReaderState.limits.memory = limit;
        return FailureOf("picture(name: '$$$/long=short') { picture(name: ''); }").empty();
    };
    EXPECT_FALSE(fits(3 * 30000));
    EXPECT_TRUE(fits(3 * 30000 + 60000));
}

// --- What a run may ask of the window system

TEST_F(ZeveGenerator, ARunMeasuresAsMuchAsTheLimitAllows) {
    EXPECT_EQ(ReadingLimits().measuredUnits, 16777216u);
    const std::string text = "dialog() { static_text(name: 'abc', width: 1); button(name: '12345'); }";
    std::size_t& limit = gReaderState.limits.measuredUnits;
    limit = (3 * 16 + 2 + 2 + 1) + (16 + 5);
    EXPECT_EQ(FailureOf(text), "");
    limit -= 1;
    EXPECT_EQ(FailureOf(text), kNotAllRead);
    limit += 1;
    EXPECT_EQ(FailureOf(text), "") << "the budget is that of one run";
}

TEST_F(ZeveGenerator, ARunShowsAsMuchTextAsTheLimitAllows) {
    EXPECT_EQ(ReadingLimits().shownBytes, 262144u);
    std::size_t& limit = gReaderState.limits.shownBytes;
    const auto expectCost = [&](const std::string& view, std::size_t bytes) {
        ExpectCost("dialog() { " + view + " }", limit, bytes);
    };
    expectCost("slider(name: '12345'); static_text(name: 'abc');", 8);
    expectCost("row(name: '12345') { button(name: 'abc'); }", 3);
    AddKeyValue("$$$/shown=12345678");
    expectCost("button(name: '$$$/shown=OK');", 8);
    expectCost("edit_text(name: '0123456789', width: 40);", 10);
    expectCost("edit_text(name: '0123456789', width: 40, v_scroller: 1);", 3 * (10 + 16));
    expectCost("edit_text(name: '0123456789', width: 40, win_style: 4);", 3 * (10 + 16));
    expectCost("edit_text(name: '01234\n678', width: 20, v_scroller: 1);", 1 + 3 * (5 + 16) + 2 * (3 + 16));
    expectCost("edit_text(name: 'ab', width: -5, v_scroller: 1);", 17 * (2 + 16));
}

TEST_F(ZeveGenerator, ARunFillsListsAsFarAsTheLimitAllows) {
    EXPECT_EQ(ReadingLimits().listItems, 16384u);
    std::size_t& limit = gReaderState.limits.listItems;
    const auto expectCost = [&](const std::string& view, std::size_t items) {
        ExpectCost("dialog() { " + view + " }", limit, items);
    };
    expectCost("popup(items: 'a{1};b{2};b{2}');", 3);
    expectCost("popup(items: 'a{1};b{2}', width: 50); button_popup(items: 'a{1};;b{2}');", 5);
    expectCost("static_text_enum(items: 'a{1};-;b{2}');", 3);
    expectCost("tab_group(name: 'One;Two');", 32);
    AddKeyValue("$$$/items=a{1};b{2};c{3};d{4}");
    expectCost("popup(items: '$$$/items=a{1}');", 4);
    expectCost("static_text_enum(items: '$$$/items=a{1}');", 4);
    AddKeyValue("$$$/tabs=1;2;3");
    expectCost("tab_group(name: '$$$/tabs=1');", 48);
    limit = 0;
    EXPECT_EQ(FailureOf("items = 'a{1};b{2}'; dialog() { popup(items: ''); static_text(); button(); }"), "")
        << "who shows no list costs nothing";
}

TEST_F(ZeveGenerator, ARunMakesAsManyControlsAsTheLimitAllows) {
    EXPECT_EQ(ReadingLimits().controls, 1024u);
    std::string sliders;
    for (int n = 0; n < 1023; ++n) sliders += "slider();";
    EXPECT_EQ(FailureOf("dialog() {" + sliders + "}"), "");
    EXPECT_EQ(headless::CallsOf("MakeWindow").size(), 1024u);
    headless::State().calls.clear();
    EXPECT_EQ(FailureOf("dialog() {" + sliders + "slider(); }"), kNotAllRead);
    EXPECT_TRUE(headless::CallsOf("MakeWindow").empty()) << "it fails before any is made";
    std::string panes;
    for (int n = 0; n < 5000; ++n) panes += "row(); spring();";
    EXPECT_EQ(FailureOf("dialog() {" + panes + "}"), "") << "who makes no control costs nothing";
}

TEST_F(ZeveGenerator, EveryWindowOfABoxCountsAsAControl) {
    gReaderState.limits.controls = 1;
    EXPECT_EQ(FailureOf("dialog();"), "");
    EXPECT_EQ(FailureOf("dialog() { row(create_user_pane: 1); }"), kNotAllRead);
    EXPECT_EQ(FailureOf("dialog() { row(create_user_pane: 0); }"), "");
    EXPECT_EQ(FailureOf("dialog() { hyperlink(); }"), kNotAllRead) << "the host may fill the place";
    gReaderState.limits.controls = 2;
    EXPECT_EQ(FailureOf("dialog() { row(create_user_pane: 1); }"), "");
    EXPECT_EQ(FailureOf("dialog() { edit_text(); }"), "");
    EXPECT_EQ(FailureOf("dialog() { edit_text(check_box_aware: 1); }"), kNotAllRead);
    gReaderState.limits.controls = 3;
    EXPECT_EQ(FailureOf("dialog() { edit_text(check_box_aware: 1); }"), "");
    for (const char* view : {"popup();", "button_popup();"})
        ExpectCost(std::string("dialog() {") + view + "}", gReaderState.limits.controls, 1 + 2);
}

TEST_F(ZeveGenerator, WithoutACallbackNoHostIsCalled) {
    view.DefineNumber("__callback", 0);
    EXPECT_NE(Make("picture", nullptr), nullptr);
    EXPECT_TRUE(host.events.empty());
}

TEST_F(ZeveGenerator, ACallbackThatADescriptionMadeUpIsNotCalled) {
    view.DefineNumber("__callback", 0x123456);
    EXPECT_NE(Make("picture", nullptr), nullptr);
    view.DefineNumber("__callback", CallbackNumber(link.callback));
    view.DefineNumber("__callback_params", 0x123456);
    EXPECT_NE(Make("picture", nullptr), nullptr);
    EXPECT_TRUE(host.events.empty());
}

TEST_F(ZeveGenerator, AnUnknownKeywordStillMakesABox) {
    generator.PrepareView("no_such_view", view, attributes);
    EXPECT_EQ(Box()->classKeyword, "no_such_view");
    EXPECT_NE(generator.CreateView("no_such_view", attributes, nullptr), nullptr);
}

TEST_F(ZeveGenerator, CreatingAViewThatWasNeverPreparedReturnsItsParent) {
    CEveBox* root = Make("picture", nullptr);
    EXPECT_EQ(generator.CreateView("button", attributes, root), root);
    attributes.DefineNumber("__eveBoxObj", 0x123456);
    EXPECT_EQ(generator.CreateView("button", attributes, root), root);
}

TEST_F(ZeveGenerator, ABoxIsCreatedOnce) {
    CEveBox* root = Make("picture", nullptr);
    generator.PrepareView("button", view, attributes);
    CEveBox* button = generator.CreateView("button", attributes, root);
    EXPECT_NE(button, root);
    EXPECT_EQ(generator.CreateView("button", attributes, root), root) << "its parent owns it now";
}

// A box that counts the live boxes of its class and can refuse to be made.
class CountedBox : public CEveBox {
public:
    enum class Behavior { kBinds, kReturnsNull, kThrowsFirst, kThrowsLast };
    CountedBox() { ++gAlive; }
    ~CountedBox() override { --gAlive; }
    CEveBox* Create(CExpressionScope& scope, CEveBox* parentBox) override {
        if (gBehavior == Behavior::kReturnsNull) return nullptr;
        if (gBehavior == Behavior::kThrowsFirst) throw std::runtime_error("first");
        CEveBox::Create(scope, parentBox);
        if (gBehavior == Behavior::kThrowsLast) throw std::runtime_error("last");
        return this;
    }
    static inline int gAlive = 0;
    static inline Behavior gBehavior = Behavior::kBinds;
};

// Makes a root with a child in each way that a child can be made, and counts the boxes that live then.
class BoxesOfAGenerator : public ZeveGenerator {
protected:
    void RunWithChild(CountedBox::Behavior behavior) {
        CountedBox::gBehavior = CountedBox::Behavior::kBinds;
        CZeveGenerator own(&link);
        CEveBox* root = PrepareAndCreate(own, nullptr);
        CountedBox::gBehavior = behavior;
        try {
            child = PrepareAndCreate(own, root);
        } catch (const std::runtime_error&) {
            child = nullptr;
        }
        alive = CountedBox::gAlive;
        isChildOfRoot = root->children.size() == 1;
        returnedParent = child == root;
    }

    CEveBox* child = nullptr;
    int alive = 0;
    bool isChildOfRoot = false, returnedParent = false;

private:
    CEveBox* PrepareAndCreate(CZeveGenerator& own, CEveBox* parent) {
        gToolkit.keywords.Define("counted",
                                 []() -> std::unique_ptr<CEveBox> { return std::make_unique<CountedBox>(); });
        CExpressionScope scope;
        own.PrepareView("counted", view, scope);
        return own.CreateView("counted", scope, parent);
    }
};

TEST_F(BoxesOfAGenerator, BelongToTheirParentOnceTheyAreBound) {
    RunWithChild(CountedBox::Behavior::kBinds);
    EXPECT_TRUE(isChildOfRoot);
    EXPECT_EQ(alive, 2);
    EXPECT_EQ(CountedBox::gAlive, 0);
}

TEST_F(BoxesOfAGenerator, StayWithTheGeneratorWhereCreateReturnsNull) {
    RunWithChild(CountedBox::Behavior::kReturnsNull);
    EXPECT_TRUE(returnedParent) << "the view's children attach to the grandparent";
    EXPECT_FALSE(isChildOfRoot);
    EXPECT_EQ(host.events.size(), 1u) << "the host is called for the root alone";
    EXPECT_EQ(alive, 2);
    EXPECT_EQ(CountedBox::gAlive, 0);
}

TEST_F(BoxesOfAGenerator, AreFreedOnceWhereverCreateThrows) {
    for (const auto behavior : {CountedBox::Behavior::kThrowsFirst, CountedBox::Behavior::kThrowsLast}) {
        RunWithChild(behavior);
        EXPECT_EQ(isChildOfRoot, behavior == CountedBox::Behavior::kThrowsLast);
        EXPECT_EQ(alive, 2);
        EXPECT_EQ(CountedBox::gAlive, 0);
    }
}

TEST_F(BoxesOfAGenerator, AreFreedEvenIfTheyWereNeverCreated) {
    {
        CZeveGenerator own(&link);
        gToolkit.keywords.Define("counted",
                                 []() -> std::unique_ptr<CEveBox> { return std::make_unique<CountedBox>(); });
        own.PrepareView("counted", view, attributes);
        EXPECT_EQ(CountedBox::gAlive, 1);
    }
    EXPECT_EQ(CountedBox::gAlive, 0);
}

} // namespace
} // namespace brixen::zeve
