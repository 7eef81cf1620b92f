#include "dictionaries/zstring/encoding.h"

#include "values/platform/values_platform.h"
#include "values/unicode/text_conversion.h"

namespace kestrel_private {
namespace {

using namespace brixen::lyr::gen;

std::size_t LengthOf(const CodePageResult& result) {
    if (result.status == CodePageStatus::kOutputTooSmall) throw kBufferCode;
    if (result.status == CodePageStatus::kFailed) throw kFailureCode;
    return result.length;
}

template <unsigned codePage>
std::size_t WideLength(std::string_view bytes) {
    return LengthOf(CodePageToWide(codePage, bytes, nullptr, 0));
}

template <unsigned codePage>
std::size_t ToWide(std::string_view bytes, char16_t* output, std::size_t capacity) {
    return LengthOf(CodePageToWide(codePage, bytes, output, capacity));
}

template <unsigned codePage>
std::size_t BytesLengthPlusOne(std::u16string_view wide) {
    return LengthOf(WideToCodePage(codePage, wide, nullptr, 0)) + 1;
}

template <unsigned codePage>
std::size_t ToBytes(std::u16string_view wide, char* output, std::size_t capacity) {
    return LengthOf(WideToCodePage(codePage, wide, output, capacity));
}

int CompareWide(std::u16string_view left, std::u16string_view right) { return left.compare(right); }

bool IsUtf8(const EncodingCode* encoding) { return encoding != nullptr && *encoding == kEncodingUtf8; }

template <unsigned codePage>
constexpr EncodingFunctions kFunctions = {WideLength<codePage>, ToWide<codePage>,
                                          BytesLengthPlusOne<codePage>, ToBytes<codePage>, CompareWide};

} // namespace

const EncodingFunctions& FunctionsOf(const EncodingCode* encoding) {
    return IsUtf8(encoding) ? kFunctions<kCodePageUtf8> : kFunctions<kCodePageProcess>;
}

std::u16string DecodeBytes(std::string_view bytes, const EncodingCode* encoding) {
    if (IsUtf8(encoding)) {
        try {
            return ToUtf16(bytes);
        } catch (const illegal_utf_sequence&) {
            throw kFailureCode;
        }
    }
    const EncodingFunctions& functions = FunctionsOf(encoding);
    std::u16string wide(functions.wideLength(bytes), u'\0');
    functions.toWide(bytes, wide.data(), wide.size());
    return wide;
}

std::string EncodeText(std::u16string_view wide, const EncodingCode* encoding) {
    const EncodingFunctions& functions = FunctionsOf(encoding);
    std::string bytes(functions.bytesLengthPlusOne(wide), '\0');
    bytes.resize(functions.toBytes(wide, bytes.data(), bytes.size()));
    return bytes;
}

} // namespace kestrel_private
