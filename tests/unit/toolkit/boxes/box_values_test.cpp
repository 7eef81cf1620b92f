#include "toolkit/event_record.h"
#include "toolkit/message_numbers.h"
#include "unit/toolkit/boxes/box_fixture.h"

#include <gtest/gtest.h>

namespace brixen::zeve {
namespace {

class BoxValuesTest : public BoxTest {
protected:
    static void SetNumber(CEveBox& box, std::int64_t number) {
        EventRecord record;
        record.Store(kKeySetValue, number);
        box.SetValue(record);
    }
    // 1, 0, or -1 if nothing is stored.
    static std::int64_t Mark(CEveBox& box, bool honorSubCheck = false) {
        EventRecord record;
        box.GetValue(record, honorSubCheck);
        return record.Has(kKeyValueBoolean) ? record.Read(kKeyValueBoolean) : -1;
    }
    // From now on, `rows` holds the rows of the combo boxes.
    void RecordRows() {
        headless::State().answer = [this](const headless::Message& message) -> std::optional<std::intptr_t> {
            if (message.number == kComboResetContent) rows.clear();
            if (message.number == kComboAddString)
                rows.emplace_back(reinterpret_cast<const char16_t*>(message.lparam));
            return std::nullopt;
        };
    }
    static std::int64_t Selection(const CEveBox& box) {
        return platform::Send(box.control, kComboGetSelection, 0, 0);
    }

    std::vector<std::u16string> rows;
};

// --- Where a value comes from

TEST_F(BoxValuesTest, ACodeOfAScopeIsALabelOrTheValueOfAnItem) {
    CExpressionScope scope;
    scope.DefineNumber(kKeySetValue, 0x4F4B3432); // 'OK42'
    EventRecord record;
    record.StorePointer(kKeyScope, &scope);
    CEveBox& button = Make("button");
    button.SetValue(record);
    EXPECT_EQ(WindowOf(button).text, u"OK42");
    for (const char* keyword : {"popup", "button_popup", "static_text_enum"}) {
        CEveBox& box = Make(keyword, {{"items", "One{1};Two{OK42}"}});
        box.SetValue(record);
        EXPECT_EQ(Value(box), "OK42") << keyword;
    }
    // Fields and labels take only texts; a number has an empty one.
    for (const char* keyword : {"edit_text", "static_text"}) {
        CEveBox& box = Make(keyword, {{"name", "x"}});
        box.SetValue(record);
        EXPECT_EQ(WindowOf(box).text, u"") << keyword;
    }
}

TEST_F(BoxValuesTest, AScopeCanHoldTextsAndMarks) {
    CExpressionScope scope;
    EventRecord record;
    record.StorePointer(kKeyScope, &scope);
    scope.DefineString(kKeySetValue, "Zermatt");
    for (const char* keyword : {"edit_text", "static_text", "button"}) {
        CEveBox& box = Make(keyword);
        box.SetValue(record);
        EXPECT_EQ(WindowOf(box).text, u"Zermatt") << keyword;
    }
    for (const int mark : {1, 0}) {
        scope.DefineNumber(kKeySetValue, mark);
        for (const char* keyword : {"radio", "check_box"}) {
            CEveBox& box = Make(keyword, {{"initial_value", 1 - mark}});
            box.SetValue(record);
            EXPECT_EQ(Mark(box), mark) << keyword;
        }
    }
}

// --- Buttons

TEST_F(BoxValuesTest, AButtonCutsItsLabelAfter127Characters) {
    CEveBox& button = Make("button", {{"name", "OK"}});
    SetText(button, "Stop");
    EXPECT_EQ(WindowOf(button).text, u"Stop");
    SetText(button, std::string(127, 'x').c_str());
    EXPECT_EQ(WindowOf(button).text, std::u16string(127, u'x'));
    SetText(button, (std::string(127, 'x') + "y").c_str());
    EXPECT_EQ(WindowOf(button).text, std::u16string(127, u'x'));
    EXPECT_EQ(Value(button), "<none>");
}

TEST_F(BoxValuesTest, ALabelIsCutBetweenCharacters) {
    CEveBox& button = Make("button");
    std::string text;
    for (int i = 0; i < 130; ++i) text += "\xE3\x81\x82";
    SetText(button, text.c_str());
    EXPECT_EQ(WindowOf(button).text, std::u16string(127, u'\x3042'));
}

TEST_F(BoxValuesTest, ANullTextMeansAnEmptyText) {
    for (const char* keyword : {"button", "edit_text", "static_text"}) {
        CEveBox& box = Make(keyword, {{"name", "x"}});
        SetText(box, nullptr);
        EXPECT_EQ(WindowOf(box).text, u"") << keyword;
    }
}

TEST_F(BoxValuesTest, TheLastDefaultButtonHasTheFocus) {
    CEveBox& first = Make("button", {{"default", 1}});
    EXPECT_EQ(headless::CallsOf("MakeWindow").back().numbers[1], 0x40010001);
    EXPECT_EQ(headless::State().focus, first.control);
    CEveBox& second = Make("button", {{"default", 1}});
    Make("button");
    EXPECT_EQ(headless::State().focus, second.control);
}

// --- Radio buttons and check boxes

TEST_F(BoxValuesTest, AMarkIsSetByANumberAndReadAsOneOrZero) {
    for (const char* keyword : {"radio", "check_box"}) {
        CEveBox& box = Make(keyword, {{"name", "x"}});
        EXPECT_EQ(Mark(box), 0);
        SetNumber(box, 7);
        EXPECT_EQ(Mark(box), 1);
        SetNumber(box, 0);
        EXPECT_EQ(Mark(box), 0);
    }
}

TEST_F(BoxValuesTest, AnInitialValueSetsTheMark) {
    EXPECT_EQ(Mark(Make("radio", {{"initial_value", 1}})), 1);
    EXPECT_EQ(Mark(Make("check_box", {{"initial_value", 0}})), 0);
}

TEST_F(BoxValuesTest, AThirdStateMeansUnmarked) {
    CEveBox& box = Make("check_box");
    headless::State().answer = [](const headless::Message& message) -> std::optional<std::intptr_t> {
        if (message.number == kButtonGetCheck) return 2;
        return std::nullopt;
    };
    EXPECT_EQ(Mark(box), 0);
}

TEST_F(BoxValuesTest, AnUncheckedSubCheckWithholdsTheMark) {
    CEveBox& box = Make("check_box", {{"initial_value", 1}, {"check_box_aware", 1}});
    EXPECT_EQ(Mark(box, true), -1);
    EXPECT_EQ(Mark(box, false), 1);
    box.SetSubCheck(true);
    EXPECT_EQ(Mark(box, true), 1);
}

// --- Fields

TEST_F(BoxValuesTest, AFieldShowsItsNameFirst) {
    EXPECT_EQ(WindowOf(Make("edit_text", {{"name", "Berlin"}})).text, u"Berlin");
}

TEST_F(BoxValuesTest, AFieldStoresItsText) {
    for (const char* keyword : {"edit_text", "edit_number"}) {
        CEveBox& field = Make(keyword);
        EXPECT_EQ(Value(field), "<none>");
        SetText(field, "Z\xC3\xBCrich");
        EXPECT_EQ(WindowOf(field).text, u"Z\x00FCrich");
        EXPECT_EQ(Value(field), "Z\xC3\xBCrich");
    }
}

TEST_F(BoxValuesTest, TextGoesToTheFirstControlWithTheId) {
    CEveBox& first = Make("edit_text", {{"view_id", 5}});
    CEveBox& second = Make("edit_text", {{"view_id", 5}});
    SetText(second, "x");
    EXPECT_EQ(WindowOf(first).text, u"x");
    EXPECT_EQ(WindowOf(second).text, u"");
}

TEST_F(BoxValuesTest, AReadOnlyFieldStoresNothing) {
    CEveBox& field = Make("edit_text", {{"name", "x"}, {"locked", 1}});
    EXPECT_EQ(Value(field), "<none>");
    SetText(field, "y");
    EXPECT_EQ(WindowOf(field).text, u"y");
}

TEST_F(BoxValuesTest, AnUncheckedSubCheckWithholdsTheText) {
    CEveBox& field = Make("edit_text", {{"name", "x"}, {"check_box_aware", 1}});
    EXPECT_EQ(Value(field, true), "<none>");
    EXPECT_EQ(Value(field, false), "x");
    field.SetSubCheck(true);
    EXPECT_EQ(Value(field, true), "x");
}

TEST_F(BoxValuesTest, TheAsciiTestIsOnIfTheAttributeExists) {
    for (const std::int64_t value : {1, 0}) {
        headless::State().calls.clear();
        CEveBox& field = Make("edit_text", {{"seven_bit_ascii", value}});
        SetText(field, "plain ~");
        EXPECT_EQ(Value(field), "plain ~");
        SetText(field, "Z\xC3\xBCrich");
        EXPECT_EQ(Value(field), "<none>");
        EXPECT_EQ(TextsOf("ShowErrorMessage"),
                  (std::vector<std::u16string>{u"Please enter only 7-bit ASCII characters in this field."}));
    }
    CEveBox& free = Make("edit_text");
    SetText(free, "Z\xC3\xBCrich");
    EXPECT_EQ(Value(free), "Z\xC3\xBCrich");
}

TEST_F(BoxValuesTest, TheAsciiMessageIsTranslated) {
    Translate("$$$/brixen/zeve/error/not_7bit_ascii=Nur ASCII.");
    CEveBox& field = Make("edit_text", {{"seven_bit_ascii", 1}});
    SetText(field, "\xC3\xBC");
    Value(field);
    EXPECT_EQ(TextsOf("ShowErrorMessage"), (std::vector<std::u16string>{u"Nur ASCII."}));
}

TEST_F(BoxValuesTest, OnlyAPositiveLimitReachesTheField) {
    for (const auto& [limit, times] : {std::pair{5, 1u}, std::pair{0, 0u}, std::pair{-1, 0u}}) {
        const CEveBox& field = Make("edit_text", {{"max_chars", limit}});
        EXPECT_EQ(TimesSent(field.control, kEditSetLimitText), times) << limit;
    }
    EXPECT_EQ(TimesSent(Make("edit_text").control, kEditSetLimitText), 0u);
}

// --- Labels

TEST_F(BoxValuesTest, ALabelStoresItsText) {
    CEveBox& label = Make("static_text", {{"name", "Name:"}});
    EXPECT_EQ(Value(label), "Name:");
    SetText(label, "Ort:");
    EXPECT_EQ(WindowOf(label).text, u"Ort:");
    EXPECT_EQ(Value(label, true), "Ort:");
    SetText(label, "");
    EXPECT_EQ(Value(label), "<none>");
    EXPECT_EQ(Value(Make("static_text", {{"name", "x"}, {"check_box_aware", 1}})), "<none>");
}

// --- Labels with several texts

constexpr const char* kColors = "Red{r};-;Green{g};Nothing{}";

TEST_F(BoxValuesTest, AnEnumIsEmptyUntilAValueIsSet) {
    CEveBox& label = Make("static_text_enum", {{"name", "measured"}, {"items", kColors}});
    EXPECT_EQ(WindowOf(label).text, u"");
    EXPECT_EQ(Value(label), "<none>");
    dialog->Retranslate();
    EXPECT_EQ(WindowOf(label).text, u"");
}

TEST_F(BoxValuesTest, AnEnumShowsTheLabelOfItsValue) {
    CEveBox& label = Make("static_text_enum", {{"items", kColors}});
    SetText(label, "g");
    EXPECT_EQ(WindowOf(label).text, u"Green");
    EXPECT_EQ(Value(label), "g");
    SetText(label, "-"); // leaves all as it is
    EXPECT_EQ(Value(label), "g");
    SetText(label, "<$zeve_enum-item_separator$>");
    EXPECT_EQ(WindowOf(label).text, u"-");
    dialog->Retranslate();
    EXPECT_EQ(WindowOf(label).text, u"-");
    SetText(label, "unknown");
    EXPECT_EQ(WindowOf(label).text, u"Red");
    EXPECT_EQ(Value(label), "r");
    SetText(label, "");
    EXPECT_EQ(WindowOf(label).text, u"Nothing");
    EXPECT_EQ(Value(label), "<none>"); // the stored value is empty
}

TEST_F(BoxValuesTest, AnEnumWithAnEmptyFirstLabelKeepsItsValue) {
    CEveBox& label = Make("static_text_enum", {{"items", "{0};One{1}"}});
    SetText(label, "1");
    SetText(label, "unknown");
    EXPECT_EQ(WindowOf(label).text, u"");
    EXPECT_EQ(Value(label), "1");
    CEveBox& empty = Make("static_text_enum");
    SetText(empty, "1");
    EXPECT_EQ(WindowOf(empty).text, u"");
    EXPECT_EQ(Value(empty), "<none>");
}

TEST_F(BoxValuesTest, RetranslatingAnEnumKeepsItsValue) {
    CEveBox& label = Make("static_text_enum", {{"items", "$$$/items=Red{r};Green{g}"}});
    SetText(label, "g");
    Translate("$$$/items=Rot{r};Gr\xC3\xBCn{g}");
    dialog->Retranslate();
    EXPECT_EQ(WindowOf(label).text, u"Gr\x00FCn");
    EXPECT_EQ(Value(label), "g");
}

// --- Popups

TEST_F(BoxValuesTest, APopupHasARowForEachItemAndSelectsTheFirst) {
    RecordRows();
    for (const char* keyword : {"popup", "button_popup"}) {
        rows.clear();
        CEveBox& popup = Make(keyword, {{"items", "One{1};-;Two{1};Three{3};"}});
        EXPECT_EQ(rows, (std::vector<std::u16string>{u"One", u"Three"}));
        EXPECT_EQ(headless::CallsOf("Send").back().numbers,
                  (std::vector<std::int64_t>{kComboSetSelection, 0, 0}));
        EXPECT_EQ(Selection(popup), 0);
        EXPECT_EQ(Value(popup), "1");
    }
}

TEST_F(BoxValuesTest, APopupIsSetByValue) {
    CEveBox& popup = Make("popup", {{"items", "One{1};Two{2};None{}"}});
    SetText(popup, "2");
    EXPECT_EQ(Value(popup), "2");
    SetText(popup, "-");
    EXPECT_EQ(Value(popup), "2");
    SetText(popup, "unknown");
    EXPECT_EQ(Value(popup), "1");
    SetText(popup, "");
    EXPECT_EQ(Selection(popup), 2);
    EXPECT_EQ(Value(popup), "<none>");
}

TEST_F(BoxValuesTest, APopupWithoutASelectionStoresNothing) {
    CEveBox& popup = Make("popup", {{"items", "One{1}"}});
    for (const std::intptr_t index : {-1, 1, 1000}) {
        headless::State().answer = [=](const headless::Message&) {
            return std::optional<std::intptr_t>(index);
        };
        EXPECT_EQ(Value(popup), "<none>") << index;
    }
}

TEST_F(BoxValuesTest, APopupHonorsItsSubCheckAndAButtonPopupNever) {
    const Attributes attributes = {{"items", "One{1}"}, {"check_box_aware", 1}};
    CEveBox& popup = Make("popup", attributes);
    EXPECT_EQ(Value(popup, true), "<none>");
    EXPECT_EQ(Value(popup, false), "1");
    popup.SetSubCheck(true);
    EXPECT_EQ(Value(popup, true), "1");
    EXPECT_EQ(Value(Make("button_popup", attributes), true), "1");
}

TEST_F(BoxValuesTest, RefillingAPopupKeepsTheSelectionByValue) {
    RecordRows();
    CEveBox& popup = Make("popup", {{"name", "$$$/name=Number"}, {"items", "$$$/items=One{1};Two{2}"}});
    EXPECT_EQ(rows.size(), 2u);
    SetText(popup, "2");
    Translate("$$$/items=Null{0};Eins{1};Zwei{2}");
    Translate("$$$/name=Zahl");
    dialog->Retranslate();
    EXPECT_EQ(WindowOf(popup).text, u"Zahl");
    EXPECT_EQ(rows, (std::vector<std::u16string>{u"Null", u"Eins", u"Zwei"}));
    EXPECT_EQ(Selection(popup), 2);
    EXPECT_EQ(Value(popup), "2");
}

TEST_F(BoxValuesTest, RefillingSelectsNothingIfTheValueWasEmpty) {
    CEveBox& popup = Make("popup", {{"items", "One{1};None{}"}});
    SetText(popup, "");
    const std::size_t set = TimesSent(popup.control, kComboSetSelection);
    popup.RefreshText();
    EXPECT_EQ(TimesSent(popup.control, kComboSetSelection), set);
}

TEST_F(BoxValuesTest, RefillingIgnoresTheSubCheck) {
    CEveBox& popup = Make("popup", {{"items", "One{1};Two{2}"}, {"check_box_aware", 1}});
    SetText(popup, "2");
    const std::size_t set = TimesSent(popup.control, kComboSetSelection);
    popup.RefreshText();
    EXPECT_EQ(TimesSent(popup.control, kComboSetSelection), set + 1);
    EXPECT_EQ(Value(popup), "2");
}

// --- Tabs

TEST_F(BoxValuesTest, ATabGroupHasATabForEachPartOfItsName) {
    const std::pair<const char*, std::vector<std::u16string>> cases[] = {
        {"One;;Two", {u"One", u"", u"Two"}}, {"One", {u"One"}}, {"One;", {u"One", u""}}, {"", {u""}}};
    for (const auto& [name, expected] : cases) {
        headless::State().calls.clear();
        Make("tab_group", {{"name", name}});
        EXPECT_EQ(TextsOf("InsertTab"), expected) << name;
    }
    const auto calls = headless::CallsOf("InsertTab");
    EXPECT_EQ(calls.back().numbers.front(), 0);
}

TEST_F(BoxValuesTest, TabsAreTranslated) {
    Translate("$$$/tabs=Eins;Zwei");
    Make("tab_group", {{"name", "$$$/tabs=One;Two;Three"}});
    EXPECT_EQ(TextsOf("InsertTab"), (std::vector<std::u16string>{u"Eins", u"Zwei"}));
    EXPECT_EQ(headless::CallsOf("InsertTab").back().numbers.front(), 1);
}

} // namespace
} // namespace brixen::zeve
