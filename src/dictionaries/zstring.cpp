#include "dictionaries/zstring.h"

#include "dictionaries/encoding.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace kestrel {

using kestrel_private::ByteRunValue;

namespace {

// Never destroyed, since handles of other statics may outlive any order of destruction.
ByteRunValue* EmptyValue() {
    static ByteRunValue* const empty = [] {
        auto* const value = new ByteRunValue(0);
        value->AddRef();
        return value;
    }();
    return empty;
}

std::uint32_t ByteLengthOf(std::u16string_view text) {
    return static_cast<std::uint32_t>(text.size() * sizeof(char16_t));
}

} // namespace

ZString::ZString() : fValue(EmptyValue()) {}

ZString::ZString(std::u16string_view text) : ZString(text.data(), ByteLengthOf(text)) {}

ZString::ZString(const void* bytes, std::uint32_t byteLength) : fValue(new ByteRunValue(bytes, byteLength)) {}

ZString ZString::FromBytes(std::string_view bytes, const std::int32_t* encoding) {
    return ZString(kestrel_private::DecodeBytes(bytes, encoding));
}

std::u16string_view ZString::Text() const {
    return {reinterpret_cast<const char16_t*>(fValue->Bytes()), Length()};
}

void ZString::CopyOut(char16_t* buffer, std::uint32_t capacity, bool failOnOverflow) const {
    if (capacity != 0) {
        const std::u16string_view fitting = Text().substr(0, capacity - 1);
        *std::copy(fitting.begin(), fitting.end(), buffer) = u'\0';
    }
    if (failOnOverflow && capacity < LengthWithTerminator()) throw kestrel_private::kBufferCode;
}

void Substitute(ZString& string, std::uint32_t index, const ZString& replacement) {
    std::u16string substituted;
    if (kestrel_private::SubstituteText(string.Text(), index, replacement.Text(), substituted)) {
        string = ZString(substituted);
    }
}

} // namespace kestrel

namespace kestrel_private {

// All the holding of `^` comes to this: every `^` that is not directly before the mark stands.
bool SubstituteText(std::u16string_view text, std::uint32_t index, std::u16string_view replacement,
                    std::u16string& output) {
    const std::array<char16_t, 2> placeholder = {u'^', static_cast<char16_t>(u'0' + index)};
    const std::u16string_view searched(placeholder.data(), placeholder.size());
    std::size_t found = text.find(searched);
    if (found == text.npos) return false;
    output.reserve(output.size() + text.size() + replacement.size());
    for (; found != text.npos; found = text.find(searched)) {
        output.append(text.substr(0, found)).append(replacement);
        text.remove_prefix(found + searched.size());
    }
    output += text;
    return true;
}

} // namespace kestrel_private
