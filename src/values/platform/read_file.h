// Reading and writing an open file, which is the same on every system. Private to the platform folder.
#pragma once

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <string_view>

namespace brixen::lyr::gen {

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using FileHandle = std::unique_ptr<std::FILE, FileCloser>;

// The length that the file seems to have, and a block more for the read that finds its end. 0 when the length
// is not known.
inline std::size_t LengthHint(std::FILE* file) {
    constexpr std::size_t kBlock = 4096;
    const bool measured = std::fseek(file, 0, SEEK_END) == 0;
    const long length = measured ? std::ftell(file) : -1;
    std::rewind(file);
    return length > 0 && length < LONG_MAX ? static_cast<std::size_t>(length) + kBlock : 0;
}

// Reads to the end. Returns nothing without a file, after a read error, or without memory.
inline std::optional<std::string> ReadToEnd(const FileHandle& file) {
    constexpr std::size_t kBlock = 4096;
    if (!file) return std::nullopt;
    try {
        std::string bytes;
        bytes.reserve(LengthHint(file.get()));
        std::size_t length = 0;
        std::size_t got = kBlock;
        while (got == kBlock) {
            bytes.resize(length + kBlock);
            got = std::fread(bytes.data() + length, 1, kBlock, file.get());
            length += got;
        }
        bytes.resize(length);
        return std::ferror(file.get()) != 0 ? std::nullopt : std::optional(std::move(bytes));
    } catch (const std::bad_alloc&) {
        errno = ENOMEM;
        return std::nullopt;
    }
}

// Reads at most that many bytes. Returns nothing without a file and after a read error. Throws
// std::bad_alloc.
inline std::optional<std::string> ReadAtMost(const FileHandle& file, std::size_t most) {
    if (!file) return std::nullopt;
    std::string bytes(most, '\0');
    bytes.resize(std::fread(bytes.data(), 1, most, file.get()));
    return std::ferror(file.get()) != 0 ? std::nullopt : std::optional(std::move(bytes));
}

inline std::string MessageOf(int number) {
    const char* const message = std::strerror(number);
    return message == nullptr ? std::string() : message;
}

// The same; `error` takes the C library's message where it returns nothing.
inline std::optional<std::string> ReadToEnd(const FileHandle& file, std::string& error) {
    std::optional<std::string> bytes = ReadToEnd(file);
    if (!bytes) error = MessageOf(errno);
    return bytes;
}

// Writes all bytes and closes the file. On failure `error` takes the C library's message.
inline bool WriteToEnd(FileHandle file, std::string_view bytes, std::string& error) {
    const bool written = file && std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size();
    const int failure = errno;
    // Buffered bytes are written only now, so closing can fail.
    const bool closed = !file || std::fclose(file.release()) == 0;
    if (!written || !closed) error = MessageOf(written ? errno : failure);
    return written && closed;
}

} // namespace brixen::lyr::gen
