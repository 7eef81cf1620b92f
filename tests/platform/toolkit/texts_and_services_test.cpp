#include "toolkit/platform/toolkit_platform.h"

#include <algorithm>
#include <string>

#include <gtest/gtest.h>

namespace brixen::zeve::platform {
namespace {

class Texts : public ::testing::Test {
protected:
    Texts() {
        FontRecord record = StockSystemFont();
        record.height = -11;
        record.width = 0;
        record.weight = 400;
        std::u16string_view(u"Tahoma\0", 7).copy(record.face, kFaceUnits);
        font = MakeFont(record);
    }
    ~Texts() override { DeleteFont(font); }

    NativeFont font = nullptr;
};

TEST_F(Texts, AnEmptyTextMeasuresNothing) {
    EXPECT_EQ(MeasureText(font, u"").width, 0);
    EXPECT_EQ(MeasureText(font, u"").height, 0);
    EXPECT_EQ(MeasureFitting(font, u"", 100).units, 0u);
}

TEST_F(Texts, AllTextsOfAFontAreOneLineHighAndLongerOnesWider) {
    const Extent one = MeasureText(font, u"n"), ten = MeasureText(font, u"nnnnnnnnnn");
    EXPECT_GT(one.width, 0);
    EXPECT_GT(one.height, 5);
    EXPECT_EQ(ten.width, 10 * one.width);
    EXPECT_EQ(ten.height, one.height);
}

TEST_F(Texts, TheFittingPartIsTheLongestBeginningThatIsNotWider) {
    const std::u16string text(20, u'n');
    const std::int32_t unit = MeasureText(font, u"n").width;
    for (const std::int32_t width : {unit, 3 * unit, 4 * unit - 1, 20 * unit, 1000 * unit}) {
        const FittedText fitted = MeasureFitting(font, text, width);
        EXPECT_EQ(fitted.units, static_cast<std::size_t>(std::min(width / unit, 20))) << width;
        EXPECT_EQ(fitted.extent.width, static_cast<std::int32_t>(fitted.units) * unit);
        EXPECT_EQ(fitted.extent.height, MeasureText(font, u"n").height);
    }
}

TEST_F(Texts, NothingFitsWhereThereIsNoRoom) {
    for (const std::int32_t width : {0, -5}) {
        const FittedText fitted = MeasureFitting(font, u"nnn", width);
        EXPECT_EQ(fitted.units, 0u);
        EXPECT_EQ(fitted.extent.width, 0);
        EXPECT_EQ(fitted.extent.height, 0);
    }
}

TEST(Fonts, TheStockFontHasAFaceAndAHeight) {
    const FontRecord record = StockSystemFont();
    EXPECT_NE(record.height, 0);
    EXPECT_NE(record.face[0], u'\0');
}

TEST(Fonts, ANullFontIsHarmless) {
    EXPECT_GT(MeasureText(nullptr, u"text").width, 0);
    DeleteFont(nullptr);
}

TEST(Resolution, OfTheScreenIsPositive) { EXPECT_GE(ScreenResolution(), 72); }

TEST(Icons, OfTheSystemAreCopied) {
    const NativeIcon icon = CopySystemIcon(32515, 32, 32);
    EXPECT_NE(icon, nullptr);
    DeleteIcon(icon);
    DeleteIcon(nullptr);
}

TEST(Modules, TheLibraryKnowsItself) { EXPECT_NE(LibraryModule(), nullptr); }

TEST(Modules, TheRichEditLibraryCanBeLoadedAndUnloaded) {
    const NativeModule module = LoadRichEdit();
    EXPECT_NE(module, nullptr);
    UnloadModule(module);
    UnloadModule(nullptr);
    RegisterCommonControls();
}

} // namespace
} // namespace brixen::zeve::platform
