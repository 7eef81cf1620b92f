// Reads and executes the statements that define variables. Each ends in ";". The targets that a statement has
// defined before it fails keep their values.
#pragma once

#include "view/reader/expression_reader.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace brixen::zeve {

class StatementReader : protected ExpressionReader {
protected:
    explicit StatementReader(CExpressionScope& startScope) : ExpressionReader(startScope) {}
    ~StatementReader() = default;

    // Both read on after the word that begins the statement.
    bool ReadAssignment(const Identifier& word);
    // Returns false too when the word begins no such statement. The next byte is "(".
    bool ReadBuiltInStatement(const Identifier& word);

    // Reads a text for `eval`: NUL-terminated, in a pool of the chain of the scope.
    bool ReadString(const char*& text);
    // Counts bytes of texts that are evaluated. Returns false when they pass the limit; then all later ones
    // do.
    [[nodiscard]] bool CountEvaluated(std::size_t bytes);
    std::size_t EvaluatedBytesLeft() const { return gReaderState.limits.evaluatedBytes - evaluatedBytes; }
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
    bool ReadNumber(const ScopeValue& value, std::int64_t& number);
    bool ReadDecimal(const char* text, std::int64_t& number);

    std::size_t evaluatedBytes = 0;
};

} // namespace brixen::zeve
