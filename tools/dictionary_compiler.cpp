#include "tools/dictionary_compiler.h"

#include "dictionaries/files/text_line.h"
#include "dictionaries/value_decoding.h"
#include "dictionaries/zstring_dictionary.h"
#include "values/unicode/text_conversion.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <optional>

namespace pavane_tools {
namespace {

using namespace kestrel_private;

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

// Returns whether a quotation mark cuts the text that its author meant: another one follows the closing mark,
// or an entry begins before the opening mark.
bool IsCutByAQuote(std::u16string_view line) {
    const std::size_t opening = FindQuote(line, 0);
    if (opening == line.npos) return false;
    const std::u16string_view before = line.substr(0, opening);
    const bool isComment = !before.starts_with(u"$$$") && TextOfLine(line).find(u'=') != line.npos;
    if (!isComment && before.find(u'=') != line.npos) return true;
    const std::size_t closing = FindQuote(line, opening + 1);
    return closing != line.npos && FindQuote(line, closing + 1) != line.npos;
}

// Returns why the text reader would not read a line as it is written; null if it would.
const char* ErrorOf(std::u16string_view line) {
    constexpr std::u16string_view kLineEnds = u"\u2028\u2029";
    if (line.find(u'\0') != line.npos) return "a NUL character ends the dictionary";
    if (line.find_first_of(kLineEnds) != line.npos) {
        return "U+2028 and U+2029 end a line: write #{2028} or #{2029}";
    }
    if (IsCutByAQuote(line)) return "a quotation mark inside the text cuts it: write \\\"";
    const auto split = SplitLine(line);
    if (!split) return "begins with $, but not with $$$";
    if (split->key.empty()) return "has no key";
    if (split->key.size() > kLongestText) return "the key is longer than 65535 characters";
    const auto isBeyondLatin1 = [](char16_t unit) { return unit > 0xFF; };
    if (std::any_of(split->key.begin(), split->key.end(), isBeyondLatin1)) {
        return "the key holds a character beyond Latin-1";
    }
    if (DecodeValue(split->defaultText).size() > kLongestValue) {
        return "the value is longer than 32767 characters";
    }
    return nullptr;
}

class SourceReader {
public:
    explicit SourceReader(std::vector<LineRemark>& remarks) : remarks(remarks) {}

    void ReadLine(std::string_view bytes) {
        ++line;
        try {
            ReadText(brixen::lyr::gen::ToUtf16(bytes));
        } catch (const brixen::lyr::gen::illegal_utf_sequence&) {
            Remark(true, "is not UTF-8");
        }
    }

    // All lines, for the library's reader.
    const std::u16string& Text() const { return text; }

private:
    void ReadText(const std::u16string& lineText) {
        text += lineText;
        text += u'\n';
        if (lineText.empty()) return;
        if (const char* const error = ErrorOf(lineText)) {
            Remark(true, error);
            return;
        }
        WarnOf(lineText, *SplitLine(lineText));
    }

    void WarnOf(std::u16string_view lineText, const KeyText<char16_t>& split) {
        if (!TextOfLine(lineText).starts_with(u"$$$/")) Remark(false, "the key does not begin with $$$/");
        // A line with a sign has a value, though it may be empty.
        if (split.defaultText.data() == nullptr) Remark(false, "has no =, so its value is empty");
        const auto [first, isNew] = keys.try_emplace(std::u16string(split.key), line);
        if (!isNew) Remark(false, "replaces the value of line " + std::to_string(first->second));
    }

    void Remark(bool isError, const std::string& message) { remarks.push_back({line, isError, message}); }

    std::vector<LineRemark>& remarks;
    std::size_t line = 0;
    std::u16string text = u"\uFEFF";
    std::map<std::u16string, std::size_t> keys; // with the line of each
};

// Lines end with LF, CR or both.
template <class ForLine>
void ForEachLine(std::string_view source, ForLine forLine) {
    while (!source.empty()) {
        const std::size_t end = source.find_first_of("\r\n");
        forLine(source.substr(0, end));
        if (end == source.npos) return;
        const bool isPair = source.substr(end, 2) == "\r\n";
        source.remove_prefix(end + (isPair ? 2 : 1));
    }
}

std::u16string TextOf(const ValueBytes& bytes) {
    return std::u16string(kestrel::ZString(bytes.bytes, bytes.length).Text());
}

std::vector<CompiledEntry> EntriesOf(const FastArray& store) {
    std::vector<CompiledEntry> entries(store.TotalIds());
    for (std::uint32_t id = 0; id < entries.size(); ++id) {
        entries[id].key = store.Key(id);
        entries[id].value = TextOf(store.Value(id));
    }
    return entries;
}

} // namespace

bool CompiledDictionary::IsGood() const {
    return std::none_of(remarks.begin(), remarks.end(),
                        [](const LineRemark& remark) { return remark.isError; });
}

CompiledDictionary CompileDictionary(std::string_view source, const DictionaryFormat& format) {
    CompiledDictionary compiled;
    if (source.substr(0, kUtf8Mark.size()) == kUtf8Mark) source.remove_prefix(kUtf8Mark.size());
    SourceReader reader(compiled.remarks);
    ForEachLine(source, [&](std::string_view line) { reader.ReadLine(line); });
    if (!compiled.IsGood()) return compiled;
    kestrel::ZStringDictionary dictionary(true);
    const std::u16string& text = reader.Text();
    dictionary.Load(text.data(), static_cast<std::int64_t>(text.size() * sizeof(char16_t)), true);
    compiled.bytes = WriteDictionary(EntriesOf(dictionary.Entries()), format);
    return compiled;
}

} // namespace pavane_tools
