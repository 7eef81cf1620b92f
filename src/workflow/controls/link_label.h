// The label of a hyperlink as text and geometry: its three parts, its access key, and the places of the parts
// in the control. All functions are pure.
#pragma once

#include "toolkit/platform/toolkit_platform.h"

#include <string>
#include <string_view>

namespace brixen::pvn::pvn_workflow {

// The parts of a label. They borrow its text.
struct LabelParts {
    std::u16string_view before, link, after;
};

// Splits a label at its first pair of tags, `<A>` and the next `</A>`, in either case. Everything else is
// text, further tags included. Without a pair the whole label is `before`.
LabelParts SplitLabel(std::u16string_view label);

// Returns whether one character of the label is an access key: it has a single `&` before it.
bool HasAccessKey(std::u16string_view label);
// Returns the label as it is read aloud: without the marks of access keys, and with one `&` for `&&`.
std::u16string WithoutAccessMarks(std::u16string_view label);

enum class LabelAlignment { kLeft, kCenter, kRight };

// The areas of the three parts, in pixels of the client area.
struct LabelAreas {
    zeve::platform::Rectangle before, link, after;
};

// Moves areas that were measured one after the other from the left of `client`. A label that is read from
// right to left has its first part at the right. One that is wider than the client area begins at its left.
LabelAreas AlignLabel(const LabelAreas& measured, const zeve::platform::Rectangle& client,
                      LabelAlignment alignment, bool isReadFromRight);

} // namespace brixen::pvn::pvn_workflow
