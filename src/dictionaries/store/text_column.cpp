#include "dictionaries/store/text_column.h"

#include <utility>

namespace kestrel_private {

TextColumn::TextColumn(FileNumbers<std::uint32_t> offsets, FileNumbers<std::uint16_t> lengths,
                       std::span<std::uint8_t> area)
    : offsets(offsets), lengths(lengths), area(area) {}

TextColumn::Bytes TextColumn::Copy(std::string_view text) {
    if (text.empty()) return nullptr;
    Bytes copy(new std::uint8_t[text.size()]);
    std::memcpy(copy.get(), text.data(), text.size());
    return copy;
}

void TextColumn::Append(Bytes copy, std::size_t length) noexcept {
    overrides.push_back({std::move(copy), static_cast<std::uint32_t>(length)});
}

TextColumn::Bytes TextColumn::PrepareOverride(std::string_view text, std::size_t entryCount) {
    Bytes copy = Copy(text);
    if (overrides.size() < entryCount) overrides.resize(entryCount);
    return copy;
}

void TextColumn::Replace(std::size_t index, std::string_view text, Bytes prepared) noexcept {
    if (prepared) {
        overrides[index] = {std::move(prepared), static_cast<std::uint32_t>(text.size())};
        return;
    }
    const ValueBytes old = At(index);
    if (old.bytes != nullptr && !text.empty()) {
        std::memmove(const_cast<std::uint8_t*>(old.bytes), text.data(), text.size());
    }
    if (HasOverride(index)) {
        overrides[index].length = static_cast<std::uint32_t>(text.size());
    } else if (index < lengths.Size()) {
        lengths.Set(index, static_cast<std::uint16_t>(text.size()));
    }
}

void TextColumn::Replace(std::size_t index, std::string_view text, std::size_t entryCount) {
    const bool isLonger = text.size() > At(index).length;
    Replace(index, text, isLonger ? PrepareOverride(text, entryCount) : nullptr);
}

void TextColumn::Clear(std::size_t index) {
    if (index < lengths.Size()) lengths.Set(index, 0);
}

} // namespace kestrel_private
