#include "net/envelope/rpc_params.h"

#include "net/envelope/hexadecimal.h"
#include "values/fixed_text.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <new>

namespace brixen::pvn {
namespace {

// Returns null when there is no memory.
std::unique_ptr<char[]> MakeText(std::size_t length) {
    std::unique_ptr<char[]> text(new (std::nothrow) char[length + 1]);
    if (text) text[length] = '\0';
    return text;
}

std::unique_ptr<char[]> CopyText(const char* source) {
    if (!source) return nullptr;
    const std::size_t length = std::strlen(source);
    std::unique_ptr<char[]> text = MakeText(length);
    if (text) std::memcpy(text.get(), source, length);
    return text;
}

std::unique_ptr<char[]> HexadecimalText(const void* bytes, std::ptrdiff_t length) {
    if (!bytes || length < 1) return nullptr;
    const auto count = static_cast<std::size_t>(length);
    std::unique_ptr<char[]> text = MakeText(2 * count);
    if (text) EncodeHexadecimal(bytes, count, text.get());
    return text;
}

} // namespace

void PVN_RPCParam::SetName(const char* newName) {
    lyr::gen::SafeCopy(name, newName ? newName : "", sizeof name);
}

PVN_RPCUtf8Param::PVN_RPCUtf8Param(const char* name, const char* text)
    : PVN_RPCParam(name), text(CopyText(text)) {}

PVN_RPCUtf8Param::PVN_RPCUtf8Param(const char* name, const void* bytes, std::ptrdiff_t length)
    : PVN_RPCParam(name), text(HexadecimalText(bytes, length)) {}

const char* PVN_RPCUtf8Param::GetType() const { return "utf8_string"; }
const char* PVN_RPCUtf8Param::GetValue() const { return text ? text.get() : ""; }
bool PVN_RPCUtf8Param::IsValid() const { return text != nullptr; }

std::size_t PVN_RPCUtf8Param::GetBinaryLength() const {
    const std::size_t length = std::strlen(GetValue());
    return length % 2 == 0 ? length / 2 : 0;
}

std::size_t PVN_RPCUtf8Param::GetBinary(void* out, std::size_t size) const {
    if (!out) return 0;
    const std::size_t wanted = std::min(GetBinaryLength(), size);
    return DecodeHexadecimal(GetValue(), out, wanted) == wanted ? wanted : 0;
}

PVN_RPCInt32Param::PVN_RPCInt32Param(const char* name, std::int32_t value) : PVN_RPCParam(name) {
    std::to_chars(digits, digits + sizeof digits - 1, value);
}

PVN_RPCInt32Param::PVN_RPCInt32Param(const char* name, const char* text) : PVN_RPCParam(name) {
    if (text) lyr::gen::SafeCopy(digits, text, sizeof digits);
}

const char* PVN_RPCInt32Param::GetType() const { return "integer"; }
const char* PVN_RPCInt32Param::GetValue() const { return digits; }
bool PVN_RPCInt32Param::IsValid() const { return digits[0] != '\0'; }

std::int32_t PVN_RPCInt32Param::GetInt() const {
    const bool isNegative = digits[0] == '-';
    std::uint32_t value = 0;
    for (const char* place = digits + isNegative; *place != '\0'; ++place)
        value = value * 10 + static_cast<std::uint32_t>(*place - '0');
    return static_cast<std::int32_t>(isNegative ? 0 - value : value);
}

PVN_RPCParamVector::~PVN_RPCParamVector() {
    if (!ownsItems) return;
    for (const PVN_RPCParam* const param : *this) delete param;
}

} // namespace brixen::pvn
