#include "tools/dictionary_writer.h"

#include "dictionaries/files/binary_header.h"
#include "dictionaries/files/text_line.h"
#include "dictionaries/store/key_text.h"

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <string_view>

namespace pavane_tools {
namespace {

using namespace kestrel_private;

std::uint32_t In32Bits(std::size_t size) {
    if (size > UINT32_MAX) throw std::length_error("a compiled dictionary is limited to 4 GiB");
    return static_cast<std::uint32_t>(size);
}

std::uint16_t Length(std::size_t bytes, const char* message) {
    if (bytes > kLongestText) throw std::length_error(message);
    return static_cast<std::uint16_t>(bytes);
}

// The fields of a file, one after the other, in its byte order.
class Output {
public:
    explicit Output(std::endian order) : isLittle(order == std::endian::little) {}

    template <class Number>
    void Put(Number number) {
        for (std::size_t i = 0; i < sizeof number; ++i) {
            const std::size_t place = isLittle ? i : sizeof number - 1 - i;
            bytes += static_cast<char>(number >> (8 * place));
        }
    }
    template <class Number>
    void PutAll(const std::vector<Number>& numbers) {
        for (const Number number : numbers) Put(number);
    }
    void PutBytes(std::string_view field) { bytes += field; }
    void PutUnits(std::u16string_view units) {
        for (const char16_t unit : units) Put(static_cast<std::uint16_t>(unit));
    }
    std::size_t Size() const { return bytes.size(); }
    std::string Take() { return std::move(bytes); }

private:
    bool isLittle;
    std::string bytes;
};

// Where the keys, values or notes are in their area.
struct Table {
    std::vector<std::uint32_t> offsets;
    std::vector<std::uint16_t> lengths;

    void PutInto(Output& output) const {
        output.PutAll(offsets);
        output.PutAll(lengths);
    }
};

struct Keys : Table {
    std::string area;
    std::vector<std::uint16_t> buckets; // those with keys, ascending
    std::vector<std::vector<std::uint32_t>> lists;

    // The keys of a bucket are together, since a search compares them one after the other.
    explicit Keys(const std::vector<CompiledEntry>& entries) {
        std::vector<std::vector<std::uint32_t>> all(kBucketCount);
        for (std::uint32_t i = 0; i < entries.size(); ++i) {
            lengths.push_back(Length(entries[i].key.size(), "a key has at most 65535 bytes"));
            if (!entries[i].key.empty()) all[KeyBucket(entries[i].key)].push_back(i);
        }
        offsets.resize(entries.size());
        for (std::uint16_t bucket = 0; bucket < kBucketCount; ++bucket) {
            for (const std::uint32_t entry : all[bucket]) {
                offsets[entry] = In32Bits(area.size());
                area += entries[entry].key;
            }
            if (all[bucket].empty()) continue;
            buckets.push_back(bucket);
            lists.push_back(std::move(all[bucket]));
        }
    }

    void PutLists(Output& output) const {
        output.PutAll(buckets);
        for (const auto& list : lists) output.Put(static_cast<std::uint32_t>(list.size()));
        for (const auto& list : lists) output.PutAll(list);
    }
};

struct Texts : Table {
    std::u16string area;

    void Add(std::u16string_view text) {
        offsets.push_back(In32Bits(area.size() * sizeof(char16_t)));
        lengths.push_back(
            Length(text.size() * sizeof(char16_t), "a value or note has at most 32767 characters"));
        area += text;
    }
    std::uint32_t AreaBytes() const { return In32Bits(area.size() * sizeof(char16_t)); }
};

Texts ValuesOf(const std::vector<CompiledEntry>& entries) {
    Texts values;
    for (const CompiledEntry& entry : entries) values.Add(entry.value);
    return values;
}

void PutNotes(Output& output, const std::vector<CompiledEntry>& entries) {
    std::vector<std::uint32_t> index;
    Texts notes;
    for (std::uint32_t i = 0; i < entries.size(); ++i) {
        if (!entries[i].note) continue;
        index.push_back(i);
        notes.Add(*entries[i].note);
    }
    output.Put(In32Bits(index.size()));
    if (index.empty()) return;
    output.Put(notes.AreaBytes());
    output.PutAll(index);
    notes.PutInto(output);
    output.PutUnits(notes.area);
}

// The store reads values without a copy if they begin at an even address. They begin at an even byte of the
// file, for which the keys' area has one more byte if needed.
void AlignValues(std::string& keyArea, const Output& output) {
    constexpr std::size_t kOddBytesOfCounts = 1; // the mark of the keys; all other fields of a block are even
    if ((output.Size() + kOddBytesOfCounts + keyArea.size()) % sizeof(char16_t) != 0) keyArea += '\0';
}

void PutHeader(Output& output, const DictionaryFormat& format) {
    constexpr std::uint8_t kMajor = 2;
    output.PutBytes(kBinaryMagic);
    output.Put(kMajor);
    output.Put(format.minor);
    output.Put(std::uint8_t{0}); // the conversion code of version 1
    if (format.minor >= 1) {
        output.Put(format.order == std::endian::little ? kLittleEndian : kBigEndian);
    }
    output.Put(In32Bits(format.headerText.size()));
    output.PutBytes(format.headerText);
}

std::uint32_t LiveCount(const std::vector<CompiledEntry>& entries, bool hasKeys) {
    const auto isLive = [&](const CompiledEntry& entry) { return !hasKeys || !entry.key.empty(); };
    return static_cast<std::uint32_t>(std::count_if(entries.begin(), entries.end(), isLive));
}

void PutBlock(Output& output, const std::vector<CompiledEntry>& entries, const DictionaryFormat& format) {
    Keys keys(entries);
    AlignValues(keys.area, output);
    const Texts values = ValuesOf(entries);
    output.Put(format.firstId);
    output.Put(format.hasKeys ? kHasKeys : kHasNoKeys);
    output.Put(In32Bits(entries.size()));
    output.Put(LiveCount(entries, format.hasKeys));
    output.Put(static_cast<std::uint32_t>(format.hasKeys ? keys.buckets.size() : 0));
    if (format.hasKeys) output.Put(In32Bits(keys.area.size()));
    output.Put(values.AreaBytes());
    if (format.hasKeys) keys.PutInto(output);
    values.PutInto(output);
    if (format.hasKeys) output.PutBytes(keys.area);
    output.PutUnits(values.area);
    if (format.hasKeys) keys.PutLists(output);
    PutNotes(output, entries);
}

} // namespace

std::string WriteDictionary(const std::vector<CompiledEntry>& entries, const DictionaryFormat& format) {
    Output output(format.minor == 0 ? std::endian::native : format.order);
    PutHeader(output, format);
    PutBlock(output, entries, format);
    return output.Take();
}

} // namespace pavane_tools
