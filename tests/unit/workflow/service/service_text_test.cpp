#include "workflow/service/service_text.h"

#include "values/unicode/text_conversion.h"

#include <gtest/gtest.h>

namespace brixen::pvn::pvn_workflow {
namespace {

TEST(Showable, OneLineOfOrdinaryTextIs) {
    for (const char* const text :
         {"a", "A text, with marks: & < > % $$$/pvn", "ünï € 😀", "אבג عربي 日本語", "tab-less"}) {
        EXPECT_TRUE(IsShowable(text, 100)) << text;
    }
}

TEST(Showable, AnEmptyOrLongTextIsNot) {
    EXPECT_FALSE(IsShowable("", 10));
    EXPECT_TRUE(IsShowable("1234567890", 10));
    EXPECT_FALSE(IsShowable("12345678901", 10));
    EXPECT_TRUE(IsShowable("😀😀", 2)) << "characters count, not units";
    EXPECT_FALSE(IsShowable("😀😀", 1));
}

TEST(Showable, TextThatIsNoUtf8IsNot) {
    for (const char* const text : {"\xFF", "a\xC3", "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\x80"}) {
        EXPECT_FALSE(IsShowable(text, 100)) << text;
    }
}

TEST(Showable, ControlAndDirectionCharactersAreNot) {
    for (const char16_t unit :
         {u'\x01',   u'\t',     u'\n',     u'\r',     u'\x1F',   u'\x7F',   u'\x80',   u'\x9F',
          u'\x061C', u'\x200B', u'\x200E', u'\x200F', u'\x2028', u'\x2029', u'\x202A', u'\x202E',
          u'\x2060', u'\x2066', u'\x2069', u'\x206F', u'\xFEFF', u'\xFFF9', u'\xFFFE', u'\xFFFF'}) {
        EXPECT_FALSE(IsShowable(lyr::gen::ToUtf8(std::u16string(u"a") + unit + u"b"), 100)) << int(unit);
    }
    EXPECT_FALSE(IsShowable(std::string_view("a\0b", 3), 100));
    EXPECT_FALSE(IsShowable(lyr::gen::ToUtf8(u"a\U000E0041"), 100)) << "an invisible tag";
    for (const char16_t unit :
         {u' ', u'~', u'\xA0', u'\xAD', u'\xAE', u'\x200C', u'\x200D', u'\xFE0F', u'\x061B', u'\x061D',
          u'\x200A', u'\x2010', u'\x2027', u'\x202F', u'\x205F', u'\x2070', u'\xFFEF', u'\xFFFD'}) {
        EXPECT_TRUE(IsShowable(lyr::gen::ToUtf8(std::u16string(u"a") + unit + u"b"), 100)) << int(unit);
    }
}

TEST(NeutralLine, KeepsOneLineOfOrdinaryText) {
    EXPECT_EQ(NeutralLine(u"a & <b> אבג عربي 日本語 \U0001F600"), u"a & <b> אבג عربي 日本語 \U0001F600");
    EXPECT_EQ(NeutralLine(u""), u"");
}

// Ordinary text of Persian, Hindi, German and Japanese, and pictures of several signs.
TEST(NeutralLine, KeepsWhatOnlyShapesLetters) {
    for (const char16_t* const text :
         {u"می\u200Cخواهم", u"क्\u200Dष", u"Dampf\u00ADschiff", u"辻\U000E0100", u"葛\U000E01EF",
          u"❤\uFE0E\uFE00", u"\U0001F468\u200D\U0001F469\u200D\U0001F467", u"❤\uFE0F\u200D\U0001F525"}) {
        EXPECT_EQ(NeutralLine(text), text) << lyr::gen::ToUtf8(text);
        EXPECT_TRUE(IsShowable(lyr::gen::ToUtf8(text), 20)) << lyr::gen::ToUtf8(text);
    }
}

TEST(NeutralLine, HasBlanksForTabsAndBreaks) { EXPECT_EQ(NeutralLine(u"a\tb\nc\rd"), u"a b c d"); }

TEST(NeutralLine, ShowsWhatWouldHideOrReorder) {
    for (const char16_t unit : {u'\x01', u'\x7F', u'\x85', u'\x061C', u'\x200B', u'\x200E', u'\x200F',
                                u'\x2028', u'\x202E', u'\x2066', u'\x2069', u'\xFEFF', u'\xFFFF'}) {
        EXPECT_EQ(NeutralLine(std::u16string(u"a") + unit + u"b"), u"a\uFFFDb") << int(unit);
    }
    EXPECT_EQ(NeutralLine(std::u16string_view(u"a\0b", 3)), u"a\uFFFDb");
    EXPECT_EQ(NeutralLine(u"a\U000E0041\U000E0042"), u"a\uFFFD\uFFFD") << "one for each character";
    for (const char16_t* const text : {u"\U000E0000", u"\U000E00FF", u"\U000E01F0", u"\U000E0FFF"}) {
        EXPECT_EQ(NeutralLine(text), u"\uFFFD") << lyr::gen::ToUtf8(text);
        EXPECT_FALSE(IsShowable(lyr::gen::ToUtf8(text), 10)) << lyr::gen::ToUtf8(text);
    }
    EXPECT_EQ(NeutralLine(u"\U000DFFFF\U000E1000"), u"\U000DFFFF\U000E1000");
    EXPECT_EQ(NeutralLine(u"\xD83D!\xDE00\xD83D"), u"\uFFFD!\uFFFD\uFFFD") << "half a pair";
}

TEST(NeutralLine, IsShowable) {
    std::u16string all;
    for (char32_t unit = 0; unit <= 0xFFFF; ++unit) all += static_cast<char16_t>(unit);
    EXPECT_TRUE(IsShowable(lyr::gen::ToUtf8(NeutralLine(all)), all.size()));
}

TEST(ConfirmationNumber, IsOneTo32LettersDigitsAndHyphens) {
    for (const char* const text : {"A", "7C2F-91D0", "-", "azAZ09", "12345678901234567890123456789012"}) {
        EXPECT_TRUE(IsConfirmationNumber(text)) << text;
    }
    for (const char* const text : {"", "123456789012345678901234567890123", "A B", "A_B", "A\n", "\xC3\x84",
                                   "A&B", "@", "[", "`", "{", "/", ":"}) {
        EXPECT_FALSE(IsConfirmationNumber(text)) << text;
    }
    EXPECT_FALSE(IsConfirmationNumber(std::string_view("A\0", 2)));
}

TEST(TextForStatic, DoublesTheMarkOfAccessKeys) {
    EXPECT_EQ(TextForStatic("Smith & Sons && Co"), "Smith && Sons &&&& Co");
    EXPECT_EQ(TextForStatic("&"), "&&");
    EXPECT_EQ(TextForStatic("plain"), "plain");
    EXPECT_EQ(TextForStatic(""), "");
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
