// What the twin of text drawing keeps for tests: every text and frame that was drawn. It measures six pixels
// a unit on one line of thirteen, and nothing for nothing. Native builds only.
#pragma once

#include "workflow/platform/text_drawing.h"

#include <map>
#include <string>
#include <vector>

namespace brixen::pvn::pvn_workflow::platform {

struct DrawnText {
    zeve::NativeDrawing device = nullptr;
    std::u16string text;
    zeve::platform::Rectangle area;
    TextLook look;
};

struct TextRecorder {
    std::vector<DrawnText> texts;
    std::vector<zeve::platform::Rectangle> focusFrames;
    std::vector<std::uint32_t> measuredFormats;
    Color textColor = 0x010203; // of every device

    void Reset() { *this = TextRecorder(); }
};

TextRecorder& TheTextRecorder();

} // namespace brixen::pvn::pvn_workflow::platform
