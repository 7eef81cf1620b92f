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

TEST_F(NumberFields, CanBeReadAsTheyAreShown) {
    Type(kWeight, u"about 3,50 kg");
    System().decimalSign = ",";
    NumberFieldReader fields(dialog.get());
    EXPECT_EQ(fields.ReadShown(kWeight), "3.50");
    EXPECT_EQ(fields.ReadShown(kPort), "80");
    EXPECT_EQ(fields.ReadShown(kTitle), std::nullopt) << "its check box is not set";
    EXPECT_EQ(fields.ReadShown(99), std::nullopt);
    EXPECT_FALSE(fields.HasCorrected());
    Type(kPort, u"70000");
    EXPECT_EQ(fields.ReadShown(kPort), std::nullopt);
    EXPECT_TRUE(fields.HasCorrected());
    EXPECT_EQ(Messages(), 1u);
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
