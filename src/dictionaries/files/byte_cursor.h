// Reads the fields of a file one after the other.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <type_traits>

namespace kestrel_private {

inline std::uint8_t SwapBytes(std::uint8_t number) { return number; }
inline std::uint16_t SwapBytes(std::uint16_t number) {
    return static_cast<std::uint16_t>(number << 8 | number >> 8);
}
inline std::uint32_t SwapBytes(std::uint32_t number) {
    return number << 24 | (number & 0xFF00) << 8 | (number >> 8 & 0xFF00) | number >> 24;
}

// Borrows the bytes. A field that is longer than what is left is not read: the call returns false or nothing,
// and cursor and target stay as they are.
class ByteCursor {
public:
    // With `swaps`, the numbers are in the other byte order than the machine's.
    ByteCursor(const std::uint8_t* begin, const std::uint8_t* end, bool swaps = false)
        : next(begin), end(end), swaps(swaps) {}

    std::size_t Left() const { return static_cast<std::size_t>(end - next); }
    const std::uint8_t* Next() const { return next; }
    bool Swaps() const { return swaps; }

    // The bytes of a field; null when it is longer than what is left.
    [[nodiscard]] const std::uint8_t* Take(std::uint64_t byteCount) {
        if (byteCount > Left()) return nullptr;
        const std::uint8_t* const field = next;
        next += byteCount;
        return field;
    }
    // A cursor over a field of that many bytes.
    [[nodiscard]] std::optional<ByteCursor> TakePart(std::uint64_t byteCount) {
        const std::uint8_t* const field = Take(byteCount);
        if (field == nullptr) return std::nullopt;
        return ByteCursor(field, next, swaps);
    }

    template <class Number>
    [[nodiscard]] bool Read(Number& number) {
        static_assert(std::is_unsigned_v<Number>);
        const std::uint8_t* const field = Take(sizeof number);
        if (field == nullptr) return false;
        std::memcpy(&number, field, sizeof number);
        if (swaps) number = SwapBytes(number);
        return true;
    }

private:
    const std::uint8_t* next;
    const std::uint8_t* end;
    bool swaps;
};

} // namespace kestrel_private
