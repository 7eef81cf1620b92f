#pragma once

#include <cstdio>
#include <memory>
#include <new>
#include <optional>
#include <string>

// What both systems share once a file is open. Private to the platform folder.
namespace brixen::lyr::gen {

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using FileHandle = std::unique_ptr<std::FILE, FileCloser>;

// Reads to the end. Nothing for no file, a read error, or no memory.
inline std::optional<std::string> ReadToEnd(const FileHandle& file) {
    constexpr std::size_t kBlock = 4096;
    if (!file) return std::nullopt;
    try {
        std::string bytes;
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
        return std::nullopt;
    }
}

} // namespace brixen::lyr::gen
