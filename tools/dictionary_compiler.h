#pragma once

#include "tools/dictionary_writer.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace pavane_tools {

// Something about a line of a source, numbered from 1. An error means that the line would not be read as it
// is written, a warning that it probably was not meant so.
struct LineRemark {
    std::size_t line;
    bool isError;
    std::string message;
};

struct CompiledDictionary {
    std::string bytes; // empty when there is an error
    std::vector<LineRemark> remarks;

    bool IsGood() const;
};

// Compiles a text dictionary in UTF-8, with or without a mark. The text is read by the reader of text
// dictionaries, so a key has the same answer from the compiled dictionary as from the text.
CompiledDictionary CompileDictionary(std::string_view source, const DictionaryFormat& format = {});

} // namespace pavane_tools
