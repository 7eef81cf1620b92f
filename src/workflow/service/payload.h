// Payloads of calls: markup documents in UTF-8 with one element for each field, without attributes.
#pragma once

#include "values/markup/document.h"

#include <string>
#include <string_view>

namespace brixen::pvn::pvn_workflow {

// Writes a payload. Throws std::bad_alloc.
class PayloadWriter {
public:
    // `root` and the names of fields are names of elements.
    explicit PayloadWriter(const char* root);

    // Adds a field. `text` is UTF-8 and is escaped. Control characters other than tabs and line breaks are
    // left out, because markup cannot hold them.
    void Add(const char* name, std::string_view text);

    // Returns the document.
    const std::string& Text() const { return document.GetDoc(); }

private:
    lyr::gen::CMarkupSTL document;
};

// Replaces `text` by the field `name` of a payload with that root. The first field of the name counts; a
// missing field is an empty one. Returns false, with an empty `text`, for anything that is no such payload.
// Throws std::bad_alloc.
[[nodiscard]] bool ReadPayloadField(const std::string& payload, std::string_view root, std::string_view name,
                                    std::string& text);
// Whether it is a payload with that root.
[[nodiscard]] bool IsPayload(const std::string& payload, std::string_view root);

} // namespace brixen::pvn::pvn_workflow
