// What the frame knows about its host: the language in which it speaks to its user, the locale shipped for
// that language, and the name to show for it.
#pragma once

#include "frame/pavane_context.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace brixen::pvn {

// Bits of hostOptions. The other bits of the low word are reserved and ignored.
inline constexpr std::uint32_t kOptionWithholdCancel = 1; // busy panes offer no cancel

// The language as text, such as "he_IL": the one whose Windows language identifier stands in the high word of
// hostOptions, or the calling thread's user-interface language when that word is 0 or names no language that
// the system knows. Throws std::bad_alloc.
std::string GetHostLanguage(std::uint32_t hostOptions);

// Writes the shipped locale that is exactly this language, or "en_US" by the fallback lookup. False, and an
// empty text, when nothing is found; the fallback lookup always finds.
bool FindHostLocale(std::string_view language, bool fallback,
                    std::span<char, kHostLocaleSize> locale) noexcept;

// Writes the product name of the host's program, or else its file description, or else its file's name:
// UTF-8, cut between two characters when it is too long. Throws std::bad_alloc.
void GetHostDisplayName(std::span<char, kHostDisplayNameSize> name);

// Asks all of that for the record: hostLocale, localeIsFallback, hostDisplayName. Throws std::bad_alloc.
void RefreshHostStrings(PavaneContext& context, std::string_view language);

} // namespace brixen::pvn
