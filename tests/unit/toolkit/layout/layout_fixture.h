// Runs a description and shows the place that the layout gave each view. Keywords are the names of views in
// these tests, so use each once.
#pragma once

#include "view/generator.h"
#include "view/scope/expression_scope.h"

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace brixen::zeve {

// Position relative to the parent, and size.
struct Frame {
    std::int64_t left = 0, top = 0, width = 0, height = 0;
    bool operator==(const Frame&) const = default;
};
std::ostream& operator<<(std::ostream& stream, const Frame& frame);

struct Outsets {
    std::int64_t left = 0, top = 0, right = 0, bottom = 0;
    bool operator==(const Outsets&) const = default;
};
std::ostream& operator<<(std::ostream& stream, const Outsets& outsets);

// Takes the part of boxes: prepares a view with a parameter `label_width` as a box with such a label does.
class FrameRecorder : public CGenerator {
public:
    struct View {
        std::string keyword;
        Frame frame;
        Outsets outsets;
        std::int64_t labelWidth = 0;
    };

    void PrepareView(std::string_view viewKeyword, CExpressionScope& viewAttributes,
                     CExpressionScope& attributes) override;
    ViewHandle CreateView(std::string_view viewKeyword, CExpressionScope& attributes,
                          ViewHandle parentHandle) override;

    std::vector<View> views; // in the order of creation
};

class LaidOut {
public:
    LaidOut(const std::string& description, bool rightToLeft);

    // The first created view with that keyword; a test failure and an empty one if there is none.
    const FrameRecorder::View& operator[](std::string_view keyword) const;
    const Frame& FrameOf(std::string_view keyword) const { return (*this)[keyword].frame; }
    // All keywords in the order of creation, with a blank between two.
    std::string Order() const;
    const std::vector<FrameRecorder::View>& Views() const { return recorder.views; }

private:
    FrameRecorder recorder;
};

LaidOut LayOutText(const std::string& description);
LaidOut LayOutMirrored(const std::string& description);

} // namespace brixen::zeve
