#include "workflow/catalogue/text_checks.h"

#include "unit/workflow/panes/dialog_fixture.h"
#include "workflow/catalogue/connection_settings_pane.h"

namespace brixen::pvn::pvn_workflow {
namespace {

TEST(TextChecks, BlanksAndControlsAreOfEveryKind) {
    for (const char16_t unit :
         u"\t\r\n \u00A0\u061C\u1680\u2003\u200B\u200F\u2028\u202E\u2066\u3000\uFEFF\x7F\x85")
        EXPECT_TRUE(IsBlankOrControl(unit)) << static_cast<int>(unit);
    for (const char16_t unit : std::u16string_view(u"!a~\u00A1\u00E4\u05D0\u3042\u4E2D"))
        EXPECT_FALSE(IsBlankOrControl(unit)) << static_cast<int>(unit);
}

TEST(TextChecks, TrimmingKeepsBlanksInside) {
    EXPECT_EQ(Trimmed(u" \u3000Ann Example\t"), u"Ann Example");
    EXPECT_EQ(Trimmed(u" \t "), u"");
    EXPECT_EQ(Trimmed(u""), u"");
    EXPECT_EQ(Trimmed(u"x"), u"x");
}

TEST(TextChecks, AMailAddressHasANameAndAHostWithAPeriod) {
    for (const char16_t* good : {u"a@b.c", u"ann.example+news@mail.example.com", u"\u3042@\u4F8B.jp"})
        EXPECT_TRUE(IsMailAddress(good));
    for (const char16_t* bad : {u"", u"@", u"a@", u"@b.c", u"a@b", u"a@.b", u"a@b.", u"a@b..c", u"a@b@c.d",
                                u"a b@c.d", u"a@b .c", u"a.b", u"a@b\u3000.c"})
        EXPECT_FALSE(IsMailAddress(bad)) << std::string(bad, bad + std::u16string_view(bad).size());
}

TEST(TextChecks, AMailAddressIsNotTooLong) {
    EXPECT_TRUE(IsMailAddress(std::u16string(64, u'a') + u"@b.c"));
    EXPECT_FALSE(IsMailAddress(std::u16string(65, u'a') + u"@b.c"));
    EXPECT_TRUE(IsMailAddress(u"a@b." + std::u16string(250, u'c')));
    EXPECT_FALSE(IsMailAddress(u"a@b." + std::u16string(251, u'c')));
}

TEST(TextChecks, ASerialNumberIsLettersDigitsAndHyphensOfAscii) {
    for (const char16_t* good : {u"A", u"z", u"0", u"9", u"-", u"ABC-123-xyz"})
        EXPECT_TRUE(IsSerialNumber(good));
    EXPECT_TRUE(IsSerialNumber(std::u16string(40, u'A')));
    EXPECT_FALSE(IsSerialNumber(std::u16string(41, u'A')));
    for (const char16_t* bad :
         {u"", u"A B", u"A_B", u"A.B", u"\u00C4", u"\uFF21", u"@", u"[", u"`", u"{", u"/", u":"})
        EXPECT_FALSE(IsSerialNumber(bad));
}

TEST(TextChecks, AHostHasNoneOfTheForbiddenCharacters) {
    for (const char16_t* good :
         {u"proxy", u"proxy.example.com", u"10.0.0.1", u"[::1]", u"proxy-2", u"a_b", u"xn--p1ai", u"!~"})
        EXPECT_TRUE(IsHostName(good));
    for (const char16_t* bad :
         {u"",         u" ",    u"a b",       u"a@b",         u"a/b",  u"a;b",  u"a=b",      u"a\\b",
          u"a\tb",     u"a\nb", u"a:80",      u"::1",         u"[::1", u"::1]", u"http://a", u"a\u00A0b",
          u"a\u202Eb", u" a",   u"a ",        u"[",           u"]",    u"[]",   u"a[b]",     u"[a]b",
          u"[a]]",     u":",    u"\u4F8B.jp", u"m\u00FCller", u"a\x7F"})
        EXPECT_FALSE(IsHostName(bad)) << std::string(bad, bad + std::u16string_view(bad).size());
}

TEST(TextChecks, APortIsDigitsAlone) {
    EXPECT_EQ(PortOf(u"1"), 1);
    EXPECT_EQ(PortOf(u"3128"), 3128);
    EXPECT_EQ(PortOf(u"65535"), 65535);
    EXPECT_EQ(PortOf(u"0080"), 80);
    EXPECT_EQ(PortOf(u" 80\t"), 80) << "with blanks at its ends";
    for (const char16_t* bad : {u"",
                                u" ",
                                u"0",
                                u"65536",
                                u"99999999999999999999",
                                u"+80",
                                u"-80",
                                u"8.8",
                                u"3,128",
                                u"5e4",
                                u".5e5",
                                u"80/2",
                                u"3:128",
                                u"80ab",
                                u"a80",
                                u"8 0",
                                u"0x50",
                                u"\uFF18\uFF10",
                                u"80:",
                                u"80/"})
        EXPECT_FALSE(PortOf(bad)) << std::string(bad, bad + std::u16string_view(bad).size());
}

TEST(ProxyHost, IsRefusedAndNeverCutWhenItIsTooLong) {
    EXPECT_FALSE(FaultOfProxyHost(std::u16string(128, u'a')));
    EXPECT_TRUE(FaultOfProxyHost(std::u16string(129, u'a')));
    EXPECT_TRUE(FaultOfProxyHost(u""));
}

TEST(SendableText, EndsItsLinesWithALineFeed) {
    EXPECT_EQ(SendableText(u"a\r\nb\rc\nd\r\r\ne\r"), u"a\nb\nc\nd\n\ne\n");
}

TEST(SendableText, KeepsTabsAndDropsOtherControls) {
    EXPECT_EQ(SendableText(u"a\tb\x01\x1F\x7F\x80\x9F\xFFFE\xFFFF\xA0-c"), u"a\tb\xA0-c");
    EXPECT_EQ(SendableText(std::u16string_view(u"a\0b", 3)), u"ab");
}

TEST(SendableText, ReplacesHalfASurrogatePair) {
    EXPECT_EQ(SendableText(u"\U0001F4F7"), u"\U0001F4F7");
    EXPECT_EQ(SendableText(u"\xD83D!\xDCF7\xD83D"), u"\xFFFD!\xFFFD\xFFFD");
}

TEST(SendableLine, IsOneLineWithoutBlanksAtItsEnds) {
    EXPECT_EQ(SendableLine(u" \u3000a\tb\r\nc\u2028d\u2029 "), u"a b c d");
    EXPECT_EQ(SendableLine(u"\t\n"), u"");
}

TEST(SendableName, IsOneLineThatHidesNothing) {
    EXPECT_EQ(SendableName("Salt & Sugar"), "Salt & Sugar");
    EXPECT_EQ(SendableName(" Salt\r\n\tSugar\x01 "), "Salt  Sugar");
    EXPECT_EQ(SendableName("Salt\u202Eraguz"), "Salt\uFFFDraguz");
    EXPECT_EQ(SendableName("نرم\u200Cافزار ❤\uFE0F"), "نرم\u200Cافزار ❤\uFE0F") << "ordinary text";
    EXPECT_EQ(SendableName("S\xFC\xDF \xE2\x82"), "S\uFFFD\uFFFD \uFFFD\uFFFD");
    EXPECT_EQ(SendableName(""), "");
}

TEST(SendableName, HasAtMost128Units) {
    EXPECT_EQ(SendableName(std::string(128, 'x')), std::string(128, 'x'));
    EXPECT_EQ(SendableName(std::string(129, 'x')), std::string(128, 'x'));
    EXPECT_EQ(SendableName(std::string(127, 'x') + "\U0001F600"), std::string(127, 'x'));
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
