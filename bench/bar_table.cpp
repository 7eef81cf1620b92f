#include "bench/bar_table.h"

#include <algorithm>
#include <cstdio>

namespace bench {
namespace {

// An item of `name` may cost at most `limit` times an item of `peer`; without a peer, at most `limit`
// nanoseconds, or units of its figure. `name/*` is the costliest of all names that begin with `name/`.
struct Bar {
    const char* name;
    const char* peer;
    double limit;
};

constexpr Bar kBars[] = {
    {"hostile/*", nullptr, 10e9},
    {"peak_MB/hostile/*", nullptr, 512},
    {"description/pavane/100", "description/luajit/100", 1.0 / 2},
    {"description/pavane/2000", "description/luajit/2000", 1.0 / 2},
    {"description/pavane/100", "description/lua54/100", 1.0 / 3},
    {"description/pavane/2000", "description/lua54/2000", 1.0 / 3},
    {"description/pavane/10000", "description/pavane/100", 1.2},
    {"assignment/pavane/1", "assignment/luajit/1", 0.15},
    {"layout/pavane/100", nullptr, 40},
    {"layout/pavane/1000", nullptr, 40},
    {"layout/pavane/10000", nullptr, 40},
    {"bag_get_long/pavane", "bag_get_long/map", 1.15},
    {"bag_get_ptr/pavane", "bag_get_ptr/map", 1.15},
    {"bag_get_string/pavane", "bag_get_string/map", 1.3},
    {"bag_set_long/pavane", "bag_set_long/map", 0.5},
    {"bag_set_string/pavane", "bag_set_string/map", 0.5},
    {"to_utf16_ascii/pavane", "to_utf16_ascii/icu", 1 / 1.3},
    {"to_utf8_ascii/pavane", "to_utf8_ascii/icu", 1 / 0.9},
    {"to_utf16_latin/pavane", "to_utf16_latin/icu", 1 / 1.3},
    {"to_utf8_latin/pavane", "to_utf8_latin/icu", 1 / 0.9},
    {"to_utf16_cjk/pavane", "to_utf16_cjk/icu", 1 / 1.3},
    {"to_utf8_cjk/pavane", "to_utf8_cjk/icu", 1 / 0.9},
    {"to_utf16_emoji/pavane", "to_utf16_emoji/icu", 1 / 1.3},
    {"to_utf8_emoji/pavane", "to_utf8_emoji/icu", 1 / 0.9},
    {"to_utf16_ascii_label/pavane", "to_utf16_ascii_label/icu", 0.65},
    {"to_utf8_ascii_label/pavane", "to_utf8_ascii_label/icu", 0.65},
    {"to_utf16_latin_label/pavane", "to_utf16_latin_label/icu", 0.65},
    {"to_utf8_latin_label/pavane", "to_utf8_latin_label/icu", 0.65},
    {"to_utf16_cjk_label/pavane", "to_utf16_cjk_label/icu", 0.65},
    {"to_utf8_cjk_label/pavane", "to_utf8_cjk_label/icu", 0.65},
    {"to_utf16_emoji_label/pavane", "to_utf16_emoji_label/icu", 0.65},
    {"to_utf8_emoji_label/pavane", "to_utf8_emoji_label/icu", 0.65},
    {"number/*", nullptr, 250},
    {"number_largest/*", nullptr, 8000},
    {"base64_encode/pavane", "base64_encode/openssl", 1 / 1.3},
    {"base64_decode/pavane", "base64_decode/openssl", 1 / 1.3},
    {"find/pavane/10000", "find/flat_hash_map/10000", 1},
    {"find/pavane/10000", "find/gettext/10000", 0.1},
    {"find/pavane/10000", "find_natural/pavane/10000", 1.2},
    {"find/pavane/100000", "find/flat_hash_map/100000", 1},
    {"find/pavane/100000", "find/gettext/100000", 0.1},
    {"find/pavane/100000", "find_natural/pavane/100000", 1.2},
    {"answer/pavane/100000", "answer/gettext/100000", 0.35},
    {"placeholders/pavane", "placeholders/str_replace_all", 1.1},
    {"load_binary/pavane/10000", "load_binary/memcpy/10000", 1 / 0.9},
    {"load_binary/pavane/100000", "load_binary/memcpy/100000", 1 / 0.9},
    {"load_binary_new/pavane/10000", "load_binary_new/memcpy/10000", 1 / 0.95},
    {"load_binary_new/pavane/100000", "load_binary_new/memcpy/100000", 1 / 0.95},
    {"load_binary_lookup/pavane/100000", "load_binary_new/memcpy/100000", 1.3},
    {"event/pavane", "event/map_of_maps", 0.7},
    {"event_bare/pavane", "event_bare/map_of_maps", 0.7},
    {"markup_records/pavane", "markup_records/pugixml", 1 / 2.5},
    {"markup_indented/pavane", "markup_indented/pugixml", 1 / 2.5},
    {"markup_answer/pavane", "markup_answer/pugixml", 1 / 1.5},
    {"markup_walk_records/pavane", "markup_walk_records/pugixml", 1 / 2.5},
    {"markup_walk_indented/pavane", "markup_walk_indented/pugixml", 1 / 2.5},
    {"markup_held_records/pavane", nullptr, 2.1},
    {"markup_held_indented/pavane", nullptr, 2.1},
    {"markup_build/pavane/10", "markup_build/pugixml/10", 1},
    {"markup_build/pavane/1000", "markup_build/pugixml/1000", 1},
    {"markup_edit_start/pavane/10", "markup_edit_start/pavane/1", 20},
    {"markup_edit_end/pavane/10", "markup_edit_end/pavane/1", 1.5},
    {"payload_call/4096", nullptr, 4000},
    {"payload_answer/4096", nullptr, 6000},
};

// Returns the name without the number of runs and the clock.
std::string NameOf(const benchmark::BenchmarkReporter::Run& run) {
    const auto& name = run.run_name;
    return name.args.empty() ? name.function_name : name.function_name + "/" + name.args;
}

} // namespace

bool BarReporter::ReportContext(const Context&) { return true; }

void BarReporter::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        if (run.error_occurred) {
            std::printf("%s: %s\n", run.benchmark_name().c_str(), run.error_message.c_str());
        } else if (run.run_type == Run::RT_Iteration) {
            const auto peak = run.counters.find(kPeakMegabytes);
            if (peak != run.counters.end())
                costs[kPeakMegabytes + ("/" + NameOf(run))].push_back(peak->second.value);
            const auto figure = run.counters.find(kFigure);
            costs[NameOf(run)].push_back(figure != run.counters.end()
                                             ? figure->second.value
                                             : 1e9 / run.counters.at("items_per_second"));
        }
    }
}

double BarReporter::Median(const std::string& name) const {
    if (name.ends_with('*')) {
        double costliest = 0;
        for (const auto& [each, rounds] : costs) {
            if (each.starts_with(name.substr(0, name.size() - 1)))
                costliest = std::max(costliest, Median(each));
        }
        return costliest;
    }
    const auto found = costs.find(name);
    if (found == costs.end()) return 0;
    std::vector<double> rounds = found->second;
    std::sort(rounds.begin(), rounds.end());
    return rounds[rounds.size() / 2];
}

void BarReporter::PrintCosts() {
    std::printf("%-28s %12s %12s %12s   (nanoseconds an item, or a figure)\n", "", "least", "median", "most");
    for (const auto& [name, rounds] : costs) {
        const auto [least, most] = std::minmax_element(rounds.begin(), rounds.end());
        std::printf("%-28s %12.2f %12.2f %12.2f\n", name.c_str(), *least, Median(name), *most);
    }
}

void BarReporter::PrintBars() {
    std::printf("\n%-28s %-28s %10s %10s\n", "", "against", "is", "at most");
    for (const Bar& bar : kBars) {
        const double cost = Median(bar.name), peer = bar.peer ? Median(bar.peer) : 1;
        if (cost == 0 || peer == 0) continue; // filtered out of this run
        std::printf("%-28s %-28s %10.3f %10.3f   %s\n", bar.name, bar.peer ? bar.peer : "a fixed limit",
                    cost / peer, bar.limit, cost <= bar.limit * peer ? "met" : "MISSED");
    }
}

void BarReporter::Finalize() {
    PrintCosts();
    PrintBars();
}

} // namespace bench
