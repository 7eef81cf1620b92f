#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace kestrel_private {

inline constexpr std::uint32_t kBucketCount = 1021;

// A key text `$$$/a/b=default` taken apart: the key is `/a/b`, the default text what follows the first `=`.
template <class Char>
struct KeyText {
    std::basic_string_view<Char> key;
    std::basic_string_view<Char> defaultText;
};

// Nothing when the text begins with `$` but not with `$$$`.
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

// The hash of a key. It samples a handful of bytes only, and compiled dictionaries bring their entries sorted
// by it, so it stays as it is.
inline std::uint32_t KeyHash(std::string_view key, std::uint32_t modulus) {
    const std::size_t step = key.size() < 5 ? 1 : key.size() / 5;
    std::uint32_t hash = 0;
    for (std::size_t i = 0; i < key.size(); i += step) {
        hash = (hash * 32 + static_cast<unsigned char>(key[i])) % modulus;
    }
    return hash;
}

inline std::uint32_t KeyBucket(std::string_view key) { return KeyHash(key, kBucketCount); }

} // namespace kestrel_private
