#pragma once

#include "dictionaries/store/file_array.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

namespace kestrel_private {

// Bytes of an entry, borrowed from the store. They may stand at any alignment.
struct ValueBytes {
    const std::uint8_t* bytes = nullptr;
    std::uint32_t length = 0;

    std::string_view Text() const { return {reinterpret_cast<const char*>(bytes), length}; }
};

inline constexpr std::size_t kLongestText = 0xFFFF; // bytes; lengths have 16 bits

// One text of every entry of a block: all keys, all values or all notes. A text lies in the area that came
// with a file, or in a private copy of its own, the override, which wins. An entry whose arrays or bytes are
// missing has no text.
class TextColumn {
public:
    TextColumn() = default;
    // The arrays of a file, as far as they were read.
    TextColumn(FileArray<std::uint32_t> offsets, FileArray<std::uint16_t> lengths,
               FileArray<std::uint8_t> area);

    ValueBytes At(std::size_t index) const {
        if (index >= lengths.size()) return {};
        const std::uint32_t length = lengths[index];
        if (index < overrides.size() && overrides[index]) return {overrides[index].get(), length};
        if (index >= offsets.size() || offsets[index] > area.size()) return {};
        if (length > area.size() - offsets[index]) return {};
        return {area.data() + offsets[index], length};
    }

    bool Equals(std::size_t index, std::string_view text) const {
        // Most keys of a bucket are told apart by their lengths or their ends, which is where keys differ.
        if (!text.empty() && (index >= lengths.size() || lengths[index] != text.size())) return false;
        const std::string_view own = At(index).Text();
        return own.size() == text.size() && EndOf(own) == EndOf(text) && own == text;
    }
    std::size_t AreaSize() const { return area.size(); }

    // Room for `count` entries, so that Append cannot fail for want of it.
    void Reserve(std::size_t count);
    static std::unique_ptr<std::uint8_t[]> Copy(std::string_view text);
    void Append(std::unique_ptr<std::uint8_t[]> copy, std::size_t length) noexcept;

    // Writes over a text that is at least as long, else makes an override. `entryCount` is how many entries
    // the column has by its block's count. Texts beyond kLongestText are the caller's business.
    void Replace(std::size_t index, std::string_view text, std::size_t entryCount);
    // The same in two steps: the first takes all the memory that the second needs, and changes nothing that
    // can be seen. It is left out (null) for a text that is no longer than the one that will stand there
    // then.
    std::unique_ptr<std::uint8_t[]> PrepareOverride(std::string_view text, std::size_t entryCount);
    void Replace(std::size_t index, std::string_view text, std::unique_ptr<std::uint8_t[]> prepared) noexcept;
    // Marks an entry as dropped.
    void Clear(std::size_t index);

private:
    // The last bytes as a number.
    static std::uint64_t EndOf(std::string_view text) {
        std::uint64_t end = 0;
        if (text.size() >= sizeof end) std::memcpy(&end, text.data() + text.size() - sizeof end, sizeof end);
        return end;
    }
    std::uint8_t* MutableAt(std::size_t index);

    FileArray<std::uint32_t> offsets;
    FileArray<std::uint16_t> lengths;
    FileArray<std::uint8_t> area;
    std::vector<std::unique_ptr<std::uint8_t[]>> overrides;
};

} // namespace kestrel_private
