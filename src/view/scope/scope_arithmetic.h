// The arithmetic of the view language: signed 64 bits, wrapping, with kUndefinedNumber as a missing number.
#pragma once

#include "view/scope/assertion.h"
#include "view/scope/expression_scope.h"

#include <cstdint>
#include <limits>

namespace brixen::zeve::arithmetic {

using Number = std::int64_t;

inline bool IsEitherUndefined(Number left, Number right) {
    return left == kUndefinedNumber || right == kUndefinedNumber;
}

// These do not test for undefined operands.
inline Number WrappedSum(Number left, Number right) {
    return static_cast<Number>(static_cast<std::uint64_t>(left) + static_cast<std::uint64_t>(right));
}
inline Number WrappedDifference(Number left, Number right) {
    return static_cast<Number>(static_cast<std::uint64_t>(left) - static_cast<std::uint64_t>(right));
}

// The result is undefined if either operand is.

inline Number Sum(Number left, Number right) {
    return IsEitherUndefined(left, right) ? kUndefinedNumber : WrappedSum(left, right);
}
inline Number Difference(Number left, Number right) {
    return IsEitherUndefined(left, right) ? kUndefinedNumber : WrappedDifference(left, right);
}
inline Number Product(Number left, Number right) {
    return IsEitherUndefined(left, right)
               ? kUndefinedNumber
               : static_cast<Number>(static_cast<std::uint64_t>(left) * static_cast<std::uint64_t>(right));
}

// A divisor of 0, and the one quotient that 64 bits cannot hold, raise "Warning! (divisor != 0)".
inline Number Quotient(Number left, Number right) {
    if (IsEitherUndefined(left, right)) {
        return kUndefinedNumber;
    }
    Assert(right != 0 && (right != -1 || left != std::numeric_limits<Number>::min()), "divisor != 0");
    return left / right;
}
inline Number Remainder(Number left, Number right) {
    if (IsEitherUndefined(left, right)) {
        return kUndefinedNumber;
    }
    Assert(right != 0, "divisor != 0");
    return right == -1 ? 0 : left % right;
}

// Kept: 0 if either operand is undefined, for `!=` and `||` too.

inline Number Truth(Number left, Number right, bool holds) {
    return !IsEitherUndefined(left, right) && holds ? 1 : 0;
}
inline Number Both(Number left, Number right) { return Truth(left, right, left != 0 && right != 0); }
inline Number Any(Number left, Number right) { return Truth(left, right, left != 0 || right != 0); }

// Kept: prefix operators and functions do not test for an undefined number, so -u is +2147483648.

inline Number Negated(Number operand) { return WrappedDifference(0, operand); }
inline Number Not(Number operand) { return operand == 0 ? 1 : 0; }
inline Number PositiveDifference(Number left, Number right) {
    return left > right ? WrappedDifference(left, right) : 0;
}

} // namespace brixen::zeve::arithmetic
