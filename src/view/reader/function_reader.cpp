// Functions in expressions, and the parameter lists that user functions share with views.

#include "view/reader/expression_reader.h"
#include "view/scope/scope_arithmetic.h"

#include <algorithm>
#include <string>

namespace brixen::zeve {
namespace {

constexpr std::int64_t kSetSize = 32; // `in` knows the elements 0 to 31

bool IsInSetRange(std::int64_t element) { return element >= 0 && element < kSetSize; }

} // namespace

// function := built-in-function | user-function, after the name. Where neither fits, the name is an
// identifier.
bool ExpressionReader::ReadFunction(const Identifier& name, std::int64_t& value) {
    const Deeper deeper(*this);
    const Place start = Here();
    if (!deeper) {
        return Fail();
    }
    if (ReadBuiltInFunction(name.text, value)) {
        return true;
    }
    ReturnTo(start);
    if (scope->FunctionHost() && ReadUserFunction(name.text, value)) {
        return true;
    }
    ReturnTo(start);
    return false;
}

bool ExpressionReader::ReadBuiltInFunction(std::string_view name, std::int64_t& value) {
    if (name == "min" || name == "max") return ReadExtreme(name, value);
    if (name == "dim") return ReadDim(name, value);
    if (name == "in") return ReadIn(name, value);
    return false;
}

// Takes a comma and the argument after it. Kept: without an argument the comma stays taken, so `min(1,2,)` is
// a call.
bool ExpressionReader::ReadNextArgument(std::int64_t& value) {
    if (!NextIs(',')) {
        return false;
    }
    Skip(1);
    return ReadExpression(value);
}

// extreme := ( "min" | "max" ) "(" expression "," expression { "," expression } [ "," ] ")"
bool ExpressionReader::ReadExtreme(std::string_view name, std::int64_t& value) {
    Skip(1);
    std::int64_t next = 0;
    if (!ReadExpression(value) || !ReadNextArgument(next)) {
        return Fail();
    }
    do {
        value = name == "max" ? std::max(value, next) : std::min(value, next);
    } while (ReadNextArgument(next));
    if (!Take(')')) {
        return false;
    }
    Done(ScopeProduction::kMinOrMax, name.data());
    return true;
}

// dim := "dim" "(" expression "," expression ")"
bool ExpressionReader::ReadDim(std::string_view name, std::int64_t& value) {
    Skip(1);
    std::int64_t subtracted = 0;
    if (!ReadExpression(value) || !ReadNextArgument(subtracted) || !Take(')')) {
        return Fail();
    }
    value = arithmetic::PositiveDifference(value, subtracted);
    Done(ScopeProduction::kDim, name.data());
    return true;
}

// in := "in" "(" expression { "," expression } [ "," ] ")"
bool ExpressionReader::ReadIn(std::string_view name, std::int64_t& value) {
    Skip(1);
    if (!ReadExpression(value)) {
        return false;
    }
    std::uint32_t set = 0;
    for (std::int64_t element = 0; ReadNextArgument(element);) {
        if (IsInSetRange(element)) {
            set |= std::uint32_t{1} << element;
        }
    }
    if (!Take(')')) {
        return false;
    }
    value = IsInSetRange(value) ? set >> value & 1 : 0;
    Done(ScopeProduction::kIn, name.data());
    return true;
}

namespace {

// Shows the scope of a call to the function host while it lives.
class PublishedScope {
public:
    explicit PublishedScope(CExpressionScope& scope) { gReaderState.currentScope = &scope; }
    ~PublishedScope() { gReaderState.currentScope = nullptr; }
    PublishedScope(const PublishedScope&) = delete;
    PublishedScope& operator=(const PublishedScope&) = delete;
};

} // namespace

// user-function := name "(" parameter-list ")"
bool ExpressionReader::ReadUserFunction(std::string_view name, std::int64_t& value) {
    const char* begin = name.data();
    CExpressionScope arguments(scope, nullptr, &scope->Pool(), observer);
    Skip(1);
    {
        const ScopeChange change(*this, arguments);
        if (!ReadParameterList() || !Take(')')) {
            return false;
        }
    }
    const std::string terminatedName(name);
    const PublishedScope published(*scope);
    Locate(begin);
    value = scope->FunctionHost()->CallFunction(terminatedName.c_str(), arguments);
    Done(ScopeProduction::kUserFunction, begin);
    return true;
}

// parameter-list := [ parameter { "," parameter } ]
bool ExpressionReader::ReadParameterList() {
    const Place start = Here();
    bool isRead = true;
    if (IsAtIdentifier()) {
        isRead = ReadParameter();
        while (isRead && NextIs(',')) {
            Skip(1);
            isRead = ReadParameter();
        }
    }
    if (!isRead) {
        ReturnTo(start);
        return false;
    }
    Done(ScopeProduction::kParameterList, start.next);
    return true;
}

// parameter := identifier ":" value
bool ExpressionReader::ReadParameter() {
    const Place start = Here();
    Identifier name;
    ScopeValue value;
    if (!ReadIdentifier(name) || !Take(':') || !ReadValue(Terminator::kCommaOrParenthesis, value)) {
        return Fail(start);
    }
    // The scope of a parameter list dies before the text, so it need not copy the name.
    scope->DefineVariable({name.text, name.hash, true}, value.number, value.string);
    Done(ScopeProduction::kParameter, start.next);
    return true;
}

} // namespace brixen::zeve
