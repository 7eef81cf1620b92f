#pragma once

#include "dictionaries/store/text_column.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace kestrel_private {

// The entries of one loaded file, or up to kRunTimeEntries added at run time. Entries are numbered from 0.
struct FastArrayBlock {
    static constexpr std::uint32_t kRunTimeEntries = 100;

    std::uint32_t entryCount = 0;
    std::uint32_t liveCount = 0;
    std::uint32_t firstId = 0;
    bool hasKeys = true; // without keys no lookup reaches the values
    TextColumn keys;
    TextColumn values;
    TextColumn notes;                   // one for each element of noteIndex
    FileArray<std::uint32_t> noteIndex; // entries that have a note, ascending

    bool IsDropped(std::uint32_t entry) const { return hasKeys && keys.At(entry).length == 0; }
    // Nothing when the entry has no note.
    std::optional<ValueBytes> NoteAt(std::uint32_t entry) const;

    // Adds an entry behind the others. On failure the block is as it was.
    void Append(std::string_view key, std::string_view value, std::optional<std::string_view> note);
    // The first note of a block makes its note arrays; later on a note for an entry that has none is dropped.
    void ReplaceNote(std::uint32_t entry, std::string_view note);

private:
    std::optional<std::size_t> NotePosition(std::uint32_t entry) const;
};

} // namespace kestrel_private
