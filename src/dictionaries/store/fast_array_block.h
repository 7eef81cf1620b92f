// One block of the store: the entries of a file, or entries that were added one by one.
#pragma once

#include "dictionaries/store/text_column.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace kestrel_private {

// The entries of one loaded file, or up to kRunTimeEntries that were added at run time. Entries are numbered
// from 0. A file that was cut off has all the entries that it counts; those whose arrays are missing have no
// texts.
struct FastArrayBlock {
    static constexpr std::uint32_t kRunTimeEntries = 100;

    std::uint32_t entryCount = 0;
    std::uint32_t liveCount = 0;          // entries that are not dropped, as the file says
    std::uint32_t firstId = 0;            // the id of entry 0
    bool hasKeys = true;                  // without keys no lookup reaches the values
    std::uint64_t fileSize = 0;           // bytes of the whole file
    std::unique_ptr<std::uint8_t[]> file; // the copy of its arrays, which the columns read
    TextColumn keys;
    TextColumn values;
    TextColumn notes;                     // one for each element of noteIndex
    std::vector<std::uint32_t> noteIndex; // entries that have a note, ascending

    bool IsDropped(std::uint32_t entry) const { return hasKeys && keys.At(entry).length == 0; }
    // The note of an entry; nothing when it has none.
    std::optional<ValueBytes> NoteAt(std::uint32_t entry) const;

    // Adds an entry after the others. On bad_alloc the block is as before.
    void Append(std::string_view key, std::string_view value, std::optional<std::string_view> note);
    // Replaces the note of an entry. The first note of a block makes its arrays; a later note for an entry
    // without one is dropped. On bad_alloc the block is as before.
    void ReplaceNote(std::uint32_t entry, std::string_view note);

private:
    std::optional<std::size_t> NotePosition(std::uint32_t entry) const;
};

} // namespace kestrel_private
