#include "workflow/resources/path_buffer.h"

#include <algorithm>

namespace brixen::pvn::pvn_workflow {

PathBuffer& PathBuffer::Append(std::u16string_view part) {
    const std::size_t fitting = std::min(part.size(), platform::kPathUnits - 1 - length);
    std::copy_n(part.data(), fitting, units + length);
    length += fitting;
    return *this;
}

PathBuffer& PathBuffer::Enter(std::u16string_view component) { return Append(u"\\").Append(component); }

PathUnits PathBuffer::Copy() const {
    PathUnits copy = std::make_unique<char16_t[]>(platform::kPathUnits);
    std::copy_n(units, platform::kPathUnits, copy.get());
    return copy;
}

} // namespace brixen::pvn::pvn_workflow
