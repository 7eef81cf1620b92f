// The property bag against a std::map with the same entries.
#include "values/storage.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace bench {
namespace {

using namespace brixen::pvn;

template <class Value>
using Map = std::map<std::string, Value, std::less<>>;

std::vector<std::string> Keys() {
    std::vector<std::string> keys;
    for (const char* word : {"WorkFlowResult", "WorkFlowPhase", "ParentWindow", "HostApp", "HostLocale",
                             "Language", "AllowCancel", "ProgressPercent", "ProgressStatus", "DictionaryName",
                             "ViewName", "DisplayName", "EMail", "Password", "Country", "SerialNumber"}) {
        keys.push_back("PvnWFKey_" + std::string(word));
    }
    return keys;
}

// Too long to fit into the string object itself.
constexpr char kText[] = "A text as the panes hand it on: sixty-odd bytes of plain words.";

// Calls `run(key)` for one key after the other.
template <class Run>
void ForEachKey(benchmark::State& state, Run run) {
    const std::vector<std::string> keys = Keys();
    std::size_t place = 0;
    for (auto _ : state) {
        run(keys[place]);
        place = (place + 1) % keys.size();
    }
    state.SetItemsProcessed(state.iterations());
}

T_Storage FilledBag() {
    T_Storage bag;
    for (const std::string& key : Keys()) {
        SetLong(bag, key, 1);
        SetString(bag, key, kText);
        SetPtr(bag, key, kText);
    }
    return bag;
}

template <class Value>
Map<Value> FilledMap(const Value& value) {
    Map<Value> map;
    for (const std::string& key : Keys()) map.emplace(key, value);
    return map;
}

void BagGetLong(benchmark::State& state) {
    T_Storage bag = FilledBag();
    std::uint32_t value = 0;
    ForEachKey(state, [&](const std::string& key) { benchmark::DoNotOptimize(GetLong(bag, key, value)); });
}
void MapFindLong(benchmark::State& state) {
    const auto map = FilledMap<std::uint32_t>(1);
    ForEachKey(state, [&](const std::string& key) { benchmark::DoNotOptimize(map.find(key)); });
}

void BagGetPtr(benchmark::State& state) {
    T_Storage bag = FilledBag();
    void* value = nullptr;
    ForEachKey(state, [&](const std::string& key) { benchmark::DoNotOptimize(GetPtr(bag, key, value)); });
}
void MapFindPtr(benchmark::State& state) {
    const auto map = FilledMap<const void*>(kText);
    ForEachKey(state, [&](const std::string& key) { benchmark::DoNotOptimize(map.find(key)); });
}

void BagGetString(benchmark::State& state) {
    T_Storage bag = FilledBag();
    ForEachKey(state, [&](const std::string& key) {
        std::string text;
        GetString(bag, key, text);
        benchmark::DoNotOptimize(text.data());
    });
}
void MapFindString(benchmark::State& state) {
    const auto map = FilledMap<std::string>(kText);
    ForEachKey(state, [&](const std::string& key) {
        const std::string text = map.find(key)->second;
        benchmark::DoNotOptimize(text.data());
    });
}

void BagSetLong(benchmark::State& state) {
    T_Storage bag = FilledBag();
    ForEachKey(state, [&](const std::string& key) { SetLong(bag, key, 7); });
}
void MapReplaceLong(benchmark::State& state) {
    auto map = FilledMap<std::uint32_t>(1);
    ForEachKey(state, [&](const std::string& key) {
        map.erase(key);
        map.emplace(key, 7u);
    });
}

void BagSetString(benchmark::State& state) {
    T_Storage bag = FilledBag();
    ForEachKey(state, [&](const std::string& key) { SetString(bag, key, kText); });
}
void MapReplaceString(benchmark::State& state) {
    auto map = FilledMap<std::string>(kText);
    ForEachKey(state, [&](const std::string& key) {
        map.erase(key);
        map.emplace(key, kText);
    });
}

} // namespace

BENCHMARK(BagGetLong)->Name("bag_get_long/pavane");
BENCHMARK(MapFindLong)->Name("bag_get_long/map");
BENCHMARK(BagGetPtr)->Name("bag_get_ptr/pavane");
BENCHMARK(MapFindPtr)->Name("bag_get_ptr/map");
BENCHMARK(BagGetString)->Name("bag_get_string/pavane");
BENCHMARK(MapFindString)->Name("bag_get_string/map");
BENCHMARK(BagSetLong)->Name("bag_set_long/pavane");
BENCHMARK(MapReplaceLong)->Name("bag_set_long/map");
BENCHMARK(BagSetString)->Name("bag_set_string/pavane");
BENCHMARK(MapReplaceString)->Name("bag_set_string/map");

} // namespace bench
