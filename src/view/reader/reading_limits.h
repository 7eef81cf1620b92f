// How far a description may go. A production that would pass a limit fails, as if the text were malformed
// there.
#pragma once

#include <cstddef>
#include <cstdint>

namespace brixen::zeve {

// How deep parentheses, function calls, prefix operators, right sides of `==` and `!=`, blocks and `eval`
// nest, all together.
inline constexpr int kMaximumReadingDepth = 256;

// How many names count as looked for when a view is made.
inline constexpr std::size_t kNamesOfAView = 64;

// All limits below count one run of a description. The defaults are what a dialog gets; tests and fuzzers
// lower them.
struct ReadingLimits {
    // Texts that `eval` runs.
    std::uint32_t evaluatedTexts = 65536;
    // Bytes of these texts, and of the digits that `set_number` reads. When a text would pass the limit, no
    // further one is evaluated.
    std::size_t evaluatedBytes = std::size_t{16} << 20;
    // Views, also those that fail after they were prepared. An id has 16 bits, and each view takes two.
    std::size_t views = 32767;
    // Scopes that names are looked for in, so that a long text in a deep block ends. Each view looks for 64
    // names.
    std::size_t searches = std::size_t{1} << 26;
    // Bytes of all variables, texts and views. Failed parts of the description keep theirs.
    std::size_t memory = std::size_t{256} << 20;
};

} // namespace brixen::zeve
