// The words that are shipped: every locale has every one of them, and the dictionary gives them back as
// written.
#include "support/languages.h"
#include "unit/workflow/resources/resource_fixture.h"
#include "unit/workflow/resources/shipped_texts.h"

#include "dictionaries/translation.h"
#include "toolkit/boxes/item_list.h"

#include <gmock/gmock.h>

#include <set>
#include <utility>

namespace brixen::pvn::pvn_workflow {

using pavane_test::IsRightToLeft;
using pavane_test::Locales;

namespace {

// What a locale means to say as English does, by locale and key.
const std::set<std::pair<std::string, std::string>> kMeantAsInEnglish = {
    {"fr_FR", "$$$/pvn/common/window_title"},  {"de_DE", "$$$/pvn/dlg/common/button/ok"},
    {"fr_FR", "$$$/pvn/dlg/common/button/ok"}, {"de_DE", "$$$/pvn/registration/details/name"},
    {"de_DE", "$$$/pvn/feedback/storage/kib"}, {"de_DE", "$$$/pvn/feedback/unit/mib"},
    {"de_DE", "$$$/pvn/feedback/unit/gib"},    {"de_DE", "$$$/pvn/feedback/unit/tib"},
    {"ja_JP", "$$$/pvn/feedback/storage/kib"}, {"ja_JP", "$$$/pvn/feedback/unit/mib"},
    {"ja_JP", "$$$/pvn/feedback/unit/gib"},    {"ja_JP", "$$$/pvn/feedback/unit/tib"}};

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
            EXPECT_TRUE(IsAddress(value) || HasNoForeignMarks(ReadByUser(value), GetParam())) << key;
    });
}

// The labels of fields, and the words above a list.
TEST_P(ShippedDictionaries, EndLabelsAsTheirLanguageDoes) {
    const std::string mark = GetParam() == "ja_JP" ? "\uFF1A" : GetParam() == "fr_FR" ? "\u00A0:" : ":";
    int labels = 0;
    ForEachDictionary([&](const Words& english, const Words& words) {
        for (const auto& [key, value] : words) {
            const auto original = english.find(key);
            if (original == english.end()) continue; // a failure of HoldTheSameKeys
            const bool hasMark = value.ends_with(mark);
            const bool isLabel = original->second.ends_with(':');
            EXPECT_TRUE(hasMark || !isLabel) << key;
            EXPECT_TRUE(hasMark || !(value.ends_with(':') || value.ends_with("\uFF1A"))) << key;
            labels += isLabel;
        }
    });
    EXPECT_GE(labels, 15);
}

TEST(FrenchDictionaries, KeepMarksOnTheLineOfTheirWord) {
    for (const std::string& name : NamesIn(kSources / "dictionaries/fr_FR"))
        for (const auto& [key, value] : ReadWords(kSources / "dictionaries/fr_FR" / name))
            EXPECT_TRUE(IsAddress(value) || HasFrenchSpacing(ReadByUser(value))) << key;
}

// A process reads the dictionaries of all workflows that it runs into one.
TEST_P(ShippedDictionaries, SayTheSameForAKeyThatTheyShare) {
    int shared = 0;
    Words all;
    for (const std::string& name : NamesIn(kSources / "dictionaries" / GetParam())) {
        for (const auto& [key, value] : ReadWords(kSources / "dictionaries" / GetParam() / name)) {
            const auto [entry, isNew] = all.emplace(key, value);
            EXPECT_EQ(value, entry->second) << name << ": " << key;
            shared += !isNew;
        }
    }
    EXPECT_GE(shared, 10);
}

// The codes of ISO 3166-1, after one entry without a code for no choice.
TEST_P(ShippedDictionaries, NameTheSameCountriesOnceEach) {
    const auto listOf = [](const std::string& locale) {
        const Words words = ReadWords(kSources / "dictionaries" / locale / "service.txt");
        return zeve::ParseItemList(words.at("$$$/pvn/registration/details/countries"),
                                   zeve::Separators::kKeep);
    };
    const auto codesOf = [](const std::vector<zeve::ListItem>& list) {
        std::set<std::string> codes;
        for (const zeve::ListItem& item : list) codes.insert(item.value);
        return codes;
    };
    const std::vector<zeve::ListItem> countries = listOf(GetParam());
    EXPECT_EQ(countries.size(), 1u + 249u);
    EXPECT_EQ(countries.at(0).value, "");
    EXPECT_EQ(codesOf(countries).size(), countries.size());
    EXPECT_EQ(codesOf(countries), codesOf(listOf("en_US")));
}

// In the words of the service, in the same order, after one entry for no choice.
TEST_P(ShippedDictionaries, NameTheSameCategories) {
    const Words words = ReadWords(kSources / "dictionaries" / GetParam() / "service.txt");
    std::vector<std::string> values;
    for (const zeve::ListItem& item :
         zeve::ParseItemList(words.at("$$$/pvn/feedback/picture/categories"), zeve::Separators::kKeep)) {
        values.push_back(item.value);
    }
    EXPECT_THAT(values, testing::ElementsAre("", "fault", "quality", "speed", "wish", "praise", "other"));
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
    const std::pair<const char*, const char*> kWorkflows[] = {{"Welcome", "guide.txt"},
                                                              {"Registration", "service.txt"}};
    for (const std::string& locale : Locales()) {
        for (const auto& [workflow, name] : kWorkflows) {
            SelectLanguage(locale);
            LoadWorkFlowDictionary(workflow);
            for (const auto& [key, value] : ReadWords(kSources / "dictionaries" / locale / name))
                EXPECT_EQ(zeve::ZeveTranslate(key), value) << locale << " " << key;
            ShutDownResources();
        }
    }
}

} // namespace brixen::pvn::pvn_workflow
