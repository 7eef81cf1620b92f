#include "view/reader/view_reader.h"

namespace brixen::zeve {

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

// eval | statement := eval | built-in-statement | assignment | view. All begin with a word, and what stands
// behind it tells them apart; but a view may bear the name of a statement if its head reads otherwise.
bool ViewReader::ReadStatement(Surroundings surroundings) {
    const Place start = Here();
    Identifier word;
    if (!ReadIdentifier(word)) {
        return false;
    }
    const Place behind = Here();
    bool isRead = false;
    if (NextIs('=')) {
        isRead = ReadAssignment(word);
    } else if (NextIs('(')) {
        isRead = word.text == "eval" ? ReadEval(start.next, surroundings) : ReadBuiltInStatement(word);
        if (!isRead) {
            ReturnTo(behind);
            isRead = ReadViewStatement(word, surroundings);
        }
    }
    return isRead || Fail(start);
}

// eval := "eval" "(" string ")" ";"
bool ViewReader::ReadEval(const char* begin, Surroundings surroundings) {
    const Deeper deeper(*this);
    std::string_view text;
    if (!deeper || evaluatedTexts == gReaderState.maximumEvaluatedTexts) {
        return Fail();
    }
    if (!Take('(') || !ReadString(text) || !TakeParenthesisAndSemicolon()) {
        return false;
    }
    ++evaluatedTexts;
    RunText(text.data(), surroundings);
    Done(ScopeProduction::kEval, begin);
    return true;
}

// Ends quietly at the first thing that cannot be read.
void ViewReader::RunText(const char* text, Surroundings surroundings) {
    const OtherText otherText(*this, text);
    ReadStatementList(surroundings);
    Done(ScopeProduction::kEnd, Here().end);
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
    parameterPool.Clear(); // of the head before, also of one that failed
    CExpressionScope parameters(scope, nullptr, &parameterPool, observer);
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
    return tree.Make(keyword, parameters, parent, inherited);
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
