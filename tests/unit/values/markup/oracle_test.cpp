// The parser against its rules word for word, on random small texts of an alphabet that hurts.
#include "unit/values/markup/oracle.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>

namespace brixen::lyr::gen::markup_test {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kPieces[] = {
    "<"sv,    ">"sv,    "/"sv,    "?"sv,    "!"sv,     "-"sv,   "["sv,         "]"sv,    "\""sv,    "'"sv,
    "="sv,    " "sv,    "\0"sv,   "a"sv,    "b"sv,     "\\"sv,  "\n"sv,        "\xC3"sv, "<a>"sv,   "<b>"sv,
    "</a>"sv, "</b>"sv, "<a/>"sv, "<b/>"sv, "<!--"sv,  "-->"sv, "<![CDATA["sv, "]]>"sv,  "<?"sv,    "?>"sv,
    "</"sv,   "/>"sv,   "<a "sv,  "b='"sv,  "<!D ["sv, "]>"sv,  "<a[b>"sv,     "<aa>"sv, "</aa>"sv, "<ab"sv,
};
constexpr std::size_t kSingleBytes = 18; // the first ones are single bytes

std::string RandomText(std::mt19937& random) {
    const bool isFine = random() % 3 == 0;
    const std::size_t pieces = random() % (isFine ? 24 : 14);
    std::string text = random() % 2 ? "<a>" : "";
    for (std::size_t i = 0; i < pieces; ++i) {
        text += kPieces[random() % (isFine ? kSingleBytes : std::size(kPieces))];
    }
    return random() % 4 ? text : text + "</a>";
}

std::string Readable(std::string_view text) {
    std::string readable;
    for (const char byte : text) readable += byte == '\0' ? "\\0" : std::string(1, byte);
    return readable;
}

void Compare(std::string_view text, CMarkupSTL& markup) {
    SCOPED_TRACE(Readable(text));
    OracleParser oracle(text, markup.TableCapacity());
    const bool isWellFormed = oracle.Parse();
    markup.SetDoc(std::string(text));
    ASSERT_EQ(markup.IsWellFormed(), isWellFormed);
    ASSERT_EQ(markup.GetError(), oracle.errorText);
    ASSERT_EQ(markup.PosFree(), static_cast<std::int32_t>(oracle.table.size()));
    ASSERT_EQ(markup.TableCapacity(), oracle.Capacity());
    for (std::int32_t index = 1; index < markup.PosFree(); ++index) {
        ASSERT_EQ(EntryAt(markup, index), oracle.table[static_cast<std::size_t>(index)]) << "entry " << index;
    }
    ASSERT_EQ(markup.GetDoc(), text);
}

TEST(MarkupOracle, RandomTextsParseAsTheRulesSay) {
    std::mt19937 random(20);
    int wellFormed = 0;
    for (int round = 0; round < 60000 && !HasFatalFailure(); ++round) {
        CMarkupSTL markup;
        Compare(RandomText(random), markup);
        wellFormed += markup.IsWellFormed();
    }
    EXPECT_GT(wellFormed, 5000) << "the texts must not all be broken";
}

TEST(MarkupOracle, EveryShortTextParsesAsTheRulesSay) {
    constexpr std::string_view kBytes = "</>?!a-[ '"sv;
    for (std::size_t length = 0; length <= 5; ++length) {
        std::size_t count = 1;
        for (std::size_t i = 0; i < length; ++i) count *= kBytes.size();
        for (std::size_t number = 0; number < count && !HasFatalFailure(); ++number) {
            std::string text;
            for (std::size_t rest = number, i = 0; i < length; ++i, rest /= kBytes.size()) {
                text += kBytes[rest % kBytes.size()];
            }
            if (text.empty() || text.front() != '<') continue;
            CMarkupSTL markup;
            Compare(text, markup);
        }
    }
}

// Many elements side by side and in one another: the table grows while it is filled, again and again.
TEST(MarkupOracle, TextsParseAsTheRulesSayWhileTheTableGrows) {
    std::mt19937 random(21);
    for (int round = 0; round < 300 && !HasFatalFailure(); ++round) {
        CMarkupSTL markup;
        std::string text, ends;
        for (std::size_t i = random() % 200; i > 0; --i) {
            const char* const kWays[] = {"<e/>", "<e></e>", "<e>"};
            const std::size_t way = random() % 3;
            text += i == 1 || !ends.empty() ? kWays[way] : "<e>";
            if (way == 2 || ends.empty()) ends += "</e>";
            if (ends.size() > 4 && random() % 3 == 0) {
                text += "</e>";
                ends.resize(ends.size() - 4);
            }
        }
        Compare(text + ends, markup);
        Compare(text, markup); // the same object, so that what it has room for counts
    }
}

TEST(MarkupOracle, ATruncatedDocumentIsReadAsTheRulesSay) {
    constexpr std::string_view kSample =
        "<?xml version=\"1.0\"?>\n<!DOCTYPE r [ <!ELEMENT r (a|b)*> ]>\n<!-- c -->\n<r x='1' y = \"2\">\n"
        "  <a>1 &lt; 2</a>\n  <b z='>'/></b>\n  <![CDATA[ <x> ]]>\n  <?go now?>\n  <a/>\n</r>\n<!-- end "
        "-->\n";
    for (std::size_t length = 0; length <= kSample.size() && !HasFatalFailure(); ++length) {
        CMarkupSTL markup;
        Compare(kSample.substr(0, length), markup);
    }
}

std::string RandomAttributes(std::mt19937& random) {
    constexpr std::string_view kParts[] = {
        " ",  " ", " b='1'", " c=\"2\"", "b=\"3\"", " bc='4'", "b", "c",    "\n", "=",   "'",
        "\"", "/", "?",      " = '5'",   " b = c ", "\\",      "!", "\0"sv, "b[", "&lt;"};
    std::string text;
    for (std::size_t parts = random() % 10; parts > 0; --parts) text += kParts[random() % std::size(kParts)];
    return text;
}

TEST(MarkupOracle, AttributesAreFoundAsTheRulesSay) {
    std::mt19937 random(22);
    constexpr std::string_view kNames[] = {"b",  "c",    "bc",  "b c", "c=1",  "b/c",
                                           "b[", "b\\c", "b?c", "b!",  "&lt;", ""};
    int found = 0;
    for (int round = 0; round < 20000; ++round) {
        const bool isElement = round % 2 == 0;
        const std::string text = isElement ? "<e" + RandomAttributes(random) + " x='y'></e>"
                                           : "<?e" + RandomAttributes(random) + " x='y'?><e/>";
        CMarkupSTL markup;
        markup.SetDoc(text);
        if (markup.FindNode(kMarkupElement | kMarkupProcessingInstruction) == 0) continue;
        for (const std::string_view name : kNames) {
            const auto value = OracleAttribute(text, isElement ? 1 : 2, name);
            found += value.has_value();
            ASSERT_EQ(markup.GetAttrib(name), CMarkupSTL::UnescapeText(value.value_or("")))
                << Readable(text) << " " << Readable(name);
        }
    }
    EXPECT_GT(found, 5000) << "most of the names must not be missing";
}

} // namespace
} // namespace brixen::lyr::gen::markup_test
