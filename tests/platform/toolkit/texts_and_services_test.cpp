#include "toolkit/platform/toolkit_platform.h"

#include <string_view>
#include <vector>

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
    const TextMeter meter(font);
    EXPECT_EQ(meter.MeasureText(u"").width, 0);
    EXPECT_EQ(meter.MeasureText(u"").height, 0);
    EXPECT_EQ(meter.MeasureBeginnings(u"", nullptr), 0);
}

TEST_F(Texts, AllTextsOfAFontAreOneLineHighAndLongerOnesWider) {
    const TextMeter meter(font);
    const Extent one = meter.MeasureText(u"n"), ten = meter.MeasureText(u"nnnnnnnnnn");
    EXPECT_GT(one.width, 0);
    EXPECT_GT(one.height, 5);
    EXPECT_EQ(ten.width, 10 * one.width);
    EXPECT_EQ(ten.height, one.height);
}

TEST_F(Texts, EachBeginningIsAsWideAsMeasuredAlone) {
    const TextMeter meter(font);
    const std::u16string_view text = u"AVA To; \x3042\x3044 fi \xE4\xD83D\xDE00!";
    std::vector<std::int32_t> widths(text.size(), -1);
    EXPECT_EQ(meter.MeasureBeginnings(text, widths.data()), meter.MeasureText(u"n").height);
    for (std::size_t units = 1; units <= text.size(); ++units) {
        if (text[units - 1] == 0xD83D) continue; // half a character
        EXPECT_EQ(widths[units - 1], meter.MeasureText(text.substr(0, units)).width) << units;
    }
}

TEST_F(Texts, OneMeterMeasuresManyTextsAndLeavesTheScreenAsItWas) {
    const Extent before = TextMeter(nullptr).MeasureText(u"nnn");
    {
        const TextMeter meter(font);
        const Extent first = meter.MeasureText(u"nnn");
        EXPECT_EQ(meter.MeasureText(u"nnn").width, first.width);
        EXPECT_EQ(TextMeter(nullptr).MeasureText(u"nnn").width, before.width);
        EXPECT_EQ(meter.MeasureText(u"nnn").width, first.width);
    }
    EXPECT_EQ(TextMeter(nullptr).MeasureText(u"nnn").width, before.width);
}

TEST(Fonts, TheStockFontHasAFaceAndAHeight) {
    const FontRecord record = StockSystemFont();
    EXPECT_NE(record.height, 0);
    EXPECT_NE(record.face[0], u'\0');
}

TEST(Fonts, ANullFontIsHarmless) {
    EXPECT_GT(TextMeter(nullptr).MeasureText(u"text").width, 0);
    DeleteFont(nullptr);
}

TEST(UserSettings, TheDecimalSignIsThatOfTheUser) { EXPECT_EQ(DecimalSign(), "."); }

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
