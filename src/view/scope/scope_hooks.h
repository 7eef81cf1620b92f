// Extensions of the expression language by a host. Both hooks are optional. A scope without them has no user
// functions, and its text is read unobserved.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace brixen::zeve {

class CExpressionScope;

// Serves calls `name(parameter: value, ...)` in expressions.
class ScopeFunctionHost {
public:
    virtual ~ScopeFunctionHost() = default;

    // `arguments` holds the parameters and dies after the call. Its chain leads to the scope of the
    // expression, which is gReaderState.currentScope during the call. The result is the value. May throw;
    // then the run of the description ends.
    virtual std::int32_t CallFunction(const char* name, CExpressionScope& arguments) = 0;
    // Makes of a string value the text that `set_number` reads as a number. May throw, with the same effect.
    virtual void ResolveString(std::string& outText, std::string_view key) = 0;
};

// The kinds of text ranges that an observer hears of. The numbers are part of the interface.
enum class ScopeProduction : int {
    kBuiltInStatement = 3,
    kStep = 4,
    kAlignCenters = 5,
    kBareWordAsString = 6,
    kVariableAsString = 7,
    kQuotedAsString = 8,
    kAdditive = 9,
    kOrLevel = 10,
    kQuotedToken = 11,
    kAssignment = 12,
    kValueByVariable = 13,
    kValueByString = 14,
    kValueByExpression = 15,
    kPlus = 16,
    kMinus = 17,
    kAndLevel = 18,
    kRelationalLevel = 19,
    kGreater = 20,
    kGreaterOrEqual = 21,
    kLess = 22,
    kLessOrEqual = 23,
    kEqualityLevel = 24,
    kEqual = 25,
    kNotEqual = 26,
    kMultiplicative = 27,
    kTimes = 28,
    kDividedBy = 29,
    kRemainder = 30,
    kUnary = 31,
    kLiteralOrFunctionInUnary = 32,
    kIdentifierInUnary = 33,
    kParenthesis = 34,
    kUnaryPlus = 35,
    kUnaryMinus = 36,
    kUnaryNot = 37,
    kFunction = 38,
    kUserFunction = 39,
    kParameter = 40,
    kParameterList = 41,
    kDim = 42,
    kMinOrMax = 43,
    kIn = 44,
    kIdentifierToken = 45,
    kIntegerToken = 46,
    kLiteralToken = 47,
    kEnd = 48, // of a definition or of an `eval` text
    kStatementList = 49,
    kViewStatement = 50,
    kView = 51,
    kViewHead = 52,
    kChildBlock = 53,
    kEval = 54,
    kSetNumber = 55,
    kSetString = 56,
};

class ScopeParseObserver {
public:
    virtual ~ScopeParseObserver() = default;

    // Called after each production that was read, inner ones first, also for those that are given up later
    // because what follows does not fit. [begin, end) is its text without blanks around it; a binary
    // operator's begins at the operator and ends with its right operand. The text lives as long as the
    // description or, inside `eval`, as the scopes do.
    virtual void OnProduction(ScopeProduction code, const char* begin, const char* end) = 0;
    // Whether to look up a variable that is a value by itself. If not, the value is undefined.
    virtual bool ResolveVariables() = 0;
};

} // namespace brixen::zeve
