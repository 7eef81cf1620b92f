// Reads the statements and views of a description and makes its tree of views.
#pragma once

#include "toolkit/layout/view_tree.h"
#include "view/express_view_scope.h"
#include "view/reader/statement_reader.h"

#include <cstdint>
#include <string_view>

namespace brixen::zeve {

// One object reads one description, once.
class ViewReader : private StatementReader {
public:
    // All arguments are borrowed and outlive the reader. The generator of `rootScope` is that of `viewTree`.
    ViewReader(CExpressViewScope& rootScope, ViewTree& viewTree, const char* text);

    // definition := statement-list, then the end of the text
    //
    // Appends the views at the top to `views`. Returns false when a part of the text cannot be read. Throws
    // the assertions of expressions and what the generator throws.
    [[nodiscard]] bool ReadDefinition(ViewList& views);

    // For the message about an exception: the position in the description of the construct that threw, and
    // the name of the variable that is missing, or an empty text.
    using StatementReader::Located;
    std::string_view MissingVariable() const { return missingVariable; }

private:
    // The list that a statement list appends its views to, and the view that encloses them; null at the top.
    struct Surroundings {
        ViewList& views;
        ViewProxy* parent;
    };

    void ReadStatementList(Surroundings surroundings);
    bool ReadStatement(Surroundings surroundings);
    bool ReadStatementAfter(const Identifier& word, Surroundings surroundings);
    bool ReadEval(const Identifier& word, Surroundings surroundings);
    bool ReadViewStatement(const Identifier& keyword, Surroundings surroundings);
    ViewProxy* ReadView(const Identifier& keyword, ViewProxy* parent);
    ViewProxy* ReadViewHead(const Identifier& keyword, ViewProxy* parent);
    ViewProxy& MakeView(std::string_view keyword, CExpressionScope& parameters, ViewProxy* parent);
    bool ReadBlock(ViewProxy& view);

    CGenerator& generator;
    ViewTree& tree;
    std::uint32_t evaluatedTexts = 0;
};

} // namespace brixen::zeve
