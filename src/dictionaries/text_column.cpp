#include "dictionaries/text_column.h"

#include <cstring>
#include <utility>

namespace kestrel_private {

TextColumn::TextColumn(std::vector<std::uint32_t> offsets, std::vector<std::uint16_t> lengths,
                       std::vector<std::uint8_t> area)
    : fOffsets(std::move(offsets)), fLengths(std::move(lengths)), fArea(std::move(area)) {}

ValueBytes TextColumn::At(std::size_t index) const {
    if (index >= fLengths.size()) return {};
    const std::uint32_t length = fLengths[index];
    if (index < fOverrides.size() && fOverrides[index]) return {fOverrides[index].get(), length};
    if (index >= fOffsets.size() || fOffsets[index] > fArea.size()) return {};
    if (length > fArea.size() - fOffsets[index]) return {};
    return {fArea.data() + fOffsets[index], length};
}

void TextColumn::Reserve(std::size_t count) {
    fOffsets.reserve(count);
    fLengths.reserve(count);
    fOverrides.reserve(count);
}

std::unique_ptr<std::uint8_t[]> TextColumn::Copy(std::string_view text) {
    if (text.empty()) return nullptr;
    std::unique_ptr<std::uint8_t[]> copy(new std::uint8_t[text.size()]);
    std::memcpy(copy.get(), text.data(), text.size());
    return copy;
}

void TextColumn::Append(std::unique_ptr<std::uint8_t[]> copy, std::size_t length) noexcept {
    fOffsets.push_back(0);
    fLengths.push_back(static_cast<std::uint16_t>(length));
    fOverrides.push_back(std::move(copy));
}

std::uint8_t* TextColumn::MutableAt(std::size_t index) { return const_cast<std::uint8_t*>(At(index).bytes); }

void TextColumn::Replace(std::size_t index, std::string_view text, std::size_t entryCount) {
    const ValueBytes old = At(index);
    if (text.size() <= old.length) {
        if (!text.empty()) std::memcpy(MutableAt(index), text.data(), text.size());
    } else {
        auto copy = Copy(text);
        if (fOffsets.size() < entryCount) fOffsets.resize(entryCount);
        if (fLengths.size() < entryCount) fLengths.resize(entryCount);
        if (fOverrides.size() < entryCount) fOverrides.resize(entryCount);
        fOverrides[index] = std::move(copy);
        fOffsets[index] = 0;
    }
    if (index < fLengths.size()) fLengths[index] = static_cast<std::uint16_t>(text.size());
}

void TextColumn::Clear(std::size_t index) {
    if (index < fLengths.size()) fLengths[index] = 0;
}

} // namespace kestrel_private
