// The value type of the dictionaries.
#pragma once

#include "dictionaries/zstring/byte_run_value.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace kestrel {

// A handle to a shared UTF-16 text that does not change. Copying a handle adds a reference. All
// default-constructed handles share one empty value. One thread at a time.
class ZString {
public:
    ZString();
    explicit ZString(std::u16string_view text);
    // Copies UTF-16 units at any alignment. An odd last byte is kept and is no character.
    ZString(const void* bytes, std::uint32_t byteLength);
    // Takes a value that was just made and filled.
    explicit ZString(kestrel_private::ByteRunValue* value) : value(value) {}

    // Decodes bytes in an encoding. Throws a conversion code for bytes that are no text (see encoding.h).
    [[nodiscard]] static ZString FromBytes(std::string_view bytes, const std::int32_t* encoding);

    // In bytes, and in characters of two bytes.
    std::uint32_t ByteLength() const { return value->Length(); }
    std::uint32_t Length() const { return ByteLength() / 2; }
    // The capacity that CopyOut needs for the whole text.
    std::uint32_t LengthWithTerminator() const { return Length() + 1; }
    bool IsEmpty() const { return Length() == 0; }

    // The text, as long as a handle to the value lives.
    std::u16string_view Text() const;

    // Copies at most `capacity` - 1 characters and a terminator; nothing with a capacity of 0. Throws
    // kBufferCode after the copy if the text did not fit and `failOnOverflow` is set.
    void CopyOut(char16_t* buffer, std::uint32_t capacity, bool failOnOverflow) const;

    // The shared value itself.
    const kestrel_private::ByteRunValue* Value() const { return value.Get(); }

private:
    friend void Substitute(ZString& string, std::uint32_t index, const ZString& replacement);

    kestrel_private::Reference<kestrel_private::ByteRunValue> value;
};

// Replaces each placeholder `^index` of `string`; index 0 is `^0`. `^^0` becomes `^` and the replacement. A
// text without the placeholder keeps its value. The replacement is not scanned, but a later call with another
// index scans it. Throws bad_alloc, also for a result beyond 2 GiB characters.
void Substitute(ZString& string, std::uint32_t index, const ZString& replacement);

} // namespace kestrel

namespace kestrel_private {

// The same for a plain text: sets `output` and returns true. Without the placeholder it returns false and
// leaves `output` alone.
[[nodiscard]] bool SubstituteText(std::u16string_view text, std::uint32_t index,
                                  std::u16string_view replacement, std::u16string& output);

} // namespace kestrel_private
