#include "workflow/panes/number_fields.h"

#include "toolkit/kept_exception.h"
#include "unit/workflow/panes/dialog_fixture.h"
#include "workflow/panes/pane_helpers.h"

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace brixen::pvn::pvn_workflow {
namespace {

using zeve::headless::CallsOf;

constexpr std::uint16_t kPort = 11, kWeight = 12, kTitle = 13;
constexpr char kFields[] = R"(
dialog(name: 'Fields', width: 300) {
    edit_number(view_id: 11, max_value: '65535', width: 80);
    edit_number(view_id: 12, min_value: '1', format: 'decimal', format_addin: 'about ^0 kg', width: 80);
    edit_number(view_id: 13, width: 80, check_box_aware: 1);
})";

struct DeleteDialog {
    void operator()(zeve::ZeveDialog* dialog) const { zeve::ZeveDelete(dialog); }
};

class NumberFields : public DialogFixture {
protected:
    NumberFields() {
        zeve::ZeveInitRecord record;
        record.callback = [](std::int32_t, zeve::EventRecord&, void*) -> std::uint64_t { return 0; };
        dialog.reset(zeve::ZeveNew(&record));
        zeve::ZeveAddViewText(dialog.get(), kFields);
        (void)zeve::ZeveMakeDialog(dialog.get(), nullptr);
        SetControlText(dialog.get(), kPort, "80");
        SetControlText(dialog.get(), kWeight, "2.5");
    }
    static void Type(std::uint16_t id, const char16_t* text) { Control(id)->text = text; }
    static std::size_t Messages() { return CallsOf("ShowErrorMessage").size(); }

    std::unique_ptr<zeve::ZeveDialog, DeleteDialog> dialog;
};

TEST_F(NumberFields, AreReadOneByOne) {
    Type(kPort, u"8080");
    Type(kWeight, u"about 3.5 kg");
    NumberFieldReader fields(dialog.get());
    EXPECT_EQ(fields.Read(kPort), "8080");
    EXPECT_EQ(fields.Read(kWeight), "3.5");
    EXPECT_FALSE(fields.HasCorrected());
    EXPECT_EQ(System().focus, nullptr);
    EXPECT_EQ(Control(kPort)->text, u"8080") << "the text stays as it was typed";
}

TEST_F(NumberFields, ShowTheirNumbers) {
    const auto shownBy = [this](std::uint16_t id) { return zeve::ZeveShownNumber(dialog.get(), id); };
    Type(kWeight, u"ABOUT3,50kg");
    System().decimalSign = ",";
    EXPECT_EQ(shownBy(kWeight)->text, "3.50");
    EXPECT_FALSE(shownBy(kWeight)->mayBeGrouped);
    EXPECT_EQ(shownBy(kPort)->text, "80");
    Type(kPort, u"8.080");
    EXPECT_TRUE(shownBy(kPort)->mayBeGrouped);
    EXPECT_EQ(shownBy(99), std::nullopt);
}

TEST_F(NumberFields, KnowWhatTheUserHasEdited) {
    const auto isEdited = [this] { return zeve::ZeveShownNumber(dialog.get(), kWeight)->isEdited; };
    EXPECT_FALSE(isEdited());
    Type(kWeight, u"about 3.5 kg");
    EXPECT_TRUE(isEdited());
    SetControlText(dialog.get(), kWeight, "4");
    EXPECT_FALSE(isEdited());
    EXPECT_FALSE(zeve::ZeveShownNumber(dialog.get(), 99).has_value());
}

TEST_F(NumberFields, AnUnknownIdABlankFieldAndAnUncheckedSubCheckHaveNoValue) {
    Type(kPort, u"");
    Type(kTitle, u"4");
    NumberFieldReader fields(dialog.get());
    EXPECT_EQ(fields.Read(kPort), std::nullopt);
    Type(kPort, u"  ");
    EXPECT_EQ(fields.Read(kPort), std::nullopt);
    EXPECT_EQ(fields.Read(99), std::nullopt);
    EXPECT_EQ(fields.Read(kTitle), std::nullopt);
    EXPECT_FALSE(fields.HasCorrected());
}

TEST_F(NumberFields, ACorrectedFieldShowsTheNumberInItsOwnFormatAndHasTheFocus) {
    Type(kPort, u"70000");
    NumberFieldReader fields(dialog.get());
    EXPECT_EQ(fields.Read(kPort), std::nullopt);
    EXPECT_TRUE(fields.HasCorrected());
    EXPECT_EQ(Control(kPort)->text, u"65535");
    EXPECT_EQ(System().focus, Control(kPort)->handle);
    EXPECT_EQ(Messages(), 1u);

    NumberFieldReader nextClick(dialog.get());
    EXPECT_EQ(nextClick.Read(kPort), "65535");
    EXPECT_FALSE(nextClick.HasCorrected());
    EXPECT_EQ(Messages(), 1u);
}

TEST_F(NumberFields, ACorrectedFieldShowsItsAddIn) {
    Type(kWeight, u"about 0.25 kg");
    NumberFieldReader fields(dialog.get());
    (void)fields.Read(kWeight);
    EXPECT_TRUE(fields.HasCorrected());
    EXPECT_EQ(Control(kWeight)->text, u"about 1.0 kg");
}

struct Correction {
    const char* attributes;
    const char* value; // before
    const char16_t* typed;
    const char16_t* shown; // after
    const char* read;      // by the next click
};

// A fraction of millions, or a limit that is rounded out of range, could not be entered again.
TEST_F(NumberFields, ShowAClosestNumberThatIsReadableAndInRange) {
    constexpr Correction kCorrections[] = {
        {"format: 'fraction', max_value: '100000', format_addin: '^0 mm'", "50/1", u"100001", u"100000/1 mm",
         "100000/1"},
        {"format: 'fraction', min_value: '1/10'", "50/1", u"0", u"1/10", "1/10"},
        {"format: 'fraction', min_value: '-5/2'", "1/2", u"-3", u"-5/2", "-5/2"},
        {"format: 'fraction', max_value: '0'", "-1/2", u"3", u"0/1", "0/1"},
        {"format: 'fraction', max_value: '1e20'", "1/2", u"1e21", u"100000000000000000000000000/1000000",
         "100000000000000000000.000000"}, // too long to be reduced
        {"format: 'decimal', min_value: '0.1', format_addin: '^0 ppi'", "300", u"0", u"0.1 ppi", "0.1"},
        {"format: 'decimal', min_value: '0.25', precision: 2", "300.5", u"0", u"0.25", "0.25"},
        {"format: 'decimal', max_value: '9'", "2.5", u"10", u"9.0", "9.0"},
        {"format: 'ratio', max_value: '4'", "3:2", u"5:1", u"4:1", "4:1"},
        {"format: 'whole', max_value: '300'", "3", u"301", u"300", "300"},
        {"format: 'whole', max_value: '9.5'", "3", u"10", u"10", "9.5"},
    };
    for (const auto& [attributes, value, typed, shown, read] : kCorrections) {
        zeve::ZeveInitRecord record;
        record.callback = [](std::int32_t, zeve::EventRecord&, void*) -> std::uint64_t { return 0; };
        dialog.reset(zeve::ZeveNew(&record));
        const std::string view = "dialog(name: 'Field', width: 300) { edit_number(view_id: 11, width: 80, " +
                                 std::string(attributes) + "); }";
        zeve::ZeveAddViewText(dialog.get(), view.c_str());
        (void)zeve::ZeveMakeDialog(dialog.get(), nullptr);
        SetControlText(dialog.get(), kPort, value);
        Type(kPort, typed);
        NumberFieldReader fields(dialog.get());
        EXPECT_EQ(fields.Read(kPort), std::nullopt) << attributes;
        EXPECT_TRUE(fields.HasCorrected()) << attributes;
        EXPECT_EQ(Control(kPort)->text, shown) << attributes;
        NumberFieldReader nextClick(dialog.get());
        EXPECT_EQ(nextClick.Read(kPort), read) << attributes;
        EXPECT_FALSE(nextClick.HasCorrected()) << attributes;
    }
}

TEST_F(NumberFields, AfterACorrectionShowNoSecondMessageForTheSameClick) {
    Type(kPort, u"70000");
    Type(kWeight, u"about 0.25 kg");
    NumberFieldReader fields(dialog.get());
    (void)fields.Read(kPort);
    EXPECT_EQ(fields.Read(kWeight), std::nullopt);
    EXPECT_EQ(Messages(), 1u);
    EXPECT_EQ(Control(kWeight)->text, u"about 0.25 kg");
    EXPECT_EQ(System().focus, Control(kPort)->handle);
}

TEST_F(NumberFields, MayVanishWhileTheirMessageIsShown) {
    Type(kPort, u"70000");
    System().duringErrorMessage = [this] { dialog.reset(); };
    NumberFieldReader fields(dialog.get());
    EXPECT_EQ(fields.Read(kPort), std::nullopt);
    EXPECT_TRUE(fields.HasCorrected());
}

TEST_F(NumberFields, ThrowTheExceptionThatTheFocusRaised) {
    Type(kPort, u"70000");
    System().duringErrorMessage = [] {
        try {
            throw std::runtime_error("of a window procedure");
        } catch (const std::runtime_error&) {
            zeve::KeepException();
        }
    };
    NumberFieldReader fields(dialog.get());
    EXPECT_THROW((void)fields.Read(kPort), std::runtime_error);
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
