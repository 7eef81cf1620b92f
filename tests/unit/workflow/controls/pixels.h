// Pixels of small bitmaps in memory, and rectangles in messages, for the tests of painting.
#pragma once

#include "workflow/platform/painting.h"

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <vector>

namespace brixen::zeve::platform {

inline void PrintTo(const Rectangle& area, std::ostream* out) {
    *out << '(' << area.left << ", " << area.top << ", " << area.right << ", " << area.bottom << ')';
}

} // namespace brixen::zeve::platform

namespace brixen::pvn::pvn_workflow {

class Pixels {
public:
    // All bytes are `byte`; each row has `padding` bytes more.
    Pixels(std::int32_t width, std::int32_t height, std::int32_t pixelBytes, std::uint8_t byte = 0,
           std::int32_t padding = 0)
        : pitch(width * pixelBytes + padding), width(width), height(height), pixelBytes(pixelBytes),
          bytes(static_cast<std::size_t>(pitch * height), std::byte{byte}) {}

    platform::PixelRows Rows() { return {bytes.data(), pitch, width, height, pixelBytes}; }
    // The same pixels with the last row in memory on top.
    platform::PixelRows RowsUpwards() {
        return {bytes.data() + pitch * (height - 1), -pitch, width, height, pixelBytes};
    }

    void Set(std::int32_t x, std::int32_t y, std::vector<int> pixel) {
        for (std::size_t i = 0; i < pixel.size(); ++i) bytes[Index(x, y) + i] = std::byte(pixel[i]);
    }
    std::vector<int> At(std::int32_t x, std::int32_t y) const {
        std::vector<int> pixel;
        for (std::int32_t i = 0; i < pixelBytes; ++i)
            pixel.push_back(std::to_integer<int>(bytes[Index(x, y) + static_cast<std::size_t>(i)]));
        return pixel;
    }
    const std::vector<std::byte>& Bytes() const { return bytes; }

private:
    std::size_t Index(std::int32_t x, std::int32_t y) const {
        return static_cast<std::size_t>(std::ptrdiff_t{y} * pitch + std::ptrdiff_t{x} * pixelBytes);
    }

    std::int32_t pitch, width, height, pixelBytes;
    std::vector<std::byte> bytes;
};

} // namespace brixen::pvn::pvn_workflow
