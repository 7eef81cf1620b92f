#include "bench/hostile_views.h"

#include <cstddef>
#include <string_view>

namespace bench {
namespace {

constexpr std::size_t kTextSize = 1000000;
// Just below the budgets of reading_limits.h.
constexpr int kMostControls = 1023, kMostItems = 16384, kMostTabs = 1024;
constexpr std::size_t kMostShown = 262144;

std::string Times(std::size_t count, std::string_view piece) {
    std::string text;
    text.reserve(count * piece.size());
    while (count-- > 0) text += piece;
    return text;
}

std::string Letters(std::size_t count) { return std::string(count, 'x'); }

// A dialog full of one view, after the attributes that all of them inherit.
std::string DialogOf(const std::string& attributes, std::string_view view, std::size_t views) {
    return attributes + " dialog(name: '') {" + Times(views, view) + "}";
}

std::string FullDialogOf(const std::string& attributes, std::string_view view) {
    return DialogOf(attributes, view, (kTextSize - attributes.size()) / view.size());
}

std::string Items(int count) {
    std::string text;
    for (int n = 0; n < count; ++n) text += std::to_string(n) + "{" + std::to_string(n) + "};";
    text.pop_back();
    return "items = '" + text + "';";
}

std::string Name(const std::string& text) { return "name = '" + text + "';"; }

// Nearly every budget in one text.
std::string Everything() {
    return Items(kMostItems) + "alt_name = '" + Letters(800000) + "'; dialog(name: '') { popup(width: 50);" +
           Times(18, "static_text(name: '');") + "alt_name = '';" + "edit_text(name: '" + Letters(1200) +
           "', width: 50, v_scroller: 1); items = '';" + Times(kMostControls / 2 - 22, "popup(width:9);") +
           "}";
}

constexpr HostileView kViews[] = {
    {"everything", Everything},
    // Measuring
    {"one_letter_lines", [] { return DialogOf(Name(Letters(kMostShown)), "static_text(width: 1);", 1); }},
    {"words_on_narrow_lines",
     [] {
         return DialogOf("whole_words = 1;" + Name(Times(kMostShown / 3, "xx ")), "static_text(width: 1);",
                         1);
     }},
    {"line_feeds",
     [] {
         return DialogOf("whole_words = 1;" + Name(Times(kMostShown, "\n")), "static_text(width: 9);", 1);
     }},
    {"inherited_narrow_text", [] { return FullDialogOf(Name(Letters(20000)), "static_text(width: 1);"); }},
    {"inherited_wide_text", [] { return FullDialogOf(Name(Letters(20000)), "static_text(width: 100);"); }},
    {"inherited_whole_text", [] { return FullDialogOf(Name(Letters(800000)), "static_text();"); }},
    {"alternatives",
     [] { return DialogOf("alt_name = '" + Letters(900000) + "';", "static_text(name: '');", 18); }},
    {"fields_of_long_text", [] { return DialogOf(Name(Letters(kMostShown)), "edit_text(width: 50);", 1); }},
    {"field_of_one_paragraph",
     [] { return DialogOf(Name(Letters(1250)), "edit_text(width: 50, v_scroller: 1);", 1); }},
    {"field_of_short_lines",
     [] { return DialogOf(Name(Times(12000, "xx\n")), "edit_text(width: 50, v_scroller: 1);", 1); }},
    // Lists
    {"popups_of_inherited_items",
     [] { return FullDialogOf("name = '';" + Items(2000), "popup(width: 50);"); }},
    {"items_that_fit", [] { return DialogOf(Items(kMostItems), "popup(width: 50);", 1); }},
    {"tabs_that_fit", [] { return DialogOf(Name(Times(kMostTabs - 1, "x;")), "tab_group(width: 99);", 1); }},
    {"many_tabs", [] { return DialogOf(Name(Times(400000, "x;")), "tab_group(width: 99);", 1); }},
    // Controls
    {"many_sliders", [] { return FullDialogOf("", "slider(width:1,height:1);"); }},
    {"sliders_that_fit", [] { return DialogOf("", "slider(width:1,height:1);", kMostControls); }},
    {"popups_that_fit", [] { return DialogOf("", "popup(width:9);", kMostControls / 2); }},
    {"tables_that_fit", [] { return DialogOf("", "table(width:9,height:9);", kMostControls); }},
    {"fields_that_fit", [] { return DialogOf("", "edit_text(width:9);", kMostControls); }},
    {"views_without_controls", [] { return DialogOf("", "row();", 32700); }},
};

} // namespace

std::span<const HostileView> HostileViews() { return kViews; }

} // namespace bench
