// Compares loading a compiled dictionary with copying its bytes: in a warm process, and in new ones.
#include "bench/sample_keys.h"
#include "dictionaries/zstring_dictionary.h"
#include "tools/dictionary_writer.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <string>
#include <unistd.h>

namespace bench {
namespace {

const std::string& CompiledFile(std::size_t count) {
    static std::map<std::size_t, std::string> files;
    std::string& file = files[count];
    if (!file.empty()) return file;
    std::vector<pavane_tools::CompiledEntry> entries(count);
    for (std::size_t i = 0; i < count; ++i) entries[i] = {NaturalKey(i), u"A label of 25 bytes, or so", {}};
    return file = pavane_tools::WriteDictionary(entries);
}

void LoadWarm(benchmark::State& state) {
    const std::string& file = CompiledFile(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        kestrel::ZStringDictionary dictionary(true);
        dictionary.Load(file.data(), static_cast<std::int64_t>(file.size()), true);
        benchmark::DoNotOptimize(dictionary.Entries().TotalIds());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations());
}

void CopyWarm(benchmark::State& state) {
    const std::string& file = CompiledFile(static_cast<std::size_t>(state.range(0)));
    const std::unique_ptr<char[]> copy(new char[file.size()]);
    for (auto _ : state) {
        std::memcpy(copy.get(), file.data(), file.size());
        benchmark::DoNotOptimize(copy.get());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations());
}

// The file on disk, for other processes; deleted with the object.
class FileOnDisk {
public:
    explicit FileOnDisk(std::size_t count)
        : path(std::filesystem::temp_directory_path() /
               ("pavane_bench_" + std::to_string(getpid()) + "_" + std::to_string(count) + ".zdct")) {
        std::ofstream(path, std::ios::binary) << CompiledFile(count);
    }
    ~FileOnDisk() { std::filesystem::remove(path); }
    const std::filesystem::path& Path() const { return path; }

private:
    std::filesystem::path path;
};

// Returns the seconds that a new process took, or a negative number.
double AskNewProcess(const char* work, const std::filesystem::path& file) {
    static const std::filesystem::path program =
        std::filesystem::read_symlink("/proc/self/exe").parent_path() / "load_in_new_process";
    const std::string command = program.string() + " " + work + " " + file.string();
    const std::unique_ptr<FILE, int (*)(FILE*)> output(popen(command.c_str(), "r"), pclose);
    double seconds = -1;
    if (!output || std::fscanf(output.get(), "%lf", &seconds) != 1) return -1;
    return seconds;
}

void InNewProcess(benchmark::State& state, const char* work) {
    const FileOnDisk file(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        const double seconds = AskNewProcess(work, file.Path());
        if (seconds < 0) {
            state.SkipWithError("load_in_new_process does not answer");
            break;
        }
        state.SetIterationTime(seconds);
    }
    state.SetItemsProcessed(state.iterations());
}

} // namespace

BENCHMARK(LoadWarm)->Name("load_binary/pavane")->Arg(10000)->Arg(100000);
BENCHMARK(CopyWarm)->Name("load_binary/memcpy")->Arg(10000)->Arg(100000);
BENCHMARK_CAPTURE(InNewProcess, load, "load")
    ->Name("load_binary_new/pavane")
    ->Arg(10000)
    ->Arg(100000)
    ->UseManualTime()
    ->Iterations(25);
BENCHMARK_CAPTURE(InNewProcess, copy, "copy")
    ->Name("load_binary_new/memcpy")
    ->Arg(10000)
    ->Arg(100000)
    ->UseManualTime()
    ->Iterations(25);
BENCHMARK_CAPTURE(InNewProcess, lookup, "lookup")
    ->Name("load_binary_lookup/pavane")
    ->Arg(100000)
    ->UseManualTime()
    ->Iterations(25);

} // namespace bench
