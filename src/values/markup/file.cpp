// Files: bytes as they are, or UTF-16 after a byte-order mark.
#include "values/markup/document.h"

#include "values/platform/values_platform.h"
#include "values/unicode/lenient_text.h"

#include <cerrno>
#include <cstring>
#include <optional>
#include <utility>

namespace brixen::lyr::gen {
namespace {

constexpr std::uint32_t kFileIsUtf16 = 1;
constexpr std::string_view kByteOrderMark = "\xFF\xFE";
constexpr std::size_t kBytesPerUnit = 2;
constexpr std::size_t kMostUtf8PerUnit = 3;

// A file of the mark alone is no UTF-16 file.
bool IsUtf16File(std::string_view bytes) {
    return bytes.size() > kByteOrderMark.size() && bytes.starts_with(kByteOrderMark);
}

std::u16string UnitsOf(std::string_view bytes) {
    std::u16string units(bytes.size() / kBytesPerUnit, u'\0');
    for (std::size_t i = 0; i < units.size(); ++i) {
        const auto low = static_cast<unsigned char>(bytes[kBytesPerUnit * i]);
        const auto high = static_cast<unsigned char>(bytes[kBytesPerUnit * i + 1]);
        units[i] = static_cast<char16_t>(low | high << 8);
    }
    return units;
}

std::string FileBytesOf(std::u16string_view units) {
    std::string bytes;
    bytes.reserve(kByteOrderMark.size() + kBytesPerUnit * units.size());
    bytes += kByteOrderMark;
    for (const char16_t unit : units) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    }
    return bytes;
}

std::string Count(std::size_t count, const char* what) { return std::to_string(count) + what; }

} // namespace

bool CMarkupSTL::Load(const std::u16string& path, std::size_t longest) {
    std::string error;
    std::optional<std::string> bytes = ReadWholeFile(path, error);
    const bool wide = bytes && IsUtf16File(*bytes);
    const bool tooLong = wide && bytes->size() / kBytesPerUnit >= longest / kMostUtf8PerUnit;
    if (tooLong) error = std::strerror(EFBIG);
    if (!bytes || tooLong) {
        errorText = error;
        return false;
    }
    if (!wide) {
        flags &= ~kFileIsUtf16;
        errorText = Count(bytes->size(), " bytes");
        return Parse(std::move(*bytes));
    }
    const std::u16string units = UnitsOf(std::string_view(*bytes).substr(kByteOrderMark.size()));
    std::string text = LenientUtf8(units.c_str());
    flags |= kFileIsUtf16;
    errorText = "BOM + " + Count(units.size(), " wide chars to ") + Count(text.size(), " bytes");
    return Parse(std::move(text));
}

bool CMarkupSTL::Save(const std::u16string& path, std::size_t longest) {
    const std::string& document = GetDoc();
    std::string error;
    const bool wide = (flags & kFileIsUtf16) != 0 && !document.empty();
    if (wide && document.size() > longest) {
        errorText = std::strerror(EFBIG);
        return false;
    }
    const std::u16string units = wide ? LenientUtf16(document) : std::u16string();
    const std::string bytes = wide ? FileBytesOf(units) : std::string();
    if (!WriteWholeFile(path, wide ? bytes : std::string_view(document), error)) {
        errorText = error;
        return false;
    }
    if (document.empty()) return true;
    errorText = Count(document.size(), wide ? " bytes to BOM + " : " bytes");
    if (wide) errorText += Count(units.size(), " wide chars");
    return true;
}

} // namespace brixen::lyr::gen
