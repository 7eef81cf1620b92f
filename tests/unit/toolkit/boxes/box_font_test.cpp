#include "toolkit/boxes/box_font.h"
#include "toolkit/toolkit_state.h"
#include "unit/toolkit/boxes/box_fixture.h"

#include <gtest/gtest.h>

namespace brixen::zeve {
namespace {

// The numbers passed to MakeFont: height, weight, italic, underline, character set.
using FontNumbers = std::vector<std::int64_t>;

class BoxFontTest : public BoxTest {
protected:
    headless::Call Made(const Attributes& attributes, std::int32_t dpi = 96) {
        CExpressionScope scope;
        for (const Attribute& attribute : attributes) {
            scope.DefineNumber(attribute.name, std::get<std::int64_t>(attribute.value));
        }
        platform::DeleteFont(MakeBoxFont(scope, dpi));
        return headless::CallsOf("MakeFont").back();
    }
    FontNumbers Numbers(const Attributes& attributes, std::int32_t dpi = 96) {
        return Made(attributes, dpi).numbers;
    }
};

TEST_F(BoxFontTest, TheFontAttributeSelectsSizeAndWeight) {
    struct Case {
        std::int64_t font;
        std::int64_t height, weight;
    };
    for (const Case& test :
         {Case{32000, -10, 400}, Case{32001, -10, 700}, Case{32002, -10, 400}, Case{32003, -10, 700},
          Case{32004, -14, 400}, Case{32005, -14, 700}, Case{32006, -14, 400}, Case{32007, -14, 700},
          Case{31999, -14, 400}, Case{32008, -14, 400}, Case{0, -14, 400}, Case{-1, -14, 400}}) {
        EXPECT_EQ(Numbers({{"font", test.font}}), (FontNumbers{test.height, test.weight, 0, 0, 0}))
            << test.font;
    }
    EXPECT_EQ(Numbers({}), (FontNumbers{-14, 400, 0, 0, 0}));
}

TEST_F(BoxFontTest, OnlyFourFontsAreAlignedRight) {
    for (std::int64_t font = 31999; font <= 32008; ++font) {
        const bool expected = font == 32002 || font == 32003 || font == 32006 || font == 32007;
        EXPECT_EQ(IsRightFont(font), expected) << font;
    }
}

TEST_F(BoxFontTest, StyleFlagsAddUpAndABoldFontIsAlwaysBold) {
    EXPECT_EQ(Numbers({{"font_style", 1}}), (FontNumbers{-14, 700, 0, 0, 0}));
    EXPECT_EQ(Numbers({{"font_style", 2}}), (FontNumbers{-14, 400, 1, 0, 0}));
    EXPECT_EQ(Numbers({{"font_style", 4}}), (FontNumbers{-14, 400, 0, 1, 0}));
    EXPECT_EQ(Numbers({{"font_style", 7}}), (FontNumbers{-14, 700, 1, 1, 0}));
    EXPECT_EQ(Numbers({{"font", 32005}, {"font_style", 6}}), (FontNumbers{-14, 700, 1, 1, 0}));
    EXPECT_EQ(Numbers({{"font", 32005}, {"font_style", 1}}), (FontNumbers{-14, 700, 0, 0, 0}));
    EXPECT_EQ(Numbers({{"font_style", 8 + 16 + 32 + 64}}), (FontNumbers{-14, 400, 0, 0, 0}));
}

TEST_F(BoxFontTest, TheHeightIsCutTowardZero) {
    EXPECT_EQ(Numbers({{"font_size", 9}})[0], -12);
    EXPECT_EQ(Numbers({{"font_size", 10}})[0], -13);      // 13.33
    EXPECT_EQ(Numbers({{"font_size", 11}}, 120)[0], -18); // 18.33
    EXPECT_EQ(Numbers({{"font_size", 0}})[0], 0);
    EXPECT_EQ(Numbers({{"font_size", -10}})[0], 13);
    EXPECT_EQ(Numbers({{"font", 32000}, {"font_size", 20}})[0], -26);
}

TEST_F(BoxFontTest, AnySizeMakesAFont) {
    for (const std::int64_t size : {INT64_MIN, INT64_MAX, std::int64_t{INT32_MIN}}) {
        EXPECT_EQ(Numbers({{"font_size", size}}).size(), 5u);
    }
}

TEST_F(BoxFontTest, AFontTakesItsOtherSettingsFromTheStockFont) {
    headless::State().stockFont.strikeOut = 1;
    headless::State().stockFont.orientation = 900;
    const CExpressionScope none;
    const platform::FontRecord& record = headless::State().fonts.at(MakeBoxFont(none, 96));
    EXPECT_EQ(record.strikeOut, 1);
    EXPECT_EQ(record.orientation, 900);
}

TEST_F(BoxFontTest, EveryFontHasTheSamePrecisionAndQuality) {
    const CExpressionScope none;
    for (const NativeFont font : {MakeBoxFont(none, 96), MakeNarrowFont(96)}) {
        const platform::FontRecord& record = headless::State().fonts.at(font);
        EXPECT_EQ(record.width, 0);
        EXPECT_EQ(record.outputPrecision, 2);
        EXPECT_EQ(record.clippingPrecision, 0);
        EXPECT_EQ(record.quality, 2);
        EXPECT_EQ(record.pitchAndFamily, 0x22);
    }
}

TEST_F(BoxFontTest, TheLanguageSelectsFaceAndCharacterSet) {
    struct Case {
        const char* language;
        const char16_t* wide;
        const char16_t* narrow;
        std::int64_t characterSet;
    };
    const Case cases[] = {
        {"ja-jp", u"MS UI Gothic", u"MS UI Gothic", 128},
        {"ja_JP", u"MS UI Gothic", u"MS UI Gothic", 128},
        {"JA?jp.x", u"MS UI Gothic", u"MS UI Gothic", 128},
        {"ko_KR", u"Gulim", u"Gulim", 129},
        {"zh_TW", u"MingLiU", u"MingLiU", 136},
        {"zh_CN", u"SimSun", u"SimSun", 134},
        {"zh", u"Tahoma", u"MS Sans Serif", 0},
        {"", u"Tahoma", u"MS Sans Serif", 0},
        {"de_DE", u"Tahoma", u"MS Sans Serif", 0},
    };
    for (const Case& test : cases) {
        SetFontLanguage(test.language);
        const headless::Call wide = Made({});
        EXPECT_EQ(wide.text, test.wide) << test.language;
        EXPECT_EQ(wide.numbers.back(), test.characterSet) << test.language;
        platform::DeleteFont(MakeNarrowFont(96));
        const headless::Call narrow = headless::CallsOf("MakeFont").back();
        EXPECT_EQ(narrow.text, test.narrow) << test.language;
        EXPECT_EQ(narrow.numbers, (FontNumbers{test.characterSet ? 12 : 15, 400, 0, 0, test.characterSet}));
    }
}

TEST_F(BoxFontTest, TheLanguageOfTheViewPreparedLastHoldsForAll) {
    Prepare("slider", {{"__languageInfo", "ja_JP"}});
    EXPECT_EQ(Made({}).text, u"MS UI Gothic");
    Prepare("slider");
    EXPECT_EQ(Made({}).text, u"Tahoma");
    EXPECT_EQ(gToolkit.languageInfo, "");
}

TEST_F(BoxFontTest, ADictionaryReplacesTheWideFaceAtTheNextMeasuring) {
    Translate("$$$/brixen/zeve/win/big_font=Verdana");
    CEveBox& line = Make("separator");
    EXPECT_EQ(headless::CallsOf("MakeFont").back().text, u"Tahoma");
    EXPECT_NE(line.font, nullptr);
    Make("button", {{"name", "OK"}});
    EXPECT_EQ(headless::CallsOf("MakeFont").back().text, u"Verdana");
    Make("separator");
    EXPECT_EQ(headless::CallsOf("MakeFont").back().text, u"Verdana");
    Make("popup", {{"items", "One{1}"}});
    const auto fonts = headless::CallsOf("MakeFont");
    EXPECT_EQ(fonts[fonts.size() - 2].text, u"MS Sans Serif");
    EXPECT_EQ(fonts.back().text, u"Verdana");
}

TEST_F(BoxFontTest, AFaceOfOneCharacterIsIgnored) {
    Translate("$$$/brixen/zeve/win/big_font=\xE3\x81\x82"); // one character of three bytes
    Make("button", {{"name", "OK"}});
    EXPECT_EQ(headless::CallsOf("MakeFont").back().text, u"Tahoma");
}

TEST_F(BoxFontTest, ALongFaceIsCutToTheSizeOfAFontRecord) {
    const std::string face(40, 'x');
    Translate(("$$$/brixen/zeve/win/big_font=" + face).c_str());
    Make("button", {{"name", "OK"}});
    EXPECT_EQ(headless::CallsOf("MakeFont").back().text, std::u16string(31, u'x'));

    gToolkit.bigFace = std::u16string(30, u'x') + u"\xD83D\xDE00"; // the pair would be split
    EXPECT_EQ(Made({}).text, std::u16string(30, u'x'));
}

} // namespace
} // namespace brixen::zeve
