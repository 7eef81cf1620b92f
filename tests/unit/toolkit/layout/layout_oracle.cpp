#include "unit/toolkit/layout/layout_oracle.h"

#include <algorithm>
#include <cmath>

namespace brixen::zeve {
namespace {

using Number = std::int64_t;
using Values = std::map<std::string, Number>;

Number GivenOr(const OracleView& view, const std::string& name, Number otherwise) {
    const auto found = view.given.find(name);
    return found == view.given.end() ? otherwise : found->second;
}

void Resolve(OracleView& view, const OracleView* parent, Number space) {
    Values& v = view.value;
    for (const char* name : {"width", "height", "inset", "top_inset", "outset", "placement", "child_vertical",
                             "left_offset", "top_offset", "label_width"}) {
        v[name] = GivenOr(view, name, 0);
    }
    for (const char* side : {"left", "top", "right", "bottom"}) {
        const std::string both = side[0] == 'l' || side[0] == 'r' ? "margin_width" : "margin_height";
        v[std::string(side) + "_outset"] = GivenOr(view, std::string(side) + "_outset", v["outset"]);
        v[std::string("margin_") + side] =
            GivenOr(view, std::string("margin_") + side, GivenOr(view, both, GivenOr(view, "margin", 0)));
    }
    v["child_horizontal"] = GivenOr(view, "child_horizontal", v["placement"] == 2 ? 1 : 0);
    v["horizontal"] = GivenOr(view, "horizontal", parent ? parent->value.at("child_horizontal") : 0);
    v["vertical"] = GivenOr(view, "vertical", parent ? parent->value.at("child_vertical") : 0);
    v["spacing"] = GivenOr(view, "spacing", space);
    view.hasLabel = view.given.count("label_width") != 0;
    view.offscreen = v["placement"] == 2 || (parent && parent->offscreen);
    for (OracleView& child : view.children) Resolve(child, &view, space);
}

void AtLeast(Number& field, Number other) { field = field > other ? field : other; }

bool OneOf(Number number, std::initializer_list<Number> numbers) {
    return std::find(numbers.begin(), numbers.end(), number) != numbers.end();
}

void MeasureAsColumn(OracleView& view) {
    Values &v = view.value, &first = view.children.front().value, &last = view.children.back().value;
    AtLeast(v["top_outset"], first["top_outset"] - v["margin_top"]);
    AtLeast(v["bottom_outset"], last["bottom_outset"] - v["margin_bottom"]);
    Number labels = 0, rest = 0, plain = 0, sum = 0;
    for (OracleView& child : view.children) {
        Values& c = child.value;
        AtLeast(v["left_outset"], c["left_outset"] - v["margin_left"]);
        AtLeast(v["right_outset"], c["right_outset"] - v["margin_right"]);
        if (OneOf(c["horizontal"], {0, 1, 4})) {
            if (child.hasLabel) {
                view.hasLabel = true;
                AtLeast(labels, c["label_width"]);
                AtLeast(rest, c["width"] - c["label_width"]);
            } else {
                AtLeast(plain, c["width"] + c["inset"]);
            }
        } else {
            AtLeast(plain, c["width"]);
        }
        sum += c["height"];
    }
    v["child_height_sum"] = sum;
    const Number content = std::max(labels + rest, plain);
    if (view.hasLabel) AtLeast(v["label_width"], labels + v["margin_left"]);
    Number height = sum + v["margin_top"] + v["margin_bottom"];
    if (view.children.size() >= 2) height += static_cast<Number>(view.children.size() - 1) * v["spacing"];
    AtLeast(v["height"], height);
    AtLeast(v["width"], content + v["margin_left"] + v["margin_right"]);
}

void MeasureAsRow(OracleView& view) {
    OracleView& first = view.children.front();
    Values &v = view.value, &f = first.value, &l = view.children.back().value;
    AtLeast(v["left_outset"], std::max<Number>(f["left_outset"] - v["margin_left"], 0) - v["left_outset"]);
    AtLeast(v["right_outset"],
            std::max<Number>(l["right_outset"] - v["margin_right"], 0) - v["right_outset"]);
    const Number firstAlignment = f["horizontal"] == 0 ? 4 : f["horizontal"];
    if (first.hasLabel && firstAlignment != 2) {
        view.hasLabel = true;
        v["label_width"] = f["label_width"] + v["left_outset"] + v["margin_left"];
    }
    Number below = 0, sum = 0;
    for (OracleView& child : view.children) {
        Values& c = child.value;
        AtLeast(v["top_inset"], c["top_inset"]);
        AtLeast(below, c["height"] - c["top_inset"]);
        AtLeast(v["top_outset"], c["top_outset"] - v["margin_top"]);
        AtLeast(v["bottom_outset"], c["bottom_outset"] - v["margin_bottom"]);
        sum += c["width"];
    }
    v["child_width_sum"] = sum;
    AtLeast(v["height"], v["margin_top"] + v["margin_bottom"] + v["top_inset"] + below);
    Number width = sum + v["margin_left"] + v["margin_right"];
    if (view.children.size() >= 2) width += static_cast<Number>(view.children.size() - 1) * v["spacing"];
    AtLeast(v["width"], width);
}

void MeasureAsOffscreen(OracleView& view) {
    Values& v = view.value;
    Number width = 0, height = 0;
    for (OracleView& child : view.children) {
        for (const std::string side : {"top", "bottom", "left", "right"}) {
            AtLeast(v[side + "_outset"], child.value[side + "_outset"] - v["margin_" + side]);
        }
        AtLeast(width, child.value["width"]);
        AtLeast(height, child.value["height"]);
    }
    AtLeast(v["height"], height + v["margin_top"] + v["margin_bottom"]);
    AtLeast(v["width"], width + v["margin_left"] + v["margin_right"]);
}

void MeasureByTheRules(OracleView& view) {
    for (OracleView& child : view.children) MeasureByTheRules(child);
    if (view.children.empty()) return;
    if (GivenOr(view, "reverse", 0)) view.children.reverse();
    if (view.value["placement"] == 0) MeasureAsColumn(view);
    if (view.value["placement"] == 1) MeasureAsRow(view);
    if (view.value["placement"] == 2) MeasureAsOffscreen(view);
}

void Fit(OracleView& view, OracleView& child, bool labelRule, bool mirrored) {
    Values &v = view.value, &c = child.value;
    const Number horizontal = c["horizontal"];
    if (horizontal == 1) {
        c["width"] = v["width"] - v["margin_right"] - v["margin_left"];
        if (labelRule) c["label_width"] = v["label_width"] - v["margin_left"];
        c["left"] = v["left_outset"] + v["margin_left"];
    }
    if (horizontal == 2 || horizontal == 3) c["left"] = (v["width"] - c["width"]) / 2 + v["left_outset"];
    if (horizontal == 0 || horizontal == 4) {
        if (labelRule && child.hasLabel) {
            const Number wanted = v["label_width"] - v["margin_left"];
            c["width"] += wanted - c["label_width"];
            c["label_width"] = wanted;
        }
        c["left"] = mirrored ? v["left_outset"] - c["width"] - v["margin_left"] + v["width"]
                             : c["inset"] + v["margin_left"] + v["left_outset"];
    }
    if (horizontal == 5) {
        c["left"] = mirrored ? c["inset"] + v["margin_left"] + v["left_outset"]
                             : v["width"] - c["width"] - v["margin_left"] - v["left_outset"];
    }
}

Number Proportional(Number running, Number extra, Number spent, Number divisor) {
    if (divisor == 0) return running; // not a number, or infinite
    const double share = double(spent) / double(divisor);
    const double position = double(extra) * share + double(running);
    return Number(position < 0 ? -std::floor(0.5 - position) : std::floor(position + 0.5));
}

void PlaceAsRow(OracleView& view, bool mirrored) {
    Values& v = view.value;
    OracleView& first = view.children.front();
    const Number start = mirrored ? v["margin_left"] - v["left_outset"] : v["left_outset"] + v["margin_left"];
    if (v["label_width"] > 0 && first.hasLabel && first.value["horizontal"] != 2) {
        const Number wanted = v["label_width"] - start;
        const Number grow = wanted - first.value["label_width"];
        first.value["width"] += grow;
        first.value["label_width"] = wanted;
        v["child_width_sum"] += grow;
    }
    const Number stretch = std::count_if(view.children.begin(), view.children.end(), [](OracleView& child) {
        return OneOf(child.value["horizontal"], {1, 2, 3});
    });
    const Number gaps = static_cast<Number>(view.children.size() - 1) * v["spacing"];
    const Number room = v["width"] - gaps - v["margin_right"] - v["margin_left"];
    const Number extra =
        stretch > 0 && room > v["child_width_sum"] ? (room - v["child_width_sum"]) / stretch : 0;
    const Number inner =
        v["width"] - v["right_outset"] - v["left_outset"] - v["margin_left"] - v["margin_right"];
    Number x = start;
    for (OracleView& child : view.children) {
        Values& c = child.value;
        const Number above = v["margin_top"] + v["top_outset"] + v["top_inset"] - c["top_inset"];
        const Number floor = v["height"] - v["margin_bottom"] + v["top_outset"];
        switch (c["vertical"]) {
        case 0:
        case 2: c["top"] = (floor - c["height"] - above) / 2 + above; break;
        case 1: c["top"] = above, c["height"] = floor - above; break;
        case 4: c["top"] = above; break;
        case 5: c["top"] = floor - c["height"]; break;
        default: break;
        }
        switch (c["horizontal"]) {
        case 0:
        case 4:
        case 5: c["left"] = mirrored ? v["width"] - c["width"] - x : x; break;
        case 1:
            c["width"] += extra;
            c["left"] = mirrored ? c["left_outset"] - c["width"] - x + v["width"] : x;
            break;
        case 2: {
            const Number half = extra / 2;
            c["left"] = mirrored ? c["left_outset"] - half - c["width"] - x + v["width"] : x + half;
            x += extra;
            break;
        }
        case 3: {
            const Number spent = x - v["left_outset"] - v["margin_left"];
            const Number pos = Proportional(x, extra, spent, inner - c["width"] - extra);
            c["left"] = mirrored ? c["left_outset"] - pos - c["width"] + v["width"] : pos;
            x += extra;
            break;
        }
        default: break;
        }
        x += c["width"] + v["spacing"];
    }
}

void PlaceAsColumn(OracleView& view, bool mirrored) {
    Values& v = view.value;
    Number y = v["top_outset"] + v["margin_top"];
    const Number stretch = std::count_if(view.children.begin(), view.children.end(), [](OracleView& child) {
        return OneOf(child.value["vertical"], {0, 1, 2, 3});
    });
    const Number gaps = static_cast<Number>(view.children.size() - 1) * v["spacing"];
    const Number room = v["height"] - gaps - v["margin_bottom"] - v["margin_top"];
    const Number extra =
        stretch > 0 && room > v["child_height_sum"] ? (room - v["child_height_sum"]) / stretch : 0;
    const Number inner =
        v["height"] - v["bottom_outset"] - v["margin_bottom"] - v["top_outset"] - v["margin_top"];
    for (OracleView& child : view.children) {
        Values& c = child.value;
        const Number vertical = c["vertical"];
        if (vertical == 0 || vertical == 2) {
            c["top"] = extra / 2 + y;
            y += extra;
        } else if (vertical == 1) {
            c["height"] += extra;
            c["top"] = y;
        } else if (vertical == 3) {
            const Number spent = y - v["top_outset"] - v["margin_top"];
            c["top"] = Proportional(y, extra, spent, inner - c["height"] - extra);
            y += extra;
        } else if (vertical == 4 || vertical == 5) {
            c["top"] = y;
        }
        y += c["height"] + v["spacing"];
        Fit(view, child, view.hasLabel, mirrored);
    }
}

void PlaceAsOffscreen(OracleView& view, const OracleView* parent, bool mirrored) {
    Values& v = view.value;
    for (OracleView& child : view.children) {
        Fit(view, child, false, mirrored);
        child.value["top"] = v["top_outset"] + v["margin_top"] + (parent && parent->offscreen ? 0 : 10000);
        child.value["height"] = v["height"] - v["margin_bottom"] - v["margin_top"];
    }
}

void PlaceByTheRules(OracleView& view, const OracleView* parent, bool rtl) {
    if (view.children.empty()) return;
    const bool mirrored = rtl && !GivenOr(view, "alwaysL2R", 0);
    switch (view.value["placement"]) {
    case 1: PlaceAsRow(view, mirrored); break;
    case 2: PlaceAsOffscreen(view, parent, mirrored); break;
    default: PlaceAsColumn(view, mirrored); break;
    }
    for (OracleView& child : view.children) {
        child.value["left"] += mirrored ? -child.value["left_offset"] : child.value["left_offset"];
        child.value["top"] += child.value["top_offset"];
    }
    for (OracleView& child : view.children) PlaceByTheRules(child, &view, rtl);
}

} // namespace

void LayOutByTheRules(OracleView& root, bool rightToLeft, std::int64_t space) {
    Resolve(root, nullptr, space);
    MeasureByTheRules(root);
    PlaceByTheRules(root, nullptr, rightToLeft && !GivenOr(root, "alwaysL2R", 0));
}

std::string DescriptionOf(const OracleView& view) {
    std::string text = view.keyword + "(";
    for (const auto& [name, number] : view.given) {
        text += (text.back() == '(' ? "" : ", ") + name + ": " + std::to_string(number);
    }
    text += ") {\n";
    for (const OracleView& child : view.children) text += DescriptionOf(child);
    return text + "}\n";
}

} // namespace brixen::zeve
