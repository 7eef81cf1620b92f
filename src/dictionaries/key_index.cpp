#include "dictionaries/key_index.h"

#include "dictionaries/folded_product.h"

#include <bit>
#include <chrono>
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

// Over all bytes, unlike the hash of the buckets: two words at a time, the last ones overlapping what came
// before them.
std::uint64_t HashWhole(std::string_view key, std::uint64_t seed) {
    const char* bytes = key.data();
    const char* const end = bytes + key.size();
    const std::uint64_t secret = seed * kMultiplier;
    std::uint64_t hash = seed ^ key.size();
    for (; end - bytes > 16; bytes += 16)
        hash = FoldedProduct(ReadWord(bytes) ^ secret, ReadWord(bytes + 8) ^ hash);
    if (key.size() < 8) {
        hash = FoldedProduct(ReadShort(bytes, key.size()) ^ secret, hash);
    } else {
        hash = FoldedProduct(ReadWord(key.size() < 16 ? bytes : end - 16) ^ secret, ReadWord(end - 8) ^ hash);
    }
    return FoldedProduct(hash ^ secret, kMultiplier);
}

// What the author of a file cannot know, so that nobody can choose keys that all belong in one slot.
std::uint64_t NewSeed(const void* address) {
    const auto time = std::chrono::steady_clock::now().time_since_epoch().count();
    return FoldedProduct(static_cast<std::uint64_t>(time) ^ kMultiplier,
                         reinterpret_cast<std::uintptr_t>(address));
}

bool IsTooFull(std::size_t used, std::size_t slots) { return used * 5 > slots * 4; }

} // namespace

void KeyIndex::Clear() {
    fSlots.clear();
    fUsed = 0;
}

void KeyIndex::Start(std::size_t count) {
    Clear();
    std::vector<Slot> slots(std::bit_ceil(kFewestSlots + count * 5 / 4));
    fSeed = NewSeed(slots.data());
    fSlots.swap(slots);
}

std::size_t KeyIndex::SlotFor(std::string_view key) const {
    const std::uint64_t hash = HashWhole(key, fSeed);
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
            static_cast<std::uint16_t>(HashWhole(key, fSeed) >> 48)};
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
