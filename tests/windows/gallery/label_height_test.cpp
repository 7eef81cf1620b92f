// The height of labels of several lines in a real window, for each font and several widths.
// tests/end_to_end/scaled_screen.sh runs this on a screen of 144 pixels an inch too, and compares the printed
// lines.
#include "toolkit/dialog/dpi_unaware_scope.h"
#include "windows/gallery/gallery_fixture.h"

#include <cstdio>
#include <string>
#include <utility>

namespace brixen::zeve {
namespace {

// Labels of several lines, each as high as the system draws it at the resolution of a run.
class WrappedLabelTest : public GalleryTest {
protected:
    ~WrappedLabelTest() override { ZeveDelete(std::exchange(dialog, nullptr)); } // inside the scope

    static constexpr std::uint16_t kId = 7;

    // Makes a dialog with one label that measures whole words.
    const CEveBox& MakeLabel(const std::string& text, int width, int font) {
        ZeveDelete(dialog);
        New("whole_words = true; dialog() { static_text(view_id: 7, name: '" + text +
            "', width: " + std::to_string(width) + ", font: " + std::to_string(font) + "); }");
        window = Handle(ZeveMakeDialog(dialog, &host));
        return *host.boxes.at(kId);
    }
    struct Heights {
        int text, line;
    };
    // Returns the heights that the system needs to draw the label.
    static Heights DrawnHeights(HWND control, int width) {
        const std::wstring text = Text(control);
        const HDC device = GetDC(control);
        const auto font = reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0));
        const HGDIOBJ before = SelectObject(device, font);
        RECT area = {0, 0, width, 0}, line = area;
        DrawTextW(device, text.c_str(), -1, &area, DT_CALCRECT | DT_WORDBREAK | DT_EXPANDTABS);
        DrawTextW(device, L"x", -1, &line, DT_CALCRECT);
        SelectObject(device, before);
        ReleaseDC(control, device);
        return {static_cast<int>(area.bottom), static_cast<int>(line.bottom)};
    }

private:
    const DpiUnawareScope scope;
};

TEST_F(WrappedLabelTest, IsAsHighAsItsLines) {
    const char* texts[] = {
        "Welcome to the workflow. It shows what is new, page by page, and takes about a minute of your time.",
        "Eine Benutzeroberfl\xC3\xA4"
        "cheneinstellung bestimmt, wie Datenschutzerkl\xC3\xA4rungen angezeigt "
        "werden; Sie k\xC3\xB6nnen sie jederzeit \xC3\xA4ndern.",
        "\xD7\x91\xD7\x97\xD7\xA8 \xD7\xA9\xD7\xA4\xD7\x94 \xD7\x9B\xD7\x93\xD7\x99 "
        "\xD7\x9C\xD7\xA7\xD7\xA8\xD7\x95\xD7\x90 \xD7\x90\xD7\xAA \xD7\x94\xD7\x94\xD7\xA6\xD7\x94"
        "\xD7\xA8\xD7\x94 \xD7\x91\xD7\xA9\xD7\xA4\xD7\x94 \xD7\xA9\xD7\x9C\xD7\x9A",
        "a b c d e f g h i j k l m n o p q r s t u v w x y z a b c d e f g h i j k l m n o p q r s t u v w x "
        "y z",
    };
    for (const char* text : texts) {
        for (const int width : {150, 203, 318, 424, 504}) {
            for (const int font : {32000, 32001, 32004, 32005}) {
                const CEveBox& box = MakeLabel(text, width, font);
                const Heights drawn = DrawnHeights(Handle(box.control), width);
                const int height = box.height - 1; // a label is one pixel higher than its layout
                EXPECT_GE(height, drawn.text) << text << " in " << width << ", font " << font;
                EXPECT_LE(height, drawn.text + drawn.line) << text << " in " << width << ", font " << font;
                std::printf("measured: width %d, font %d: height %d of %d\n", width, font, height,
                            drawn.text);
            }
        }
    }
}

} // namespace
} // namespace brixen::zeve
