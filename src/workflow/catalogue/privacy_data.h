// The data that the panes of Privacy share: the languages to choose from, and the statement.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace brixen::pvn::pvn_workflow {

struct StatementLanguage;

// String: the LANGID of the statement that the user chose last. Written when the user goes on to it, and read
// when the popup is filled.
inline constexpr char PvnWFKey_PrivacyLanguage[] = "PvnWFKey_PrivacyLanguage";

// A row of the popup.
struct PrivacyLanguage {
    std::string locale;
    std::u16string label;
};

struct PrivacyData {
    std::vector<PrivacyLanguage> languages; // as the popup shows them
    std::string language;                   // LANGID of the statement
    std::u16string statement;               // see TextForField; empty if there is none
};

// Returns the rows of the popup: each language of the list once, by its name, or by its locale where it has
// no name. A language without either, or whose name is no UTF-8, is left out.
std::vector<PrivacyLanguage> PopupRows(const std::vector<StatementLanguage>& list);

// Returns the row of the locale `wanted`, else the first row of its language in any region, else that of
// en_US, else 0.
std::size_t RowOfBestLocale(const std::vector<PrivacyLanguage>& rows, std::string_view wanted);

// Returns whether the language of a locale is written from right to left.
bool IsWrittenRightToLeft(std::string_view locale);

// Returns the text for an edit control, with CR LF at the end of each line. Empty if the text is only blanks
// and line ends.
std::u16string TextForField(std::u16string_view statement);

} // namespace brixen::pvn::pvn_workflow
