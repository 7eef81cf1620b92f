#include "dictionaries/value_decoding.h"

#include "dictionaries/entity_table.h"

#include "unit/dictionaries/dictionary_support.h"

#include <array>
#include <string>
#include <string_view>
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

TEST_F(ValueDecoding, LeavesEscapesThatNoTableHas) {
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

TEST_F(ValueDecoding, LeavesFormsThatAreNoEntity) {
    for (const char16_t* const text :
         {u"#{}",      u"#{xyz}",    u"#",        u"#{",       u"#{a",       u"#{U+}",  u"#{u}",
          u"#{12345}", u"#{copy",    u"#{copy }", u"#{ copy}", u"#{plusmn}", u"#{yen}", u"#{ouml}",
          u"#{zwnj}",  u"#{U+00g1}", u"#{Copy}",  u"##",       u"#{U+0041",  u"{copy}"}) {
        EXPECT_EQ(DecodeValue(text), text);
    }
}

TEST_F(ValueDecoding, ReplacesEveryNameByItsText) {
    EXPECT_EQ(DecodeValue(u"#{endl}"), u"\r\n");
    EXPECT_EQ(DecodeValue(u"#{tab}#{cr}#{lf}"), u"\t\r\n");
    for (const Entity& entity : kEntities) {
        if (entity.second != 0 || entity.name.find(u'\0') != entity.name.npos) continue;
        EXPECT_EQ(DecodeValue(u"a#{" + std::u16string(entity.name) + u"}b"),
                  u"a" + U16({entity.unit}) + u"b");
    }
}

// All names in their order. `yen`, `ouml` and `zwnj` have one more character, which is a NUL.
constexpr std::u16string_view kNames = u"endl tab cr lf "
                                       u"nbsp iexcl cent pound curren yen brvbar sect uml copy "
                                       u"ordf laquo not shy reg macr deg plusm sup2 sup3 "
                                       u"acute micro para middot cedil sup1 ordm raquo frac14 frac12 "
                                       u"frac34 iquest Agrave Aacute Acirc Atilde Auml Aring AElig Ccedil "
                                       u"Egrave Eacute Ecirc Euml Igrave Iacute Icirc Iuml ETH Ntilde "
                                       u"Ograve Oacute Ocirc Otilde Ouml times Oslash Ugrave Uacute Ucirc "
                                       u"Uuml Yacute THORN szlig agrave aacute acirc atilde auml aring "
                                       u"aelig ccedil egrave eacute ecirc euml igrave iacute icirc iuml "
                                       u"eth ntilde ograve oacute ocirc otilde ouml divide oslash ugrave "
                                       u"uacute ucirc uuml yacute thorn yuml quot amp lt gt "
                                       u"OElig oelig Scaron scaron Yuml circ tilde ensp emsp thinsp "
                                       u"zwnj zwj lrm rlm ndash mdash lsquo rsquo sbquo ldquo "
                                       u"rdquo bdquo dagger Dagger permil lsaquo rsaquo euro";

// The codes of the names after those of Latin-1, which are in order from 0xA0 to 0xFF.
constexpr std::array<char16_t, 32> kCodesAfterLatin1 = {
    0x0022, 0x0026, 0x003C, 0x003E, 0x0152, 0x0153, 0x0160, 0x0161, 0x0178, 0x02C6, 0x02DC,
    0x2002, 0x2003, 0x2009, 0x200C, 0x200D, 0x200E, 0x200F, 0x2013, 0x2014, 0x2018, 0x2019,
    0x201A, 0x201C, 0x201D, 0x201E, 0x2020, 0x2021, 0x2030, 0x2039, 0x203A, 0x20AC};

TEST_F(ValueDecoding, KnowsTheseNamesAndNoOther) {
    std::u16string names;
    for (const Entity& entity : kEntities) {
        names += names.empty() ? u"" : u" ";
        const std::u16string_view name = entity.name.substr(0, entity.name.find(u'\0'));
        const bool tooLong = name == u"yen" || name == u"ouml" || name == u"zwnj";
        EXPECT_EQ(entity.name.size(), name.size() + (tooLong ? 1 : 0));
        names += name;
    }
    EXPECT_EQ(names, kNames);
}

TEST_F(ValueDecoding, HasOneUnitForEachNameButTwoForTheLineEnd) {
    constexpr std::size_t kFirstLatin1 = 4;
    constexpr std::size_t kLatin1 = 96;
    ASSERT_EQ(kEntities.size(), kFirstLatin1 + kLatin1 + kCodesAfterLatin1.size());
    for (std::size_t i = 0; i < kLatin1; ++i) EXPECT_EQ(kEntities[kFirstLatin1 + i].unit, 0xA0 + i);
    for (std::size_t i = 0; i < kCodesAfterLatin1.size(); ++i) {
        EXPECT_EQ(kEntities[kFirstLatin1 + kLatin1 + i].unit, kCodesAfterLatin1[i]);
    }
    for (std::size_t i = 1; i < kEntities.size(); ++i) EXPECT_EQ(kEntities[i].second, 0);
}

TEST_F(ValueDecoding, DoesNotScanReplacedTextAgain) {
    EXPECT_EQ(DecodeValue(u"#{23}{a}"), u"#{a}");
    EXPECT_EQ(DecodeValue(u"#{5E}C"), u"^C");
    EXPECT_EQ(DecodeValue(u"##{a}"), u"#\n");
    EXPECT_EQ(DecodeValue(u"#{#{a}"), u"#{\n");
}

TEST_F(ValueDecoding, ReplacesEscapesBeforeEntities) {
    EXPECT_EQ(DecodeValue(u"^#{a}"), u"\u2318{a}");
    EXPECT_EQ(DecodeValue(u"#^{a}"), u"#\u2018a}");
    EXPECT_EQ(DecodeValue(u"#\\{a}"), u"#\\{a}");
}

TEST_F(ValueDecoding, SurvivesACutAtEveryPlaceOfEveryForm) {
    const std::u16string whole = u"^C\\n#{endl}#{U+0041}#{u41}#{zwnj}^^\\\\^0#";
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const std::u16string cut = whole.substr(0, length);
        EXPECT_LE(DecodeValue(cut).size(), cut.size());
    }
}

} // namespace
