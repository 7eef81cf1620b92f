#include "toolkit/boxes/control_maker.h"

#include "toolkit/boxes/eve_popup.h"
#include "toolkit/kept_exception.h"
#include "toolkit/message_numbers.h"
#include "unit/toolkit/boxes/box_fixture.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace brixen::zeve {
namespace {

struct Styles {
    std::uint32_t style, extendedStyle;
    bool operator==(const Styles&) const = default;
    friend void PrintTo(const Styles& styles, std::ostream* out) {
        *out << std::hex << "style 0x" << styles.style << ", extended 0x" << styles.extendedStyle;
    }
};

class ControlMakerTest : public BoxTest {
protected:
    // As requested: showing and enabling change the window's own style afterward.
    static headless::Call Request() { return headless::CallsOf("MakeWindow").back(); }
    static Styles Requested() {
        const headless::Call request = Request();
        return {static_cast<std::uint32_t>(request.numbers[1]),
                static_cast<std::uint32_t>(request.numbers[0])};
    }
    Styles StylesOf(std::string_view keyword, const Attributes& attributes) {
        Make(keyword, attributes);
        return Requested();
    }
};

struct Row {
    const char* keyword;
    const char16_t* className;
    std::uint32_t style, extendedStyle;
    std::uint32_t rtlAware; // what `rtl_aware` adds to the extended style
    std::uint32_t language; // what a right-to-left language adds
};

constexpr std::uint32_t kReading = 0x2000, kAll = 0x7000;

const Row kRows[] = {
    {"button", u"button", 0x40010000, 8, kReading, kReading},
    {"radio", u"button", 0x40010004, 8, 0, kAll},
    {"check_box", u"button", 0x40010003, 8, 0, kAll},
    {"radio_group", u"button", 0x40000007, 0x10000, 0, kAll},
    {"cluster", u"button", 0x40000007, 0x10000, 0, kAll},
    {"static_text", u"static", 0x40000000, 8, kAll, kAll},
    {"static_text_enum", u"static", 0x40000000, 8, kAll, kAll},
    {"edit_text", u"edit", 0x40011080, 0x208, kAll, kAll},
    {"edit_number", u"edit", 0x40011080, 0x208, kAll, kAll},
    {"slider", u"msctls_trackbar32", 0x40000001, 8, 0, kAll},
    {"separator", u"static", 0x40000010, 8, 0, kAll},
    {"picture", u"static", 0x4000000E, 8, 0, kReading},
    {"icon", u"static", 0x40000003, 8, 0, kAll},
    {"popup", u"combobox", 0x40210003, 0x208, kAll, kAll},
    {"button_popup", u"combobox", 0x40210003, 0x208, kAll, kAll},
    {"list_box", u"listbox", 0x40210401, 0x208, 0, kAll},
    {"scroller", u"scrollbar", 0x40000000, 8, 0, kAll},
    {"progress_bar", u"msctls_progress32", 0x40000000, 8, 0, kAll},
    {"table", u"SysTreeView32", 0x50810017, 0x208, kAll, kAll},
    {"tab_group", u"SysTabControl32", 0x50010000, 0x10000, 0, kAll},
};

TEST_F(ControlMakerTest, EveryClassHasItsNameAndStyles) {
    for (const Row& row : kRows) {
        const Attributes wide = {{"width", 200}, {"height", 20}};
        EXPECT_EQ(StylesOf(row.keyword, wide), (Styles{row.style, row.extendedStyle})) << row.keyword;
        EXPECT_EQ(Request().text, row.className) << row.keyword;
    }
}

TEST_F(ControlMakerTest, RightToLeftAwarenessAddsStylesInAnyLanguage) {
    for (const Row& row : kRows) {
        for (const char* language : {"", "en_US"}) {
            const Attributes aware = {
                {"rtl_aware", 1}, {"__languageInfo", language}, {"width", 200}, {"height", 20}};
            EXPECT_EQ(StylesOf(row.keyword, aware), (Styles{row.style, row.extendedStyle | row.rtlAware}))
                << row.keyword;
        }
    }
}

TEST_F(ControlMakerTest, ARightToLeftLanguageAddsStylesWithoutAwareness) {
    for (const Row& row : kRows) {
        for (const char* language : {"ar-ae", "AR_ae", "he_IL", "he-il.x"}) {
            const Attributes view = {
                {"rtl_aware", 0}, {"__languageInfo", language}, {"width", 200}, {"height", 20}};
            EXPECT_EQ(StylesOf(row.keyword, view), (Styles{row.style, row.extendedStyle | row.language}))
                << row.keyword << " in " << language;
        }
    }
}

TEST_F(ControlMakerTest, OnlyTwoLanguagesAddStyles) {
    for (const char* language : {"ar", "ar-eg", "he", "fa-ir", "ja_JP"}) {
        EXPECT_EQ(StylesOf("edit_text", {{"__languageInfo", language}}).extendedStyle, 0x208u) << language;
    }
}

TEST_F(ControlMakerTest, AlwaysLeftToRightTurnsOffOnlyTheLanguage) {
    for (const Row& row : kRows) {
        const Attributes view = {
            {"alwaysL2R", 1}, {"rtl_aware", 1}, {"__languageInfo", "he_IL"}, {"width", 200}, {"height", 20}};
        EXPECT_EQ(StylesOf(row.keyword, view), (Styles{row.style, row.extendedStyle | row.rtlAware}))
            << row.keyword;
    }
}

TEST_F(ControlMakerTest, AControlHigherThanWideIsUpright) {
    const Attributes upright = {{"width", 20}, {"height", 200}};
    EXPECT_EQ(StylesOf("scroller", upright).style, 0x40000001u);
    EXPECT_EQ(StylesOf("tab_group", upright).style, 0x50010001u);
    EXPECT_EQ(StylesOf("scroller", {{"width", 20}, {"height", 20}}).style, 0x40000000u);
    EXPECT_EQ(StylesOf("table", {{"width", 20}, {"height", 200}, {"has_buttons", 0}, {"has_lines", 0}}).style,
              0x50810011u);
    // Upright and with buttons are the same bit.
    EXPECT_EQ(StylesOf("table", {{"width", 20}, {"height", 200}}).style, 0x50810017u);
    EXPECT_EQ(StylesOf("table", {{"width", 200}, {"height", 20}, {"has_buttons", 0}}).style, 0x50810016u);
    EXPECT_EQ(StylesOf("table", {{"width", 200}, {"height", 20}, {"has_lines", 0}}).style, 0x50810011u);
}

TEST_F(ControlMakerTest, AnEditFieldHasItsStylesByItsAttributes) {
    EXPECT_EQ(StylesOf("edit_text", {{"v_scroller", 1}}).style, 0x40011000u | 0x200000 | 64 | 4);
    EXPECT_EQ(StylesOf("edit_text", {{"password", 1}}).style, 0x40011000u | 128 | 32);
    EXPECT_EQ(StylesOf("edit_text", {{"locked", 1}}).style, 0x40011000u | 128 | 2048);
    EXPECT_EQ(StylesOf("edit_text", {{"__read_only_mode", 1}}).style, 0x40011000u | 128 | 2048);
}

TEST_F(ControlMakerTest, AReadOnlyFieldStaysEnabled) {
    CEveBox& field = Make("edit_text", {{"locked", 1}});
    EXPECT_FALSE(field.honoursReadOnly);
    EXPECT_EQ(WindowOf(field).style & 0x08000000, 0u);
    CEveBox& label = Make("static_text", {{"name", "x"}, {"locked", 1}});
    EXPECT_FALSE(label.honoursReadOnly);
}

TEST_F(ControlMakerTest, FourFontsAlignALabelRight) {
    for (std::int64_t font = 32000; font <= 32008; ++font) {
        const bool isRight = font == 32002 || font == 32003 || font == 32006 || font == 32007;
        EXPECT_EQ(StylesOf("static_text", {{"name", "x"}, {"font", font}}).style,
                  isRight ? 0x40000002 : 0x40000000)
            << font;
    }
}

TEST_F(ControlMakerTest, TheStylesOfTheViewReplaceAll) {
    EXPECT_EQ(StylesOf("button", {{"win_style", 0x40010009}, {"win_ex_style", 0}}), (Styles{0x40010009, 0}));
    EXPECT_EQ(StylesOf("edit_text", {{"win_style", 0x50000000}}), (Styles{0x50000000, 0x208}));
    // The language checks the final style: this button has one of its bits.
    EXPECT_EQ(
        StylesOf("button", {{"win_style", 0x40010009}, {"win_ex_style", 0}, {"__languageInfo", "he_IL"}}),
        (Styles{0x40010009, kAll}));
}

TEST_F(ControlMakerTest, AnEmptyPaneHasAControlOnlyIfTheViewAsks) {
    EXPECT_EQ(Make("row").control, nullptr);
    EXPECT_EQ(StylesOf("row", {{"create_user_pane", 1}}), (Styles{0x40000007, 0x10000}));
    EXPECT_EQ(Request().text, u"static");
    EXPECT_EQ(StylesOf("row", {{"create_user_pane", 1}, {"__languageInfo", "he_IL"}}).extendedStyle,
              0x12000u);
    const std::size_t made = headless::CallsOf("MakeWindow").size();
    EXPECT_EQ(Make("hyperlink", {{"name", "x"}}).control, nullptr);
    EXPECT_EQ(headless::CallsOf("MakeWindow").size(), made);
}

// --- Frames

struct FrameCase {
    const char* keyword;
    std::int32_t left, top, width, height; // asked for 100, 50, 80, 20
};

TEST_F(ControlMakerTest, SomeClassesChangeTheirFrame) {
    for (const FrameCase& test :
         {FrameCase{"button", 100, 50, 80, 20}, FrameCase{"check_box", 100, 50, 82, 22},
          FrameCase{"radio", 100, 50, 80, 20}, FrameCase{"static_text", 100, 49, 80, 21},
          FrameCase{"static_text_enum", 100, 49, 80, 21}, FrameCase{"list_box", 100, 50, 80, 34},
          FrameCase{"popup", 100, 50, 80, 416}, FrameCase{"button_popup", 100, 50, 80, 416},
          FrameCase{"icon", 100, 50, 80, 20}, FrameCase{"edit_text", 100, 50, 80, 20}}) {
        if (!dialog) MakeDialog();
        const PreparedView view = Prepare(test.keyword);
        view.attributes->DefineNumber("left", 100);
        view.attributes->DefineNumber("top", 50);
        view.attributes->DefineNumber("width", 80);
        view.attributes->DefineNumber("height", 20);
        const CEveBox& box = Create(view, dialog);
        const platform::Rectangle& frame = WindowOf(box).frame;
        EXPECT_EQ(frame.left, test.left) << test.keyword;
        EXPECT_EQ(frame.top, test.top) << test.keyword;
        EXPECT_EQ(frame.Width(), test.width) << test.keyword;
        EXPECT_EQ(frame.Height(), test.height) << test.keyword;
        EXPECT_EQ(box.top, test.top) << test.keyword;
        EXPECT_EQ(box.height, test.height) << test.keyword;
    }
}

TEST_F(ControlMakerTest, APopupIsAsHighAsItsOpenList) {
    EXPECT_EQ(Make("popup", {{"max_visible_items", 5}}).height, 91);
    EXPECT_EQ(Make("popup", {{"max_visible_items", 0}}).height, 26);
    EXPECT_EQ(Make("popup").height, 416);
}

TEST_F(ControlMakerTest, TheLogoIsFurtherLeft) {
    EXPECT_EQ(Make("icon", {{"builtin_icon", 103}, {"left", 50}}).left, 30);
    EXPECT_EQ(Make("icon", {{"builtin_icon", 32515}, {"left", 50}}).left, 50);
}

// --- The routine

TEST_F(ControlMakerTest, AControlIsMadeByTheseCalls) {
    MakeDialog({{"__hInstance", 77}});
    const PreparedView view = Prepare("edit_text", {{"name", "a"}, {"width", 50}});
    headless::State().calls.clear();
    const CEveBox& box = Create(view, dialog);
    std::vector<std::string> names;
    for (const headless::Call& call : headless::State().calls) {
        // The control's own procedure is no call of the routine.
        if (call.name != "SavedAnswer") names.push_back(call.name);
    }
    EXPECT_EQ(names, (std::vector<std::string>{"MakeWindow", "TakeControlProcedure", "WindowResolution",
                                               "StockSystemFont", "MakeFont", "Send", "ShowOrHide", "Enable",
                                               "TakeEditProcedure"}));
    const headless::Call setFont = headless::CallsOf("Send").back();
    EXPECT_EQ(setFont.numbers, (std::vector<std::int64_t>{48, headless::HandleNumber(box.font), 1}));
    EXPECT_EQ(headless::FindWindow(box.control)->editBox, &box);
}

TEST_F(ControlMakerTest, AControlIsMadeWithItsFinalTextAndPosition) {
    CEveBox& box = Make("button", {{"name", "OK"}, {"left", 3}, {"top", 4}, {"__hInstance", 77}});
    EXPECT_EQ(WindowOf(box).text, u"OK");
    EXPECT_EQ(headless::HandleNumber(WindowOf(box).instance), 77);
    EXPECT_TRUE(headless::CallsOf("SetText").empty());
    EXPECT_EQ(headless::CallsOf("MoveTo").size(), 1u); // the dialog's
}

TEST_F(ControlMakerTest, ARefusedControlLeavesAWorkingBox) {
    MakeDialog();
    headless::State().refuseWindow = 1;
    CEveBox& box = Make("icon", {{"builtin_icon", 32515}});
    EXPECT_EQ(box.control, nullptr);
    EXPECT_TRUE(headless::State().icons.empty());
    box.SetVisible(false);
    box.SetEnabled(false);
    box.RefreshText();
    for (const char* keyword :
         {"edit_text", "popup", "static_text_enum", "tab_group", "button", "check_box"}) {
        headless::State().refuseWindow = 1;
        CEveBox& refused = Make(keyword, {{"name", "x"}, {"items", "One{1}"}, {"default", 1}});
        SetText(refused, "1");
        refused.RefreshText();
        if (std::string_view(keyword) != "static_text_enum") {
            EXPECT_EQ(Value(refused), "<none>") << keyword;
        }
    }
}

TEST_F(ControlMakerTest, AnExceptionDuringTheMakingBecomesTheClassName) {
    MakeDialog();
    const PreparedView view = Prepare("slider");
    view.attributes->DefineString("name", "bad \xFF");
    try {
        Create(view, dialog);
        ADD_FAILURE() << "nothing thrown";
    } catch (const std::logic_error& error) {
        EXPECT_STREQ(error.what(), "msctls_trackbar32");
    }
    EXPECT_EQ(dialog->children.size(), 1u); // owned by the dialog all the same
}

TEST_F(ControlMakerTest, AnExceptionKeptInAWindowProcedureBecomesTheClassName) {
    MakeDialog();
    const PreparedView view = Prepare("popup");
    headless::State().answer = [](const headless::Message&) -> std::optional<std::intptr_t> {
        try {
            throw std::runtime_error("host");
        } catch (...) {
            KeepException();
        }
        return 0;
    };
    try {
        Create(view, dialog);
        ADD_FAILURE() << "nothing thrown";
    } catch (const std::logic_error& error) {
        EXPECT_STREQ(error.what(), "combobox");
    }
    EXPECT_FALSE(IsExceptionKept());
}

// --- Icons

TEST_F(ControlMakerTest, AnIconIsACopyAtTheSizeOfTheIconPreparedLast) {
    MakeDialog();
    const PreparedView small = Prepare("icon", {{"builtin_icon", 32515}, {"width", 16}, {"height", 16}});
    const PreparedView large = Prepare("icon", {{"builtin_icon", 32516}, {"width", 48}, {"height", 40}});
    const CEveBox& first = Create(small, dialog);
    const CEveBox& second = Create(large, dialog);
    const auto copies = headless::CallsOf("CopySystemIcon");
    ASSERT_EQ(copies.size(), 2u);
    EXPECT_EQ(copies[0].numbers, (std::vector<std::int64_t>{32515, 48, 40}));
    EXPECT_EQ(copies[1].numbers, (std::vector<std::int64_t>{32516, 48, 40}));
    EXPECT_EQ(TimesSent(first.control, kStaticSetImage), 1u);
    EXPECT_EQ(TimesSent(second.control, kStaticSetImage), 1u);
}

TEST_F(ControlMakerTest, AnIconIsSetBeforeTheControlGetsItsProcedure) {
    MakeDialog();
    const PreparedView view = Prepare("icon", {{"builtin_icon", 32515}});
    headless::State().calls.clear();
    const CEveBox& box = Create(view, dialog);
    const auto& calls = headless::State().calls;
    ASSERT_GE(calls.size(), 4u);
    EXPECT_EQ(calls[1].name, "CopySystemIcon");
    EXPECT_EQ(calls[2].numbers,
              (std::vector<std::int64_t>{370, 1, headless::HandleNumber(*headless::State().icons.begin())}));
    EXPECT_EQ(calls[2].window, box.control);
    EXPECT_EQ(calls[3].name, "TakeControlProcedure");
}

TEST_F(ControlMakerTest, OnlyTwoSystemIconsAreLoaded) {
    Make("icon", {{"builtin_icon", 103}});
    Make("icon");
    Make("icon", {{"builtin_icon", 32514}});
    EXPECT_TRUE(headless::CallsOf("CopySystemIcon").empty());
}

TEST_F(ControlMakerTest, AnIconWithoutANumberIsEmpty) {
    Make("icon", {{"builtin_icon", 32515}});
    Make("icon");
    EXPECT_EQ(headless::CallsOf("CopySystemIcon").size(), 1u);
}

TEST_F(ControlMakerTest, TheStyleAloneDecidesAboutAnIcon) {
    Make("icon", {{"builtin_icon", 32515}, {"win_style", 0x50000003}});
    EXPECT_TRUE(headless::CallsOf("CopySystemIcon").empty());
    Make("picture", {{"win_style", 0x40000003}}); // the icon remembered last
    EXPECT_EQ(headless::CallsOf("CopySystemIcon").size(), 1u);
}

// --- The check box in front

TEST_F(ControlMakerTest, SixKeywordsLeaveRoomForACheckBox) {
    for (const Row& row : kRows) {
        const CEveBox& box =
            Make(row.keyword, {{"check_box_aware", 1}, {"left", 10}, {"width", 200}, {"__hInstance", 77}});
        const std::string_view keyword = row.keyword;
        const bool expected = keyword == "radio" || keyword == "check_box" || keyword == "edit_text" ||
                              keyword == "edit_number" || keyword == "popup" || keyword == "button_popup";
        ASSERT_EQ(box.subControl != nullptr, expected) << keyword;
        if (!expected) continue;
        const headless::Window& sub = *headless::FindWindow(box.subControl);
        EXPECT_EQ(Requested(), (Styles{0x40010003, 8}));
        EXPECT_EQ(sub.className, u"button");
        EXPECT_EQ(sub.text, u"");
        EXPECT_EQ(sub.id, box.subViewId);
        EXPECT_EQ(headless::HandleNumber(sub.instance), 77);
        EXPECT_EQ(sub.procedure, headless::Procedure::kSystem);
        EXPECT_EQ(sub.parent, dialog->window);
        EXPECT_EQ(sub.frame.left, 10);
        EXPECT_EQ(sub.frame.top, box.top);
        EXPECT_EQ(sub.frame.Width(), 15);
        EXPECT_EQ(sub.frame.Height(), 15);
        EXPECT_EQ(WindowOf(box).frame.left, 40) << keyword;
        EXPECT_EQ(WindowOf(box).frame.Width(), box.width - 30) << keyword;
        EXPECT_EQ(box.left, 10) << keyword;
    }
}

TEST_F(ControlMakerTest, AReadOnlyBoxHasNoCheckBox) {
    EXPECT_EQ(Make("edit_text", {{"check_box_aware", 1}, {"locked", 1}}).subControl, nullptr);
    EXPECT_EQ(Make("popup", {{"check_box_aware", 1}, {"__read_only_mode", 1}}).subControl, nullptr);
}

TEST_F(ControlMakerTest, APopupCanIgnoreTheCheckBox) {
    MakeDialog();
    const PreparedView view = Prepare("popup", {{"check_box_aware", 1}, {"items", "One{1}"}});
    static_cast<CEvePopup*>(view.box)->ignoresSubCheck = true;
    CEveBox& popup = Create(view, dialog);
    EXPECT_EQ(popup.subControl, nullptr);
    EXPECT_EQ(Value(popup, true), "1");
}

TEST_F(ControlMakerTest, ARefusedCheckBoxLeavesTheControl) {
    MakeDialog();
    headless::State().refuseWindow = 2;
    const CEveBox& box = Make("edit_text", {{"check_box_aware", 1}});
    EXPECT_NE(box.control, nullptr);
    EXPECT_EQ(box.subControl, nullptr);
}

} // namespace
} // namespace brixen::zeve
