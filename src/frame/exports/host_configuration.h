// What the library knows of its host: the language it speaks to its user, the locale shipped for that
// language, and its display name.
#pragma once

#include "frame/pavane_context.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace brixen::pvn {

// Bits of hostOptions. The other bits of the low word are reserved and ignored.
inline constexpr std::uint32_t kOptionWithholdCancel = 1; // busy panes offer no cancel

// Returns the language as text, such as "he_IL". The high word of hostOptions names it by its Windows
// language identifier; when that word is 0 or the system does not know it, the user-interface language of the
// calling thread is taken. Throws std::bad_alloc.
[[nodiscard]] std::string GetHostLanguage(std::uint32_t hostOptions);

// Writes the shipped locale with exactly the name of the language, or "en_US" for the fallback lookup.
// Returns false, and an empty text, when there is none; the fallback lookup always succeeds.
bool FindHostLocale(std::string_view language, bool fallback,
                    std::span<char, kHostLocaleSize> locale) noexcept;

// Writes the product name of the host's program, else its file description, else the name of its file. The
// text is UTF-8, cut between two characters when it is too long. Throws std::bad_alloc.
void GetHostDisplayName(std::span<char, kHostDisplayNameSize> name);

// Refreshes hostLocale, localeIsFallback and hostDisplayName. Throws std::bad_alloc.
void RefreshHostStrings(PavaneContext& context, std::string_view language);

} // namespace brixen::pvn
