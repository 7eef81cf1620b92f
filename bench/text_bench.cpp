// Text conversion and Base64 against ICU and OpenSSL.
#include "values/base64.h"
#include "values/unicode/text_conversion.h"

#include <benchmark/benchmark.h>
#include <openssl/evp.h>
#include <unicode/ustring.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace bench {
namespace {

using namespace brixen::lyr::gen;

constexpr std::size_t kMegabyte = 1 << 20;
constexpr std::size_t kLabel = 25;

constexpr std::string_view kAscii = "The quick brown fox jumps over the lazy dog. ";
constexpr std::string_view kLatin = "Zw\xC3\xB6lf Boxk\xC3\xA4mpfer jagen Viktor quer \xC3\xBC"
                                    "ber den gro\xC3\x9F"
                                    "en Deich. ";
constexpr std::string_view kCjk =
    "\xE8\xA8\xAD\xE5\xAE\x9A\xE3\x82\x92\xE4\xBF\x9D\xE5\xAD\x98\xE3\x81\x97\xE3\x81\xA6";
constexpr std::string_view kEmoji = "\xF0\x9F\x98\x80\xF0\x9F\x98\x81\xF0\x9F\xA4\xA3";

// Returns the words repeated up to `length` bytes, cut at the border of a character.
std::string Repeated(std::string_view words, std::size_t length) {
    std::string text;
    while (text.size() < length) text += words;
    while ((text[length] & 0xC0) == 0x80) --length;
    return text.substr(0, length);
}

std::u16string IcuToUtf16(std::string_view text) {
    std::u16string wide(text.size(), u'\0');
    UErrorCode status = U_ZERO_ERROR;
    std::int32_t length = 0;
    u_strFromUTF8(wide.data(), static_cast<std::int32_t>(wide.size()), &length, text.data(),
                  static_cast<std::int32_t>(text.size()), &status);
    wide.resize(static_cast<std::size_t>(length));
    return wide;
}

std::string IcuToUtf8(std::u16string_view text) {
    std::string narrow(text.size() * 3, '\0');
    UErrorCode status = U_ZERO_ERROR;
    std::int32_t length = 0;
    u_strToUTF8(narrow.data(), static_cast<std::int32_t>(narrow.size()), &length, text.data(),
                static_cast<std::int32_t>(text.size()), &status);
    narrow.resize(static_cast<std::size_t>(length));
    return narrow;
}

template <class Text, class Convert>
void Converting(benchmark::State& state, const Text& text, Convert convert) {
    for (auto _ : state) benchmark::DoNotOptimize(convert(text).data());
    state.SetItemsProcessed(state.iterations());
}

void Register(const std::string& name, std::string_view words, std::size_t length) {
    const std::string narrow = Repeated(words, length);
    const std::u16string wide = IcuToUtf16(narrow);
    const auto add = [](const std::string& full, const auto& text, auto convert) {
        benchmark::RegisterBenchmark(
            full.c_str(), [text, convert](benchmark::State& state) { Converting(state, text, convert); });
    };
    add("to_utf16_" + name + "/pavane", narrow, [](std::string_view text) { return ToUtf16(text); });
    add("to_utf16_" + name + "/icu", narrow, IcuToUtf16);
    add("to_utf8_" + name + "/pavane", wide, [](std::u16string_view text) { return ToUtf8(text); });
    add("to_utf8_" + name + "/icu", wide, IcuToUtf8);
}

std::string EveryByte() {
    std::string bytes(kMegabyte, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i * 151 + i / 256);
    return bytes;
}

const unsigned char* Bytes(const std::string& text) {
    return reinterpret_cast<const unsigned char*>(text.data());
}

std::string OpenSslEncode(std::string_view bytes) {
    std::string text((bytes.size() + 2) / 3 * 4 + 1, '\0');
    text.resize(static_cast<std::size_t>(EVP_EncodeBlock(reinterpret_cast<unsigned char*>(text.data()),
                                                         reinterpret_cast<const unsigned char*>(bytes.data()),
                                                         static_cast<int>(bytes.size()))));
    return text;
}

std::string OpenSslDecode(const std::string& text) {
    std::string bytes(text.size() / 4 * 3, '\0');
    EVP_DecodeBlock(reinterpret_cast<unsigned char*>(bytes.data()), Bytes(text),
                    static_cast<int>(text.size()));
    return bytes;
}

void Base64EncodeOurs(benchmark::State& state) {
    Converting(state, EveryByte(),
               [](const std::string& bytes) { return Base64Encode(bytes.data(), bytes.size()); });
}
void Base64EncodePeer(benchmark::State& state) { Converting(state, EveryByte(), OpenSslEncode); }
void Base64DecodeOurs(benchmark::State& state) {
    Converting(state, OpenSslEncode(EveryByte()), Base64Decode);
}
void Base64DecodePeer(benchmark::State& state) {
    Converting(state, OpenSslEncode(EveryByte()), OpenSslDecode);
}

const bool gRegistered = [] {
    const std::pair<const char*, std::string_view> kTexts[] = {
        {"ascii", kAscii}, {"latin", kLatin}, {"cjk", kCjk}, {"emoji", kEmoji}};
    for (const auto& [name, words] : kTexts) {
        Register(name, words, kMegabyte);
        Register(std::string(name) + "_label", words, kLabel);
    }
    return true;
}();

} // namespace

BENCHMARK(Base64EncodeOurs)->Name("base64_encode/pavane");
BENCHMARK(Base64EncodePeer)->Name("base64_encode/openssl");
BENCHMARK(Base64DecodeOurs)->Name("base64_decode/pavane");
BENCHMARK(Base64DecodePeer)->Name("base64_decode/openssl");

} // namespace bench
