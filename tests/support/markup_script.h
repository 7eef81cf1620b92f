// A script of edits on a markup document, read from bytes: for fuzzers and for random tests.
#pragma once

#include "support/markup_tree.h"
#include "values/markup/document.h"

#include <array>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>

namespace brixen::lyr::gen::markup_test {

using CursorFields = std::array<std::int32_t, 6>;
inline CursorFields FieldsOf(const CMarkupSTL& markup) {
    return {markup.PosParent(), markup.Pos(),        markup.PosChild(),
            markup.NodeType(),  markup.NodeOffset(), markup.NodeLength()};
}

// Returns the problem of the cursor; empty if it is on live elements, or on a node between them.
inline std::string CursorProblem(const CMarkupSTL& markup) {
    const std::int32_t parent = markup.PosParent();
    const std::int32_t pos = markup.Pos();
    for (const std::int32_t element : {parent, pos, markup.PosChild()}) {
        if (element != 0 && !IsInTree(markup, element)) return "the cursor is on a removed element";
    }
    if (pos != 0 && markup.At(pos).parent != parent) return "the element is not a child of the parent";
    if (markup.PosChild() != 0 && markup.At(markup.PosChild()).parent != pos) return "the child is elsewhere";
    if (markup.NodeLength() == 0) return {};
    const std::int32_t begin = pos != 0      ? markup.At(pos).endTagRight + 1
                               : parent != 0 ? markup.At(parent).startTagRight + 1
                                             : 0;
    const std::int32_t next = pos != 0 ? markup.At(pos).nextSibling : markup.At(parent).firstChild;
    const std::int32_t end = next != 0     ? markup.At(next).startTagLeft
                             : parent != 0 ? markup.At(parent).endTagLeft
                                           : static_cast<std::int32_t>(markup.GetDoc().size());
    const bool isBetween = markup.NodeOffset() >= begin && markup.NodeOffset() + markup.NodeLength() <= end;
    return isBetween ? "" : "the current node runs over an element";
}

// Each step is a move or an edit. After each step the table must be sound, and a refused step must have
// changed nothing. As long as nothing was edited beside the root, the table must be that of a fresh parse.
class MarkupScript {
public:
    MarkupScript(CMarkupSTL& markup, std::string_view bytes) : markup(markup), bytes(bytes) {}

    // Runs all steps. Returns the problem after the first bad one, or nothing.
    std::string Run() {
        while (!bytes.empty()) {
            const std::string text = markup.GetDoc();
            const CursorFields cursor = FieldsOf(markup);
            const unsigned code = Next() % 16;
            const bool isDone = Step(code);
            std::string problem;
            if (!isDone && markup.GetDoc() != text) problem = "a refused step changed the text";
            if (!isDone && FieldsOf(markup) != cursor) problem = "a refused step moved the cursor";
            if (problem.empty()) problem = CursorProblem(markup);
            if (problem.empty()) problem = TableProblem(markup);
            if (problem.empty() && !isBesideRoot) problem = FreshDifference(markup);
            if (!problem.empty()) {
                std::string step = "step " + std::to_string(code) + ": ";
                return step.append(problem).append("\n").append(text).append("\n").append(markup.GetDoc());
            }
            ReadHere();
        }
        return {};
    }

private:
    static constexpr const char* kNames[] = {"n", "x", "long-name", "a"};
    static constexpr const char* kTexts[] = {"", "t", "<&>'\"", "a longer text that moves all that follows"};
    static constexpr const char* kNodeTexts[] = {"go", "]", "'", " x='1'"};
    static constexpr const char* kPieces[] = {"<n/>", "<n x='1'>t<m/></n>", "<n>",          "<n/></r>",
                                              "</r>", "<n/><m/>",           " <!--c--><n/>"};
    static constexpr const char* kPaths[] = {"", "*", "a", "/*", "*/*", "/r/a", "/"};
    static constexpr int kKinds[] = {1, 2, 4, 8, 16, 32, 64};

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

    // After an edit among the document's own elements and nodes, a fresh parse makes another table.
    bool Edited(bool isDone) {
        if (isDone && markup.PosParent() == 0) isBesideRoot = true;
        return isDone;
    }

    bool Step(unsigned code) {
        const bool isFirst = Next() % 2 == 0;
        switch (code) {
        case 0: return markup.FindElem(Any(kPaths));
        case 1: return markup.FindChildElem(Any(kPaths));
        case 2: return isFirst ? markup.IntoElem() : markup.OutOfElem();
        case 3: return markup.FindNode(static_cast<int>(Next() % 128)) != 0;
        case 4: return isFirst ? markup.SavePos(Any(kNames)) : markup.RestorePos(Any(kNames));
        case 5: return Edited(Add(isFirst));
        case 6: return AddChild(isFirst);
        case 7: return Edited(AddNode(isFirst));
        case 8: return Edited(AddSubDoc(isFirst));
        case 9: return SetAttrib();
        case 10: return markup.SetChildAttrib(Any(kNames), Any(kTexts));
        case 11: return markup.RemoveAttrib(Any(kNames));
        case 12: return SetData(isFirst);
        case 13: return Edited(markup.RemoveElem());
        case 14: return RemoveChild();
        default: return Edited(markup.RemoveNode());
        }
    }
    bool Add(bool isAfter) {
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
        const char* const text = kind == kMarkupElement ? "n" : Any(kNodeTexts);
        return isAfter ? markup.AddNode(kind, text) : markup.InsertNode(kind, text);
    }
    bool AddSubDoc(bool isAfter) {
        const char* const piece = Any(kPieces);
        return isAfter ? markup.AddSubDoc(piece) : markup.InsertSubDoc(piece);
    }
    bool SetAttrib() {
        const char* const name = Any(kNames);
        return markup.SetAttrib(name, Any(kTexts));
    }
    // Setting the content of an element is allowed anywhere; that of a node beside the root counts as an edit
    // there.
    bool SetData(bool asCData) {
        const bool isOnNode = markup.NodeLength() > 0;
        const bool isDone = markup.SetData(Any(kTexts), asCData);
        return isOnNode ? Edited(isDone) : isDone;
    }
    bool RemoveChild() {
        const bool isRoot = markup.Pos() == 0;
        const bool isDone = markup.RemoveChildElem();
        if (isDone && isRoot) isBesideRoot = true;
        return isDone;
    }
    // Reads what the sanitizers check.
    void ReadHere() const {
        (void)markup.GetTagName();
        (void)markup.GetData();
        (void)markup.GetAttrib("x");
        (void)markup.GetAttribName(1);
        (void)markup.GetChildData();
        (void)markup.GetChildAttrib("x");
    }

    CMarkupSTL& markup;
    std::string_view bytes;
    bool isBesideRoot = false;
};

} // namespace brixen::lyr::gen::markup_test
