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
    // UTF-16 units that boxes measure; each call of the system counts as 16 more. A call takes half a
    // microsecond under Wine and a unit a tenth, so that measuring ends in two seconds. A text of 900 KB fits
    // in, also with one character a line.
    std::size_t measuredUnits = std::size_t{1} << 24;
    // Bytes of the texts that controls show at first. A field that breaks lines counts each paragraph once
    // for each of its lines, and each line as 16 more, because the system measures the rest of the paragraph
    // for each: ten microseconds a byte under Wine. Other controls take half of that to draw.
    std::size_t shownBytes = std::size_t{1} << 18;
    // Entries of all lists that boxes fill: 20 to 70 microseconds each under Wine. A tab counts as 16,
    // because the system lays out all tabs again for each.
    std::size_t listItems = 16384;
    // Windows of native controls: a popup has two, and a small check box is one more. A popup takes 5 to 9
    // milliseconds under Wine. Windows itself gives a process 10,000 windows by default and refuses the
    // others. No view that a person can use comes near: the largest that is shipped has some twenty controls.
    std::size_t controls = 1024;
};

} // namespace brixen::zeve
