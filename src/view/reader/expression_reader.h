// Reads and computes expressions and values: reading is evaluating, once, from left to right.
//
// Operators, loosest first: `||`, `&&`, one relational, one equality, `+ -`, `* / %`, prefix `+ - !`.
// Kept: equality binds tighter than the relational operators, and its right side is a whole expression, so
// `a == b && c` means `a == (b && c)`. Nothing is short-circuited. When the right operand of an operator
// cannot be read, the reader returns to before the operator, and the level ends with the value so far.
#pragma once

#include "view/reader/reading_limits.h"
#include "view/reader/token_reader.h"
#include "view/scope/expression_scope.h"

#include <cstdint>
#include <string_view>

namespace brixen::zeve {

// Both sides of a value.
struct ScopeValue {
    std::int64_t number = kUndefinedNumber;
    const char* string = kEmptyScopeBytes; // NUL-terminated, in a pool

    bool HasString() const { return string != kEmptyScopeBytes; }
};

class ExpressionReader : protected TokenReader {
protected:
    explicit ExpressionReader(CExpressionScope& startScope)
        : TokenReader(startScope.Observer()), scope(&startScope) {}
    ~ExpressionReader() = default;

    // The marks after a value for which a lone identifier is a copy of that variable.
    enum class Terminator { kSemicolon, kCommaOrParenthesis };

    bool ReadExpression(std::int64_t& value);
    bool ReadValue(Terminator terminator, ScopeValue& value);
    // Defines the parameters in the current scope, each at once, so that later ones see earlier ones.
    bool ReadParameterList();

    // Makes another scope the current one while it lives.
    class ScopeChange {
    public:
        ScopeChange(ExpressionReader& itsReader, CExpressionScope& inner)
            : reader(itsReader), outer(itsReader.scope) {
            reader.scope = &inner;
        }
        ~ScopeChange() { reader.scope = outer; }
        ScopeChange(const ScopeChange&) = delete;
        ScopeChange& operator=(const ScopeChange&) = delete;

    private:
        ExpressionReader& reader;
        CExpressionScope* outer;
    };

    // One level deeper while it lives. Converts to false when that is too deep.
    class Deeper {
    public:
        explicit Deeper(ExpressionReader& reader) : depth(reader.depth) { ++depth; }
        ~Deeper() { --depth; }
        Deeper(const Deeper&) = delete;
        Deeper& operator=(const Deeper&) = delete;
        explicit operator bool() const { return depth <= kMaximumReadingDepth; }

    private:
        int& depth;
    };

    // Counts a search of the whole chain for so many names. Returns false when that passes the limit.
    [[nodiscard]] bool CountSearch(std::size_t names) {
        const std::size_t searches = names * scope->ChainLength();
        if (searches > searchesLeft) [[unlikely]] {
            return Fail();
        }
        searchesLeft -= searches;
        return true;
    }

    CExpressionScope* scope; // the current one
    // The variable of the latest value that failed because there is none of that name.
    std::string_view missingVariable;

private:
    using Production = bool (ExpressionReader::*)(std::int64_t& value);

    // Takes the operator and its right operand, or neither.
    template <Production operand>
    bool ReadRight(int operatorLength, std::int64_t& right);
    bool ReadAndLevel(std::int64_t& value);
    bool ReadRelational(std::int64_t& value);
    bool ReadEquality(std::int64_t& value);
    bool ReadEqualityRight(std::int64_t& value);
    bool ReadAdditive(std::int64_t& value);
    bool ReadMultiplicative(std::int64_t& value);
    bool ReadUnary(std::int64_t& value);
    bool ReadPrefixed(std::int64_t& value);
    bool ReadPrimary(std::int64_t& value);
    bool ReadParenthesis(std::int64_t& value);
    bool ReadFunctionOrIdentifier(std::int64_t& value);
    std::int64_t ValueOfIdentifier(const Identifier& identifier);

    bool ReadFunction(const Identifier& name, std::int64_t& value);
    bool ReadBuiltInFunction(std::string_view name, std::int64_t& value);
    bool ReadExtreme(std::string_view name, std::int64_t& value);
    bool ReadDim(std::string_view name, std::int64_t& value);
    bool ReadIn(std::string_view name, std::int64_t& value);
    bool ReadNextArgument(std::int64_t& value);
    bool ReadUserFunction(std::string_view name, std::int64_t& value);
    bool ReadParameter();

    bool ReadValueByVariable(Terminator terminator, ScopeValue& value);
    [[noreturn]] void FailOnMissingVariable(std::string_view name);
    bool ReadValueByString(ScopeValue& value);

    int depth = 0;
    std::size_t searchesLeft = gReaderState.limits.searches;
};

} // namespace brixen::zeve
