// Any bytes as a document, then a script of edits after the first byte 1. Every node can be visited and
// read; what returns false has changed nothing; after every edit the table is that of a fresh parse.
#include "support/markup_tree.h"
#include "values/markup/document.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <tuple>

namespace {

using brixen::lyr::gen::CMarkupSTL;
using brixen::lyr::gen::markup_test::FreshDifference;
using brixen::lyr::gen::markup_test::TreeDifference;

constexpr char kScriptMark = '\1';
constexpr const char* kNames[] = {"n", "x", "long-name", "a"};
constexpr const char* kTexts[] = {"", "t", "<&>'\"", "a longer text that moves all that follows"};
constexpr const char* kPieces[] = {"<n/>", "<n x='1'>t<m/></n>", "<n>",          "<n/></r>",
                                   "</r>", "<n/><m/>",           " <!--c--><n/>"};
constexpr const char* kPaths[] = {"", "*", "a", "/*", "*/*", "/r/a"};
constexpr int kKinds[] = {1, 2, 4, 8, 16, 32, 64};

void Require(bool holds, const std::string& otherwise) {
    if (holds) return;
    std::fprintf(stderr, "%s\n", otherwise.c_str());
    std::abort();
}

auto CursorOf(const CMarkupSTL& markup) {
    return std::make_tuple(markup.PosParent(), markup.Pos(), markup.PosChild(), markup.NodeType(),
                           markup.NodeOffset(), markup.NodeLength());
}

// Steps on every node and reads all that can be read. A tag or value without an end runs to the end of the
// text, so only so many nodes are read.
void ReadEverything(CMarkupSTL markup) {
    const std::string text = markup.GetDoc();
    markup.ResetPos();
    for (int nodes = 0; nodes < 2000; ++nodes) {
        const auto before = CursorOf(markup);
        const int kind = markup.FindNode();
        if (kind == 0) {
            Require(CursorOf(markup) == before, "a walk that ended moved the cursor");
            if (!markup.OutOfElem()) break;
            continue;
        }
        Require(markup.NodeType() == kind, "a node's kind");
        markup.GetTagName();
        markup.GetData();
        markup.GetAttrib("x");
        markup.GetAttribName(1);
        markup.GetChildData();
        if (kind == brixen::lyr::gen::kMarkupElement) markup.IntoElem();
    }
    Require(markup.GetDoc() == text, "reading changed the text");
}

class Script {
public:
    Script(CMarkupSTL& markup, std::string_view bytes) : markup(markup), bytes(bytes) {}

    void Run() {
        while (!bytes.empty()) {
            const std::string text = markup.GetDoc();
            const auto cursor = CursorOf(markup);
            const unsigned code = Next();
            const bool isDone = Edit(code % 16);
            if (!isDone) Require(markup.GetDoc() == text, "a refused edit changed the text");
            if (!isDone) Require(CursorOf(markup) == cursor, "a refused step moved the cursor");
            // What is broken by itself, or read beyond the first element, has no table of its own kind.
            if (!markup.IsWellFormed()) return;
            const std::string difference = FreshDifference(markup);
            Require(difference.empty(), "step " + std::to_string(code % 16) + ": " + difference + "\n" +
                                            text + "\n" + markup.GetDoc());
        }
    }

private:
    unsigned Next() {
        if (bytes.empty()) return 0;
        const auto byte = static_cast<unsigned char>(bytes.front());
        bytes.remove_prefix(1);
        return byte;
    }
    template <class List>
    auto Any(const List& list) {
        return list[Next() % std::size(list)];
    }
    // A second element beside the root is in the table, but not in that of a fresh parse.
    bool IsBesideRoot() const { return markup.PosParent() == 0; }

    bool Edit(unsigned code) {
        const bool isAfter = Next() % 2 == 0;
        switch (code) {
        case 0: return markup.FindElem(Any(kPaths));
        case 1: return markup.FindChildElem(Any(kPaths));
        case 2: return isAfter ? markup.IntoElem() : markup.OutOfElem();
        case 3: return markup.FindNode(static_cast<int>(Next() % 128)) != 0;
        case 4: return isAfter ? markup.SavePos(Any(kNames)) : markup.RestorePos(Any(kNames));
        case 5: return Add(isAfter);
        case 6: return AddChild(isAfter);
        case 7: return AddNode(isAfter);
        case 8: return AddSubDoc(isAfter);
        case 9: return SetAttrib();
        case 10: return markup.SetChildAttrib(Any(kNames), Any(kTexts));
        case 11: return markup.RemoveAttrib(Any(kNames));
        case 12: return markup.SetData(Any(kTexts), isAfter);
        case 13: return !IsBesideRoot() && markup.RemoveElem();
        case 14: return markup.RemoveChildElem();
        default: return !IsBesideRoot() && markup.RemoveNode();
        }
    }
    bool Add(bool isAfter) {
        if (IsBesideRoot()) return false;
        const char* const name = Any(kNames);
        const char* const text = Any(kTexts);
        return isAfter ? markup.AddElem(name, text) : markup.InsertElem(name, text);
    }
    bool AddChild(bool isAfter) {
        const char* const name = Any(kNames);
        const char* const text = Any(kTexts);
        return isAfter ? markup.AddChildElem(name, text) : markup.InsertChildElem(name, text);
    }
    bool AddNode(bool isAfter) {
        const int kind = Any(kKinds);
        if (IsBesideRoot() && kind == brixen::lyr::gen::kMarkupElement) return false;
        const char* const text = kind == brixen::lyr::gen::kMarkupElement ? "n" : "go";
        return isAfter ? markup.AddNode(kind, text) : markup.InsertNode(kind, text);
    }
    bool AddSubDoc(bool isAfter) {
        if (IsBesideRoot()) return false;
        const char* const piece = Any(kPieces);
        return isAfter ? markup.AddSubDoc(piece) : markup.InsertSubDoc(piece);
    }
    bool SetAttrib() {
        const char* const name = Any(kNames);
        return markup.SetAttrib(name, Any(kTexts));
    }

    CMarkupSTL& markup;
    std::string_view bytes;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t length) {
    const std::string_view input(reinterpret_cast<const char*>(bytes), length);
    const std::size_t mark = std::min(input.find(kScriptMark), input.size());
    CMarkupSTL markup;
    markup.SetDoc(std::string(input.substr(0, mark)));
    ReadEverything(markup);
    const CMarkupSTL copy(markup);
    Require(copy.GetDoc() == markup.GetDoc() && TreeDifference(copy, markup).empty(),
            "a copy is not the same");
    if (!markup.IsWellFormed()) return 0;
    Script(markup, input.substr(std::min(mark + 1, input.size()))).Run();
    ReadEverything(markup);
    return 0;
}
