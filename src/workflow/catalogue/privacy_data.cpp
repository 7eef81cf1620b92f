#include "workflow/catalogue/privacy_data.h"

#include "frame/shipped_languages.h"
#include "values/unicode/text_conversion.h"
#include "workflow/resources/resource_layer.h"

#include <algorithm>
#include <set>

namespace brixen::pvn::pvn_workflow {

namespace {

std::u16string LabelOf(const StatementLanguage& language) {
    try {
        // A popup shows only the text before a NUL.
        std::u16string label =
            lyr::gen::ToUtf16(language.name.empty() ? language.locale : language.name, true);
        label.resize(std::min(label.find(u'\0'), label.size()));
        return label;
    } catch (const lyr::gen::illegal_utf_sequence&) {
        return {};
    }
}

// "de" of "de_DE".
std::string_view LanguagePart(std::string_view locale) { return locale.substr(0, locale.find('_')); }

} // namespace

std::vector<PrivacyLanguage> PopupRows(const std::vector<StatementLanguage>& list) {
    std::vector<PrivacyLanguage> rows;
    std::set<std::string_view> seen;
    for (const StatementLanguage& language : list) {
        std::u16string label = LabelOf(language);
        if (label.empty() || !seen.insert(language.locale).second) continue;
        rows.push_back({language.locale, std::move(label)});
    }
    return rows;
}

std::size_t RowOfBestLocale(const std::vector<PrivacyLanguage>& rows, std::string_view wanted) {
    const auto find = [&rows](auto matches) { return std::find_if(rows.begin(), rows.end(), matches); };
    auto row = find([wanted](const PrivacyLanguage& candidate) { return candidate.locale == wanted; });
    if (row == rows.end()) {
        row = find([wanted](const PrivacyLanguage& candidate) {
            return LanguagePart(candidate.locale) == LanguagePart(wanted);
        });
    }
    if (row == rows.end()) {
        row = find([](const PrivacyLanguage& candidate) { return candidate.locale == "en_US"; });
    }
    return row == rows.end() ? 0 : static_cast<std::size_t>(row - rows.begin());
}

bool IsWrittenRightToLeft(std::string_view locale) {
    if (const ShippedLanguage* const shipped = FindShippedLanguage(locale)) return shipped->isRightToLeft;
    // A product may list statements in languages that its dialogs do not speak.
    constexpr std::string_view kLanguages[] = {"ar", "fa", "he", "iw", "ps", "sd", "ug", "ur", "yi"};
    return std::ranges::find(kLanguages, LanguagePart(locale)) != std::end(kLanguages);
}

std::u16string TextForField(std::u16string_view statement) {
    std::u16string text;
    if (statement.find_first_not_of(u" \t\r\n") == statement.npos) return text;
    text.reserve(statement.size());
    for (std::size_t i = 0; i < statement.size(); ++i) {
        const bool endsLine = statement[i] == u'\n' && (i == 0 || statement[i - 1] != u'\r');
        if (endsLine) text += u'\r';
        text += statement[i];
    }
    return text;
}

} // namespace brixen::pvn::pvn_workflow
