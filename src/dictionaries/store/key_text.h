// Key texts, and the buckets of keys.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace kestrel_private {

inline constexpr std::uint32_t kBucketCount = 1021;

// The parts of a key text. In `$$$/a/b=default` the key is `/a/b`, and the default text follows the first
// `=`.
template <class Char>
struct KeyText {
    std::basic_string_view<Char> key;
    std::basic_string_view<Char> defaultText; // its data is null when there is no `=`
};

// Splits a key text; the parts borrow it. Nothing when it begins with `$` but not with `$$$`.
template <class Char>
std::optional<KeyText<Char>> SplitKeyText(std::basic_string_view<Char> text) {
    constexpr Char kMark = '$';
    if (!text.empty() && text[0] == kMark) {
        if (text.size() < 3 || text[1] != kMark || text[2] != kMark) return std::nullopt;
        text.remove_prefix(3);
    }
    const std::size_t equals = text.find(Char{'='});
    if (equals == text.npos) return KeyText<Char>{text, {}};
    return KeyText<Char>{text.substr(0, equals), text.substr(equals + 1)};
}

// The hash of a key, below `modulus`.
// Kept: it samples a handful of bytes. Compiled dictionaries have their entries sorted by it.
inline std::uint32_t KeyHash(std::string_view key, std::uint32_t modulus) {
    const std::size_t step = key.size() < 5 ? 1 : key.size() / 5;
    std::uint32_t hash = 0;
    for (std::size_t i = 0; i < key.size(); i += step) {
        hash = (hash * 32 + static_cast<unsigned char>(key[i])) % modulus;
    }
    return hash;
}

// The bucket of a key, below kBucketCount.
inline std::uint32_t KeyBucket(std::string_view key) { return KeyHash(key, kBucketCount); }

} // namespace kestrel_private
