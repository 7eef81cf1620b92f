#include "dictionaries/store/fast_array_block.h"

#include <algorithm>
#include <utility>

namespace kestrel_private {

std::optional<std::size_t> FastArrayBlock::NotePosition(std::uint32_t entry) const {
    const auto found = std::lower_bound(noteIndex.begin(), noteIndex.end(), entry);
    if (found == noteIndex.end() || *found != entry) return std::nullopt;
    return static_cast<std::size_t>(found - noteIndex.begin());
}

std::optional<ValueBytes> FastArrayBlock::NoteAt(std::uint32_t entry) const {
    const auto position = NotePosition(entry);
    if (!position) return std::nullopt;
    return notes.At(*position);
}

void FastArrayBlock::Append(std::string_view key, std::string_view value,
                            std::optional<std::string_view> note) {
    keys.Reserve(kRunTimeEntries);
    values.Reserve(kRunTimeEntries);
    auto keyCopy = TextColumn::Copy(key);
    auto valueCopy = TextColumn::Copy(value);
    if (note) {
        notes.Reserve(kRunTimeEntries);
        noteIndex.reserve(kRunTimeEntries);
        notes.Append(TextColumn::Copy(*note), note->size());
        noteIndex.push_back(entryCount);
    }
    keys.Append(std::move(keyCopy), key.size());
    values.Append(std::move(valueCopy), value.size());
    ++entryCount;
    ++liveCount;
}

void FastArrayBlock::ReplaceNote(std::uint32_t entry, std::string_view note) {
    if (noteIndex.empty()) {
        noteIndex.reserve(kRunTimeEntries);
        notes.Reserve(kRunTimeEntries);
        notes.Append(TextColumn::Copy(note), note.size());
        noteIndex.push_back(entry);
    } else if (const auto position = NotePosition(entry)) {
        notes.Replace(*position, note, noteIndex.size());
    }
}

} // namespace kestrel_private
