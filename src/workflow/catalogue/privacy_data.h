// What the panes of Privacy share: the languages there are, and the statement that is read.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace brixen::pvn::pvn_workflow {

struct StatementLanguage;

// String: the LANGID of the statement that the user chose last. Written when the user goes on to it, and read
// when the choice comes up again.
inline constexpr char PvnWFKey_PrivacyLanguage[] = "PvnWFKey_PrivacyLanguage";

// A row of the popup.
struct PrivacyLanguage {
    std::string locale;
    std::u16string label;
};

struct PrivacyData {
    std::vector<PrivacyLanguage> languages; // as the popup shows them
    std::string language;                   // LANGID of the statement
    std::u16string statement;               // as an edit control takes it; empty if there is none
};

// The rows of the popup: each language of the list once, by its name, or by its locale where it has no name.
// One that has neither, or whose name is no UTF-8, cannot be shown and is left out.
std::vector<PrivacyLanguage> PopupRows(const std::vector<StatementLanguage>& list);

// The row of `wanted`, else the first of the same language whatever the region, else that of en_US, else the
// first.
std::size_t RowOfLanguage(const std::vector<PrivacyLanguage>& rows, std::string_view wanted);

// Whether the language of a locale is written from right to left.
bool IsWrittenRightToLeft(std::string_view locale);

// With CR LF at the end of each line, as an edit control takes it; empty if there is nothing to see in it.
std::u16string TextForField(std::u16string_view statement);

} // namespace brixen::pvn::pvn_workflow
