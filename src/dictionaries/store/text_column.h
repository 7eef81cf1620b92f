// The texts of one kind in a block: all keys, all values or all notes.
#pragma once

#include "dictionaries/store/file_numbers.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace kestrel_private {

// Bytes of an entry, borrowed from the store, at any alignment.
struct ValueBytes {
    const std::uint8_t* bytes = nullptr;
    std::uint32_t length = 0;

    std::string_view Text() const { return {reinterpret_cast<const char*>(bytes), length}; }
};

inline constexpr std::size_t kLongestText = 0xFFFF; // bytes; lengths have 16 bits

// A text of a file lies in the area of the column, at an offset. A text that was added or grew lies in a
// private copy, the override, which wins. An entry whose offset, length or bytes are missing has no text.
// Texts are at most kLongestText bytes; callers see to that.
class TextColumn {
public:
    using Bytes = std::unique_ptr<std::uint8_t[]>;

    // A column without a file; texts are appended.
    TextColumn() = default;
    // The arrays of a file, as far as they were read: no more lengths than offsets. They are borrowed, and
    // changed in place.
    TextColumn(FileNumbers<std::uint32_t> offsets, FileNumbers<std::uint16_t> lengths,
               std::span<std::uint8_t> area);

    // The text of an entry, until it is next changed; empty for an index beyond the column.
    ValueBytes At(std::size_t index) const {
        if (HasOverride(index)) return {overrides[index].bytes.get(), overrides[index].length};
        if (index >= lengths.Size() || offsets[index] > area.size()) return {};
        const std::uint32_t length = lengths[index];
        if (length > area.size() - offsets[index]) return {};
        return {area.data() + offsets[index], length};
    }

    // Whether the text of an entry is `text`.
    bool Equals(std::size_t index, std::string_view text) const {
        // Most keys of a bucket differ in their lengths or at their ends.
        if (!text.empty() && LengthAt(index) != text.size()) return false;
        const std::string_view own = At(index).Text();
        return own.size() == text.size() && EndOf(own) == EndOf(text) && own == text;
    }
    // The bytes of the file's texts.
    std::size_t AreaSize() const { return area.size(); }

    // Takes memory for `count` entries, so that Append cannot fail.
    void Reserve(std::size_t count) { overrides.reserve(count); }
    // Memory with the bytes of `text`; null for an empty text.
    [[nodiscard]] static Bytes Copy(std::string_view text);
    // Adds an entry with a copy of `length` bytes. Reserve has been called.
    void Append(Bytes copy, std::size_t length) noexcept;

    // Writes over a text that is at least as long, else makes an override. `entryCount` is the number of
    // entries that the block counts. On bad_alloc the column is as before.
    void Replace(std::size_t index, std::string_view text, std::size_t entryCount);
    // The same in two steps. The first takes all the memory that the second needs and changes no text. It is
    // left out (null) for a text that is no longer than the text that it replaces.
    [[nodiscard]] Bytes PrepareOverride(std::string_view text, std::size_t entryCount);
    void Replace(std::size_t index, std::string_view text, Bytes prepared) noexcept;
    // Marks an entry of a file as dropped: its text is empty.
    void Clear(std::size_t index);

private:
    struct Override {
        Bytes bytes; // null when there is none
        std::uint32_t length = 0;
    };

    bool HasOverride(std::size_t index) const { return index < overrides.size() && overrides[index].bytes; }
    std::size_t LengthAt(std::size_t index) const {
        if (HasOverride(index)) return overrides[index].length;
        return index < lengths.Size() ? lengths[index] : 0;
    }
    // The last bytes as a number.
    static std::uint64_t EndOf(std::string_view text) {
        std::uint64_t end = 0;
        if (text.size() >= sizeof end) std::memcpy(&end, text.data() + text.size() - sizeof end, sizeof end);
        return end;
    }

    FileNumbers<std::uint32_t> offsets;
    FileNumbers<std::uint16_t> lengths;
    std::span<std::uint8_t> area;
    std::vector<Override> overrides;
};

} // namespace kestrel_private
