// Arrays of a compiled dictionary, read where they are in the copy of its file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace kestrel_private {

// Numbers that follow one another in bytes of someone else, at any alignment and in the order of the machine.
// The bytes have to outlive the view.
template <class Number>
class FileNumbers {
    static_assert(std::is_unsigned_v<Number>);

public:
    FileNumbers() = default;
    // `bytes` holds `count` numbers.
    FileNumbers(std::uint8_t* bytes, std::size_t count) : bytes(bytes), count(count) {}

    std::size_t Size() const { return count; }
    // `index` is below Size() here and in Set.
    Number operator[](std::size_t index) const {
        Number number;
        std::memcpy(&number, bytes + index * sizeof number, sizeof number);
        return number;
    }
    void Set(std::size_t index, Number number) {
        std::memcpy(bytes + index * sizeof number, &number, sizeof number);
    }
    // `length` numbers from `begin` on, which lie inside.
    FileNumbers Part(std::size_t begin, std::size_t length) const {
        return {bytes + begin * sizeof(Number), length};
    }

private:
    std::uint8_t* bytes = nullptr;
    std::size_t count = 0;
};

} // namespace kestrel_private
