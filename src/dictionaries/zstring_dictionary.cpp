#include "dictionaries/zstring_dictionary.h"

#include "dictionaries/dictionaries_state.h"
#include "dictionaries/files/binary_block.h"
#include "dictionaries/files/binary_chains.h"
#include "dictionaries/files/binary_header.h"
#include "dictionaries/files/dictionary_reader.h"
#include "dictionaries/files/text_line.h"
#include "dictionaries/value_decoding.h"
#include "dictionaries/zstring/encoding.h"
#include "values/unicode/character_borders.h"

#include <algorithm>

namespace kestrel {

using namespace kestrel_private;

namespace {

constexpr std::uint32_t kFastMajor = 2;
constexpr std::uint32_t kFastMinor = 5;

// Cuts a value that is too long, but not through a pair.
std::u16string_view CutValue(std::u16string_view value) {
    return brixen::lyr::gen::CutToUnits(value, kLongestValue);
}

std::string_view BytesOf(std::u16string_view text) {
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)};
}

std::optional<std::string_view> NoteBytes(const char16_t* note, std::uint32_t noteChars) {
    if (note == nullptr) return std::nullopt;
    return BytesOf(CutValue({note, noteChars}));
}

// Keys are Latin-1: each unit is cut to its low byte.
std::string NarrowKey(std::u16string_view key) {
    std::string narrow(key.size(), '\0');
    std::transform(key.begin(), key.end(), narrow.begin(),
                   [](char16_t unit) { return static_cast<char>(unit); });
    return narrow;
}

// Kept: each byte is widened with its sign, so 0x80 becomes 0xFF80.
std::u16string WidenWithSign(std::string_view text) {
    std::u16string wide(text.size(), u'\0');
    std::transform(text.begin(), text.end(), wide.begin(),
                   [](char byte) { return static_cast<char16_t>(static_cast<signed char>(byte)); });
    return wide;
}

ZString DecodeDefault(std::string_view text, const std::int32_t* encoding) {
    const bool encoded = encoding != nullptr && *encoding != 0;
    return ZString(DecodeValue(encoded ? DecodeBytes(text, encoding) : WidenWithSign(text)));
}

} // namespace

std::unique_ptr<ZStringDictionary> ZStringDictionary::Create(bool fast) {
    return std::make_unique<ZStringDictionary>(fast);
}

ZStringDictionary::ZStringDictionary(bool fast)
    : entries(new FastArray), formatMajor(fast ? kFastMajor : 0), formatMinor(fast ? kFastMinor : 0) {}

ZStringDictionary::~ZStringDictionary() {
    if (State().fallback == this) State().fallback = nullptr;
}

void ZStringDictionary::Load(const void* bytes, std::int64_t length, bool /*copyKeys*/) {
    if (bytes == nullptr || length <= 0) {
        status = 0;
        return;
    }
    const auto* const begin = static_cast<const std::uint8_t*>(bytes);
    if (HasBinaryMagic(begin, static_cast<std::size_t>(length))) {
        LoadBinary(begin, begin + length);
    } else {
        LoadText(begin, begin + length);
    }
}

void ZStringDictionary::LoadBinary(const std::uint8_t* begin, const std::uint8_t* end) {
    if (end - begin <= static_cast<std::ptrdiff_t>(kBinaryHeaderSize)) {
        status = 0;
        return;
    }
    const BinaryVersion version = BinaryVersionOf(begin);
    const std::uint8_t* const body = begin + kBinaryHeaderSize;
    if (version.major == kFastMajor && version.minor >= 0) {
        BinaryBody read = ReadBinaryBody(body, end, version.minor);
        entries->AddBlock(std::move(read.block), read.lists);
        if (read.headerText) headerText = std::move(*read.headerText);
        formatMajor = kFastMajor;
        formatMinor = kFastMinor;
    } else if (const auto readChains = ChainReaderOf(version)) {
        if (!readChains(body, end, version.conversionCode, chains)) status = 0;
    }
}

void ZStringDictionary::LoadText(const std::uint8_t* begin, const std::uint8_t* end) {
    const auto reader = MakeReader(begin, end);
    if (!reader) {
        status = 0;
        return;
    }
    while (reader->NextLine() != nullptr) {
        if (!reader->Line().empty()) AddLine(reader->Line());
    }
}

void ZStringDictionary::AddLine(std::u16string_view line) {
    const auto split = SplitLine(line);
    if (!split || split->key.size() > kLongestText) {
        status = 0;
        return;
    }
    const std::string key = NarrowKey(split->key);
    const std::u16string value = DecodeValue(split->defaultText);
    if (IsFast()) {
        const std::uint32_t id = entries->Add(key, BytesOf(CutValue(value)), std::nullopt);
        if (id == FastArray::kNoId) status = 0;
    } else {
        chains.Replace(key, ZString(value));
    }
}

std::int32_t ZStringDictionary::Add(const char* keyText, const char16_t* value, std::uint32_t valueChars,
                                    std::uint32_t /*reserved*/, const char16_t* note,
                                    std::uint32_t noteChars) {
    constexpr std::int32_t kNoId = -1;
    if (keyText == nullptr || *keyText == '\0' || !IsFast()) return kNoId;
    const auto split = SplitKeyText(std::string_view(keyText));
    if (!split || split->key.size() > kLongestText) return kNoId;
    const std::u16string_view text =
        value == nullptr ? std::u16string_view() : std::u16string_view(value, valueChars);
    return static_cast<std::int32_t>(
        entries->Add(split->key, BytesOf(CutValue(text)), NoteBytes(note, noteChars)));
}

std::optional<ValueBytes> ZStringDictionary::FindOwnValue(std::string_view key) const {
    if (!IsFast()) {
        const DictionaryEntry* const entry = chains.Find(key);
        if (entry == nullptr) return std::nullopt;
        const ByteRunValue* const value = entry->Value().Value();
        return ValueBytes{reinterpret_cast<const std::uint8_t*>(value->Bytes()), value->Length()};
    }
    return entries->FindValue(key);
}

std::optional<ValueBytes> ZStringDictionary::FindValue(std::string_view key) const {
    const auto own = FindOwnValue(key);
    const ZStringDictionary* const fallback = State().fallback;
    return own || fallback == nullptr || fallback == this ? own : fallback->FindOwnValue(key);
}

void ZStringDictionary::Lookup(ZString& outString, const char* keyText, const std::int32_t* encoding) const {
    Lookup(outString, keyText == nullptr ? std::string_view() : std::string_view(keyText), encoding);
}

void ZStringDictionary::Lookup(ZString& outString, std::string_view keyText,
                               const std::int32_t* encoding) const {
    outString = ZString();
    if (keyText.empty()) return;
    const auto split = SplitKeyText(keyText);
    if (!split) return;
    if (const auto found = FindValue(split->key)) {
        outString = ZString(found->bytes, found->length);
    } else if (!split->defaultText.empty()) {
        outString = DecodeDefault(split->defaultText, encoding);
    }
}

} // namespace kestrel
