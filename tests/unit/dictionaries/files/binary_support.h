// Compiled dictionaries written field by field, so that a test can make any field wrong.
#pragma once

#include "unit/dictionaries/dictionary_support.h"

#include "dictionaries/store/key_text.h"

#include <bit>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace pavane_test {

// Writes fields one after the other, in one byte order.
class FieldWriter {
public:
    explicit FieldWriter(std::endian order = std::endian::native) : isLittle(order == std::endian::little) {}

    FieldWriter& Bytes(std::string_view field) {
        bytes += field;
        return *this;
    }
    FieldWriter& U8(std::uint32_t number) { return Number(number, 1); }
    FieldWriter& U16(std::uint32_t number) { return Number(number, 2); }
    FieldWriter& U32(std::uint32_t number) { return Number(number, 4); }
    FieldWriter& Units(std::u16string_view text) {
        for (const char16_t unit : text) U16(unit);
        return *this;
    }
    const std::string& Written() const { return bytes; }

private:
    FieldWriter& Number(std::uint32_t number, int size) {
        for (int i = 0; i < size; ++i) {
            bytes += static_cast<char>(number >> 8 * (isLittle ? i : size - 1 - i));
        }
        return *this;
    }

    bool isLittle;
    std::string bytes;
};

inline std::string Header(int major, int minor, int conversionCode = 0) {
    const auto byte = [](int number) { return static_cast<std::uint32_t>(number) & 0xFF; };
    return FieldWriter()
        .Bytes("ZString Binary Format")
        .U8(byte(major))
        .U8(byte(minor))
        .U8(byte(conversionCode))
        .Written();
}

// A file of version 2. Fields without a value are made to fit the entries.
struct BinaryFile {
    using List = std::pair<std::uint32_t, std::vector<std::uint32_t>>;
    struct Text {
        std::uint32_t offset;
        std::uint32_t length;
    };

    std::vector<std::pair<std::string, std::u16string>> entries = {};
    std::vector<std::pair<std::uint32_t, std::u16string>> notes = {};
    int minor = 1;
    std::endian order = std::endian::little;
    std::string headerText = {};
    std::uint32_t firstId = 0;
    char hasKeys = 'Y';
    std::optional<std::uint32_t> entryCount = {};
    std::optional<std::uint32_t> liveCount = {};
    std::optional<std::uint32_t> listCount = {};
    std::optional<std::vector<List>> lists = {};
    std::optional<std::vector<Text>> keyPlaces = {};
    std::optional<std::vector<Text>> valuePlaces = {};

    std::string Written() const {
        FieldWriter file(minor == 0 ? std::endian::native : order);
        file.Bytes(Header(2, minor));
        if (minor >= 1) file.U8(order == std::endian::big);
        file.U32(static_cast<std::uint32_t>(headerText.size())).Bytes(headerText);
        WriteBlock(file);
        return file.Written();
    }

    static std::vector<List> ListOfEach(const std::vector<std::pair<std::string, std::u16string>>& entries) {
        std::vector<List> lists;
        for (std::uint32_t id = 0; id < entries.size(); ++id) {
            const std::uint32_t bucket = kestrel_private::KeyBucket(entries[id].first);
            auto list = lists.begin();
            while (list != lists.end() && list->first != bucket) ++list;
            if (list == lists.end()) list = lists.insert(list, {bucket, {}});
            list->second.push_back(id);
        }
        return lists;
    }

private:
    void WriteBlock(FieldWriter& file) const {
        const bool keyed = hasKeys != 'N';
        const auto count = static_cast<std::uint32_t>(entries.size());
        const std::vector<List> allLists = lists.value_or(ListOfEach(entries));
        std::string keys;
        std::u16string values;
        std::vector<Text> keyTexts, valueTexts;
        for (const auto& [key, value] : entries) {
            keyTexts.push_back(PlaceOf(keys.size(), key.size()));
            valueTexts.push_back(PlaceOf(values.size() * 2, value.size() * 2));
            keys += key;
            values += value;
        }
        file.U32(firstId).U8(static_cast<unsigned char>(hasKeys));
        file.U32(entryCount.value_or(count)).U32(liveCount.value_or(count));
        file.U32(listCount.value_or(static_cast<std::uint32_t>(allLists.size())));
        if (keyed) file.U32(static_cast<std::uint32_t>(keys.size()));
        file.U32(static_cast<std::uint32_t>(values.size() * 2));
        if (keyed) WriteTable(file, keyPlaces.value_or(keyTexts));
        WriteTable(file, valuePlaces.value_or(valueTexts));
        if (keyed) file.Bytes(keys);
        file.Units(values);
        if (keyed) WriteLists(file, allLists);
        WriteNotes(file);
    }

    static Text PlaceOf(std::size_t offset, std::size_t length) {
        return {static_cast<std::uint32_t>(offset), static_cast<std::uint32_t>(length)};
    }

    static void WriteTable(FieldWriter& file, const std::vector<Text>& texts) {
        for (const Text& text : texts) file.U32(text.offset);
        for (const Text& text : texts) file.U16(text.length);
    }

    static void WriteLists(FieldWriter& file, const std::vector<List>& lists) {
        for (const List& list : lists) file.U16(list.first);
        for (const List& list : lists) file.U32(static_cast<std::uint32_t>(list.second.size()));
        for (const List& list : lists) {
            for (const std::uint32_t id : list.second) file.U32(id);
        }
    }

    void WriteNotes(FieldWriter& file) const {
        file.U32(static_cast<std::uint32_t>(notes.size()));
        if (notes.empty()) return;
        std::u16string area;
        std::vector<Text> texts;
        for (const auto& [entry, note] : notes) {
            texts.push_back(PlaceOf(area.size() * 2, note.size() * 2));
            area += note;
        }
        file.U32(static_cast<std::uint32_t>(area.size() * 2));
        for (const auto& [entry, note] : notes) file.U32(entry);
        WriteTable(file, texts);
        file.Units(area);
    }
};

// The entries of a small file.
inline const std::vector<std::pair<std::string, std::u16string>> kEntries = {
    {"/a", u"one"}, {"/b/longer", u"zw\u00F6lf"}, {"/c", u""}};

// A dictionary with one file loaded into it.
struct Loaded : kestrel::ZStringDictionary {
    explicit Loaded(const std::string& bytes, bool fast = true) : kestrel::ZStringDictionary(fast) {
        // A copy of exactly this size, freed after the load: the store may neither read past it nor keep it.
        const std::unique_ptr<char[]> copy(new char[bytes.size()]);
        bytes.copy(copy.get(), bytes.size());
        LoadBytes(*this, {copy.get(), bytes.size()});
    }
    explicit Loaded(const BinaryFile& file) : Loaded(file.Written()) {}
};

inline std::u16string TextOf(const kestrel_private::ValueBytes& bytes) {
    return std::u16string(kestrel::ZString(bytes.bytes, bytes.length).Text());
}

inline std::u16string ValueOfId(const kestrel::ZStringDictionary& dictionary, std::uint32_t id) {
    return TextOf(dictionary.Entries().Value(id));
}

inline std::u16string NoteOfId(const kestrel::ZStringDictionary& dictionary, std::uint32_t id) {
    const auto note = dictionary.Entries().Note(id);
    return note ? TextOf(*note) : u"no note";
}

} // namespace pavane_test
