#include "bench/sample_views.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace bench {
namespace {

// A notation for a tree of views. The two notations differ in little.
struct Notation {
    const char* headBegin; // between the keyword and the attributes
    const char* assign;
    const char* blockBegin;
    const char* blockEnd;
    const char* leafEnd;
    bool keywordIsAttribute;
};

constexpr Notation kDescription{"(", ": ", ") {\n", "}\n", ");\n", false};
constexpr Notation kLuaTable{"", " = ", ",\n", "},\n", "},\n", true};

using Attributes = std::vector<std::pair<const char*, std::string>>;

class Writer {
public:
    Writer(const Notation& itsNotation, std::size_t nodeCount) : notation(itsNotation), left(nodeCount) {}

    std::string Write() {
        Begin("dialog", {{"name", Text("Settings")},
                         {"margin", "12"},
                         {"margin_top", "gSpace + 4"},
                         {"spacing", "gSpace"},
                         {"placement", "place_column"},
                         {"child_horizontal", "align_fill"}});
        while (left > 0) WriteSection();
        End();
        return std::move(text);
    }

private:
    void WriteSection() {
        Begin("group", {{"name", Text("Section " + std::to_string(left))},
                        {"margin", "8"},
                        {"spacing", "gSpace * 2"},
                        {"placement", "place_column"},
                        {"horizontal", "align_fill"},
                        {"child_vertical", "align_top"}});
        for (int row = 0; row < 4 && left > 0; ++row) WriteRow();
        End();
    }

    void WriteRow() {
        Begin("row", {{"placement", "place_row"},
                      {"spacing", "gSpace"},
                      {"margin_left", "4"},
                      {"margin_right", "4"},
                      {"horizontal", "align_fill"},
                      {"child_vertical", "align_center"}});
        for (const char* keyword : {"static_text", "edit_text", "button"}) {
            if (left > 0) WriteControl(keyword);
        }
        End();
    }

    void WriteControl(const char* keyword) {
        WriteHead(keyword, {{"name", Text("Control " + std::to_string(left))},
                            {"width", "80 + gSpace * 2"},
                            {"height", "16"},
                            {"horizontal", "align_proportional"},
                            {"vertical", "align_center"},
                            {"view_id", std::to_string(1000 + left)}});
        text += notation.leafEnd;
    }

    static std::string Text(const std::string& words) { return "'" + words + "'"; }

    void Begin(const char* keyword, const Attributes& attributes) {
        WriteHead(keyword, attributes);
        text += notation.blockBegin;
    }
    void End() { text += notation.blockEnd; }

    void WriteHead(const char* keyword, const Attributes& attributes) {
        left = left > 0 ? left - 1 : 0;
        text += notation.keywordIsAttribute ? "{keyword = '" + std::string(keyword) + "', " : keyword;
        text += notation.headBegin;
        const char* separator = "";
        for (const auto& [name, value] : attributes) {
            text += separator + std::string(name) + notation.assign + value;
            separator = ", ";
        }
    }

    const Notation& notation;
    std::size_t left; // views still to be written
    std::string text;
};

} // namespace

std::string SampleDescription(std::size_t nodeCount) { return Writer(kDescription, nodeCount).Write(); }

std::string SampleLuaChunk(std::size_t nodeCount) {
    std::string chunk = "return " + Writer(kLuaTable, nodeCount).Write();
    chunk.resize(chunk.find_last_of('}') + 1);
    return chunk;
}

const char* const kSampleLuaConstants = "gSpace = 6 align_fill = 1 align_center = 2 align_proportional = 3 "
                                        "align_top = 4 place_column = 0 place_row = 1";

} // namespace bench
