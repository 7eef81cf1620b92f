// The markup document against pugixml: reading, walking, building; and the cost of an edit.
#include "bench/bar_table.h"
#include "bench/markup_samples.h"
#include "values/markup/document.h"

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <pugixml.hpp>

#include <cstddef>
#include <cstdlib>
#include <string>

namespace bench {
namespace {

using brixen::lyr::gen::CMarkupSTL;

constexpr std::size_t kMegabytes = std::size_t(1) << 20;

using Sample = std::string (*)();
std::string TenRecords() { return MarkupRecords(10 * kMegabytes); }
std::string TenIndented() { return MarkupIndented(10 * kMegabytes); }

void Require(bool held) {
    if (!held) std::abort();
}

// Reading, with the text copied and everything freed.
template <Sample sample>
void ParseOurs(benchmark::State& state) {
    const std::string text = sample();
    for (auto _ : state) {
        CMarkupSTL document;
        document.SetDoc(text);
        Require(document.IsWellFormed());
    }
    state.SetItemsProcessed(state.iterations());
}
template <Sample sample>
void ParsePeer(benchmark::State& state) {
    const std::string text = sample();
    for (auto _ : state) {
        pugi::xml_document document;
        Require(document.load_buffer(text.data(), text.size(), pugi::parse_default));
    }
    state.SetItemsProcessed(state.iterations());
}

// Return the sum of the lengths of the text and of the attribute "id" of every element, in document order.
// Neither side copies them.
std::size_t WalkOurs(CMarkupSTL& document) {
    std::size_t sum = 0;
    std::string room;
    bool isFound = document.FindElem(nullptr);
    while (isFound) {
        sum += document.ViewData(room).size() + document.ViewAttrib("id", room).size() + 1;
        document.IntoElem();
        isFound = document.FindElem(nullptr);
        while (!isFound && document.OutOfElem()) isFound = document.FindElem(nullptr);
    }
    return sum;
}
std::size_t WalkPeer(const pugi::xml_node& element) {
    std::size_t sum = 0;
    for (const pugi::xml_node& child : element.children()) {
        if (child.type() != pugi::node_element) continue;
        sum += std::char_traits<char>::length(child.child_value()) +
               std::char_traits<char>::length(child.attribute("id").value()) + 1 + WalkPeer(child);
    }
    return sum;
}

template <Sample sample>
void ParseAndWalkOurs(benchmark::State& state) {
    const std::string text = sample();
    for (auto _ : state) {
        CMarkupSTL document;
        document.SetDoc(text);
        Require(WalkOurs(document) > text.size() / 8);
    }
    state.SetItemsProcessed(state.iterations());
}
template <Sample sample>
void ParseAndWalkPeer(benchmark::State& state) {
    const std::string text = sample();
    for (auto _ : state) {
        pugi::xml_document document;
        document.load_buffer(text.data(), text.size(), pugi::parse_default);
        Require(WalkPeer(document) > text.size() / 8);
    }
    state.SetItemsProcessed(state.iterations());
}

// Returns the bytes in use on the heap. The program keeps large blocks on the heap too.
std::size_t HeapInUse() { return mallinfo2().uordblks; }

template <Sample sample>
void HeldOurs(benchmark::State& state) {
    const std::string text = sample();
    std::size_t held = 0;
    for (auto _ : state) {
        const std::size_t before = HeapInUse();
        CMarkupSTL document;
        document.SetDoc(text);
        held = HeapInUse() - before;
    }
    state.counters[kFigure] = static_cast<double>(held) / static_cast<double>(text.size());
}
template <Sample sample>
void HeldPeer(benchmark::State& state) {
    const std::string text = sample();
    pugi::xml_document document;
    std::size_t held = 0;
    for (auto _ : state) {
        document.reset();
        const std::size_t before = HeapInUse();
        document.load_buffer(text.data(), text.size(), pugi::parse_default);
        held = HeapInUse() - before;
    }
    state.counters[kFigure] = static_cast<double>(held) / static_cast<double>(text.size());
}

// Builds a call with `state.range(0)` parameters element by element and makes it text. An item is a
// parameter.
void BuildOurs(benchmark::State& state) {
    for (auto _ : state) {
        CMarkupSTL document;
        document.AddElem("methodCall", nullptr);
        document.AddChildElem("params", nullptr);
        document.IntoElem();
        for (std::int64_t i = 0; i < state.range(0); ++i) {
            document.AddChildElem("param", nullptr);
            document.IntoElem();
            document.AddChildElem("name", "AccountNumber");
            document.AddChildElem("value", nullptr);
            document.IntoElem();
            document.AddChildElem("utf8_string", "Upper & Lower Street 17, 39042 Brixen");
            document.OutOfElem();
            document.OutOfElem();
        }
        const std::string text = document.GetDoc();
        benchmark::DoNotOptimize(text.data());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

struct StringWriter : pugi::xml_writer {
    std::string text;
    void write(const void* data, std::size_t size) override {
        text.append(static_cast<const char*>(data), size);
    }
};
void BuildPeer(benchmark::State& state) {
    for (auto _ : state) {
        pugi::xml_document document;
        pugi::xml_node params = document.append_child("methodCall").append_child("params");
        for (std::int64_t i = 0; i < state.range(0); ++i) {
            pugi::xml_node param = params.append_child("param");
            param.append_child("name").text().set("AccountNumber");
            pugi::xml_node value = param.append_child("value");
            value.append_child("utf8_string").text().set("Upper & Lower Street 17, 39042 Brixen");
        }
        StringWriter writer;
        document.save(writer);
        benchmark::DoNotOptimize(writer.text.data());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

// An item is an edit that changes the length of the text, at the first or the last record of a document of
// `state.range(0)` MB.
template <bool atEnd>
void Edit(benchmark::State& state) {
    CMarkupSTL document;
    document.SetDoc(MarkupRecords(static_cast<std::size_t>(state.range(0)) * kMegabytes));
    document.FindChildElem("record");
    document.IntoElem();
    document.SavePos("record");
    while (atEnd && document.FindElem("record")) document.SavePos("record");
    document.RestorePos("record");
    bool isLong = false;
    for (auto _ : state) {
        isLong = !isLong;
        Require(document.SetAttrib("kind", isLong ? "reminder of an invoice" : "note"));
    }
    state.SetItemsProcessed(state.iterations());
}
void EditAtStart(benchmark::State& state) { Edit<false>(state); }
void EditAtEnd(benchmark::State& state) { Edit<true>(state); }

} // namespace

BENCHMARK(ParseOurs<TenRecords>)->Name("markup_records/pavane")->Unit(benchmark::kMillisecond);
BENCHMARK(ParsePeer<TenRecords>)->Name("markup_records/pugixml")->Unit(benchmark::kMillisecond);
BENCHMARK(ParseOurs<TenIndented>)->Name("markup_indented/pavane")->Unit(benchmark::kMillisecond);
BENCHMARK(ParsePeer<TenIndented>)->Name("markup_indented/pugixml")->Unit(benchmark::kMillisecond);
BENCHMARK(ParseOurs<MarkupAnswer>)->Name("markup_answer/pavane");
BENCHMARK(ParsePeer<MarkupAnswer>)->Name("markup_answer/pugixml");
BENCHMARK(ParseAndWalkOurs<TenRecords>)->Name("markup_walk_records/pavane");
BENCHMARK(ParseAndWalkPeer<TenRecords>)->Name("markup_walk_records/pugixml");
BENCHMARK(ParseAndWalkOurs<TenIndented>)->Name("markup_walk_indented/pavane");
BENCHMARK(ParseAndWalkPeer<TenIndented>)->Name("markup_walk_indented/pugixml");
BENCHMARK(HeldOurs<TenRecords>)->Name("markup_held_records/pavane");
BENCHMARK(HeldPeer<TenRecords>)->Name("markup_held_records/pugixml");
BENCHMARK(HeldOurs<TenIndented>)->Name("markup_held_indented/pavane");
BENCHMARK(HeldPeer<TenIndented>)->Name("markup_held_indented/pugixml");
BENCHMARK(BuildOurs)->Name("markup_build/pavane")->Arg(10)->Arg(1000);
BENCHMARK(BuildPeer)->Name("markup_build/pugixml")->Arg(10)->Arg(1000);
BENCHMARK(EditAtStart)->Name("markup_edit_start/pavane")->Arg(1)->Arg(10);
BENCHMARK(EditAtEnd)->Name("markup_edit_end/pavane")->Arg(1)->Arg(10);

} // namespace bench
