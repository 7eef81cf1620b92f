#include "workflow/platform/text_drawing.h"

#include <string_view>

#include <gtest/gtest.h>

namespace brixen::pvn::pvn_workflow::platform {
namespace {

namespace toolkit = zeve::platform;

class TextInAWindow : public ::testing::Test {
protected:
    TextInAWindow() {
        toolkit::WindowRequest request;
        request.className = u"#32770";
        request.style = 0x80C00000;
        request.width = request.height = 300;
        request.instance = toolkit::LibraryModule();
        window = toolkit::MakeWindow(request);
        toolkit::FontRecord record = toolkit::StockSystemFont();
        record.height = -11;
        record.width = 0;
        record.weight = 400;
        record.underline = 1;
        std::u16string_view(u"Tahoma\0", 7).copy(record.face, toolkit::kFaceUnits);
        font = toolkit::MakeFont(record);
    }
    ~TextInAWindow() override {
        toolkit::CloseWindow(window);
        toolkit::DeleteFont(font);
    }

    toolkit::Rectangle Measure(std::u16string_view text) const {
        return MeasureTextIn(window, font, text, {10, 20, 290, 290}, kTextBreaksLines);
    }

    zeve::NativeWindow window = nullptr;
    zeve::NativeFont font = nullptr;
};

TEST_F(TextInAWindow, BeginsAtTheTopLeftOfItsArea) {
    const toolkit::Rectangle area = Measure(u"n");
    EXPECT_EQ(area.left, 10);
    EXPECT_EQ(area.top, 20);
    EXPECT_GT(area.Width(), 0);
    EXPECT_GT(area.Height(), 5);
}

TEST_F(TextInAWindow, IsAsWideAsItsCharacters) {
    EXPECT_EQ(Measure(u"nnnn").Width(), 4 * Measure(u"n").Width());
    EXPECT_GT(Measure(u"n ").Width(), Measure(u"n").Width()) << "a blank at the end counts";
}

TEST_F(TextInAWindow, NothingTakesNoRoom) {
    const toolkit::Rectangle area = Measure(u"");
    EXPECT_EQ(area.left, 10);
    EXPECT_EQ(area.right, 10);
    EXPECT_EQ(area.bottom, 20);
    EXPECT_EQ(MeasureTextIn(nullptr, font, u"n", {1, 2, 3, 4}, 0).right, 1);
}

TEST_F(TextInAWindow, AFontHasTheRecordItWasMadeFrom) {
    const auto record = FontRecordOf(font);
    ASSERT_TRUE(record);
    EXPECT_EQ(record->height, -11);
    EXPECT_EQ(record->weight, 400);
    EXPECT_EQ(record->underline, 1);
    EXPECT_EQ(std::u16string_view(record->face), u"Tahoma");
    EXPECT_TRUE(FontRecordOf(StockFont(kStockSystemFont)));
    EXPECT_FALSE(FontRecordOf(nullptr));
    EXPECT_FALSE(FontRecordOf(reinterpret_cast<zeve::NativeFont>(std::uintptr_t(0x12345677))));
}

TEST(TextWithoutADevice, IsHarmless) {
    DrawTextIn(nullptr, u"text", {0, 0, 10, 10}, {});
    DrawFocusFrame(nullptr, {0, 0, 10, 10});
    EXPECT_EQ(TextColorOf(nullptr), 0u);
}

} // namespace
} // namespace brixen::pvn::pvn_workflow::platform
