#include "values/narrow_text.h"

#include "values/platform/values_platform.h"
#include "values/unicode/lenient_text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>

namespace brixen::lyr::gen {
namespace {

constexpr std::size_t kLocalUnits = 256;

// A buffer on the stack for a short text, and on the heap for any other.
template <class Unit>
class TextRoom {
public:
    // `count` units and a terminator.
    explicit TextRoom(std::size_t count)
        : heap(count < kLocalUnits ? nullptr : new Unit[count + 1]), units(heap ? heap.get() : local.data()) {
    }
    Unit* Units() { return units; }

private:
    std::array<Unit, kLocalUnits> local;
    std::unique_ptr<Unit[]> heap;
    Unit* units;
};

std::string NarrowOf(const char16_t* wide) {
    const std::size_t size = NarrowSize(wide);
    if (size == kNoNarrowText) return {};
    TextRoom<char> narrow(size);
    // The size alone does not say whether the text can be shown.
    const std::size_t written = WideToNarrow(narrow.Units(), wide, size + 1);
    return written == kNoNarrowText ? std::string() : std::string(narrow.Units(), written);
}

bool IsTooLong(std::string_view text) {
    return text.size() >= static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max() / 4);
}

} // namespace

std::string Utf8ToCodePage(std::string_view utf8) {
    if (IsTooLong(utf8)) return {};
    const auto length = static_cast<std::int32_t>(utf8.size());
    const std::int32_t units = DecodeUtf8(nullptr, utf8.data(), length);
    TextRoom<char16_t> wide(static_cast<std::size_t>(units));
    DecodeUtf8(wide.Units(), utf8.data(), length);
    wide.Units()[units] = u'\0';
    return NarrowOf(wide.Units());
}

std::string CodePageToUtf8(std::string_view text) {
    if (IsTooLong(text)) return {};
    // The C library wants a terminated text.
    TextRoom<char> narrow(text.size());
    *std::copy(text.begin(), text.end(), narrow.Units()) = '\0';
    const std::size_t units = WideSize(narrow.Units());
    if (units == kNoNarrowText) return {};
    TextRoom<char16_t> wide(units);
    const bool read = NarrowToWide(wide.Units(), narrow.Units(), units + 1) != kNoNarrowText;
    return read ? LenientUtf8(wide.Units()) : std::string();
}

} // namespace brixen::lyr::gen
