// Services of the system for text and files: code pages, the narrow text of the C library, and files by wide
// path. Any thread may call.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace brixen::lyr::gen {

inline constexpr unsigned kCodePageProcess = 0; // the process's own; 1252 where the system has none
inline constexpr unsigned kCodePageUtf8 = 65001;

enum class CodePageStatus { kDone, kOutputTooSmall, kFailed };

// `length` is the number of units or bytes that were written, or that are needed when no output was given.
struct CodePageResult {
    CodePageStatus status;
    std::size_t length;
};

// Converts bytes to UTF-16 units. `capacity` counts units. A null `output` asks for the count alone. Fails
// for bytes that are no text in the code page. Writes no terminator; empty input has an empty result.
[[nodiscard]] CodePageResult CodePageToWide(unsigned codePage, std::string_view bytes, char16_t* output,
                                            std::size_t capacity);
// Converts UTF-16 units to bytes in the same way. "?" replaces a character that the code page lacks, and
// U+FFFD an unpaired surrogate in UTF-8.
[[nodiscard]] CodePageResult WideToCodePage(unsigned codePage, std::u16string_view wide, char* output,
                                            std::size_t capacity);

// The narrow text of the C library in the locale of the process. Both texts are NUL-terminated. Results are
// without the terminator; they are kNoNarrowText for a text that cannot be converted, which the functions
// that only count may not notice. `size` counts characters of `output`, which is terminated when there is
// room.
inline constexpr std::size_t kNoNarrowText = static_cast<std::size_t>(-1);
std::size_t NarrowSize(const char16_t* wide);
std::size_t WideToNarrow(char* output, const char16_t* wide, std::size_t size);
std::size_t WideSize(const char* narrow);
std::size_t NarrowToWide(char16_t* output, const char* narrow, std::size_t size);

// Whether `path` names a file and not a folder. In every path of this header a backslash separates folders.
[[nodiscard]] bool FileExists(const std::u16string& path);
// The bytes of a file as they are. Returns nothing when the file cannot be opened or read, or when there is
// no memory for it.
std::optional<std::string> ReadWholeFile(const std::u16string& path);
// The same; `error` takes the C library's message where it returns nothing.
std::optional<std::string> ReadWholeFile(const std::u16string& path, std::string& error);
// The same as the first, but only for a file that is not open elsewhere, where the system can tell. The file
// cannot be opened elsewhere meanwhile. The name of a device is no file.
std::optional<std::string> ReadWholeFileAlone(const std::u16string& path);
// At most that many bytes of the end of a file, however long it is. It may grow meanwhile: what follows is
// not read then. Returns nothing when the file cannot be opened or read. Throws std::bad_alloc.
std::optional<std::string> ReadEndOfFile(const std::u16string& path, std::size_t most);
// Creates the file, or replaces its content. Returns whether all was written; if not, `error` takes the C
// library's message, and the file may hold a part.
[[nodiscard]] bool WriteWholeFile(const std::u16string& path, std::string_view bytes, std::string& error);

} // namespace brixen::lyr::gen
