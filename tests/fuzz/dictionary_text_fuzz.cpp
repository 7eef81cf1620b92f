// Loads any bytes as a text dictionary, into blocks and into chains: both stores have the same answers.
#include "dictionaries/zstring/encoding.h"
#include "dictionaries/zstring_dictionary.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

void Load(kestrel::ZStringDictionary& dictionary, const std::uint8_t* bytes, std::size_t length) {
    try {
        dictionary.Load(bytes, static_cast<std::int64_t>(length), true);
    } catch (kestrel_private::ConversionCode) {
        // Bytes that are not text in the code page are refused. Lines before them stay.
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t length) {
    kestrel::ZStringDictionary fast(true);
    kestrel::ZStringDictionary chains(false);
    Load(fast, bytes, length);
    Load(chains, bytes, length);
    if (fast.IsGood() != chains.IsGood()) std::abort();
    // The bytes may be those of a compiled dictionary, which counts four billion entries and holds none.
    const std::uint32_t most = std::min(fast.Entries().TotalIds(), 10'000u);
    for (std::uint32_t id = 0; id < most; ++id) fast.Entries().Value(id);
    for (const char* const key : {"$$$/a=default", "a", "/", "$$$/a/b/c=#{endl}^C"}) {
        kestrel::ZString inBlocks;
        kestrel::ZString inChains;
        fast.Lookup(inBlocks, key, &kestrel_private::kEncodingUtf8);
        chains.Lookup(inChains, key, &kestrel_private::kEncodingUtf8);
        if (inBlocks.Text() != inChains.Text()) std::abort();
    }
    return 0;
}
