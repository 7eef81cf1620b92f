// The hash of the toolkit's small tables: the standard CRC-32 of a key's text, over 127 buckets.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace brixen::zeve {

inline constexpr std::size_t kKeyBuckets = 127;

namespace key_hash_detail {

constexpr std::array<std::uint32_t, 256> MakeTable() {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < table.size(); ++i) {
        std::uint32_t value = i;
        for (int bit = 0; bit < 8; ++bit) value = (value & 1) != 0 ? (value >> 1) ^ 0xEDB88320u : value >> 1;
        table[i] = value;
    }
    return table;
}

inline constexpr auto kTable = MakeTable();

} // namespace key_hash_detail

// Reflected polynomial 0xEDB88320, start value all ones, result inverted.
[[nodiscard]] constexpr std::uint32_t Crc32(std::string_view text) {
    std::uint32_t crc = 0xFFFFFFFFu;
    for (const char c : text) {
        crc = (crc >> 8) ^ key_hash_detail::kTable[(crc ^ static_cast<unsigned char>(c)) & 0xFFu];
    }
    return ~crc;
}

[[nodiscard]] constexpr std::size_t KeyBucket(std::string_view key) { return Crc32(key) % kKeyBuckets; }

} // namespace brixen::zeve
