#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace brixen::lyr::gen {

// The standard alphabet, on one line, padded with "=".
std::string Base64Encode(const void* bytes, std::size_t length);
// Reads up to the first "=" or the first character outside the alphabet, and gives what was read so far as
// bytes; a last group of 2 or 3 characters gives 1 or 2.
std::string Base64Decode(std::string_view text);

// The form of values kept in markup: CR LF, lines of 64 characters, CR LF behind each full line and behind a
// last group with padding.
std::string EncodeBase64Wrapped(const void* bytes, std::size_t length);
// Writes the bytes of all full groups to `out` and returns their number, or 0 when they do not fit into
// `outSize`. Characters outside the alphabet count as zeros. With an `outSize` of 0 nothing is written and
// the result is a size that will do.
std::size_t DecodeBase64Wrapped(std::string_view text, void* out, std::size_t outSize);

} // namespace brixen::lyr::gen
