// One dictionary as text and compiled: every key has the same answer in both.
#include "unit/dictionaries/files/binary_support.h"

#include "tools/dictionary_compiler.h"

#include <filesystem>
#include <fstream>
#include <iterator>

using namespace pavane_test;
using kestrel::ZString;
using kestrel::ZStringDictionary;

namespace {

namespace fs = std::filesystem;

class BinaryText : public DictionaryTest {};

// For texts of ASCII and Latin-1 only.
std::u16string Wide(std::string_view text) { return {text.begin(), text.end()}; }

std::u16string CopiedOut(const ZStringDictionary& dictionary, const std::string& key) {
    ZString found;
    dictionary.Lookup(found, key, nullptr);
    std::u16string buffer(found.LengthWithTerminator(), u'?');
    found.CopyOut(buffer.data(), found.LengthWithTerminator(), true);
    return buffer;
}

void ExpectSameAnswers(const ZStringDictionary& text, const ZStringDictionary& compiled) {
    ASSERT_EQ(compiled.Entries().TotalIds(), text.Entries().TotalIds());
    EXPECT_EQ(compiled.Entries().LiveEntries(), text.Entries().LiveEntries());
    for (std::uint32_t id = 0; id < text.Entries().TotalIds(); ++id) {
        const std::string key(text.Entries().Key(id));
        ASSERT_EQ(compiled.Entries().Key(id), key);
        ASSERT_EQ(compiled.Entries().Find(key), id) << key;
        ASSERT_EQ(ValueOfId(compiled, id), ValueOfId(text, id)) << key;
        ASSERT_EQ(NoteOfId(compiled, id), NoteOfId(text, id)) << key;
        ASSERT_EQ(CopiedOut(compiled, key), CopiedOut(text, key)) << key;
    }
}

void ExpectSameFromCompiled(const std::string& utf8, const std::u16string& utf16) {
    ZStringDictionary text(true);
    LoadText(text, utf16);
    ASSERT_GT(text.Entries().TotalIds(), 0u);
    for (const std::endian order : {std::endian::little, std::endian::big}) {
        const auto result = pavane_tools::CompileDictionary(utf8, {.order = order});
        ASSERT_TRUE(result.IsGood());
        ZStringDictionary compiled(true);
        LoadBytes(compiled, result.bytes);
        ExpectSameAnswers(text, compiled);
    }
}

TEST_F(BinaryText, AnswersLikeTheTextForEveryEscapeAndEntity) {
    const std::string source = "\"$$$/escapes=^Q^[^]^{^}^C^R^T^D^B^#^!^I^S^n^r^^ ^0 ^1^\"\r\n"
                               "  a comment \"$$$/quoted=say \\\"hi\\\"\\n\\t\\\\\" and another\n"
                               "\n"
                               "plain/key=#{endl}#{tab}#{U+2318}#{2318}#{plusm}#{yen}#{}#{xyz}\n"
                               "\"$$$/empty=\"\n"
                               "\"$$$/unclosed=to the end\n"
                               "/twice=first\n"
                               "/twice=second, which wins";
    ExpectSameFromCompiled(source, Wide(source));
}

TEST_F(BinaryText, AnswersLikeTheTextForEveryKindOfCharacter) {
    ExpectSameFromCompiled(
        "\"$$$/a=\xE6\x97\xA5\xE6\x9C\xAC \xD7\xA9 \xF0\x9F\x98\x80 \xC3\xA9\"\n\"$$$/k\xC3\xA9y=x\"\n",
        u"\"$$$/a=\u65E5\u672C \u05E9 \U0001F600 \u00E9\"\n\"$$$/k\u00E9y=x\"\n");
}

TEST_F(BinaryText, AnswersLikeTheTextForManyKeys) {
    std::string source;
    for (int i = 0; i < 5000; ++i) {
        const std::string number = std::to_string(i);
        source += "\"$$$/pane/" + number + "/title=Title " + number + "\"\n";
    }
    ExpectSameFromCompiled(source, Wide(source));
}

TEST_F(BinaryText, KeepsNotes) {
    ZStringDictionary added(true);
    const std::vector<pavane_tools::CompiledEntry> entries = {
        {"/a", u"one", u"first note"}, {"/b", u"two", {}}, {"/c", u"", u"third"}, {"/d", u"four", u""}};
    for (const auto& [key, value, note] : entries) {
        added.Add(key.c_str(), value.data(), static_cast<std::uint32_t>(value.size()), 0,
                  note ? note->data() : nullptr, note ? static_cast<std::uint32_t>(note->size()) : 0);
    }
    for (const std::uint8_t minor : std::initializer_list<std::uint8_t>{0, 1, 127}) {
        ZStringDictionary compiled(true);
        LoadBytes(compiled,
                  pavane_tools::WriteDictionary(entries, {.minor = minor, .headerText = "about it"}));
        ExpectSameAnswers(added, compiled);
        EXPECT_EQ(compiled.HeaderText(), "about it");
    }
}

TEST_F(BinaryText, KeepsTheIdOfADroppedEntry) {
    ZStringDictionary compiled(true);
    LoadBytes(compiled,
              pavane_tools::WriteDictionary({{"/a", u"one", {}}, {"", u"", {}}, {"/c", u"three", {}}}));
    EXPECT_EQ(compiled.Entries().TotalIds(), 3u);
    EXPECT_EQ(compiled.Entries().LiveEntries(), 2u);
    EXPECT_EQ(ValueOfId(compiled, 2), u"three");
    EXPECT_EQ(compiled.Entries().Find("/c"), 2u);
    EXPECT_EQ(compiled.Entries().Find(""), std::nullopt);
}

TEST_F(BinaryText, CanBeWrittenToFollowAnother) {
    ZStringDictionary compiled(true);
    LoadBytes(compiled, pavane_tools::WriteDictionary({{"/a", u"one", {}}}));
    LoadBytes(compiled, pavane_tools::WriteDictionary({{"/b", u"two", {}}}, {.firstId = 9}));
    EXPECT_EQ(Found(compiled, "/b=default"), u"default");
    LoadBytes(compiled, pavane_tools::WriteDictionary({{"/b", u"two", {}}}, {.firstId = 1}));
    EXPECT_EQ(Found(compiled, "/b=default"), u"two");
}

TEST_F(BinaryText, CanBeWrittenWithoutKeys) {
    const std::string bytes =
        pavane_tools::WriteDictionary({{"/a", u"one", {}}, {"", u"two", {}}}, {.hasKeys = false});
    // No list either.
    constexpr std::size_t kBeforeListCount = 29 + 4 + 1 + 4 + 4;
    EXPECT_EQ(bytes.substr(kBeforeListCount, 4), std::string(4, '\0'));
    ZStringDictionary compiled(true);
    LoadBytes(compiled, bytes);
    EXPECT_EQ(ValueOfId(compiled, 0), u"one");
    EXPECT_EQ(ValueOfId(compiled, 1), u"two");
    EXPECT_EQ(compiled.Entries().LiveEntries(), 2u);
    EXPECT_EQ(Found(compiled, "/a=default"), u"default");
}

std::string ReadFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
}

// Reads the dictionaries that the build put beside the programs.
TEST_F(BinaryText, AsShippedAnswersLikeItsSource) {
    const fs::path sources =
        fs::path(PAVANE_TEST_DATA).parent_path().parent_path() / "resources" / "dictionaries";
    ASSERT_TRUE(fs::exists("PVResources")) << "run it in the folder of the programs";
    std::size_t compared = 0;
    for (const auto& entry : fs::recursive_directory_iterator(sources)) {
        if (entry.path().extension() != ".txt") continue;
        fs::path shipped = "PVResources" / fs::relative(entry.path(), sources);
        shipped.replace_extension(".zdct");
        const std::string bytes = ReadFile(shipped);
        ASSERT_EQ(bytes.substr(0, 25), std::string("ZString Binary Format\x02\x01\x00\x00", 25)) << shipped;
        ZStringDictionary compiled(true);
        LoadBytes(compiled, bytes);
        ZStringDictionary text(true);
        const std::string utf8 = ReadFile(entry.path());
        LoadText(text, ZString::FromBytes(utf8, &kestrel_private::kEncodingUtf8).Text());
        ASSERT_GT(text.Entries().TotalIds(), 0u) << entry.path();
        ExpectSameAnswers(text, compiled);
        ++compared;
    }
    EXPECT_GE(compared, 6u);
}

} // namespace
