#include "dictionaries/key_index.h"

#include <bit>
#include <cstring>
#include <utility>

namespace kestrel_private {
namespace {

constexpr std::size_t kFewestSlots = 64;
constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15;

std::uint64_t ReadWord(const char* bytes) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, sizeof word);
    return word;
}

// Fewer than eight bytes.
std::uint64_t ReadShort(const char* bytes, std::size_t length) {
    std::uint64_t word = 0;
    for (std::size_t i = 0; i < length; ++i) word = word << 8 | static_cast<unsigned char>(bytes[i]);
    return word;
}

std::uint64_t Mix(std::uint64_t hash, std::uint64_t word) {
    hash = (hash ^ word) * kMultiplier;
    return hash ^ (hash >> 32);
}

// Over all bytes, unlike the hash of the buckets: two words at a time, the last ones overlapping what came
// before them.
std::uint64_t HashWhole(std::string_view key) {
    const char* bytes = key.data();
    const char* const end = bytes + key.size();
    std::uint64_t first = key.size() * kMultiplier;
    std::uint64_t second = ~first;
    for (; end - bytes > 16; bytes += 16) {
        first = Mix(first, ReadWord(bytes));
        second = Mix(second, ReadWord(bytes + 8));
    }
    if (key.size() < 8) {
        first = Mix(first, ReadShort(bytes, key.size()));
    } else {
        first = Mix(first, ReadWord(key.size() < 16 ? bytes : end - 16));
        second = Mix(second, ReadWord(end - 8));
    }
    return Mix(Mix(first, 0) + second, 0);
}

bool IsTooFull(std::size_t used, std::size_t slots) { return used * 5 > slots * 4; }

} // namespace

void KeyIndex::Clear() {
    fSlots.clear();
    fUsed = 0;
}

void KeyIndex::Start(std::size_t count) {
    Clear();
    Resize(std::bit_ceil(kFewestSlots + count * 5 / 4));
}

std::size_t KeyIndex::SlotFor(std::string_view key) const {
    const std::uint64_t hash = HashWhole(key);
    const auto tag = static_cast<std::uint16_t>(hash >> 48);
    const std::size_t mask = fSlots.size() - 1;
    for (std::size_t place = hash & mask;; place = (place + 1) & mask) {
        const Slot& slot = fSlots[place];
        if (slot.id == kFree) return place;
        if (slot.tag == tag && std::string_view(slot.key, slot.length) == key) return place;
    }
}

void KeyIndex::Insert(std::string_view key, const Entry& entry) {
    if (IsTooFull(fUsed + 1, fSlots.size())) Resize(fSlots.size() * 2);
    Slot& slot = fSlots[SlotFor(key)];
    if (slot.id != kFree) return;
    slot = {key.data(), entry.value, entry.id, static_cast<std::uint16_t>(key.size()),
            static_cast<std::uint16_t>(HashWhole(key) >> 48)};
    ++fUsed;
}

std::optional<KeyIndex::Entry> KeyIndex::Find(std::string_view key) const {
    const Slot& slot = fSlots[SlotFor(key)];
    if (slot.id == kFree) return std::nullopt;
    return Entry{slot.id, slot.value};
}

void KeyIndex::SetValue(std::string_view key, const Entry& entry) {
    if (!IsBuilt()) return;
    Slot& slot = fSlots[SlotFor(key)];
    if (slot.id == entry.id && slot.id != kFree) slot.value = entry.value;
}

void KeyIndex::Resize(std::size_t slotCount) {
    std::vector<Slot> old(slotCount);
    old.swap(fSlots);
    for (const Slot& slot : old) {
        if (slot.id != kFree) fSlots[SlotFor({slot.key, slot.length})] = slot;
    }
}

} // namespace kestrel_private
