// Base64 in the standard alphabet, in two forms: on one line, and wrapped for values in markup.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace brixen::lyr::gen {

// On one line, padded with "=".
[[nodiscard]] std::string Base64Encode(const void* bytes, std::size_t length);
// Reads up to the first "=" or the first character outside the alphabet, and returns the bytes so far. A last
// group of 2 or 3 characters makes 1 or 2 bytes.
[[nodiscard]] std::string Base64Decode(std::string_view text);

// In markup: CR LF, then lines of 64 characters, with CR LF after each full line and after a last group with
// padding.
[[nodiscard]] std::string EncodeBase64Wrapped(const void* bytes, std::size_t length);
// Writes the bytes of all full groups to `out` and returns their number, or 0 when they do not fit into
// `outSize`; `out` may then hold some of them. Characters outside the alphabet count as zeros. With an
// `outSize` of 0 it writes nothing and returns a size that is large enough.
[[nodiscard]] std::size_t DecodeBase64Wrapped(std::string_view text, void* out, std::size_t outSize);

} // namespace brixen::lyr::gen
