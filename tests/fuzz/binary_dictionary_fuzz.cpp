// Loads any bytes as compiled dictionaries, one after the other into one store. The answers are the same with
// the index as without, the texts can be read and replaced, and each file may be loaded again.
#include "dictionaries/files/binary_header.h"
#include "dictionaries/zstring/encoding.h"
#include "dictionaries/zstring_dictionary.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace {

using kestrel::ZStringDictionary;

// Loads from memory of exactly the size of the file, which is then freed.
void Load(ZStringDictionary& dictionary, std::string_view file) {
    const std::unique_ptr<char[]> copy(new char[file.size()]);
    file.copy(copy.get(), file.size());
    try {
        dictionary.Load(copy.get(), static_cast<std::int64_t>(file.size()), true);
    } catch (kestrel_private::ConversionCode) {
        // Values of version 1 that are not text in their encoding. Items before them stay.
    }
}

// Splits the bytes into files: a new file begins at each magic.
std::vector<std::string_view> FilesIn(std::string_view bytes) {
    std::vector<std::string_view> files;
    while (!bytes.empty()) {
        const std::size_t end = std::min(bytes.find(kestrel_private::kBinaryMagic, 1), bytes.size());
        files.push_back(bytes.substr(0, end));
        bytes.remove_prefix(end);
    }
    return files;
}

std::string Answer(const ZStringDictionary& dictionary, const std::string& key) {
    kestrel::ZString found;
    dictionary.Lookup(found, key + "=default", &kestrel_private::kEncodingUtf8);
    if (found.IsEmpty()) return {};
    return {reinterpret_cast<const char*>(found.Value()->Bytes()), found.ByteLength()};
}

std::vector<std::string> KeysOf(const ZStringDictionary& dictionary) {
    constexpr std::uint32_t kMostKeys = 64;
    std::vector<std::string> keys = {"/a", "/b/longer", "", "/c"};
    const std::uint32_t count = std::min(dictionary.Entries().TotalIds(), kMostKeys);
    for (std::uint32_t id = 0; id < count; ++id) {
        dictionary.Entries().Value(id);
        dictionary.Entries().Note(id);
        const std::string_view key = dictionary.Entries().Key(id);
        // Only keys that are valid key texts.
        if (key.find('$') == key.npos && key.find('=') == key.npos) keys.emplace_back(key);
    }
    return keys;
}

void CompareWithIndex(const ZStringDictionary& dictionary) {
    const std::vector<std::string> keys = KeysOf(dictionary);
    std::vector<std::string> answers;
    answers.reserve(keys.size());
    for (const std::string& key : keys) answers.push_back(Answer(dictionary, key));
    constexpr int kSearchesForAnIndex = 300;
    for (int i = 0; i < kSearchesForAnIndex && !dictionary.Entries().IsIndexed(); ++i) {
        static_cast<void>(dictionary.Entries().Find(keys.back()));
    }
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (Answer(dictionary, keys[i]) != answers[i]) std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t length) {
    const auto files = FilesIn({reinterpret_cast<const char*>(bytes), length});
    ZStringDictionary fast(true);
    ZStringDictionary chains(false);
    for (const std::string_view file : files) {
        Load(fast, file);
        Load(chains, file);
        CompareWithIndex(fast);
        for (const std::string& key : KeysOf(chains)) Answer(chains, key);
    }
    for (const std::string& key : KeysOf(fast)) fast.Add(key.c_str(), u"replaced", 8, 0, u"note", 4);
    for (const std::string_view file : files) Load(fast, file);
    CompareWithIndex(fast);
    return 0;
}
