#include "dictionaries/store/text_column.h"

#include <cstring>
#include <utility>

namespace kestrel_private {

TextColumn::TextColumn(FileArray<std::uint32_t> offsets, FileArray<std::uint16_t> lengths,
                       FileArray<std::uint8_t> area)
    : offsets(std::move(offsets)), lengths(std::move(lengths)), area(std::move(area)) {}

void TextColumn::Reserve(std::size_t count) {
    offsets.reserve(count);
    lengths.reserve(count);
    overrides.reserve(count);
}

std::unique_ptr<std::uint8_t[]> TextColumn::Copy(std::string_view text) {
    if (text.empty()) return nullptr;
    std::unique_ptr<std::uint8_t[]> copy(new std::uint8_t[text.size()]);
    std::memcpy(copy.get(), text.data(), text.size());
    return copy;
}

void TextColumn::Append(std::unique_ptr<std::uint8_t[]> copy, std::size_t length) noexcept {
    offsets.push_back(0);
    lengths.push_back(static_cast<std::uint16_t>(length));
    overrides.push_back(std::move(copy));
}

std::uint8_t* TextColumn::MutableAt(std::size_t index) { return const_cast<std::uint8_t*>(At(index).bytes); }

std::unique_ptr<std::uint8_t[]> TextColumn::PrepareOverride(std::string_view text, std::size_t entryCount) {
    auto copy = Copy(text);
    if (offsets.size() < entryCount) offsets.resize(entryCount, 0);
    if (lengths.size() < entryCount) lengths.resize(entryCount, 0);
    if (overrides.size() < entryCount) overrides.resize(entryCount);
    return copy;
}

void TextColumn::Replace(std::size_t index, std::string_view text,
                         std::unique_ptr<std::uint8_t[]> prepared) noexcept {
    if (prepared) {
        overrides[index] = std::move(prepared);
        offsets[index] = 0;
    } else if (!text.empty()) {
        std::memmove(MutableAt(index), text.data(), text.size());
    }
    if (index < lengths.size()) lengths[index] = static_cast<std::uint16_t>(text.size());
}

void TextColumn::Replace(std::size_t index, std::string_view text, std::size_t entryCount) {
    const bool isLonger = text.size() > At(index).length;
    Replace(index, text, isLonger ? PrepareOverride(text, entryCount) : nullptr);
}

void TextColumn::Clear(std::size_t index) {
    if (index < lengths.size()) lengths[index] = 0;
}

} // namespace kestrel_private
