// A path within the system's limit: 260 UTF-16 units with the terminator. A longer path is cut without a
// sign, and the cut path is then not found.
#pragma once

#include "workflow/platform/resource_platform.h"

#include <memory>
#include <string_view>

namespace brixen::pvn::pvn_workflow {

// 260 units, NUL-terminated.
using PathUnits = std::unique_ptr<char16_t[]>;

class PathBuffer {
public:
    PathBuffer() = default;
    explicit PathBuffer(std::u16string_view start) { Append(start); }

    PathBuffer& Append(std::u16string_view part);
    // Appends a backslash, then the component.
    PathBuffer& Enter(std::u16string_view component);

    // NUL-terminated, valid as long as the buffer.
    const char16_t* Text() const { return units; }
    PathUnits Copy() const;

private:
    char16_t units[platform::kPathUnits] = {};
    std::size_t length = 0;
};

} // namespace brixen::pvn::pvn_workflow
