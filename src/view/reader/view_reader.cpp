#include "view/reader/view_reader.h"

#include "frame/log.h"
#include "toolkit/layout/view_proxy.h"
#include "view/scope/assertion.h"
#include "view/reader/statement_reader.h"

#include <memory>
#include <utility>

namespace brixen::zeve {
namespace {

// Reads statements and views; one object for one run.
class ViewReader : private StatementReader {
public:
    ViewReader(CExpressViewScope& rootScope, const char* text)
        : StatementReader(rootScope), generator(rootScope.Generator()) {
        StartText(text, gReaderState.marks);
    }

    // definition := statement-list, then the end of the text. False when more is left.
    bool ReadDefinition(ViewProxyList& views) {
        ReadStatementList({views, nullptr});
        if (Next() != 0) {
            return Fail();
        }
        Done(ScopeProduction::kEnd, Here().end);
        return true;
    }

private:
    // What a statement list appends its views to, and the view that they stand in; null at the top.
    struct Surroundings {
        ViewProxyList& views;
        ViewProxy* parent;
    };

    void ReadStatementList(Surroundings surroundings);
    bool ReadStatement(Surroundings surroundings);
    bool ReadEval(const char* begin, Surroundings surroundings);
    void RunText(const char* text, Surroundings surroundings);
    bool ReadViewStatement(const Identifier& keyword, Surroundings surroundings);
    std::unique_ptr<ViewProxy> ReadView(const Identifier& keyword, ViewProxy* parent);
    std::unique_ptr<ViewProxy> ReadViewHead(const Identifier& keyword, ViewProxy* parent);
    std::unique_ptr<ViewProxy> MakeViewProxy(std::string_view keyword, CExpressionScope& parameters,
                                             ViewProxy* parent);
    bool ReadBlock(ViewProxy& view);

    CGenerator& generator;
    // Texts of the parameters of the head that is being read; there is never more than one.
    ScopeStringPool parameterPool;
    std::uint32_t evaluatedTexts = 0;
};

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
    std::unique_ptr<ViewProxy> view = ReadView(keyword, surroundings.parent);
    if (!view) {
        return false;
    }
    surroundings.views.push_back(std::move(view));
    Done(ScopeProduction::kViewStatement, keyword.text.data());
    return true;
}

// view := view-head ( ";" | block )
std::unique_ptr<ViewProxy> ViewReader::ReadView(const Identifier& keyword, ViewProxy* parent) {
    std::unique_ptr<ViewProxy> view = ReadViewHead(keyword, parent);
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
std::unique_ptr<ViewProxy> ViewReader::ReadViewHead(const Identifier& keyword, ViewProxy* parent) {
    parameterPool.Clear(); // of the head before, also of one that failed
    CExpressionScope parameters(scope, nullptr, &parameterPool, observer);
    Take('(');
    {
        const ScopeChange change(*this, parameters);
        if (!ReadParameterList() || !Take(')')) {
            return nullptr;
        }
    }
    std::unique_ptr<ViewProxy> view = MakeViewProxy(keyword.text, parameters, parent);
    Done(ScopeProduction::kViewHead, keyword.text.data());
    return view;
}

std::unique_ptr<ViewProxy> ViewReader::MakeViewProxy(std::string_view keyword, CExpressionScope& parameters,
                                                     ViewProxy* parent) {
    ViewInheritance inherited;
    if (parent) {
        inherited = {parent->childHorizontal, parent->childVertical, parent->offscreen};
    }
    std::int32_t placement = kPlaceColumn;
    if (parameters.GetInt("placement"_name, &placement) && placement == kPlaceOffscreen) {
        inherited.offscreen = true;
    }
    auto view = std::make_unique<ViewProxy>(generator, keyword, parameters, parent, inherited);
    Assert(view != nullptr, "view.get() != NULL");
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
    ViewProxyList children;
    {
        const ScopeChange change(*this, blockScope);
        ReadStatementList({children, &view});
    }
    if (!Take('}')) {
        return false;
    }
    view.SpliceChildren(std::move(children));
    Done(ScopeProduction::kChildBlock, begin);
    return true;
}

// A run inside another, as a hook may start one, gives the outer one its marks back: they must never be
// compared with positions in another text.
class RunOfItsOwnMarks {
public:
    RunOfItsOwnMarks() : outerMarks(gReaderState.marks) { ++gReaderState.runs; }
    ~RunOfItsOwnMarks() {
        if (--gReaderState.runs > 0) {
            gReaderState.marks = outerMarks;
        }
    }
    RunOfItsOwnMarks(const RunOfItsOwnMarks&) = delete;
    RunOfItsOwnMarks& operator=(const RunOfItsOwnMarks&) = delete;

private:
    HighWaterMarks outerMarks;
};

struct TextPosition {
    unsigned long line = 1;
    unsigned long column = 1; // in bytes
};

TextPosition PositionIn(const char* text, const char* at) {
    TextPosition position;
    for (; text < at; ++text) {
        const bool endsLine = *text == '\n' || (*text == '\r' && text[1] != '\n');
        position =
            endsLine ? TextPosition{position.line + 1, 1} : TextPosition{position.line, position.column + 1};
    }
    return position;
}

void LogFurthestFailure(const char* text) {
    const TextPosition position = PositionIn(text, gReaderState.marks.failed);
    pvn::PvnLog("%s: %s: brixen::zeve::RunDefinition: the description stops at line %lu, column %lu\n",
                pvn::kLogComponent, pvn::kLogInfo, position.line, position.column);
}

} // namespace

ViewHandle RunDefinition(CExpressViewScope& rootScope, const char* text) {
    Assert(text != nullptr, "*definition == 0");
    const RunOfItsOwnMarks run;
    ViewProxyList views;
    const bool isWhole = ViewReader(rootScope, text).ReadDefinition(views);
    if (!isWhole) {
        LogFurthestFailure(text);
    }
    Assert(isWhole, "*definition == 0");
    Assert(views.size() == 1, "viewProxyList->size() == 1");
    return views.front()->LayOutAndMakeBoxes(rootScope.Generator());
}

} // namespace brixen::zeve
