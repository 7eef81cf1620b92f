// load_in_new_process WORK FILE: does one piece of work on a compiled dictionary, which no earlier process
// can have prepared, and prints its processor time in seconds. WORK is `copy` (malloc and memcpy of the
// file), `load`, or `lookup` (load and 200 lookups).
#include "bench/sample_keys.h"
#include "dictionaries/zstring_dictionary.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>
#include <iterator>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr std::size_t kLookups = 200;

double ProcessorSeconds() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

std::string ReadFile(const char* path) {
    std::ifstream file(path, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
}

double TimeOfCopy(const std::string& file) {
    const double begin = ProcessorSeconds();
    void* const copy = std::malloc(file.size());
    if (copy == nullptr) return -1;
    std::memcpy(copy, file.data(), file.size());
    const double seconds = ProcessorSeconds() - begin;
    const bool isSame = std::memcmp(copy, file.data(), file.size()) == 0;
    std::free(copy);
    return isSame ? seconds : -1;
}

double TimeOfLoad(const std::string& file, std::size_t lookups) {
    const auto dictionary = kestrel::ZStringDictionary::Create(true);
    std::vector<std::string> keys;
    std::mt19937 random(7);
    for (std::size_t i = 0; i < lookups; ++i) keys.push_back(bench::NaturalKey(random() % 100000));
    std::size_t found = 0;
    const double begin = ProcessorSeconds();
    dictionary->Load(file.data(), static_cast<std::int64_t>(file.size()), true);
    for (const std::string& key : keys) found += dictionary->FindValue(key).has_value();
    const double seconds = ProcessorSeconds() - begin;
    return found == lookups && dictionary->Entries().TotalIds() != 0 ? seconds : -1;
}

} // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount != 3) return 2;
    const std::string work = arguments[1];
    const std::string file = ReadFile(arguments[2]);
    const double seconds =
        work == "copy" ? TimeOfCopy(file) : TimeOfLoad(file, work == "lookup" ? kLookups : 0);
    std::printf("%.9f\n", seconds);
}
