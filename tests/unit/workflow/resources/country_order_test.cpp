// The shipped lists of countries are in the order in which a reader of the language looks for a name: by the
// alphabet, word by word, and in Japanese by the reading.
#include "unit/workflow/resources/shipped_texts.h"

#include "toolkit/boxes/item_list.h"
#include "values/unicode/text_conversion.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace brixen::pvn::pvn_workflow {
namespace {

using std::u16string;
using std::u16string_view;

// The names of a locale without the words for no choice.
std::vector<u16string> CountriesOf(const std::string& locale) {
    const Words words = ReadWords(kSources / "dictionaries" / locale / "service.txt");
    std::vector<u16string> names;
    for (const zeve::ListItem& item :
         zeve::ParseItemList(words.at("$$$/pvn/registration/details/countries"), zeve::Separators::kKeep)) {
        if (!item.value.empty()) names.push_back(lyr::gen::ToUtf16(item.label));
    }
    return names;
}

// Each key is greater than the one before it.
void ExpectOrder(const std::vector<u16string>& names, u16string (*keyOf)(u16string_view)) {
    EXPECT_EQ(names.size(), 249u);
    for (std::size_t i = 1; i < names.size(); ++i) {
        EXPECT_LT(keyOf(names[i - 1]), keyOf(names[i]))
            << lyr::gen::ToUtf8(names[i - 1]) << " is before " << lyr::gen::ToUtf8(names[i]);
    }
}

// Pairs of characters and of what sorts in their place.
using Replacements = std::vector<std::pair<u16string_view, u16string_view>>;

// Returns the place of the replacement for a character; null without one.
const u16string_view* ReplacementFor(char16_t unit, const Replacements& replacements) {
    for (const auto& [units, replacement] : replacements)
        if (units.find(unit) != units.npos) return &replacement;
    return nullptr;
}

const Replacements kLetters = {
    {u"\u00C4\u00C5\u00E3\u00E4\u00E5", u"a"},
    {u"\u00E7", u"c"},
    {u"\u00C9\u00E8\u00E9\u00EA\u00EB", u"e"},
    {u"\u00CE\u00ED\u00EE\u00EF", u"i"},
    {u"\u00D6\u00F4\u00F6", u"o"},
    {u"\u00DC\u00FC", u"u"},
    {u"\u0622", u"\u0627\u0627"},         // alef with madda is two of it
    {u"\u0623\u0625", u"\u0627"},         // alef with hamza
    {u"\u0626", u"\u064A"},               // yeh with hamza
    {u" .-\u05BE", u" "},                 // marks between words
    {u"()\u2019\u05F3\u05F4\u064F", u""}, // marks without an order
};

bool IsLetterInOrder(char16_t unit) {
    return (unit >= u'a' && unit <= u'z') || (unit >= 0x05D0 && unit <= 0x05EA) || unit == 0x0621 ||
           (unit >= 0x0627 && unit <= 0x064A);
}

u16string AlphabeticKey(u16string_view name) {
    u16string key;
    for (char16_t unit : name) {
        if (unit >= u'A' && unit <= u'Z') unit = static_cast<char16_t>(unit | 0x20);
        if (const u16string_view* const replacement = ReplacementFor(unit, kLetters)) {
            key += *replacement;
            continue;
        }
        EXPECT_TRUE(IsLetterInOrder(unit)) << "a character without an order: " << lyr::gen::ToUtf8(name);
        key += unit;
    }
    return key;
}

class AlphabeticCountries : public testing::TestWithParam<std::string> {};

TEST_P(AlphabeticCountries, AreInTheOrderOfTheirLetters) {
    ExpectOrder(CountriesOf(GetParam()), AlphabeticKey);
}

INSTANTIATE_TEST_SUITE_P(Locales, AlphabeticCountries,
                         testing::Values("en_US", "de_DE", "fr_FR", "he_IL", "ar_AE"),
                         [](const auto& info) { return info.param; });

// The readings of all words in the list that are not written as they are read, the longest ones first.
const Replacements kReadings = {
    {u"合衆国領有小離島", u"がっしゅうこくりょうゆうしょうりとう"},
    {u"首長国連邦", u"しゅちょうこくれんぽう"},
    {u"北朝鮮", u"きたちょうせん"},
    {u"合衆国", u"がっしゅうこく"},
    {u"共和国", u"きょうわこく"},
    {u"洋地域", u"ようちいき"},
    {u"中央", u"ちゅうおう"},
    {u"中国", u"ちゅうごく"},
    {u"仏領", u"ふつりょう"},
    {u"南極", u"なんきょく"},
    {u"台湾", u"たいわん"},
    {u"市国", u"しこく"},
    {u"日本", u"にほん"},
    {u"極南", u"きょくなん"},
    {u"民主", u"みんしゅ"},
    {u"米領", u"べいりょう"},
    {u"英領", u"えいりょう"},
    {u"諸島", u"しょとう"},
    {u"赤道", u"せきどう"},
    {u"連邦", u"れんぽう"},
    {u"韓国", u"かんこく"},
    {u"香港", u"ほんこん"},
    {u"北", u"きた"},
    {u"南", u"みなみ"},
    {u"国", u"こく"},
    {u"島", u"とう"},
    {u"東", u"ひがし"},
    {u"西", u"にし"},
    {u"領", u"りょう"},
};

// Voiced, half-voiced and small signs, which sort as the plain ones.
const Replacements kPlainSigns = {
    {u"ぁ", u"あ"},   {u"ぃ", u"い"}, {u"ぅゔ", u"う"}, {u"ぇ", u"え"},   {u"ぉ", u"お"},   {u"が", u"か"},
    {u"ぎ", u"き"},   {u"ぐ", u"く"}, {u"げ", u"け"},   {u"ご", u"こ"},   {u"ざ", u"さ"},   {u"じ", u"し"},
    {u"ず", u"す"},   {u"ぜ", u"せ"}, {u"ぞ", u"そ"},   {u"だ", u"た"},   {u"ぢ", u"ち"},   {u"づっ", u"つ"},
    {u"で", u"て"},   {u"ど", u"と"}, {u"ばぱ", u"は"}, {u"びぴ", u"ひ"}, {u"ぶぷ", u"ふ"}, {u"べぺ", u"へ"},
    {u"ぼぽ", u"ほ"}, {u"ゃ", u"や"}, {u"ゅ", u"ゆ"},   {u"ょ", u"よ"},
};

// The vowels of the plain signs: a long mark repeats that of the sign before it.
const Replacements kVowels = {
    {u"あかさたなはまやらわ", u"あ"}, {u"いきしちにひみり", u"い"},   {u"うくすつぬふむゆる", u"う"},
    {u"えけせてねへめれ", u"え"},     {u"おこそとのほもよろ", u"お"},
};

u16string Reading(u16string_view name) {
    u16string reading(name);
    for (const auto& [word, read] : kReadings) {
        for (std::size_t at = reading.find(word); at != reading.npos; at = reading.find(word)) {
            reading.replace(at, word.size(), read);
        }
    }
    return reading;
}

u16string KeyOfReading(u16string_view name) {
    u16string key;
    for (char16_t unit : Reading(name)) {
        if (unit >= u'ァ' && unit <= u'ヴ') unit = static_cast<char16_t>(unit - (u'ァ' - u'ぁ'));
        if (unit == u'（' || unit == u'）') continue;
        if (unit == u'・') unit = u' ';
        const bool isLong = unit == u'ー' && !key.empty();
        if (isLong) unit = key.back();
        if (const u16string_view* const plain = ReplacementFor(unit, isLong ? kVowels : kPlainSigns)) {
            unit = plain->front();
        }
        EXPECT_TRUE(unit == u' ' || (unit >= u'あ' && unit <= u'ん')) << lyr::gen::ToUtf8(name);
        key += unit;
    }
    return key;
}

TEST(JapaneseCountries, AreInTheOrderOfTheirReadings) {
    EXPECT_EQ(KeyOfReading(u"東ティモール"), u"ひかしていもおる");
    EXPECT_EQ(KeyOfReading(u"サン・バルテルミー"), u"さん はるてるみい");
    ExpectOrder(CountriesOf("ja_JP"), KeyOfReading);
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
