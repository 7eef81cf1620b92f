// Compiles text dictionaries.
#pragma once

#include "tools/dictionary_writer.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace pavane_tools {

// A remark on a line of a source. After an error the line would not be read as it is written; after a warning
// its author probably meant something else.
struct LineRemark {
    std::size_t line; // from 1
    bool isError;
    std::string message;
};

struct CompiledDictionary {
    std::string bytes; // empty if there is an error
    std::vector<LineRemark> remarks;

    // Returns whether there is no error.
    [[nodiscard]] bool IsGood() const;
};

// Compiles a text dictionary in UTF-8, with or without a byte order mark. The library's own reader reads the
// text, so a key has the same value in the compiled dictionary as in the text. Throws as WriteDictionary
// does.
[[nodiscard]] CompiledDictionary CompileDictionary(std::string_view source,
                                                   const DictionaryFormat& format = {});

} // namespace pavane_tools
