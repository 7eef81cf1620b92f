#include "dictionaries/value_decoding.h"

#include "dictionaries/entity_table.h"

#include "dictionary_support.h"

#include <string>
#include <utility>
#include <vector>

using namespace kestrel_private;

namespace {

class ValueDecoding : public pavane_test::DictionaryTest {};

std::u16string U16(std::initializer_list<char16_t> units) { return {units}; }

TEST_F(ValueDecoding, ReplacesEveryEscapeOfItsTables) {
    const std::vector<std::pair<std::u16string, char16_t>> rows = {
        {u"^Q", 0x0022}, {u"^[", 0x201C},   {u"^]", 0x201D},  {u"^{", 0x2018},  {u"^}", 0x2019},
        {u"^C", 0x00A9}, {u"^R", 0x00AE},   {u"^T", 0x2122},  {u"^D", 0x00B0},  {u"^B", 0x2022},
        {u"^#", 0x2318}, {u"^!", 0x00AC},   {u"^I", 0x2206},  {u"^S", 0x2211},  {u"^n", 0x000A},
        {u"^r", 0x000D}, {u"\\\"", 0x0022}, {u"\\n", 0x000A}, {u"\\r", 0x000D}, {u"\\t", 0x0009},
        {u"\\b", 0x0008}};
    for (const auto& [form, unit] : rows) {
        EXPECT_EQ(DecodeValue(u"a" + form + u"b"), u"a" + U16({unit}) + u"b");
    }
}

TEST_F(ValueDecoding, LeavesLeadsWithoutARow) {
    EXPECT_EQ(DecodeValue(u"^Cthe"), u"\u00A9the");
    EXPECT_EQ(DecodeValue(u"^\""), u"^\"");
    EXPECT_EQ(DecodeValue(u"^0"), u"^0");
    EXPECT_EQ(DecodeValue(u"^e\\Q\\[^t"), u"^e\\Q\\[^t");
    EXPECT_EQ(DecodeValue(u"^^"), u"^");
    EXPECT_EQ(DecodeValue(u"\\\\n"), u"\\n");
    EXPECT_EQ(DecodeValue(u"^\\n"), u"^\\n");
    EXPECT_EQ(DecodeValue(u"Size ^0^"), u"Size ^0^");
    EXPECT_EQ(DecodeValue(u"\\"), u"\\");
    EXPECT_EQ(DecodeValue(u""), u"");
}

TEST_F(ValueDecoding, FixesTheCaretTableAtTheFirstDecoding) {
    State().accentedEscapes = true;
    EXPECT_EQ(DecodeValue(u"^e"), u"\u00E9");
    State().accentedEscapes = false;
    EXPECT_EQ(DecodeValue(u"^e"), u"\u00E9");
    ResetState();
    EXPECT_EQ(DecodeValue(u"^e"), u"^e");
    State().accentedEscapes = true;
    EXPECT_EQ(DecodeValue(u"^e"), u"^e");
}

TEST_F(ValueDecoding, ReplacesHexForms) {
    EXPECT_EQ(DecodeValue(u"#{U+0041}"), u"A");
    for (const char16_t* const form : {u"#{U+2318}", u"#{u2318}", u"#{2318}"})
        EXPECT_EQ(DecodeValue(form), u"\u2318");
    EXPECT_EQ(DecodeValue(u"#{a}"), u"\n");
    EXPECT_EQ(DecodeValue(u"#{uFfeE}"), U16({0xFFEE}));
    EXPECT_EQ(DecodeValue(u"#{0}"), std::u16string(1, u'\0'));
}

TEST_F(ValueDecoding, LeavesWhatIsNoEntity) {
    for (const char16_t* const text :
         {u"#{}",      u"#{xyz}",    u"#",        u"#{",       u"#{a",       u"#{U+}",  u"#{u}",
          u"#{12345}", u"#{copy",    u"#{copy }", u"#{ copy}", u"#{plusmn}", u"#{yen}", u"#{ouml}",
          u"#{zwnj}",  u"#{U+00g1}", u"#{Copy}",  u"##",       u"#{U+0041",  u"{copy}"}) {
        EXPECT_EQ(DecodeValue(text), text);
    }
}

TEST_F(ValueDecoding, GivesEveryNameItsCode) {
    const std::vector<std::pair<std::u16string, std::u16string>> rows = {
        {u"endl", u"\r\n"},     {u"tab", u"\t"},        {u"cr", u"\r"},         {u"lf", u"\n"},
        {u"nbsp", u"\u00A0"},   {u"copy", u"\u00A9"},   {u"plusm", u"\u00B1"},  {u"szlig", u"\u00DF"},
        {u"Ouml", u"\u00D6"},   {u"yuml", u"\u00FF"},   {u"quot", u"\""},       {u"amp", u"&"},
        {u"lt", u"<"},          {u"gt", u">"},          {u"OElig", u"\u0152"},  {u"Scaron", u"\u0160"},
        {u"Yuml", u"\u0178"},   {u"circ", u"\u02C6"},   {u"tilde", u"\u02DC"},  {u"ensp", u"\u2002"},
        {u"emsp", u"\u2003"},   {u"thinsp", u"\u2009"}, {u"zwj", u"\u200D"},    {u"lrm", u"\u200E"},
        {u"rlm", u"\u200F"},    {u"ndash", u"\u2013"},  {u"mdash", u"\u2014"},  {u"lsquo", u"\u2018"},
        {u"rsquo", u"\u2019"},  {u"sbquo", u"\u201A"},  {u"ldquo", u"\u201C"},  {u"rdquo", u"\u201D"},
        {u"bdquo", u"\u201E"},  {u"dagger", u"\u2020"}, {u"Dagger", u"\u2021"}, {u"permil", u"\u2030"},
        {u"lsaquo", u"\u2039"}, {u"rsaquo", u"\u203A"}, {u"euro", u"\u20AC"}};
    for (const auto& [name, text] : rows) EXPECT_EQ(DecodeValue(u"#{" + name + u"}"), text);
}

// The Latin-1 names stand in the order of their codes, from 0xA0 to 0xFF without a gap.
TEST_F(ValueDecoding, HoldsAllOfLatin1InOrder) {
    constexpr std::size_t kFirstLatin1 = 4;
    for (std::size_t i = 0; i < 96; ++i) EXPECT_EQ(kEntities[kFirstLatin1 + i].unit, 0xA0 + i);
    EXPECT_EQ(kEntities.size(), 4u + 128u);
}

TEST_F(ValueDecoding, DoesNotScanReplacedTextAgain) {
    EXPECT_EQ(DecodeValue(u"#{23}{a}"), u"#{a}");
    EXPECT_EQ(DecodeValue(u"#{5E}C"), u"^C");
    EXPECT_EQ(DecodeValue(u"##{a}"), u"#\n");
    EXPECT_EQ(DecodeValue(u"#{#{a}"), u"#{\n");
}

TEST_F(ValueDecoding, TakesEscapesBeforeEntities) {
    EXPECT_EQ(DecodeValue(u"^#{a}"), u"\u2318{a}");
    EXPECT_EQ(DecodeValue(u"#^{a}"), u"#\u2018a}");
    EXPECT_EQ(DecodeValue(u"#\\{a}"), u"#\\{a}");
}

TEST_F(ValueDecoding, HoldsOutAtEveryEndOfEveryForm) {
    const std::u16string whole = u"^C\\n#{endl}#{U+0041}#{u41}#{zwnj}^^\\\\^0#";
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const std::u16string cut = whole.substr(0, length);
        EXPECT_LE(DecodeValue(cut).size(), cut.size());
    }
}

} // namespace
