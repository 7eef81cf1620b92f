#include "workflow/catalogue/text_checks.h"

#include "values/unicode/character_borders.h"
#include "values/unicode/lenient_text.h"
#include "values/unicode/text_conversion.h"
#include "workflow/service/service_text.h"

#include <algorithm>

namespace brixen::pvn::pvn_workflow {

namespace {

constexpr std::size_t kLongestMailAddress = 254, kLongestMailName = 64; // units
constexpr std::size_t kLongestSerialNumber = 40;
constexpr std::size_t kLongestName = 128; // units
constexpr std::uint32_t kLargestPort = 65535;

struct Range {
    char16_t first, last;
};
constexpr Range kBlanksAndControls[] = {
    {0x0000, 0x0020}, {0x007F, 0x00A0}, {0x00AD, 0x00AD}, {0x061C, 0x061C},
    {0x1680, 0x1680}, {0x180E, 0x180E}, {0x2000, 0x200F}, {0x2028, 0x202F},
    {0x205F, 0x206F}, {0x3000, 0x3000}, {0xFEFF, 0xFEFF},
};

bool IsLetterOrDigit(char16_t unit) {
    return (unit >= u'0' && unit <= u'9') || (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z');
}

bool IsUnsendable(char16_t unit) {
    const bool isControl = (unit < 0x20 && unit != u'\t' && unit != u'\n') || (unit >= 0x7F && unit <= 0x9F);
    return isControl || unit >= 0xFFFE;
}

bool IsBreakOrTab(char16_t unit) {
    return unit == u'\t' || unit == u'\n' || unit == 0x2028 || unit == 0x2029;
}

bool IsPrintableAscii(char16_t unit) { return unit > u' ' && unit < 0x7F; }

} // namespace

bool IsBlankOrControl(char16_t unit) {
    return std::ranges::any_of(kBlanksAndControls,
                               [unit](Range range) { return unit >= range.first && unit <= range.last; });
}

std::u16string_view Trimmed(std::u16string_view text) {
    while (!text.empty() && IsBlankOrControl(text.front())) text.remove_prefix(1);
    while (!text.empty() && IsBlankOrControl(text.back())) text.remove_suffix(1);
    return text;
}

bool IsMailAddress(std::u16string_view text) {
    const std::size_t at = text.find(u'@');
    if (at == text.npos || at == 0 || at > kLongestMailName || text.size() > kLongestMailAddress)
        return false;
    const std::u16string_view host = text.substr(at + 1);
    if (host.find(u'@') != host.npos || host.find(u'.') == host.npos) return false;
    if (host.front() == u'.' || host.back() == u'.' || host.find(u"..") != host.npos) return false;
    return std::ranges::none_of(text, IsBlankOrControl);
}

bool IsSerialNumber(std::u16string_view text) {
    return !text.empty() && text.size() <= kLongestSerialNumber &&
           std::ranges::all_of(text, [](char16_t unit) { return unit == u'-' || IsLetterOrDigit(unit); });
}

std::u16string SendableText(std::u16string_view text) {
    std::u16string sendable;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        const char16_t next = i + 1 < text.size() ? text[i + 1] : u'\0';
        if (unit == u'\r') {
            if (next != u'\n') sendable += u'\n';
        } else if (lyr::gen::IsHighSurrogate(unit) && lyr::gen::IsLowSurrogate(next)) {
            sendable.append({unit, next});
            ++i;
        } else if (lyr::gen::IsSurrogate(unit)) {
            sendable += static_cast<char16_t>(lyr::gen::kReplacementCharacter);
        } else if (!IsUnsendable(unit)) {
            sendable += unit;
        }
    }
    return sendable;
}

std::u16string SendableLine(std::u16string_view text) {
    std::u16string line = SendableText(text);
    std::ranges::replace_if(line, IsBreakOrTab, u' ');
    return std::u16string(Trimmed(line));
}

std::string SendableName(std::string_view name) {
    const std::u16string line = NeutralLine(SendableLine(lyr::gen::ReplacingUtf16(name)));
    return lyr::gen::ToUtf8(lyr::gen::CutToUnits(line, kLongestName));
}

bool IsHostName(std::u16string_view text) {
    if (text.empty() || !std::ranges::all_of(text, IsPrintableAscii)) return false;
    if (text.find_first_of(u"@/;=\\") != text.npos) return false;
    if (text.find_first_of(u"[]:") == text.npos) return true;
    // A numeric address.
    const std::u16string_view inside = text.substr(1, std::max<std::size_t>(text.size(), 2) - 2);
    return text.starts_with(u'[') && text.ends_with(u']') && !inside.empty() &&
           inside.find_first_of(u"[]") == inside.npos;
}

std::optional<std::uint16_t> PortOf(std::u16string_view text) {
    std::uint32_t port = 0;
    for (const char16_t unit : Trimmed(text)) {
        if (unit < u'0' || unit > u'9') return std::nullopt;
        port = port * 10 + (unit - u'0');
        if (port > kLargestPort) return std::nullopt;
    }
    if (port == 0) return std::nullopt;
    return static_cast<std::uint16_t>(port);
}

} // namespace brixen::pvn::pvn_workflow
