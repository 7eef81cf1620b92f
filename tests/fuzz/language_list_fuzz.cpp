// Reads any bytes as a language list and as a privacy statement. A list never names a file outside the folder
// of the statements, its rows can be shown, and a second reading has the same result.
#include "values/markup/document.h"
#include "workflow/catalogue/privacy_data.h"
#include "workflow/resources/privacy_list.h"
#include "workflow/resources/privacy_statement_handler.h"
#include "workflow/resources/resource_layer.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

using namespace brixen::pvn::pvn_workflow;

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

void CheckFileName(const PVNPrivacyInfo& info) {
    constexpr std::u16string_view kFolder = u"privacystatements\\", kExtension = u".txt";
    const std::u16string path = StatementPath(info.FILE_NAME);
    if (path.empty()) return;
    Require(path.starts_with(kFolder) && path.ends_with(kExtension));
    const std::u16string name = path.substr(kFolder.size(), path.size() - kFolder.size() - kExtension.size());
    Require(name.find_first_of(std::u16string_view(u"\\/:\0", 4)) == name.npos &&
            name.find(u"..") == name.npos);
}

void CheckRows(const PVNPrivacyList& list) {
    std::vector<StatementLanguage> languages;
    for (const std::string& language : list.Languages()) {
        const PVNPrivacyInfo& info = list.Find(language);
        Require(info.LANGID == language);
        CheckFileName(info);
        languages.push_back({language, info.LANGNAME});
    }
    const std::vector<PrivacyLanguage> rows = PopupRows(languages);
    for (std::size_t i = 0; i < rows.size() && i < 50; ++i) {
        Require(!rows[i].label.empty() && rows[i].label.find(u'\0') == rows[i].label.npos);
        Require(RowOfBestLocale(rows, rows[i].locale) == i);
    }
}

void CheckList(std::string_view bytes) {
    brixen::lyr::gen::CMarkupSTL markup;
    markup.SetDoc(std::string(bytes));
    if (!markup.IsWellFormed()) return;
    PVNPrivacyList list;
    list.Read(markup);
    CheckRows(list);
    const std::vector<std::string> languages = list.Languages();
    markup.ResetPos();
    list.Read(markup);
    Require(list.Languages() == languages);
}

void CheckStatement(std::string_view bytes) {
    const std::u16string text = DecodeStatement(bytes);
    Require(text.find(u'\0') == text.npos && text.size() * 2 <= bytes.size());
    const std::u16string shown = TextForField(text);
    for (std::size_t i = 0; i < shown.size(); ++i)
        Require(shown[i] != u'\n' || (i > 0 && shown[i - 1] == u'\r'));
    Require(TextForField(shown) == shown);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t length) {
    const std::string_view input(reinterpret_cast<const char*>(bytes), length);
    CheckList(input);
    CheckStatement(input);
    return 0;
}
