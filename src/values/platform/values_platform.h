#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// What the text and resource code needs from the system: code pages, the C library's narrow text, and files
// by wide path. Any thread may call.
namespace brixen::lyr::gen {

inline constexpr unsigned kCodePageProcess = 0; // the process's own; 1252 where the system has none
inline constexpr unsigned kCodePageUtf8 = 65001;

enum class CodePageStatus { Done, OutputTooSmall, Failed };

// `length` counts what was written, or what is needed when no output was given.
struct CodePageResult {
    CodePageStatus status;
    std::size_t length;
};

// Bytes to UTF-16 units. A null `output` asks for the count alone. Bytes that are no text in the code page
// fail. Nothing is terminated; empty input gives empty output.
CodePageResult CodePageToWide(unsigned codePage, std::string_view bytes, char16_t* output,
                              std::size_t capacity);
// UTF-16 units to bytes, likewise. What the code page lacks is replaced: "?" in a code page, U+FFFD for an
// unpaired surrogate in UTF-8.
CodePageResult WideToCodePage(unsigned codePage, std::u16string_view wide, char* output,
                              std::size_t capacity);

// The narrow text of the C library in the locale of the process, both NUL-terminated. Sizes are without the
// terminator; `kNoNarrowText` says that the text cannot be shown, which the size alone may not tell. `size`
// counts characters of `output`, which is terminated when there is room.
inline constexpr std::size_t kNoNarrowText = static_cast<std::size_t>(-1);
std::size_t NarrowSize(const char16_t* wide);
std::size_t WideToNarrow(char* output, const char16_t* wide, std::size_t size);
std::size_t WideSize(const char* narrow);
std::size_t NarrowToWide(char16_t* output, const char* narrow, std::size_t size);

// Whether `path` names a file (not a folder). A backslash separates folders on every system.
bool FileExists(const std::u16string& path);
// The bytes of a file as they are; c_str() of the result is NUL-terminated. Nothing when the file cannot be
// opened, or when there is no memory for it.
std::optional<std::string> ReadWholeFile(const std::u16string& path);
// The same; when there is nothing, `error` takes the C library's message.
std::optional<std::string> ReadWholeFile(const std::u16string& path, std::string& error);
// As the first, for a file that nobody else has open, where the system can tell; nobody else can open it
// meanwhile. The name of a device is no file.
std::optional<std::string> ReadWholeFileAlone(const std::u16string& path);
// Makes the file, or replaces what is in it. On failure `error` takes the C library's message, and the file
// may hold a part.
bool WriteWholeFile(const std::u16string& path, std::string_view bytes, std::string& error);

} // namespace brixen::lyr::gen
