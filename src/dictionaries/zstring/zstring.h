#pragma once

#include "dictionaries/zstring/byte_run_value.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace kestrel {

// The value type of the dictionaries: a handle to a shared immutable UTF-16 text. Copying a handle adds a
// reference. All default-constructed handles share one empty value. One thread at a time.
class ZString {
public:
    ZString();
    explicit ZString(std::u16string_view text);
    // UTF-16 units as bytes, at any alignment; an odd last byte is kept and counts for no character.
    ZString(const void* bytes, std::uint32_t byteLength);
    // Takes a value that was just filled.
    explicit ZString(kestrel_private::ByteRunValue* value) : value(value) {}

    // Decodes bytes; see dictionaries/zstring/encoding.h for what `encoding` says and which codes are raised.
    static ZString FromBytes(std::string_view bytes, const std::int32_t* encoding);

    std::uint32_t ByteLength() const { return value->Length(); }
    std::uint32_t Length() const { return ByteLength() / 2; }
    // Characters with a terminator, as CopyOut needs them.
    std::uint32_t LengthWithTerminator() const { return Length() + 1; }
    bool IsEmpty() const { return Length() == 0; }

    // Valid as long as a handle to the value lives.
    std::u16string_view Text() const;

    // Copies at most `capacity` - 1 characters and a terminator; with a capacity of 0 nothing. When the text
    // did not fit and `failOnOverflow` is set, the code kBufferCode is thrown after the copy.
    void CopyOut(char16_t* buffer, std::uint32_t capacity, bool failOnOverflow) const;

    // The shared value itself.
    const kestrel_private::ByteRunValue* Value() const { return value.Get(); }

private:
    friend void Substitute(ZString& string, std::uint32_t index, const ZString& replacement);

    kestrel_private::Reference<kestrel_private::ByteRunValue> value;
};

// Replaces each placeholder `^index` of `string`; index 0 is `^0`. `^^0` gives `^` and the replacement.
// Nothing changes when the text holds no such placeholder. Replaced text is not scanned again here, but by a
// later call with another index.
void Substitute(ZString& string, std::uint32_t index, const ZString& replacement);

} // namespace kestrel

namespace kestrel_private {

// The same on a plain text: sets `output` and returns true, or leaves it alone and returns false when there
// is no such placeholder.
bool SubstituteText(std::u16string_view text, std::uint32_t index, std::u16string_view replacement,
                    std::u16string& output);

} // namespace kestrel_private
