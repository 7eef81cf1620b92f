// Splits the text of a dictionary into lines.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <istream>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace kestrel_private {

// The source of the bytes of a reader.
enum class SourceKind { kStream = 0, kFile = 1, kMemory = 2, kResource = 3 };

// A buffer that grows by half as often as it takes.
template <class Unit>
class LineBuffer {
public:
    LineBuffer() : units(kFirstCapacity) {}
    void Clear() { used = 0; }
    void Append(Unit unit) {
        if (used == units.size()) Grow(used + 1);
        units[used++] = unit;
    }
    // Memory for `count` more units. Units written there count after Use.
    Unit* Room(std::size_t count) {
        if (units.size() - used < count) Grow(used + count);
        return units.data() + used;
    }
    std::size_t RoomLeft() const { return units.size() - used; }
    void Use(std::size_t count) { used += count; }
    const Unit* Data() const { return units.data(); }
    std::size_t Used() const { return used; }

private:
    static constexpr std::size_t kFirstCapacity = 256;
    void Grow(std::size_t need) {
        std::size_t capacity = units.size();
        while (capacity < need) capacity += capacity / 2;
        units.resize(capacity);
    }

    std::vector<Unit> units;
    std::size_t used = 0;
};

// One reader serves one load. Memory and stream are borrowed.
class DictionaryReader {
public:
    static constexpr std::size_t kHeadLength = 2; // the bytes that decide the kind of reader

    DictionaryReader(const std::uint8_t* begin, const std::uint8_t* end);
    // `firstBytes` were taken from the stream already and are read first.
    DictionaryReader(SourceKind kind, std::istream& stream, std::string_view firstBytes);
    DictionaryReader(const DictionaryReader&) = delete;
    DictionaryReader& operator=(const DictionaryReader&) = delete;
    virtual ~DictionaryReader() = default;

    // The next line, NUL-terminated, in a buffer of the reader until the next call; null at the end of the
    // text. Throws bad_alloc.
    virtual const char16_t* NextLine() = 0;
    // The last line with its length.
    std::u16string_view Line() const { return {line.Data(), line.Used()}; }

protected:
    // Reads a byte; returns false when none is left.
    bool NextByte(std::uint8_t& byte);
    // The next bytes that are in memory. Skip passes over the first `count` of them.
    std::span<const std::uint8_t> BytesAhead() const { return {cursor, ended ? cursor : end}; }
    void Skip(std::size_t count) { cursor += count; }
    const char16_t* Terminated();
    // Ends the text: no byte is left from now on.
    void EndText() { ended = true; }

    LineBuffer<char16_t> line;

private:
    std::istream* stream = nullptr;
    bool ended = false;
    SourceKind kind;
    std::array<std::uint8_t, kHeadLength> head{};
    const std::uint8_t* cursor = nullptr;
    const std::uint8_t* end = nullptr;
};

// Reads UTF-16 in little-endian order. A NUL unit ends the text, as does half a unit.
class UnicodeReader : public DictionaryReader {
public:
    using DictionaryReader::DictionaryReader;
    const char16_t* NextLine() override;

protected:
    // Reads a unit; returns false when none is left.
    virtual bool NextChar(char16_t& out);
    // Copies units from memory up to the first that ends a line or the text, at most `capacity`. Returns how
    // many.
    virtual std::size_t NextPlainChars(char16_t* output, std::size_t capacity);
};

// Reads UTF-16 in big-endian order.
class ByteSwapUnicodeReader : public UnicodeReader {
public:
    using UnicodeReader::UnicodeReader;

protected:
    bool NextChar(char16_t& out) override;
    std::size_t NextPlainChars(char16_t* output, std::size_t capacity) override;
};

// Reads bytes in the code page of the process. NextLine throws a conversion code (see zstring/encoding.h) for
// a line that is no text.
class MultibyteReader : public DictionaryReader {
public:
    using DictionaryReader::DictionaryReader;
    const char16_t* NextLine() override;

private:
    LineBuffer<char> bytes;
};

// The reader that the first two bytes call for; null for fewer than two bytes. A stream of the kind kResource
// that is not open is empty.
[[nodiscard]] std::unique_ptr<DictionaryReader> MakeReader(const std::uint8_t* begin,
                                                           const std::uint8_t* end);
[[nodiscard]] std::unique_ptr<DictionaryReader> MakeReader(SourceKind kind, std::istream& stream);

} // namespace kestrel_private
