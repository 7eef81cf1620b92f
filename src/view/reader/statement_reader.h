// Reads and carries out the statements that define variables. Each ends in ";". A statement that fails leaves
// what its earlier targets have defined already.
#pragma once

#include "view/reader/expression_reader.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace brixen::zeve {

class StatementReader : protected ExpressionReader {
protected:
    explicit StatementReader(CExpressionScope& startScope) : ExpressionReader(startScope) {}
    ~StatementReader() = default;

    // Both stand behind the word that begins the statement, `word`.
    bool ReadAssignment(const Identifier& word);
    // False too when the word begins none of them. The text behind it begins with "(".
    bool ReadBuiltInStatement(const Identifier& word);

    // A text for `eval`; NUL-terminated, in a pool of the scope's chain.
    bool ReadString(std::string_view& text);
    // End of statement.
    bool TakeParenthesisAndSemicolon() { return Take(')') && Take(';'); }

private:
    bool ReadStep(const char* begin);
    bool ReadAlignCenters(const char* begin);
    bool ReadSetNumber(const char* begin);
    bool ReadSetString(const char* begin);

    bool ReadWidths(std::vector<std::int64_t>& widths);
    bool ReadTarget(Identifier& name);
    bool ReadNextTarget(std::int64_t value);
    bool ReadTargetAndValue(Identifier& name, ScopeValue& value);
    std::int64_t NumberOf(const ScopeValue& value);
};

} // namespace brixen::zeve
