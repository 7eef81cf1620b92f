#include "view/reader/expression_reader.h"

#include "view/scope/assertion.h"
#include "view/scope/scope_arithmetic.h"

namespace brixen::zeve {

template <ExpressionReader::Production operand>
inline bool ExpressionReader::ReadRight(int operatorLength, std::int64_t& right) {
    const Place before = Here();
    Skip(operatorLength);
    if (!(this->*operand)(right)) {
        ReturnTo(before);
        return false;
    }
    return true;
}

// expression := and-level { "||" and-level }
bool ExpressionReader::ReadExpression(std::int64_t& value) {
    const char* begin = Here().next;
    if (!ReadAndLevel(value)) {
        return false;
    }
    while (NextIs('|', '|')) {
        std::int64_t right = 0;
        if (!ReadRight<&ExpressionReader::ReadAndLevel>(2, right)) {
            break;
        }
        value = arithmetic::Any(value, right);
    }
    Done(ScopeProduction::kOrLevel, begin);
    return true;
}

// and-level := relational { "&&" relational }
bool ExpressionReader::ReadAndLevel(std::int64_t& value) {
    const char* begin = Here().next;
    if (!ReadRelational(value)) {
        return false;
    }
    while (NextIs('&', '&')) {
        std::int64_t right = 0;
        if (!ReadRight<&ExpressionReader::ReadRelational>(2, right)) {
            break;
        }
        value = arithmetic::Both(value, right);
    }
    Done(ScopeProduction::kAndLevel, begin);
    return true;
}

// relational := equality [ ( "<" | "<=" | ">=" | ">" ) equality ]
bool ExpressionReader::ReadRelational(std::int64_t& value) {
    const char* begin = Here().next;
    if (!ReadEquality(value)) {
        return false;
    }
    if (NextIs('<') || NextIs('>')) {
        const char* sign = Here().next;
        const bool isLess = NextIs('<');
        const bool orEqual = NextIs(*sign, '=');
        std::int64_t right = 0;
        if (ReadRight<&ExpressionReader::ReadEquality>(orEqual ? 2 : 1, right)) {
            const bool holds = (isLess ? value < right : value > right) || (orEqual && value == right);
            value = arithmetic::Truth(value, right, holds);
            Done(isLess ? (orEqual ? ScopeProduction::kLessOrEqual : ScopeProduction::kLess)
                        : (orEqual ? ScopeProduction::kGreaterOrEqual : ScopeProduction::kGreater),
                 sign);
        }
    }
    Done(ScopeProduction::kRelationalLevel, begin);
    return true;
}

// equality := additive [ ( "==" | "!=" ) expression ]
bool ExpressionReader::ReadEquality(std::int64_t& value) {
    const char* begin = Here().next;
    if (!ReadAdditive(value)) {
        return false;
    }
    if (NextIs('=', '=') || NextIs('!', '=')) {
        const char* sign = Here().next;
        const bool isEqual = *sign == '=';
        std::int64_t right = 0;
        if (ReadRight<&ExpressionReader::ReadEqualityRight>(2, right)) {
            value = arithmetic::Truth(value, right, (value == right) == isEqual);
            Done(isEqual ? ScopeProduction::kEqual : ScopeProduction::kNotEqual, sign);
        }
    }
    Done(ScopeProduction::kEqualityLevel, begin);
    return true;
}

bool ExpressionReader::ReadEqualityRight(std::int64_t& value) {
    const Deeper deeper(*this);
    return deeper ? ReadExpression(value) : Fail();
}

// additive := multiplicative { ( "+" | "-" ) multiplicative }
bool ExpressionReader::ReadAdditive(std::int64_t& value) {
    const char* begin = Here().next;
    if (!ReadMultiplicative(value)) {
        return false;
    }
    while (NextIs('+') || NextIs('-')) {
        const char* sign = Here().next;
        const bool isSum = *sign == '+';
        std::int64_t right = 0;
        if (!ReadRight<&ExpressionReader::ReadMultiplicative>(1, right)) {
            break;
        }
        value = isSum ? arithmetic::Sum(value, right) : arithmetic::Difference(value, right);
        Done(isSum ? ScopeProduction::kPlus : ScopeProduction::kMinus, sign);
    }
    Done(ScopeProduction::kAdditive, begin);
    return true;
}

// multiplicative := unary { ( "*" | "/" | "%" ) unary }
bool ExpressionReader::ReadMultiplicative(std::int64_t& value) {
    const char* begin = Here().next;
    if (!ReadUnary(value)) {
        return false;
    }
    while (NextIs('*') || NextIs('/') || NextIs('%')) {
        const char* sign = Here().next;
        std::int64_t right = 0;
        if (!ReadRight<&ExpressionReader::ReadUnary>(1, right)) {
            break;
        }
        if (*sign == '*') {
            value = arithmetic::Product(value, right);
            Done(ScopeProduction::kTimes, sign);
        } else if (*sign == '/') {
            Locate(sign);
            value = arithmetic::Quotient(value, right);
            Done(ScopeProduction::kDividedBy, sign);
        } else {
            Locate(sign);
            value = arithmetic::Remainder(value, right);
            Done(ScopeProduction::kRemainder, sign);
        }
    }
    Done(ScopeProduction::kMultiplicative, begin);
    return true;
}

// unary := ( "+" | "-" | "!" ) unary | primary
bool ExpressionReader::ReadUnary(std::int64_t& value) {
    const char* begin = Here().next;
    const bool isPrefixed = NextIs('+') || NextIs('-') || NextIs('!');
    if (!(isPrefixed ? ReadPrefixed(value) : ReadPrimary(value))) {
        return false;
    }
    Done(ScopeProduction::kUnary, begin);
    return true;
}

bool ExpressionReader::ReadPrefixed(std::int64_t& value) {
    const Deeper deeper(*this);
    const Place start = Here();
    if (!deeper) {
        return Fail();
    }
    Skip(1);
    if (!ReadUnary(value)) {
        ReturnTo(start);
        return false;
    }
    if (*start.next == '-') {
        value = arithmetic::Negated(value);
        Done(ScopeProduction::kUnaryMinus, start.next);
    } else if (*start.next == '!') {
        value = arithmetic::Not(value);
        Done(ScopeProduction::kUnaryNot, start.next);
    } else {
        Done(ScopeProduction::kUnaryPlus, start.next);
    }
    return true;
}

// primary := integer | function | identifier | parenthesis
bool ExpressionReader::ReadPrimary(std::int64_t& value) {
    if (IsAtIdentifier()) {
        return ReadFunctionOrIdentifier(value);
    }
    if (NextIs('(')) {
        return ReadParenthesis(value);
    }
    const char* begin = Here().next;
    if (!ReadInteger(value)) {
        return false;
    }
    Done(ScopeProduction::kLiteralToken, begin);
    Done(ScopeProduction::kLiteralOrFunctionInUnary, begin);
    return true;
}

// parenthesis := "(" expression ")"
bool ExpressionReader::ReadParenthesis(std::int64_t& value) {
    const Deeper deeper(*this);
    const Place start = Here();
    if (!deeper) {
        return Fail();
    }
    Skip(1);
    if (!ReadExpression(value) || !Take(')')) {
        ReturnTo(start);
        return false;
    }
    Done(ScopeProduction::kParenthesis, start.next);
    return true;
}

bool ExpressionReader::ReadFunctionOrIdentifier(std::int64_t& value) {
    const char* begin = Here().next;
    Identifier identifier;
    ReadIdentifier(identifier);
    if (NextIs('(') && ReadFunction(identifier, value)) {
        Done(ScopeProduction::kFunction, begin);
        Done(ScopeProduction::kLiteralOrFunctionInUnary, begin);
        return true;
    }
    if (!CountSearch(1)) {
        return false;
    }
    value = ValueOfIdentifier(identifier);
    Done(ScopeProduction::kIdentifierInUnary, begin);
    return true;
}

// An unknown name is no error here.
std::int64_t ExpressionReader::ValueOfIdentifier(const Identifier& identifier) {
    const FoundValue variable = scope->Find(identifier.Name());
    if (!variable) {
        scope->SetLastUnresolved(identifier.text);
        return kUndefinedNumber;
    }
    return variable.number;
}

// value := identifier, before a terminator | quoted | expression
bool ExpressionReader::ReadValue(Terminator terminator, ScopeValue& value) {
    if (IsAtIdentifier() && ReadValueByVariable(terminator, value)) {
        return true;
    }
    if (NextIs('\'')) {
        return ReadValueByString(value);
    }
    const char* begin = Here().next;
    if (!ReadExpression(value.number)) {
        return false;
    }
    value.string = kEmptyScopeBytes;
    Done(ScopeProduction::kValueByExpression, begin);
    return true;
}

void ExpressionReader::FailOnMissingVariable(std::string_view name) {
    Locate(name.data());
    missingVariable = name;
    FailAssertion("variable != NULL");
}

// The one place where an unknown name is an error.
bool ExpressionReader::ReadValueByVariable(Terminator terminator, ScopeValue& value) {
    const Place start = Here();
    Identifier identifier;
    ReadIdentifier(identifier);
    const bool ends = terminator == Terminator::kSemicolon ? NextIs(';') : NextIs(',') || NextIs(')');
    if (!ends || !CountSearch(1)) {
        ReturnTo(start);
        return false;
    }
    if (!observer || observer->ResolveVariables()) {
        const FoundValue variable = scope->Find(identifier.Name());
        if (!variable) FailOnMissingVariable(identifier.text);
        value = {variable.number, variable.string};
    }
    Done(ScopeProduction::kValueByVariable, start.next);
    return true;
}

namespace {

// Kept: each byte counts as signed, so one of 0x80 or above spreads its sign over those before it.
std::int64_t FourCharacterCode(std::string_view text) {
    std::uint32_t code = 0;
    for (char byte : text) {
        code = code << 8 | static_cast<std::uint32_t>(static_cast<signed char>(byte));
    }
    return static_cast<std::int32_t>(code);
}

} // namespace

bool ExpressionReader::ReadValueByString(ScopeValue& value) {
    const char* begin = Here().next;
    std::string_view text;
    if (!ReadQuoted(text)) {
        return false;
    }
    value = {text.size() == 4 ? FourCharacterCode(text) : kUndefinedNumber, scope->Pool().Store(text).data()};
    Done(ScopeProduction::kValueByString, begin);
    return true;
}

} // namespace brixen::zeve
