#pragma once

#include "dictionaries/store/file_array.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace kestrel_private {

inline std::uint8_t SwapBytes(std::uint8_t number) { return number; }
inline std::uint16_t SwapBytes(std::uint16_t number) {
    return static_cast<std::uint16_t>(number << 8 | number >> 8);
}
inline std::uint32_t SwapBytes(std::uint32_t number) {
    return number << 24 | (number & 0xFF00) << 8 | (number >> 8 & 0xFF00) | number >> 24;
}

// Reads fields one behind the other out of bytes that someone else owns. A field that does not fit into what
// is left is not read: the call gives false, and cursor and target stay as they are.
class ByteCursor {
public:
    ByteCursor(const std::uint8_t* begin, const std::uint8_t* end, bool swaps = false)
        : next(begin), end(end), swaps(swaps) {}

    std::size_t Left() const { return static_cast<std::size_t>(end - next); }
    const std::uint8_t* Next() const { return next; }
    bool Swaps() const { return swaps; }

    // The bytes of a field that is only looked at; null when it does not fit.
    const std::uint8_t* Take(std::uint64_t byteCount) {
        if (byteCount > Left()) return nullptr;
        const std::uint8_t* const field = next;
        next += byteCount;
        return field;
    }

    template <class Number>
    bool Read(Number& number) {
        static_assert(std::is_unsigned_v<Number>);
        const std::uint8_t* const field = Take(sizeof number);
        if (field == nullptr) return false;
        std::memcpy(&number, field, sizeof number);
        if (swaps) number = SwapBytes(number);
        return true;
    }

    template <class Number>
    bool Read(FileArray<Number>& array, std::uint64_t count) {
        if (count > Left() / sizeof(Number)) return false;
        array.resize(static_cast<std::size_t>(count));
        if (count != 0) std::memcpy(array.data(), Take(count * sizeof(Number)), count * sizeof(Number));
        if (swaps && sizeof(Number) > 1) {
            for (Number& number : array) number = SwapBytes(number);
        }
        return true;
    }

private:
    const std::uint8_t* next;
    const std::uint8_t* end;
    bool swaps;
};

} // namespace kestrel_private
