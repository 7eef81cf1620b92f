#include "view/reader/run_definition.h"

#include "frame/log.h"
#include "toolkit/layout/view_tree.h"
#include "view/reader/reader_state.h"
#include "view/reader/view_reader.h"
#include "view/scope/assertion.h"

namespace brixen::zeve {
namespace {

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
    ViewTree tree(rootScope.Generator());
    ViewList views;
    const bool isWhole = ViewReader(rootScope, tree, text).ReadDefinition(views);
    if (!isWhole) {
        LogFurthestFailure(text);
    }
    Assert(isWhole, "*definition == 0");
    Assert(views.Count() == 1, "viewProxyList->size() == 1");
    return tree.LayOutAndMakeBoxes(views.Front());
}

} // namespace brixen::zeve
