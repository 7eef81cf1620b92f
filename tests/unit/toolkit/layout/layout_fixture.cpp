#include "unit/toolkit/layout/layout_fixture.h"

#include "view/express_view_scope.h"
#include "view/reader/run_definition.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace brixen::zeve {

std::ostream& operator<<(std::ostream& stream, const Frame& frame) {
    return stream << "left " << frame.left << " top " << frame.top << " width " << frame.width << " height "
                  << frame.height;
}

std::ostream& operator<<(std::ostream& stream, const Outsets& outsets) {
    return stream << "left " << outsets.left << " top " << outsets.top << " right " << outsets.right
                  << " bottom " << outsets.bottom;
}

void FrameRecorder::PrepareView(std::string_view, CExpressionScope& viewAttributes,
                                CExpressionScope& attributes) {
    CopyNumber(attributes, viewAttributes, "label_width");
}

ViewHandle FrameRecorder::CreateView(std::string_view viewKeyword, CExpressionScope& attributes, ViewHandle) {
    const auto number = [&attributes](std::string_view name) {
        std::int64_t value = 0;
        EXPECT_TRUE(attributes.GetLong(name, &value)) << name;
        return value;
    };
    views.push_back(
        {std::string(viewKeyword),
         {number("left"), number("top"), number("width"), number("height")},
         {number("left_outset"), number("top_outset"), number("right_outset"), number("bottom_outset")},
         number("label_width")});
    return nullptr;
}

LaidOut::LaidOut(const std::string& description, bool rightToLeft) {
    recorder.rightToLeft = rightToLeft;
    const auto scope = CreateViewScope(nullptr, &recorder, nullptr, nullptr, true);
    RunDefinition(*scope, description.c_str());
}

const FrameRecorder::View& LaidOut::operator[](std::string_view keyword) const {
    static const FrameRecorder::View kNone;
    const auto found = std::find_if(recorder.views.begin(), recorder.views.end(),
                                    [keyword](const auto& view) { return view.keyword == keyword; });
    EXPECT_NE(found, recorder.views.end()) << "no view " << keyword;
    return found == recorder.views.end() ? kNone : *found;
}

std::string LaidOut::Order() const {
    std::string order;
    for (const auto& view : recorder.views) order += (order.empty() ? "" : " ") + view.keyword;
    return order;
}

LaidOut LayOutText(const std::string& description) { return {description, false}; }
LaidOut LayOutMirrored(const std::string& description) { return {description, true}; }

} // namespace brixen::zeve
