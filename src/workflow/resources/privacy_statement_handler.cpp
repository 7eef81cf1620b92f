#include "workflow/resources/privacy_statement_handler.h"

#include "values/platform/values_platform.h"

#include <array>
#include <optional>

namespace brixen::pvn::pvn_workflow {

namespace {

constexpr std::size_t kNameUnits = 1024;

// Reads the name in the machine's code page. Empty for a longer name and for bytes that are no text there.
std::optional<std::u16string> WideName(std::string_view name) {
    std::array<char16_t, kNameUnits> units;
    const lyr::gen::CodePageResult converted =
        lyr::gen::CodePageToWide(lyr::gen::kCodePageProcess, name, units.data(), units.size());
    if (converted.status != lyr::gen::CodePageStatus::kDone) return std::nullopt;
    return std::u16string(units.data(), converted.length);
}

// A list may be anyone's: it must not reach files outside the folder of the statements.
bool StaysInFolder(std::u16string_view name) {
    constexpr std::u16string_view kForbidden(u"\\/:\0", 4);
    return name.find_first_of(kForbidden) == name.npos && name.find(u"..") == name.npos;
}

PathUnits FindStatement(std::string_view fileName) {
    const std::u16string path = StatementPath(fileName);
    return path.empty() ? nullptr : PVNResourceManager::Get().FindInRoot(path);
}

char16_t Unit(std::string_view bytes, std::size_t low, std::size_t high) {
    return static_cast<char16_t>(static_cast<unsigned char>(bytes[low]) |
                                 static_cast<unsigned char>(bytes[high]) << 8);
}

} // namespace

std::u16string StatementPath(std::string_view fileName) {
    const std::optional<std::u16string> name = WideName(fileName);
    return name && StaysInFolder(*name) ? u"privacystatements\\" + *name + u".txt" : std::u16string();
}

std::u16string DecodeStatement(std::string_view bytes) {
    const bool isBigEndian = bytes.starts_with("\xFE\xFF");
    std::u16string text;
    if (!isBigEndian && !bytes.starts_with("\xFF\xFE")) return text;
    text.reserve(bytes.size() / 2);
    for (std::size_t i = 2; i + 1 < bytes.size(); i += 2) {
        const char16_t unit = isBigEndian ? Unit(bytes, i + 1, i) : Unit(bytes, i, i + 1);
        if (unit == 0) break;
        text += unit;
    }
    return text;
}

const PVNPrivacyList& PVNPrivacyStatementHandler::Languages() {
    if (!list.IsEmpty()) return list;
    const PathUnits path =
        PVNResourceManager::Get().FindResourceFile("privacyinfolist", "xml", kDefaultLocale, kSearchRoot);
    if (path) list.Read(path.get());
    return list;
}

void* PVNPrivacyStatementHandler::Load(const std::string&, const std::string& locale, std::uint32_t) {
    const PathUnits path = FindStatement(Languages().Find(locale).FILE_NAME);
    if (!path) return nullptr;
    const std::optional<std::string> bytes = lyr::gen::ReadWholeFileAlone(path.get());
    if (!bytes) return nullptr;
    texts.push_back(DecodeStatement(*bytes));
    holdsLast = true;
    return texts.back().data();
}

void PVNPrivacyStatementHandler::Release(const std::string&) {
    if (holdsLast) texts.pop_back();
    holdsLast = false;
}

} // namespace brixen::pvn::pvn_workflow
