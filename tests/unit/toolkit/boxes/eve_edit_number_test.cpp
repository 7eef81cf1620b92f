// Number fields in their controls. Their texts are tested in unit/toolkit/numbers.
#include "support/failing_allocator.h"
#include "toolkit/event_record.h"
#include "unit/toolkit/boxes/box_fixture.h"
#include "values/unicode/text_conversion.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace brixen::zeve {
namespace {

class EveEditNumber : public BoxTest {
protected:
    static void Type(CEveBox& field, const char16_t* text) { platform::SetText(field.control, text); }
};

TEST_F(EveEditNumber, ShowsItsValueInTheFormOfItsAttributes) {
    CEveBox& field = Make("edit_number", {{"format", "decimal"}, {"precision", 2}});
    SetText(field, "1");
    EXPECT_EQ(WindowOf(field).text, u"1.00");
    EXPECT_EQ(Value(field), "1") << "unchanged";
    Type(field, u"2.5");
    EXPECT_EQ(Value(field), "2.50");
    SetText(field, "");
    EXPECT_EQ(WindowOf(field).text, u"");
    EXPECT_EQ(Value(field), "<none>");
}

TEST_F(EveEditNumber, TranslatesItsAddIn) {
    Translate("$$$/length=etwa ^0 mm");
    CEveBox& field = Make("edit_number", {{"format_addin", "$$$/length=about ^0 mm"}});
    SetText(field, "3");
    EXPECT_EQ(WindowOf(field).text, u"etwa 3 mm");
    Type(field, u"etwa 4 mm");
    EXPECT_EQ(Value(field), "4");
}

TEST_F(EveEditNumber, TakesTheDecimalSignOfTheUserAtEachRead) {
    CEveBox& field = Make("edit_number", {{"format", "decimal"}});
    headless::State().decimalSign = ",";
    Type(field, u"1,5");
    EXPECT_EQ(Value(field), "1.5");
    headless::State().decimalSign = "\u066B";
    Type(field, u"1\u066B25");
    EXPECT_EQ(Value(field), "1.25");
}

TEST_F(EveEditNumber, ShowsAMessageAboutALimitAndThenTheClosestNumber) {
    Translate("$$$/brixen/zeve/error/out_of_range=Nur von ^0 bis ^1.");
    CEveBox& field = Make("edit_number", {{"min_value", "1/2"}, {"max_value", "10"}, {"format", "decimal"}});
    SetText(field, "0.75");
    Type(field, u"1/4");
    EXPECT_EQ(Value(field), "0.50");
    EXPECT_EQ(WindowOf(field).text, u"0.500000");
    EXPECT_EQ(TextsOf("ShowErrorMessage"), (std::vector<std::u16string>{u"Nur von 1/2 bis 10."}));
    EXPECT_EQ(headless::CallsOf("ShowErrorMessage").at(0).window, field.control);
    EXPECT_EQ(Value(field), "0.500000") << "the closest value is within the limits";
    EXPECT_EQ(TextsOf("ShowErrorMessage").size(), 1u);
}

TEST_F(EveEditNumber, KeepsTheTypedTextWhileTheMessageIsShown) {
    CEveBox& field = Make("edit_number", {{"max_value", "10"}});
    Type(field, u"11");
    std::u16string meanwhile;
    headless::State().duringErrorMessage = [&] { meanwhile = WindowOf(field).text; };
    EXPECT_EQ(Value(field), "10");
    EXPECT_EQ(meanwhile, u"11");
}

TEST_F(EveEditNumber, MayBeDeletedWhileItsMessageIsShown) {
    CEveBox& field = Make("edit_number", {{"max_value", "10"}});
    Type(field, u"11");
    headless::State().duringErrorMessage = [this] { generator.DeleteBoxes(); };
    EXPECT_EQ(Value(field), "10");
    dialog = nullptr;
}

TEST_F(EveEditNumber, CopiesItsAttributesForTheHost) {
    const PreparedView view = Prepare("edit_number", {{"min_value", "1/2"},
                                                      {"max_value", "10"},
                                                      {"format", "decimal"},
                                                      {"format_addin", "$$$/length=about ^0 mm"},
                                                      {"precision", 3}});
    EXPECT_EQ(view.attributes->GetStringOr("min_value", ""), "1/2");
    EXPECT_EQ(view.attributes->GetStringOr("max_value", ""), "10");
    EXPECT_EQ(view.attributes->GetStringOr("format", ""), "decimal");
    EXPECT_EQ(view.attributes->GetStringOr("format_addin", ""), "$$$/length=about ^0 mm") << "as in the view";
    EXPECT_EQ(view.Number("precision"), 3);
}

TEST_F(EveEditNumber, StoresItsValueInRoomFor255Bytes) {
    CEveBox& field = Make("edit_number");
    for (const char* const value : {"5", "6"}) {
        Type(field, u"5");
        const std::size_t before = pavane_test::AllocatedBytes();
        EventRecord record;
        field.GetValue(record, false);
        EXPECT_GE(pavane_test::AllocatedBytes() - before, 255u) << value;
        const std::unique_ptr<char[]> text(record.ReadPointer<char*>(kKeyValueString));
        EXPECT_STREQ(text.get(), "5");
        std::fill_n(text.get(), 255, 'x'); // seen by the address sanitizer if there is no room
        SetText(field, "5");
    }
}

TEST_F(EveEditNumber, KeepsItsValueIfTheNewOneCannotBeShown) {
    CEveBox& field = Make("edit_number", {{"format", "whole"}});
    SetText(field, "1.5");
    EXPECT_THROW(SetText(field, "\xFF"), std::exception);
    EXPECT_EQ(WindowOf(field).text, u"2");
    EXPECT_EQ(Value(field), "1.5") << "unchanged";
    Type(field, u"3");
    EXPECT_EQ(Value(field), "3.0") << "in the form of the value that is shown";
}

TEST_F(EveEditNumber, HasNoLimitIfTheViewWritesItAsANumber) {
    CEveBox& field = Make("edit_number", {{"min_value", 1}, {"max_value", 9}});
    for (const char16_t* const text : {u"0", u"10"}) {
        Type(field, text);
        EXPECT_EQ(Value(field), lyr::gen::ToUtf8(text));
    }
    EXPECT_TRUE(TextsOf("ShowErrorMessage").empty());
}

TEST_F(EveEditNumber, ShowsNoMessageForATextWithoutNumber) {
    CEveBox& field = Make("edit_number", {{"max_value", "10"}});
    SetText(field, "1.5");
    Type(field, u"abc");
    EXPECT_EQ(Value(field), "0.0");
    EXPECT_TRUE(TextsOf("ShowErrorMessage").empty());
}

TEST_F(EveEditNumber, StoresAnEmptyValueForBlanks) {
    CEveBox& field = Make("edit_number");
    Type(field, u"  ");
    EXPECT_EQ(Value(field), "");
    Type(field, u"");
    EXPECT_EQ(Value(field), "<none>");
}

TEST_F(EveEditNumber, WithoutControlDoesNothing) {
    headless::State().refuseWindow = 2; // the dialog is the first
    CEveBox& field = Make("edit_number");
    ASSERT_EQ(field.control, nullptr);
    SetText(field, "5");
    EXPECT_EQ(Value(field), "<none>");
    EventRecord empty;
    EXPECT_NO_THROW(field.SetValue(empty)) << "the value is not even read";
}

TEST_F(EveEditNumber, ShowsItsNameAgainWhenItIsTranslated) {
    CEveBox& field = Make("edit_number", {{"name", "5"}});
    Type(field, u"7");
    field.Retranslate();
    EXPECT_EQ(WindowOf(field).text, u"5");
}

TEST_F(EveEditNumber, StoresNothingWhenItIsReadOnly) {
    CEveBox& field = Make("edit_number", {{"name", "5"}, {"locked", 1}});
    EXPECT_EQ(Value(field), "<none>");
}

TEST_F(EveEditNumber, AnUncheckedSubCheckAloneWithholdsTheNumber) {
    CEveBox& aware = Make("edit_number", {{"name", "5"}, {"check_box_aware", 1}});
    EXPECT_EQ(Value(aware, true), "<none>");
    EXPECT_EQ(Value(aware, false), "5");
    aware.checkBoxAware = false;
    EXPECT_EQ(Value(aware, true), "5") << "it is not aware";
    aware.checkBoxAware = true;
    aware.SetSubCheck(true);
    EXPECT_EQ(Value(aware, true), "5");
    CEveBox& plain = Make("edit_number", {{"name", "5"}});
    EXPECT_EQ(Value(plain, true), "5") << "there is no sub check";
}

TEST_F(EveEditNumber, ARefusedSubCheckWithholdsNothing) {
    MakeDialog();
    headless::State().refuseWindow = 2; // the field is the first
    CEveBox& field = Make("edit_number", {{"name", "5"}, {"check_box_aware", 1}});
    ASSERT_NE(field.control, nullptr);
    ASSERT_EQ(field.subControl, nullptr);
    EXPECT_EQ(Value(field, true), "5");
}

TEST_F(EveEditNumber, TakesTheLow32BitsOfItsPrecision) {
    constexpr std::int64_t k33Bits = std::int64_t{1} << 32;
    CEveBox& two = Make("edit_number", {{"format", "decimal"}, {"precision", k33Bits + 2}});
    SetText(two, "1");
    EXPECT_EQ(WindowOf(two).text, u"1.00");
    CEveBox& negative = Make("edit_number", {{"format", "decimal"}, {"precision", k33Bits - 1}});
    SetText(negative, "1");
    EXPECT_EQ(WindowOf(negative).text, u"1.0") << "-1 counts as 1";
}

TEST_F(EveEditNumber, TakesAnyNumberAsItsPrecision) {
    for (const std::int64_t precision : {INT64_MIN, std::int64_t{-1}, std::int64_t{0}, INT64_MAX}) {
        CEveBox& field = Make("edit_number", {{"format", "decimal"}, {"precision", precision}});
        SetText(field, "1");
        EXPECT_LE(WindowOf(field).text.size(), 254u);
        EXPECT_EQ(WindowOf(field).text.front(), u'1');
    }
}

} // namespace
} // namespace brixen::zeve
