// Reads any bytes as a document, then runs the bytes after the first byte 1 as a script of edits. Every node
// can be visited and read. A call that returns false has changed nothing. After every edit the table is that
// of a fresh parse.
#include "support/markup_script.h"
#include "values/markup/document.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

using brixen::lyr::gen::CMarkupSTL;
using brixen::lyr::gen::markup_test::FieldsOf;
using brixen::lyr::gen::markup_test::MarkupScript;
using brixen::lyr::gen::markup_test::TreeDifference;

constexpr char kScriptMark = '\1';

void Require(bool holds, const std::string& otherwise) {
    if (holds) return;
    std::fprintf(stderr, "%s\n", otherwise.c_str());
    std::abort();
}

// Visits every node and reads all that can be read. A tag or value without an end reaches to the end of the
// text, so the number of nodes is limited.
void ReadEverything(CMarkupSTL markup) {
    const std::string text = markup.GetDoc();
    markup.ResetPos();
    for (int nodes = 0; nodes < 2000; ++nodes) {
        const auto before = FieldsOf(markup);
        const int kind = markup.FindNode();
        if (kind == 0) {
            Require(FieldsOf(markup) == before, "a walk that ended moved the cursor");
            if (!markup.OutOfElem()) break;
            continue;
        }
        Require(markup.NodeType() == kind, "a node's kind");
        (void)markup.GetTagName();
        (void)markup.GetData();
        (void)markup.GetAttrib("x");
        (void)markup.GetAttribName(1);
        (void)markup.GetChildData();
        if (kind == brixen::lyr::gen::kMarkupElement) markup.IntoElem();
    }
    Require(markup.GetDoc() == text, "reading changed the text");
}

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
    const std::string problem = MarkupScript(markup, input.substr(std::min(mark + 1, input.size()))).Run();
    Require(problem.empty(), problem);
    ReadEverything(markup);
    return 0;
}
