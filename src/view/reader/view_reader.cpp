#include "view/reader/view_reader.h"

#include <cstring>

namespace brixen::zeve {
namespace {

// Returns the length of a NUL-terminated text, or `most` if it is longer.
std::size_t LengthUpTo(const char* text, std::size_t most) {
    const void* const end = std::memchr(text, 0, most);
    return end ? static_cast<std::size_t>(static_cast<const char*>(end) - text) : most;
}

} // namespace

ViewReader::ViewReader(CExpressViewScope& rootScope, ViewTree& viewTree, const char* text)
    : StatementReader(rootScope), generator(rootScope.Generator()), tree(viewTree) {
    StartText(text, gReaderState.marks);
}

bool ViewReader::ReadDefinition(ViewList& views) {
    ReadStatementList({views, nullptr});
    if (Next() != 0) {
        return Fail();
    }
    Done(ScopeProduction::kEnd, Here().end);
    return true;
}

// statement-list := { eval | statement }
void ViewReader::ReadStatementList(Surroundings surroundings) {
    const char* begin = Here().next;
    while (ReadStatement(surroundings)) {
    }
    Done(ScopeProduction::kStatementList, begin);
}

// Fails also when the memory of the run, or what it may ask of the window system, is exhausted: the innermost
// statement is then the production that fails.
bool ViewReader::ReadStatement(Surroundings surroundings) {
    const Place start = Here();
    Identifier word;
    if (!ReadIdentifier(word)) return false;
    Locate(start.next);
    try {
        if (ReadStatementAfter(word, surroundings)) return true;
    } catch (const ScopeMemoryExhausted&) {
    } catch (const SystemBudgetExhausted&) {
    }
    return Fail(start);
}

// eval | statement := eval | built-in-statement | assignment | view. All begin with a word, and the text
// after it tells them apart; but a view may have the name of a statement if its head does not read as one.
bool ViewReader::ReadStatementAfter(const Identifier& word, Surroundings surroundings) {
    if (NextIs('=')) return ReadAssignment(word);
    if (!NextIs('(')) return false;
    const Place head = Here();
    if (word.text == "eval" ? ReadEval(word, surroundings) : ReadBuiltInStatement(word)) return true;
    ReturnTo(head);
    return ReadViewStatement(word, surroundings);
}

// eval := "eval" "(" string ")" ";"
bool ViewReader::ReadEval(const Identifier& word, Surroundings surroundings) {
    const Deeper deeper(*this);
    const char* text = nullptr;
    if (!deeper || evaluatedTexts >= gReaderState.limits.evaluatedTexts) return Fail();
    if (!Take('(') || !ReadString(text) || !TakeParenthesisAndSemicolon()) return false;
    if (!CountEvaluated(LengthUpTo(text, EvaluatedBytesLeft() + 1))) return false;
    ++evaluatedTexts;
    const char* const begin = word.text.data();
    {
        const OtherText otherText(*this, text, begin);
        ReadStatementList(surroundings); // ends quietly at the first statement that cannot be read
        Done(ScopeProduction::kEnd, Here().end);
    }
    Done(ScopeProduction::kEval, begin);
    return true;
}

bool ViewReader::ReadViewStatement(const Identifier& keyword, Surroundings surroundings) {
    ViewProxy* const view = ReadView(keyword, surroundings.parent);
    if (!view) {
        return false;
    }
    surroundings.views.Append(*view);
    Done(ScopeProduction::kViewStatement, keyword.text.data());
    return true;
}

// view := view-head ( ";" | block )
ViewProxy* ViewReader::ReadView(const Identifier& keyword, ViewProxy* parent) {
    ViewProxy* const view = ReadViewHead(keyword, parent);
    if (!view) {
        return nullptr;
    }
    if (NextIs(';')) {
        Skip(1);
    } else if (!ReadBlock(*view)) {
        return nullptr;
    }
    Done(ScopeProduction::kView, keyword.text.data());
    return view;
}

// view-head := identifier "(" parameter-list ")"
ViewProxy* ViewReader::ReadViewHead(const Identifier& keyword, ViewProxy* parent) {
    if (tree.Count() >= gReaderState.limits.views) {
        Fail();
        return nullptr;
    }
    if (!CountSearch(kNamesOfAView)) return nullptr;
    CExpressionScope parameters(scope, nullptr, &generator.pool, observer);
    Take('(');
    {
        const ScopeChange change(*this, parameters);
        if (!ReadParameterList() || !Take(')')) {
            return nullptr;
        }
    }
    ViewProxy& view = MakeView(keyword.text, parameters, parent);
    Done(ScopeProduction::kViewHead, keyword.text.data());
    return &view;
}

ViewProxy& ViewReader::MakeView(std::string_view keyword, CExpressionScope& parameters, ViewProxy* parent) {
    ViewInheritance inherited;
    if (parent) {
        inherited = {parent->details.childHorizontal, parent->details.childVertical, parent->offscreen};
    }
    std::int32_t placement = kPlaceColumn;
    if (parameters.GetInt("placement"_name, &placement) && placement == kPlaceOffscreen) {
        inherited.offscreen = true;
    }
    Locate(keyword.data());
    ViewProxy& view = tree.Make(keyword, parameters, parent, inherited);
    view.details.textPosition = InDescription(keyword.data());
    return view;
}

// block := "{" statement-list "}"
bool ViewReader::ReadBlock(ViewProxy& view) {
    const Deeper deeper(*this);
    if (!deeper) {
        return Fail();
    }
    const char* begin = Here().next;
    if (!Take('{')) {
        return false;
    }
    CExpressViewScope blockScope(scope, &generator, nullptr, observer);
    ViewList children;
    {
        const ScopeChange change(*this, blockScope);
        ReadStatementList({children, &view});
    }
    if (!Take('}')) {
        return false;
    }
    view.children.Splice(children);
    Done(ScopeProduction::kChildBlock, begin);
    return true;
}

} // namespace brixen::zeve
