#include "view/reader/statement_reader.h"

#include "view/scope/scope_arithmetic.h"

#include <algorithm>
#include <limits>
#include <string>

namespace brixen::zeve {

// assignment := identifier "=" value ";"
bool StatementReader::ReadAssignment(const Identifier& word) {
    ScopeValue value;
    if (!Take('=') || !ReadValue(Terminator::kSemicolon, value) || !Take(';')) {
        return false;
    }
    scope->DefineVariable(word.Name(), value.number, value.string);
    Done(ScopeProduction::kAssignment, word.text.data());
    return true;
}

bool StatementReader::ReadBuiltInStatement(const Identifier& word) {
    using Statement = bool (StatementReader::*)(const char*);
    struct BuiltIn {
        std::string_view word;
        Statement read;
    };
    static constexpr BuiltIn kBuiltIns[] = {{"step", &StatementReader::ReadStep},
                                            {"align_centers", &StatementReader::ReadAlignCenters},
                                            {"set_number", &StatementReader::ReadSetNumber},
                                            {"set_string", &StatementReader::ReadSetString}};
    for (const BuiltIn& builtIn : kBuiltIns) {
        if (builtIn.word == word.text) {
            const bool isRead = (this->*builtIn.read)(word.text.data());
            if (isRead) Done(ScopeProduction::kBuiltInStatement, word.text.data());
            return isRead;
        }
    }
    return false;
}

// target := "&" identifier
bool StatementReader::ReadTarget(Identifier& name) { return Take('&') && ReadIdentifier(name); }

bool StatementReader::ReadNextTarget(std::int64_t value) {
    Identifier name;
    if (!Take(',') || !ReadTarget(name)) {
        return false;
    }
    scope->DefineNumber(name.Name(), value);
    return true;
}

// step := "step" "(" expression "," expression "," target { "," target } ")" ";"
bool StatementReader::ReadStep(const char* begin) {
    std::int64_t value = 0;
    std::int64_t delta = 0;
    if (!Take('(') || !ReadExpression(value) || !Take(',') || !ReadExpression(delta) ||
        !ReadNextTarget(value)) {
        return false;
    }
    while (NextIs(',')) {
        value = arithmetic::WrappedSum(value, delta);
        if (!ReadNextTarget(value)) {
            return false;
        }
    }
    if (!TakeParenthesisAndSemicolon()) {
        return false;
    }
    Done(ScopeProduction::kStep, begin);
    return true;
}

// widths := { "," expression }, up to a comma without an expression after it
bool StatementReader::ReadWidths(std::vector<std::int64_t>& widths) {
    for (Place end = Here(); NextIs(','); end = Here()) {
        Skip(1);
        std::int64_t width = 0;
        if (!ReadExpression(width)) {
            ReturnTo(end);
            break;
        }
        widths.push_back(width);
    }
    return !widths.empty() || Fail();
}

// align-centers := "align_centers" "(" expression widths { "," target } ")" ";", as many targets as widths
bool StatementReader::ReadAlignCenters(const char* begin) {
    std::int64_t base = 0;
    std::vector<std::int64_t> widths;
    if (!Take('(') || !ReadExpression(base) || !ReadWidths(widths)) {
        return false;
    }
    const std::int64_t widest = std::max<std::int64_t>(0, *std::max_element(widths.begin(), widths.end()));
    for (std::int64_t width : widths) {
        const std::int64_t shift = arithmetic::WrappedDifference(widest, width) / 2;
        if (!ReadNextTarget(arithmetic::WrappedSum(base, shift))) {
            return false;
        }
    }
    if (!TakeParenthesisAndSemicolon()) {
        return false;
    }
    Done(ScopeProduction::kAlignCenters, begin);
    return true;
}

bool StatementReader::ReadTargetAndValue(Identifier& name, ScopeValue& value) {
    return Take('(') && ReadTarget(name) && Take(',') && ReadValue(Terminator::kCommaOrParenthesis, value) &&
           TakeParenthesisAndSemicolon();
}

// set-number := "set_number" "(" target "," value ")" ";"
bool StatementReader::ReadSetNumber(const char* begin) {
    Identifier name;
    ScopeValue value;
    std::int64_t number = 0;
    if (!ReadTargetAndValue(name, value) || !ReadNumber(value, number)) {
        return false;
    }
    scope->DefineNumber(name.Name(), number);
    Done(ScopeProduction::kSetNumber, begin);
    return true;
}

bool StatementReader::ReadNumber(const ScopeValue& value, std::int64_t& number) {
    if (!value.HasString()) {
        number = value.number;
        return true;
    }
    if (!scope->FunctionHost()) return ReadDecimal(value.string, number);
    std::string resolved;
    scope->FunctionHost()->ResolveString(resolved, value.string);
    return ReadDecimal(resolved.c_str(), number);
}

// Leading blanks and a sign, then digits, up to the first other byte; 0 without digits. Saturates at 32 bits,
// and reads no digit after that.
bool StatementReader::ReadDecimal(const char* text, std::int64_t& number) {
    constexpr std::int64_t kLargest = std::numeric_limits<std::int32_t>::max();
    const char* at = text;
    while (IsBlank(*at)) ++at;
    const bool isNegative = *at == '-';
    if (*at == '-' || *at == '+') ++at;
    std::int64_t magnitude = 0;
    for (; IsDigit(*at) && magnitude <= kLargest; ++at) {
        magnitude = magnitude * 10 + (*at - '0');
    }
    number = isNegative ? -std::min(magnitude, kLargest + 1) : std::min(magnitude, kLargest);
    return CountEvaluated(static_cast<std::size_t>(at - text));
}

bool StatementReader::CountEvaluated(std::size_t bytes) {
    const bool fits = bytes <= EvaluatedBytesLeft();
    evaluatedBytes = fits ? evaluatedBytes + bytes : gReaderState.limits.evaluatedBytes;
    return fits || Fail();
}

// set-string := "set_string" "(" target "," value ")" ";"
bool StatementReader::ReadSetString(const char* begin) {
    Identifier name;
    ScopeValue value;
    if (!ReadTargetAndValue(name, value)) {
        return false;
    }
    if (value.HasString()) {
        // The text is in a pool of the chain already.
        scope->DefineVariable(name.Name(), kUndefinedNumber, value.string);
    } else {
        scope->DefineString(name.Name(), std::to_string(static_cast<std::int32_t>(value.number)));
    }
    Done(ScopeProduction::kSetString, begin);
    return true;
}

// string := quoted | identifier. Kept: an unknown name is its own spelling.
bool StatementReader::ReadString(const char*& text) {
    const char* begin = Here().next;
    if (NextIs('\'')) {
        std::string_view quoted;
        if (!ReadQuoted(quoted)) {
            return false;
        }
        text = scope->Pool().Store(quoted).data();
        Done(ScopeProduction::kQuotedAsString, begin);
        return true;
    }
    Identifier identifier;
    if (!ReadIdentifier(identifier) || !CountSearch(1)) {
        return false;
    }
    const FoundValue variable = scope->Find(identifier.Name());
    text = variable ? variable.string : scope->Pool().Store(identifier.text).data();
    Done(variable ? ScopeProduction::kVariableAsString : ScopeProduction::kBareWordAsString, begin);
    return true;
}

} // namespace brixen::zeve
