#include "dictionaries/store/key_index.h"

#include "dictionaries/store/folded_product.h"

#include <bit>
#include <chrono>
#include <cstring>

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

// Of all bytes, unlike the hash of the buckets. Takes two words at a time; the last two may overlap those
// before.
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

// A number that the author of a file cannot know: nobody can choose keys that all belong in one slot.
std::uint64_t NewSeed(const void* address) {
    const auto time = std::chrono::steady_clock::now().time_since_epoch().count();
    return FoldedProduct(static_cast<std::uint64_t>(time) ^ kMultiplier,
                         reinterpret_cast<std::uintptr_t>(address));
}

std::uint32_t TagOf(std::uint64_t hash) { return static_cast<std::uint32_t>(hash >> 32); }

bool IsTooFull(std::size_t used, std::size_t slots) { return used * 5 > slots * 4; }

} // namespace

KeyIndex::Record::Record(std::string_view key, const Entry& entry)
    : id(entry.id), keyLength(static_cast<std::uint16_t>(key.size())) {
    SetValue(entry.value);
    if (key.size() <= sizeof copy) {
        key.copy(copy, sizeof copy);
    } else {
        borrowed = key.data();
    }
}

void KeyIndex::Record::SetValue(const ValueBytes& newValue) {
    value = newValue.bytes;
    valueLength = static_cast<std::uint16_t>(newValue.length);
}

void KeyIndex::Clear() {
    slots.clear();
    records.clear();
}

void KeyIndex::Start(std::size_t count) {
    Clear();
    std::vector<Slot> free(std::bit_ceil(kFewestSlots + count * 5 / 4));
    records.reserve(count);
    seed = NewSeed(free.data());
    slots.swap(free);
}

std::size_t KeyIndex::SlotFor(std::string_view key, std::uint64_t hash) const {
    const std::size_t mask = slots.size() - 1;
    for (std::size_t place = hash & mask;; place = (place + 1) & mask) {
        const Slot& slot = slots[place];
        if (slot.record == kFree) return place;
        if (slot.tag == TagOf(hash) && records[slot.record].Key() == key) return place;
    }
}

void KeyIndex::Insert(std::string_view key, const Entry& entry) {
    if (IsTooFull(records.size() + 1, slots.size())) Resize(slots.size() * 2);
    const std::uint64_t hash = HashWhole(key, seed);
    Slot& slot = slots[SlotFor(key, hash)];
    if (slot.record != kFree) return;
    records.emplace_back(key, entry);
    slot = {static_cast<std::uint32_t>(records.size() - 1), TagOf(hash)};
}

std::optional<KeyIndex::Entry> KeyIndex::Find(std::string_view key) const {
    const Slot& slot = slots[SlotFor(key, HashWhole(key, seed))];
    if (slot.record == kFree) return std::nullopt;
    return records[slot.record].Found();
}

void KeyIndex::SetValue(std::string_view key, const Entry& entry) {
    if (!IsBuilt()) return;
    const Slot& slot = slots[SlotFor(key, HashWhole(key, seed))];
    if (slot.record == kFree) return;
    Record& record = records[slot.record];
    if (record.Found().id == entry.id) record.SetValue(entry.value);
}

void KeyIndex::Resize(std::size_t slotCount) {
    std::vector<Slot> larger(slotCount);
    slots.swap(larger);
    for (std::uint32_t i = 0; i < records.size(); ++i) {
        const std::string_view key = records[i].Key();
        const std::uint64_t hash = HashWhole(key, seed);
        slots[SlotFor(key, hash)] = {i, TagOf(hash)};
    }
}

} // namespace kestrel_private
