// Compares the dictionaries with a hash map and with gettext: random order, all hits.
#include "bench/sample_keys.h"
#include "dictionaries/store/fast_array.h"
#include "dictionaries/translation.h"
#include "dictionaries/zstring_dictionary.h"

#include <absl/container/flat_hash_map.h>
#include <absl/strings/str_replace.h>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <clocale>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <libintl.h>
#include <map>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace bench {
namespace {

using kestrel_private::FastArray;
using kestrel_private::Reference;

constexpr char kValue[] = "A label of 25 bytes, or so";

std::vector<std::string> ShuffledKeys(MakeKey makeKey, std::size_t count) {
    std::vector<std::string> keys(count);
    for (std::size_t i = 0; i < count; ++i) keys[i] = makeKey(i);
    std::shuffle(keys.begin(), keys.end(), std::mt19937(7));
    return keys;
}

// Calls `find(key)` for one key after the other.
template <class Find>
void ForEachKey(benchmark::State& state, const std::vector<std::string>& keys, Find find) {
    std::size_t place = 0;
    for (auto _ : state) {
        find(keys[place]);
        if (++place == keys.size()) place = 0;
    }
    state.SetItemsProcessed(state.iterations());
}

template <MakeKey makeKey>
void FindOurs(benchmark::State& state) {
    const auto count = static_cast<std::size_t>(state.range(0));
    const Reference<FastArray> entries(new FastArray);
    for (std::size_t i = 0; i < count; ++i) entries->Add(makeKey(i), kValue, std::nullopt);
    ForEachKey(state, ShuffledKeys(makeKey, count),
               [&](const std::string& key) { benchmark::DoNotOptimize(entries->Find(key)); });
}

template <MakeKey makeKey>
void FindPeer(benchmark::State& state) {
    const auto count = static_cast<std::size_t>(state.range(0));
    absl::flat_hash_map<std::string, std::uint32_t> map;
    for (std::size_t i = 0; i < count; ++i) map.emplace(makeKey(i), static_cast<std::uint32_t>(i));
    ForEachKey(state, ShuffledKeys(makeKey, count),
               [&](const std::string& key) { benchmark::DoNotOptimize(map.find(key)); });
}

// Makes a message catalog in a folder of its own, bound as the domain "bench". Returns false if it cannot be
// made.
bool MakeCatalog(MakeKey makeKey, std::size_t count) {
    const auto root = std::filesystem::temp_directory_path() / ("pavane_bench_" + std::to_string(count));
    const auto folder = root / "en" / "LC_MESSAGES";
    std::filesystem::create_directories(folder);
    {
        std::ofstream source(root / "bench.po");
        source << "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n";
        for (std::size_t i = 0; i < count; ++i) {
            source << "msgid \"" << makeKey(i) << "\"\nmsgstr \"" << kValue << "\"\n";
        }
    }
    const std::string command =
        "msgfmt -o '" + (folder / "bench.mo").string() + "' '" + (root / "bench.po").string() + "'";
    if (std::system(command.c_str()) != 0) return false;
    setenv("LANGUAGE", "en", 1);
    std::setlocale(LC_ALL, "C.UTF-8");
    bindtextdomain("bench", root.c_str());
    return std::string(dgettext("bench", makeKey(0).c_str())) == kValue;
}

// Makes the catalog once for each size, however often the benchmark begins again.
bool HaveCatalog(std::size_t count) {
    static std::map<std::size_t, bool> made;
    const auto [entry, isNew] = made.try_emplace(count, false);
    if (isNew) entry->second = MakeCatalog(PaddedKey, count);
    const auto root = std::filesystem::temp_directory_path() / ("pavane_bench_" + std::to_string(count));
    bindtextdomain("bench", root.c_str());
    return entry->second;
}

template <class Answer>
void AskGettext(benchmark::State& state, Answer answer) {
    const auto count = static_cast<std::size_t>(state.range(0));
    if (!HaveCatalog(count)) {
        state.SkipWithError("no message catalog: gettext's msgfmt is needed");
        return;
    }
    ForEachKey(state, ShuffledKeys(PaddedKey, count), answer);
}

void FindGettext(benchmark::State& state) {
    AskGettext(state,
               [](const std::string& key) { benchmark::DoNotOptimize(dgettext("bench", key.c_str())); });
}

void AnswerGettext(benchmark::State& state) {
    AskGettext(state, [](const std::string& key) {
        const std::string text = dgettext("bench", key.c_str());
        benchmark::DoNotOptimize(text.data());
    });
}

std::string KeyTextOf(std::size_t number) { return "$$$" + PaddedKey(number) + "=Default text"; }

void AnswerOurs(benchmark::State& state) {
    const auto count = static_cast<std::size_t>(state.range(0));
    for (std::size_t i = 0; i < count; ++i) brixen::zeve::AddKeyValue("$$$" + PaddedKey(i) + "=" + kValue);
    ForEachKey(state, ShuffledKeys(KeyTextOf, count), [](const std::string& key) {
        benchmark::DoNotOptimize(brixen::zeve::ZeveTranslate(key).data());
    });
}

// Returns a text dictionary of many lines.
std::u16string TextDictionary(std::size_t count) {
    std::u16string text = u"\uFEFF";
    for (std::size_t i = 0; i < count; ++i) {
        const std::string line = "\"$$$" + PaddedKey(i) + "=" + kValue + "\"\n";
        text.append(line.begin(), line.end());
    }
    return text;
}

void LoadOurs(benchmark::State& state) {
    const std::u16string text = TextDictionary(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        kestrel::ZStringDictionary dictionary(true);
        dictionary.Load(text.data(), static_cast<std::int64_t>(text.size() * sizeof(char16_t)), true);
        benchmark::DoNotOptimize(dictionary.Entries().TotalIds());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void LoadPeer(benchmark::State& state) {
    const std::u16string text = TextDictionary(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        absl::flat_hash_map<std::string, std::u16string> map;
        std::u16string_view rest = std::u16string_view(text).substr(1);
        while (!rest.empty()) {
            const std::u16string_view line = rest.substr(0, rest.find(u'\n'));
            rest.remove_prefix(line.size() + 1);
            const std::size_t equals = line.find(u'=');
            const std::u16string_view key = line.substr(4, equals - 4);
            map.insert_or_assign(std::string(key.begin(), key.end()),
                                 std::u16string(line.substr(equals + 1, line.size() - equals - 2)));
        }
        benchmark::DoNotOptimize(map.size());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

constexpr std::string_view kPlaceholders = "Step ^0 of the long way that leads to a happy end is ^1!?";
static_assert(kPlaceholders.size() == 57);

void ReplaceOurs(benchmark::State& state) {
    const kestrel::ZString step(u"three");
    const kestrel::ZString end(u"seventeen");
    const kestrel::ZString text(std::u16string(kPlaceholders.begin(), kPlaceholders.end()));
    for (auto _ : state) {
        kestrel::ZString string = text;
        Substitute(string, 0, step);
        Substitute(string, 1, end);
        benchmark::DoNotOptimize(string.Text().data());
    }
    state.SetItemsProcessed(state.iterations());
}

void ReplacePeer(benchmark::State& state) {
    const absl::string_view text(kPlaceholders.data(), kPlaceholders.size());
    for (auto _ : state) {
        const std::string replaced = absl::StrReplaceAll(text, {{"^0", "three"}, {"^1", "seventeen"}});
        benchmark::DoNotOptimize(replaced.data());
    }
    state.SetItemsProcessed(state.iterations());
}

} // namespace

BENCHMARK(FindOurs<PaddedKey>)->Name("find/pavane")->Arg(10000)->Arg(100000);
BENCHMARK(FindOurs<NaturalKey>)->Name("find_natural/pavane")->Arg(10000)->Arg(100000);
BENCHMARK(FindPeer<PaddedKey>)->Name("find/flat_hash_map")->Arg(10000)->Arg(100000);
BENCHMARK(FindGettext)->Name("find/gettext")->Arg(10000)->Arg(100000);
BENCHMARK(AnswerOurs)->Name("answer/pavane")->Arg(100000);
BENCHMARK(AnswerGettext)->Name("answer/gettext")->Arg(100000);
BENCHMARK(LoadOurs)->Name("load_text/pavane")->Arg(10000);
BENCHMARK(LoadPeer)->Name("load_text/flat_hash_map")->Arg(10000);
BENCHMARK(ReplaceOurs)->Name("placeholders/pavane");
BENCHMARK(ReplacePeer)->Name("placeholders/str_replace_all");

} // namespace bench
