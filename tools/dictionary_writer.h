#pragma once

#include <bit>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace pavane_tools {

struct CompiledEntry {
    std::string key;
    std::u16string value;
    std::optional<std::u16string> note;
};

struct DictionaryFormat {
    std::uint8_t minor = 1; // of version 2; up to 127
    // With minor 0 the order is that of this machine, whatever stands here.
    std::endian order = std::endian::little;
    std::uint32_t firstId = 0;   // of the first entry; 0 for a file that may be laid over any other
    bool hasKeys = true;         // without keys no lookup reaches the values
    std::string headerText = {}; // read by nobody
};

// The bytes of a compiled dictionary of version 2. Entries keep their order, and an entry with an empty key
// is one that was dropped. Throws std::length_error when a key has more than 65535 bytes, a value or note
// more than 32767 characters, or an area would pass 4 GiB.
std::string WriteDictionary(const std::vector<CompiledEntry>& entries, const DictionaryFormat& format = {});

} // namespace pavane_tools
