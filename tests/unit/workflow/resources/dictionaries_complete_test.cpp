// The words that are shipped: every locale has every one of them, and the dictionary gives them back as
// written.
#include "support/languages.h"
#include "unit/workflow/resources/resource_fixture.h"
#include "unit/workflow/resources/shipped_texts.h"

#include "dictionaries/translation.h"

#include <gmock/gmock.h>

#include <set>
#include <utility>

namespace brixen::pvn::pvn_workflow {

using pavane_test::IsRightToLeft;
using pavane_test::Locales;

namespace {

// What a locale means to say as English does, by locale and key.
const std::set<std::pair<std::string, std::string>> kMeantAsInEnglish = {
    {"fr_FR", "$$$/pvn/common/window_title"}};

// The `^n` of a text, sorted.
std::vector<std::string> Placeholders(const std::string& text) {
    std::vector<std::string> found;
    for (std::size_t i = text.find('^'); i != text.npos; i = text.find('^', i + 1))
        found.push_back(text.substr(i, 2));
    std::sort(found.begin(), found.end());
    return found;
}

// What a link opens or the service listens at.
bool IsAddress(const std::string& text) { return text.starts_with("http"); }

class ShippedDictionaries : public testing::TestWithParam<std::string> {
protected:
    // Calls `check` with each pair of sources, English and the locale's.
    template <class Check>
    static void ForEachDictionary(Check check) {
        for (const std::string& name : NamesIn(kSources / "dictionaries/en_US"))
            check(ReadWords(kSources / "dictionaries/en_US" / name),
                  ReadWords(kSources / "dictionaries" / GetParam() / name));
    }
};

} // namespace

TEST_P(ShippedDictionaries, HoldTheSameFiles) {
    EXPECT_EQ(NamesIn(kSources / "dictionaries" / GetParam()), NamesIn(kSources / "dictionaries/en_US"));
}

TEST_P(ShippedDictionaries, HoldTheSameKeys) {
    ForEachDictionary([](const Words& english, const Words& words) {
        for (const auto& [key, value] : english) EXPECT_EQ(words.count(key), 1u) << "missing: " << key;
        for (const auto& [key, value] : words) EXPECT_EQ(english.count(key), 1u) << "not in English: " << key;
        EXPECT_FALSE(english.empty());
    });
}

TEST_P(ShippedDictionaries, HoldTheSamePlaceholders) {
    ForEachDictionary([](const Words& english, const Words& words) {
        for (const auto& [key, value] : words) {
            const auto original = english.find(key);
            if (original == english.end()) continue; // a failure of HoldTheSameKeys
            EXPECT_EQ(Placeholders(value), Placeholders(original->second)) << key;
        }
    });
}

TEST_P(ShippedDictionaries, HoldNoEmptyText) {
    ForEachDictionary([](const Words&, const Words& words) {
        for (const auto& [key, value] : words) EXPECT_NE(value.find_first_not_of(' '), value.npos) << key;
    });
}

TEST_P(ShippedDictionaries, HoldNoEnglishInDisguise) {
    if (GetParam() == "en_US") return;
    ForEachDictionary([](const Words& english, const Words& words) {
        for (const auto& [key, value] : words) {
            const auto original = english.find(key);
            if (original == english.end()) continue; // a failure of HoldTheSameKeys
            if (IsAddress(value)) continue;
            EXPECT_EQ(value == original->second, kMeantAsInEnglish.count({GetParam(), key}) == 1) << key;
        }
    });
}

TEST_P(ShippedDictionaries, UseThePunctuationOfTheirLanguage) {
    ForEachDictionary([](const Words&, const Words& words) {
        for (const auto& [key, value] : words)
            EXPECT_TRUE(IsAddress(value) || HasNoForeignMarks(value, GetParam())) << key;
    });
}

TEST(FrenchDictionaries, KeepMarksOnTheLineOfTheirWord) {
    for (const std::string& name : NamesIn(kSources / "dictionaries/fr_FR"))
        for (const auto& [key, value] : ReadWords(kSources / "dictionaries/fr_FR" / name))
            EXPECT_TRUE(IsAddress(value) || HasFrenchSpacing(value)) << key;
}

TEST_P(ShippedDictionaries, HaveTheirPage) {
    const std::string page = ReadText(kSources / "PVResources" / GetParam() / "welcome.html");
    EXPECT_NE(page.find("<meta charset=\"utf-8\">"), page.npos);
    EXPECT_NE(page.find("<html lang=\"" + GetParam().substr(0, 2) + "\""), page.npos);
    EXPECT_EQ(page.find("dir=\"rtl\"") != page.npos, IsRightToLeft(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Locales, ShippedDictionaries, testing::ValuesIn(Locales()),
                         [](const auto& info) { return info.param; });

TEST(ShippedLocales, AreThoseThatHaveDictionaries) {
    EXPECT_THAT(NamesIn(kSources / "dictionaries"), testing::UnorderedElementsAreArray(Locales()));
}

TEST(ShippedLocales, IncludeThoseOfTheFirstRelease) {
    EXPECT_THAT(Locales(), testing::IsSupersetOf({"en_US", "de_DE", "fr_FR", "ja_JP", "he_IL", "ar_AE"}));
}

// What is built beside the program, read as a run reads it.
class BuiltDictionaries : public ResourceFixture {};

TEST_F(BuiltDictionaries, GiveEveryTextBackAsItIsWritten) {
    for (const std::string& locale : Locales()) {
        SelectLanguage(locale);
        LoadWorkFlowDictionary("Welcome");
        for (const auto& [key, value] : ReadWords(kSources / "dictionaries" / locale / "guide.txt"))
            EXPECT_EQ(zeve::ZeveTranslate(key), value) << locale << " " << key;
        ShutDownResources();
    }
}

} // namespace brixen::pvn::pvn_workflow
