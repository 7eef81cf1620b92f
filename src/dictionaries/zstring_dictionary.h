// A dictionary: keyed texts with a lookup.
#pragma once

#include "dictionaries/store/chain_store.h"
#include "dictionaries/store/fast_array.h"
#include "dictionaries/zstring/ref_count_obj.h"
#include "dictionaries/zstring/zstring.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace kestrel {

// A key text has the form `$$$/a/b/c=default text`: the key is `/a/b/c`, and the default text is the answer
// when no dictionary has the key. Without `$$$` the key begins at once; a text that begins with `$` but not
// with `$$$` is no key. Keys compare as bytes. A missing key is never an error, and bad input only clears the
// status. Values are UTF-16; lengths are in characters. One thread at a time, also for lookups.
class ZStringDictionary {
public:
    // Makes a dictionary that keeps its entries in blocks (fast) or in chains. The library makes fast ones
    // alone. Throws bad_alloc.
    [[nodiscard]] static std::unique_ptr<ZStringDictionary> Create(bool fast);
    explicit ZStringDictionary(bool fast);
    ZStringDictionary(const ZStringDictionary&) = delete;
    ZStringDictionary& operator=(const ZStringDictionary&) = delete;
    // Clears the fallback slot if it holds this dictionary.
    ~ZStringDictionary();

    // Reads a text or a compiled dictionary; its entries replace older ones of the same keys. A failure is
    // not reported: unusable input clears the status, and what was good is kept. A compiled dictionary of
    // version 2 makes this one fast; its block may be refused (see FastArray::AddBlock), and of a file that
    // is cut off the whole arrays are kept, both without clearing the status. Version 1 fills the chains,
    // which a fast dictionary does not read. `copyKeys` is ignored: nothing refers to the bytes after the
    // call. Throws a conversion code (see zstring/encoding.h) for bytes that are no text in the code page of
    // the process, and bad_alloc.
    void Load(const void* bytes, std::int64_t length, bool copyKeys);

    // Adds an entry, or replaces its value, and its note unless `note` is null. Returns its id, or -1 if the
    // key text is null, empty or no key, the key has more than 65535 bytes, no id is left, or the dictionary
    // is not fast. The default text and `reserved` are ignored. Values and notes are cut after 32767
    // characters. Throws bad_alloc.
    std::int32_t Add(const char* keyText, const char16_t* value, std::uint32_t valueChars,
                     std::uint32_t reserved, const char16_t* note, std::uint32_t noteChars);

    // Sets `outString` to the value of the key here, else in the fallback dictionary, else to the decoded
    // default text, else to the empty text. `encoding` is that of the default text (see zstring/encoding.h);
    // with a null pointer or the code 0 its bytes are widened with their sign. Throws a conversion code for a
    // default text that does not decode, and bad_alloc.
    void Lookup(ZString& outString, const char* keyText, const std::int32_t* encoding) const;
    void Lookup(ZString& outString, std::string_view keyText, const std::int32_t* encoding) const;

    // The value of a key here or in the fallback dictionary, until either next changes; nothing when neither
    // has it.
    [[nodiscard]] std::optional<kestrel_private::ValueBytes> FindValue(std::string_view key) const;

    // False once any input was unusable.
    bool IsGood() const { return status != 0; }
    bool IsFast() const { return formatMajor != 0; }
    // 2 and 5 for a fast dictionary, else 0 and 0.
    std::uint32_t FormatMajor() const { return formatMajor; }
    std::uint32_t FormatMinor() const { return formatMinor; }
    // The header text of the last compiled dictionary that had a whole one.
    const std::string& HeaderText() const { return headerText; }
    kestrel_private::FastArray& Entries() const { return *entries; }
    const kestrel_private::ChainStore& Chains() const { return chains; }

private:
    std::optional<kestrel_private::ValueBytes> FindOwnValue(std::string_view key) const;
    void LoadText(const std::uint8_t* begin, const std::uint8_t* end);
    void LoadBinary(const std::uint8_t* begin, const std::uint8_t* end);
    void AddLine(std::u16string_view line);

    kestrel_private::ChainStore chains;
    std::uint8_t status = 1;
    kestrel_private::Reference<kestrel_private::FastArray> entries;
    std::uint32_t formatMajor;
    std::uint32_t formatMinor;
    std::string headerText;
};

} // namespace kestrel
