// Every key that the code or a shipped view asks for has words in every locale, and every word is asked for.
#include "support/languages.h"
#include "unit/workflow/resources/shipped_texts.h"

#include <gtest/gtest.h>

#include <regex>
#include <set>

namespace brixen::pvn::pvn_workflow {
namespace {

const std::filesystem::path kCode = std::filesystem::path(PAVANE_TEST_DATA) / "../../src";
const std::filesystem::path kViews = kSources / "PVResources";

std::vector<std::filesystem::path> FilesBelow(const std::filesystem::path& folder,
                                              const std::set<std::string>& kinds) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        if (kinds.count(entry.path().extension().string()) == 1) files.push_back(entry.path());
    return files;
}

// All that the expression's first group finds in a text.
std::vector<std::string> FoundIn(const std::string& text, const std::string& expression) {
    const std::regex pattern(expression);
    std::vector<std::string> found;
    for (std::sregex_iterator match(text.begin(), text.end(), pattern), end; match != end; ++match)
        found.push_back((*match)[1]);
    return found;
}

// Key texts, "$$$/key" or "$$$/key=default", as they are written.
std::vector<std::string> KeyTextsOfTheCode() {
    std::vector<std::string> keyTexts;
    for (const auto& file : FilesBelow(kCode, {".h", ".cpp"})) {
        const std::string text = std::regex_replace(ReadText(file), std::regex("//[^\n]*"), "");
        for (std::string& keyText : FoundIn(text, "\"(\\$\\$\\$/[^\"]*)\""))
            keyTexts.push_back(std::move(keyText));
    }
    return keyTexts;
}

std::vector<std::string> KeyTextsOfTheViews() {
    std::vector<std::string> keyTexts;
    for (const auto& file : FilesBelow(kViews, {".exv"}))
        for (std::string& keyText : FoundIn(ReadText(file), "'(\\$\\$\\$/[^']*)'"))
            keyTexts.push_back(std::move(keyText));
    return keyTexts;
}

std::string KeyOf(const std::string& keyText) { return keyText.substr(0, keyText.find('=')); }

// An empty default says that the key is a hook: it has a meaning only in a dictionary that holds it.
bool IsHook(const std::string& keyText) { return keyText.ends_with('='); }

Words WordsOf(const std::string& locale) {
    Words words;
    for (const std::string& name : NamesIn(kSources / "dictionaries" / locale))
        words.merge(ReadWords(kSources / "dictionaries" / locale / name));
    return words;
}

TEST(KeysOfTheCode, AreInEveryLocale) {
    const std::vector<std::string> keyTexts = KeyTextsOfTheCode();
    EXPECT_GE(keyTexts.size(), 10u) << "the search finds too little";
    for (const std::string& locale : pavane_test::Locales()) {
        const Words words = WordsOf(locale);
        for (const std::string& keyText : keyTexts)
            EXPECT_TRUE(IsHook(keyText) || words.count(KeyOf(keyText)) == 1) << locale << ": " << keyText;
    }
}

TEST(KeysOfTheCode, HaveNoOtherDefaultThanTheEnglishText) {
    const Words english = WordsOf("en_US");
    for (const std::string& keyText : KeyTextsOfTheCode()) {
        if (IsHook(keyText) || keyText.find('=') == keyText.npos) continue;
        const auto word = english.find(KeyOf(keyText));
        ASSERT_NE(word, english.end()) << keyText;
        EXPECT_EQ(keyText, word->first + "=" + word->second);
    }
}

TEST(KeysOfTheViews, AreInEveryLocale) {
    const std::vector<std::string> keyTexts = KeyTextsOfTheViews();
    EXPECT_GE(keyTexts.size(), 30u) << "the search finds too little";
    for (const std::string& locale : pavane_test::Locales()) {
        const Words words = WordsOf(locale);
        for (const std::string& keyText : keyTexts)
            EXPECT_EQ(words.count(KeyOf(keyText)), 1u) << locale << ": " << keyText;
    }
}

TEST(KeysOfTheViews, CarryTheEnglishTextAsDefault) {
    const Words english = WordsOf("en_US");
    for (const std::string& keyText : KeyTextsOfTheViews()) {
        if (IsHook(keyText)) continue; // a list that only a dictionary can hold
        const auto word = english.find(KeyOf(keyText));
        ASSERT_NE(word, english.end()) << keyText;
        EXPECT_EQ(keyText, word->first + "=" + word->second);
    }
}

TEST(ShippedWords, AreAllAskedFor) {
    std::set<std::string> asked;
    for (const auto& keyTexts : {KeyTextsOfTheCode(), KeyTextsOfTheViews()})
        for (const std::string& keyText : keyTexts) asked.insert(KeyOf(keyText));
    for (const auto& [key, text] : WordsOf("en_US")) EXPECT_EQ(asked.count(key), 1u) << key;
}

TEST(ShippedWords, SayTheSameInTheCaptionAndInTheTitleOfAPane) {
    for (const std::string& locale : pavane_test::Locales()) {
        const Words words = WordsOf(locale);
        int panes = 0;
        for (const auto& [key, text] : words) {
            if (!key.ends_with("/title") || key.find("alert") != key.npos) continue;
            const auto caption = words.find(key.substr(0, key.size() - 5) + "window_title");
            if (caption == words.end()) continue; // a pane may use its title as its caption
            EXPECT_EQ(caption->second, text) << locale << ": " << key;
            ++panes;
        }
        EXPECT_GE(panes, 7) << locale;
    }
}

TEST(ShippedViews, LeaveTheHeightOfATextToItsWords) {
    for (const auto& file : FilesBelow(kViews, {".exv"}))
        for (const std::string& view : FoundIn(ReadText(file), "(static_text\\([^;]*\\);)"))
            EXPECT_EQ(view.find("height:"), view.npos) << file << ": " << view;
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
