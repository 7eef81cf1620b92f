// The native twin. The code page of the process is always 1252. The narrow text of the C library is that of
// the C locale on Windows: one byte for each character up to 0xFF.
#include "values/platform/values_platform.h"

#include "values/platform/read_file.h"
#include "values/unicode/character_borders.h"
#include "values/unicode/text_conversion.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>

namespace brixen::lyr::gen {
namespace {

// Characters of the bytes 0x80 to 0x9F in code page 1252; all other bytes are Latin-1.
constexpr std::array<char16_t, 32> kWindows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char16_t WideOf1252(unsigned char byte) {
    return byte >= 0x80 && byte <= 0x9F ? kWindows1252[byte - 0x80] : byte;
}

char ByteOf1252(char16_t unit) {
    if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF)) return static_cast<char>(unit);
    const auto* const found = std::find(kWindows1252.begin(), kWindows1252.end(), unit);
    return found == kWindows1252.end() ? '?' : static_cast<char>(0x80 + (found - kWindows1252.begin()));
}

std::u16string WithoutLoneSurrogates(std::u16string_view wide) {
    std::u16string text(wide);
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (SplitsPair(text, i + 1)) {
            ++i;
        } else if (IsSurrogate(text[i])) {
            text[i] = kReplacementCharacter;
        }
    }
    return text;
}

template <class Text, class Unit>
CodePageResult Deliver(const Text& text, Unit* output, std::size_t capacity) {
    if (output == nullptr) return {CodePageStatus::kDone, text.size()};
    if (text.size() > capacity) return {CodePageStatus::kOutputTooSmall, 0};
    std::copy(text.begin(), text.end(), output);
    return {CodePageStatus::kDone, text.size()};
}

} // namespace

CodePageResult CodePageToWide(unsigned codePage, std::string_view bytes, char16_t* output,
                              std::size_t capacity) {
    if (codePage == kCodePageUtf8) {
        try {
            return Deliver(ToUtf16(bytes), output, capacity);
        } catch (const illegal_utf_sequence&) {
            return {CodePageStatus::kFailed, 0};
        }
    }
    std::u16string wide;
    std::transform(bytes.begin(), bytes.end(), std::back_inserter(wide),
                   [](char byte) { return WideOf1252(static_cast<unsigned char>(byte)); });
    return Deliver(wide, output, capacity);
}

CodePageResult WideToCodePage(unsigned codePage, std::u16string_view wide, char* output,
                              std::size_t capacity) {
    if (codePage == kCodePageUtf8) return Deliver(ToUtf8(WithoutLoneSurrogates(wide)), output, capacity);
    std::string bytes;
    std::transform(wide.begin(), wide.end(), std::back_inserter(bytes), ByteOf1252);
    return Deliver(bytes, output, capacity);
}

std::size_t NarrowSize(const char16_t* wide) { return std::u16string_view(wide).size(); }

std::size_t WideToNarrow(char* output, const char16_t* wide, std::size_t size) {
    for (std::size_t i = 0; i < size; ++i) {
        if (wide[i] > 0xFF) return kNoNarrowText;
        output[i] = static_cast<char>(wide[i]);
        if (wide[i] == 0) return i;
    }
    return size;
}

std::size_t WideSize(const char* narrow) { return std::string_view(narrow).size(); }

std::size_t NarrowToWide(char16_t* output, const char* narrow, std::size_t size) {
    for (std::size_t i = 0; i < size; ++i) {
        output[i] = static_cast<unsigned char>(narrow[i]);
        if (narrow[i] == 0) return i;
    }
    return size;
}

namespace {

std::string NativePath(const std::u16string& path) {
    std::string native = ToUtf8(path, true);
    std::replace(native.begin(), native.end(), '\\', '/');
    return native;
}

} // namespace

bool FileExists(const std::u16string& path) {
    struct stat found {};
    return stat(NativePath(path).c_str(), &found) == 0 && !S_ISDIR(found.st_mode);
}

std::optional<std::string> ReadWholeFile(const std::u16string& path) {
    return ReadToEnd(FileHandle(std::fopen(NativePath(path).c_str(), "rb")));
}

std::optional<std::string> ReadWholeFile(const std::u16string& path, std::string& error) {
    return ReadToEnd(FileHandle(std::fopen(NativePath(path).c_str(), "rb")), error);
}

std::optional<std::string> ReadEndOfFile(const std::u16string& path, std::size_t most) {
    const FileHandle file(std::fopen(NativePath(path).c_str(), "rb"));
    // A shorter file refuses, and is read from its beginning.
    if (file && fseeko(file.get(), -static_cast<off_t>(most), SEEK_END) != 0) std::rewind(file.get());
    return ReadAtMost(file, most);
}

bool WriteWholeFile(const std::u16string& path, std::string_view bytes, std::string& error) {
    return WriteToEnd(FileHandle(std::fopen(NativePath(path).c_str(), "wb")), bytes, error);
}

// Files are never locked here.
std::optional<std::string> ReadWholeFileAlone(const std::u16string& path) { return ReadWholeFile(path); }

} // namespace brixen::lyr::gen
