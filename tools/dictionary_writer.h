// Writes compiled dictionaries.
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

// The choices for a file.
struct DictionaryFormat {
    std::uint8_t minor = 1; // of version 2; up to 127
    // The byte order; with minor 0 it is always that of this machine.
    std::endian order = std::endian::little;
    std::uint32_t firstId = 0;   // the id of the first entry; 0 for a file that may follow any other
    bool hasKeys = true;         // without keys no lookup reaches the values
    std::string headerText = {}; // nothing reads it
};

// Returns the bytes of a compiled dictionary of version 2. Entries keep their order. An entry with an empty
// key is a dropped one. Throws std::length_error if a key has more than 65535 bytes, a value or note more
// than 32767 characters, or an area more than 4 GiB.
[[nodiscard]] std::string WriteDictionary(const std::vector<CompiledEntry>& entries,
                                          const DictionaryFormat& format = {});

} // namespace pavane_tools
