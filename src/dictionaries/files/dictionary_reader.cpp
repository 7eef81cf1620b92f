#include "dictionaries/files/dictionary_reader.h"

#include "dictionaries/files/source_streams.h"
#include "dictionaries/zstring/encoding.h"

#include <algorithm>

namespace kestrel_private {
namespace {

enum class TextKind { kLittleEndian, kBigEndian, kMultibyte };

TextKind KindOf(std::uint8_t first, std::uint8_t second) {
    if (first == 0xFF && second == 0xFE) return TextKind::kLittleEndian;
    if (first == 0xFE && second == 0xFF) return TextKind::kBigEndian;
    return TextKind::kMultibyte;
}

constexpr bool EndsWideLine(char16_t unit) {
    return unit == u'\n' || unit == u'\r' || unit == 0x2028 || unit == 0x2029;
}

constexpr bool IsPlain(char16_t unit) { return unit != 0 && !EndsWideLine(unit); }

// Decodes units up to the first that is not plain, at most `capacity`. `unitOf` makes a unit of two bytes.
template <class UnitOf>
std::size_t CopyPlainUnits(std::span<const std::uint8_t> bytes, char16_t* output, std::size_t capacity,
                           UnitOf unitOf) {
    const std::size_t most = std::min(bytes.size() / sizeof(char16_t), capacity);
    for (std::size_t i = 0; i < most; ++i) {
        output[i] = unitOf(bytes[2 * i], bytes[2 * i + 1]);
        if (!IsPlain(output[i])) return i;
    }
    return most;
}

constexpr char16_t UnitOf(std::uint8_t low, std::uint8_t high) {
    return static_cast<char16_t>(low | (high << 8));
}

bool CanRead(SourceKind kind, std::istream& stream) {
    if (kind != SourceKind::kResource) return true;
    const auto* const resource = dynamic_cast<kestrel::basic_irstream<char>*>(&stream);
    return resource != nullptr && resource->is_open();
}

} // namespace

DictionaryReader::DictionaryReader(const std::uint8_t* begin, const std::uint8_t* end)
    : kind(SourceKind::kMemory), cursor(begin), end(end) {}

DictionaryReader::DictionaryReader(SourceKind kind, std::istream& stream, std::string_view firstBytes)
    : stream(&stream), kind(kind) {
    std::copy(firstBytes.begin(), firstBytes.end(), head.begin());
    cursor = head.data();
    end = cursor + firstBytes.size();
}

bool DictionaryReader::NextByte(std::uint8_t& byte) {
    if (ended) return false;
    if (cursor != end) {
        byte = *cursor++;
        return true;
    }
    if (kind == SourceKind::kMemory) return false;
    const int got = stream->get();
    if (got == std::char_traits<char>::eof()) return false;
    byte = static_cast<std::uint8_t>(got);
    return true;
}

const char16_t* DictionaryReader::Terminated() {
    *line.Room(1) = u'\0';
    return line.Data();
}

bool UnicodeReader::NextChar(char16_t& out) {
    std::uint8_t low = 0;
    std::uint8_t high = 0;
    if (!NextByte(low) || !NextByte(high)) return false;
    out = UnitOf(low, high);
    return true;
}

std::size_t UnicodeReader::NextPlainChars(char16_t* output, std::size_t capacity) {
    const std::size_t count = CopyPlainUnits(BytesAhead(), output, capacity, UnitOf);
    Skip(count * sizeof(char16_t));
    return count;
}

bool ByteSwapUnicodeReader::NextChar(char16_t& out) {
    char16_t swapped = 0;
    if (!UnicodeReader::NextChar(swapped)) return false;
    out = static_cast<char16_t>((swapped << 8) | (swapped >> 8));
    return true;
}

std::size_t ByteSwapUnicodeReader::NextPlainChars(char16_t* output, std::size_t capacity) {
    const std::size_t count =
        CopyPlainUnits(BytesAhead(), output, capacity,
                       [](std::uint8_t high, std::uint8_t low) { return UnitOf(low, high); });
    Skip(count * sizeof(char16_t));
    return count;
}

const char16_t* UnicodeReader::NextLine() {
    line.Clear();
    char16_t unit = 0;
    while (true) {
        // Most of a line is copied at once. The unit that ends it, or does not fit, is read alone.
        line.Use(NextPlainChars(line.Room(0), line.RoomLeft()));
        if (!NextChar(unit) || unit == 0) break;
        if (EndsWideLine(unit)) return Terminated();
        line.Append(unit);
    }
    EndText();
    return line.Used() == 0 ? nullptr : Terminated();
}

const char16_t* MultibyteReader::NextLine() {
    line.Clear();
    bytes.Clear();
    std::uint8_t byte = 0;
    while (true) {
        const bool ended = !NextByte(byte) || byte == 0;
        if (ended) EndText();
        if (ended && bytes.Used() == 0) return nullptr;
        if (ended || byte == '\n' || byte == '\r') break;
        bytes.Append(static_cast<char>(byte));
    }
    const EncodingFunctions& functions = FunctionsOf(nullptr);
    const std::string_view collected(bytes.Data(), bytes.Used());
    const std::size_t length = functions.wideLength(collected);
    if (length != 0) line.Use(functions.toWide(collected, line.Room(length + 1), length));
    return Terminated();
}

std::unique_ptr<DictionaryReader> MakeReader(const std::uint8_t* begin, const std::uint8_t* end) {
    constexpr std::ptrdiff_t kMark = DictionaryReader::kHeadLength;
    if (end - begin < kMark) return nullptr;
    switch (KindOf(begin[0], begin[1])) {
    case TextKind::kLittleEndian: return std::make_unique<UnicodeReader>(begin + kMark, end);
    case TextKind::kBigEndian: return std::make_unique<ByteSwapUnicodeReader>(begin + kMark, end);
    case TextKind::kMultibyte: break;
    }
    return std::make_unique<MultibyteReader>(begin, end);
}

std::unique_ptr<DictionaryReader> MakeReader(SourceKind kind, std::istream& stream) {
    std::array<char, DictionaryReader::kHeadLength> head{};
    if (!CanRead(kind, stream)) return nullptr;
    if (!stream.read(head.data(), head.size())) return nullptr;
    switch (KindOf(static_cast<std::uint8_t>(head[0]), static_cast<std::uint8_t>(head[1]))) {
    case TextKind::kLittleEndian: return std::make_unique<UnicodeReader>(kind, stream, "");
    case TextKind::kBigEndian: return std::make_unique<ByteSwapUnicodeReader>(kind, stream, "");
    case TextKind::kMultibyte: break;
    }
    return std::make_unique<MultibyteReader>(kind, stream, std::string_view(head.data(), head.size()));
}

} // namespace kestrel_private
