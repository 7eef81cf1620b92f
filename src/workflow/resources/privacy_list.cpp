#include "workflow/resources/privacy_list.h"

#include "values/markup/document.h"
#include "values/platform/values_platform.h"

namespace brixen::pvn::pvn_workflow {

using lyr::gen::CMarkupSTL;

namespace {

constexpr std::string_view kRootTag = "PVN_PRIVACY_INFO";
constexpr std::string_view kEntryTag = "LANGUAGE_INFO";

using Field = std::string PVNPrivacyInfo::*;

constexpr struct {
    std::string_view tag;
    Field field;
} kFields[] = {
    {"LANGID", &PVNPrivacyInfo::LANGID},           {"LANGNAME", &PVNPrivacyInfo::LANGNAME},
    {"LANG_GRP_ID", &PVNPrivacyInfo::LANG_GRP_ID}, {"FILE_NAME", &PVNPrivacyInfo::FILE_NAME},
    {"SEQ_ID", &PVNPrivacyInfo::SEQ_ID},
};

Field FieldOf(std::string_view tag) {
    for (const auto& entry : kFields) {
        if (entry.tag == tag) return entry.field;
    }
    return nullptr;
}

// Reads the children of the current element. Returns false at an unknown one, and at one that already has a
// value.
bool ReadInfo(CMarkupSTL& markup, PVNPrivacyInfo& info) {
    markup.IntoElem();
    while (markup.FindElem()) {
        const Field field = FieldOf(markup.GetTagName());
        if (!field || !(info.*field).empty()) return false;
        info.*field = markup.GetData();
    }
    markup.OutOfElem();
    return true;
}

} // namespace

void PVNPrivacyList::Read(const char16_t* path) { error = ReadFile(path); }
void PVNPrivacyList::Read(CMarkupSTL& markup) { error = ReadRoot(markup); }

PVNPrivacyList::Error PVNPrivacyList::ReadFile(const char16_t* path) {
    if (!path) return {-1, "Bad file name"};
    CMarkupSTL markup;
    if (!markup.Load(path)) {
        if (!lyr::gen::ReadWholeFile(path)) return {-2, "Cannot open the file"};
        return {-3, "Bad xml format"};
    }
    return ReadRoot(markup);
}

PVNPrivacyList::Error PVNPrivacyList::ReadRoot(CMarkupSTL& markup) {
    markup.FindElem();
    if (markup.GetTagName() != kRootTag) return {-4, "Not an PVN Privacy Info"};
    return ReadEntries(markup);
}

PVNPrivacyList::Error PVNPrivacyList::ReadEntries(CMarkupSTL& markup) {
    entries.clear();
    languages.clear();
    markup.IntoElem();
    while (markup.FindElem()) {
        if (markup.GetTagName() != kEntryTag) return {-5, "Invalid tag in PVN_PRIVACY_INFO"};
        PVNPrivacyInfo info;
        if (!ReadInfo(markup, info)) return {-5, "Invalid tag in LanguageInfo"};
        Add(std::move(info));
    }
    return {};
}

void PVNPrivacyList::Add(PVNPrivacyInfo info) {
    std::string language = info.LANGID;
    entries.emplace(language, std::move(info));
    languages.push_back(std::move(language));
}

const PVNPrivacyInfo& PVNPrivacyList::Find(const std::string& language) const {
    static const PVNPrivacyInfo kNone;
    const auto found = entries.find(language);
    return found == entries.end() ? kNone : found->second;
}

} // namespace brixen::pvn::pvn_workflow
