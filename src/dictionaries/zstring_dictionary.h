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

// Keyed UTF-16 texts. A key text has the form `$$$/a/b/c=default text`: the key is `/a/b/c`, and the default
// is shown when no dictionary holds the key. Without `$$$` the key begins at once; `$` followed by anything
// else is no key. Keys compare as bytes. A missing key is never an error, and bad input only clears the
// status. Not thread-safe, not even for lookups alone; values are UTF-16, lengths are characters.
class ZStringDictionary {
public:
    // A fast dictionary keeps its entries in blocks, any other in chains. All of the system's are fast.
    static std::unique_ptr<ZStringDictionary> Create(bool fast);
    explicit ZStringDictionary(bool fast);
    ZStringDictionary(const ZStringDictionary&) = delete;
    ZStringDictionary& operator=(const ZStringDictionary&) = delete;
    // Clears the fallback slot when this dictionary is in it.
    ~ZStringDictionary();

    // Reads a text or compiled dictionary into this one; entries of the same key replace what was there.
    // Nothing is reported: unusable input clears the status, and what was good is kept. A compiled one of
    // version 2 makes the dictionary fast; its block may be refused (see FastArray::AddBlock), and one that
    // is cut off keeps what is whole, without a word. One of version 1 goes into the chains, which a fast
    // dictionary does not read. The bytes are not needed afterward; keys are copied whatever `copyKeys`
    // says. Throws a conversion code (see dictionaries/zstring/encoding.h) for bytes that are no text in the
    // process's code page.
    void Load(const void* bytes, std::int64_t length, bool copyKeys);

    // Adds an entry or replaces its value, and its note when one is given. Returns its id, or -1 when the key
    // text is empty or no key, or in a dictionary that is not fast. What follows `=` in the key text is
    // ignored, and so is `reserved`. A value of more than 32767 characters is cut there; a key of more than
    // 65535 bytes is refused.
    std::int32_t Add(const char* keyText, const char16_t* value, std::uint32_t valueChars,
                     std::uint32_t reserved, const char16_t* note, std::uint32_t noteChars);

    // The value of the key as stored, else that in the fallback dictionary, else the decoded default text,
    // else the empty text. `encoding` is that of the default text (see dictionaries/zstring/encoding.h); with
    // a null pointer or the code 0 its bytes are widened with their sign.
    void Lookup(ZString& outString, const char* keyText, const std::int32_t* encoding) const;
    void Lookup(ZString& outString, std::string_view keyText, const std::int32_t* encoding) const;

    // The bytes stored under a key, here or in the fallback dictionary, without a copy; valid until the
    // next change. Nothing when neither has it.
    std::optional<kestrel_private::ValueBytes> FindValue(std::string_view key) const;

    bool IsGood() const { return status != 0; }
    bool IsFast() const { return formatMajor != 0; }
    std::uint32_t FormatMajor() const { return formatMajor; }
    std::uint32_t FormatMinor() const { return formatMinor; }
    // That of the last compiled dictionary that had one.
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
