// Expressions and values, through assignments in the root of a description.
#include "unit/view/view_fixture.h"

#include <limits>

namespace brixen::zeve {
namespace {

using Expression = DescriptionTest;

struct Case {
    const char* text;
    std::int64_t value;
};

TEST_F(Expression, OperatorsAndTheirOrder) {
    root->DefineNumber("five", 5);
    const Case cases[] = {
        {"1 + 2 * 3", 7},
        {"(1 + 2) * 3", 9},
        {"10 - 3 - 2", 5},
        {"10-3+2", 9},
        {"7 / 2", 3},
        {"-7 / 2", -3},
        {"7 % 3", 1},
        {"-7 % 3", -1},
        {"2 * 7 / 3 % 3", 1},
        {"1 < 2", 1},
        {"2 < 1", 0},
        {"2 <= 2", 1},
        {"3 <= 2", 0},
        {"2 >= 2", 1},
        {"1 >= 2", 0},
        {"2 > 1", 1},
        {"1 > 2", 0},
        {"-1 < 0", 1},
        {"2 == 2", 1},
        {"2 == 3", 0},
        {"2 != 3", 1},
        {"2 != 2", 0},
        {"!0", 1},
        {"!5", 0},
        {"!!5", 1},
        {"- - 5", 5},
        {"-+-5", 5},
        {"+5", 5},
        {"3 - -2", 5},
        {"3--2", 5},
        {"five + 1", 6},
        {"five", 5},
        {"1 && 2", 1},
        {"1 && 0", 0},
        {"0 || 0", 0},
        {"0 || 7", 1},
        {"0 && 1 || 1", 1},
        {"1 || 1 && 0", 1},
        {"((((5))))", 5},
        {"\t1\r\n+\n 1 ", 2},
        {"1+1<3", 1},
        {"2 * (3 + 4)", 14},
        {"-2 * -3", 6},
        {"!five + 1", 1},
        {"00012", 12},
        {"9", 9},
    };
    for (const auto& [text, value] : cases) EXPECT_EQ(Evaluate(text), value) << text;
}

TEST_F(Expression, EqualityTakesAWholeExpressionOnItsRight) {
    const Case cases[] = {
        {"2 == 1 + 1", 1},  {"2 == 1 || 1", 0},   {"1 == 1 || 1", 1}, {"5 == 5 && 7", 0},
        {"1 == 5 && 7", 1}, {"0 < 1 == 1", 1},    {"1 < 1 == 1", 0},  {"1 < 2 == 1", 0},
        {"3 == 2 < 5", 0},  {"1 == 2 < 5", 1},    {"1 == 2 == 0", 0}, {"0 == 2 == 0", 1},
        {"3 != 1 && 0", 1}, {"(2 == 1) || 1", 1}, {"1 + 1 == 2", 1},  {"0 || 2 == 2", 1},
    };
    for (const auto& [text, value] : cases) EXPECT_EQ(Evaluate(text), value) << text;
}

TEST_F(Expression, ASingleOperandIsNotNormalized) {
    EXPECT_EQ(Evaluate("7"), 7);
    EXPECT_EQ(Evaluate("+unknown"), kU);
}

TEST_F(Expression, UndefinedArithmetic) {
    root->DefineNumber("u", kUndefinedNumber);
    for (const char* operation : {"+", "-", "*", "/", "%"}) {
        EXPECT_EQ(Evaluate(std::string("u ") + operation + " 2"), kU) << operation;
        EXPECT_EQ(Evaluate(std::string("2 ") + operation + " u"), kU) << operation;
        EXPECT_EQ(Evaluate(std::string("u ") + operation + " 0"), kU) << operation;
    }
    for (const char* operation : {"==", "!=", "<", "<=", ">=", ">", "&&", "||"}) {
        EXPECT_EQ(Evaluate(std::string("u ") + operation + " 1"), 0) << operation;
        EXPECT_EQ(Evaluate(std::string("1 ") + operation + " u"), 0) << operation;
        EXPECT_EQ(Evaluate(std::string("u ") + operation + " u"), 0) << operation;
    }
    const Case cases[] = {{"!u", 0},
                          {"-u", 2147483648},
                          {"+u", kU},
                          {"min(u, 1)", kU},
                          {"max(u, 1)", 1},
                          {"dim(1, u)", 2147483649},
                          {"dim(u, 1)", 0},
                          {"in(u, 0)", 0},
                          {"unknownName == unknownName", 0},
                          {"true || unknownName", 0}};
    for (const auto& [text, value] : cases) EXPECT_EQ(Evaluate(text), value) << text;
}

TEST_F(Expression, IntegersWrapAtThirtyTwoBits) {
    const Case cases[] = {{"2147483647", 2147483647},
                          {"2147483648", kU},
                          {"-2147483648", 2147483648},
                          {"4294967296", 0},
                          {"4294967297", 1},
                          {"4294967295", -1},
                          {"99999999999999999999", 1661992959}};
    for (const auto& [text, value] : cases) EXPECT_EQ(Evaluate(text), value) << text;
}

TEST_F(Expression, ArithmeticWrapsAtSixtyFourBits) {
    constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
    constexpr auto kLeast = std::numeric_limits<std::int64_t>::min();
    root->DefineNumber("most", kMost);
    root->DefineNumber("least", kLeast);
    const Case cases[] = {{"most + 1", kLeast}, {"least - 1", kMost},     {"most * 2", -2},
                          {"-least", kLeast},   {"dim(most, least)", -1}, {"least % -1", 0},
                          {"most / -1", -kMost}};
    for (const auto& [text, value] : cases) EXPECT_EQ(Evaluate(text), value) << text;
}

TEST_F(Expression, ADivisorOfNothingIsAnAssertion) {
    root->DefineNumber("least", std::numeric_limits<std::int64_t>::min());
    for (const char* text : {"1 / 0", "1 % 0", "0 / 0", "least / -1", "least % 0", "5 * (3 / (1 - 1))"}) {
        EXPECT_EQ(FailureOf(std::string("x = ") + text + ";"), kBadDivisor) << text;
    }
}

TEST_F(Expression, BothSidesOfALogicalOperatorAreEvaluated) {
    EXPECT_EQ(FailureOf("x = 0 && 1 / 0;"), kBadDivisor);
    EXPECT_EQ(FailureOf("x = 1 || 1 / 0;"), kBadDivisor);
}

TEST_F(Expression, WhatCannotBeReadStopsTheDescription) {
    for (const char* text :
         {"1 +",    "1 < 2 < 3",  "a b",       "1 2",        "(1",      "1)",       "()",      "",
          "1 & 2",  "1 | 2",      "= 1",       "*1",         "1 ** 2",  "12ab",     "a.b",     "#",
          "max(1)", "max()",      "min(1,)",   "dim(1)",     "min(1,2", "max(1,2,", "dim(1,2", "in(1",
          "in(1,2", "dim(1,2,3)", "dim(1,2,)", "in()",       "foo(1)",  "foo()",    "1 === 1", "'a' + 1",
          "1 == ",  "!",          "-",         "(1 < 2 < 3)"}) {
        EXPECT_EQ(FailureOf(std::string("x = ") + text + ";"), kNotAllRead) << text;
        EXPECT_FALSE(root->HasVariable("x")) << text;
    }
}

TEST_F(Expression, Functions) {
    const Case cases[] = {
        {"min(3, 1, 2)", 1},
        {"max(3, 9, 2)", 9},
        {"min(1,2,)", 1},
        {"max ( 1 , 2 )", 2},
        {"dim(5, 3)", 2},
        {"dim(3, 5)", 0},
        {"dim(4, 4)", 0},
        {"in(3, 1, 3)", 1},
        {"in(2, 1, 3)", 0},
        {"in(40, 40)", 0},
        {"in(-1, -1)", 0},
        {"in(1)", 0},
        {"in(1,)", 0},
        {"in(1, 1,)", 1},
        {"in(0, 0)", 1},
        {"in(31, 31)", 1},
        {"in(32, 32)", 0},
        {"in(3, 35)", 0},
        {"in(0, 32)", 0},
        {"min(-1, 1) + max(2, 3)", 2},
        {"min(max(1, 2), dim(9, 2))", 2},
        {"in(1, in(1, 1))", 1},
    };
    for (const auto& [text, value] : cases) EXPECT_EQ(Evaluate(text), value) << text;
}

TEST_F(Expression, FunctionNamesAreVariablesWithoutAParenthesis) {
    EXPECT_EQ(
        FailureOf("min = 1; max = 2; dim = 3; in = 4; eval = 5; step = 6; align_centers = 7; set_number = 8; "
                  "set_string = 9; sum = min + max + dim + in + eval + step + align_centers + set_number + "
                  "set_string; minimum = 10; sum = sum + minimum;"),
        "");
    EXPECT_EQ(Number("sum"), 55);
}

TEST_F(Expression, AVariableWithTheNameOfAFunctionIsAnArgumentLikeAnyOther) {
    EXPECT_EQ(FailureOf("min = 9; a = max(min, 3, 4); b = max(3, min); c = ((min)); d = in(min, min);"), "");
    EXPECT_EQ(Number("a"), 9);
    EXPECT_EQ(Number("b"), 9);
    EXPECT_EQ(Number("c"), 9);
    EXPECT_EQ(Number("d"), 1);
}

TEST_F(Expression, RemembersTheLastUnresolvedIdentifier) {
    const std::string text = "x = first + second_one * 2; dialog();";
    RunDefinition(*root, text.c_str());
    EXPECT_EQ(root->LastUnresolved(), "second_one");
    EXPECT_EQ(root->LastUnresolved().data(), text.data() + text.find("second_one"));
}

TEST_F(Expression, ALoneIdentifierCopiesBothSides) {
    EXPECT_EQ(
        FailureOf("four = 'OKAY'; two = 'OK'; number = 3; a = four; b = two; c = number; d = four + 0;"), "");
    EXPECT_EQ(Number("a"), 0x4F4B4159);
    EXPECT_EQ(Text("a"), "OKAY");
    EXPECT_EQ(Number("b"), kU);
    EXPECT_EQ(Text("b"), "OK");
    EXPECT_EQ(Number("c"), 3);
    EXPECT_EQ(root->GetStringOr("c", "?").data(), kEmptyScopeBytes);
    EXPECT_EQ(Number("d"), 0x4F4B4159);
    EXPECT_EQ(Text("d"), "");
}

TEST_F(Expression, ALoneUnknownIdentifierIsAnAssertion) {
    EXPECT_EQ(FailureOf("x = missing;"), kNoVariable);
    EXPECT_EQ(FailureOf("x = missing  \n ;"), kNoVariable);
    EXPECT_EQ(FailureOf("x = missing + 1;"), "");
    EXPECT_EQ(Number("x"), kU);
    EXPECT_EQ(Evaluate("(missing)"), kU);
}

// The mark that ends a value depends on its surroundings.
TEST_F(Expression, ALoneIdentifierIsTheWholeOfItsValue) {
    generator.onPrepare = [](std::string_view, CExpressionScope& parameters, CExpressionScope&) {
        for (const char* name : {"first", "last"})
            EXPECT_EQ(parameters.GetStringOr(name, ""), "text") << name;
    };
    EXPECT_EQ(Failure("s = 'text'; dialog(first: s , last: s );"), "");
    EXPECT_EQ(generator.prepared.size(), 1u);
    EXPECT_EQ(Failure("dialog(a: missing, b: 1);"), kNoVariable);
    EXPECT_EQ(Failure("dialog(a: missing;"), kNotAllRead);
    EXPECT_EQ(FailureOf("set_number(&n, missing;"), kNotAllRead);
    EXPECT_EQ(FailureOf("x = missing);"), kNotAllRead);
    EXPECT_EQ(FailureOf("x = missing, y = 1;"), kNotAllRead);
}

TEST_F(Expression, QuotedTexts) {
    EXPECT_EQ(FailureOf("a = 'OKAY'; b = 'OK'; c = ''; d = 'line\nbreak \"x\" \\'; e = 'abcde';"), "");
    std::uint32_t code = 0;
    EXPECT_TRUE(root->GetFourCharCode("a", &code));
    EXPECT_EQ(code, 0x4F4B4159u);
    EXPECT_EQ(Number("b"), kU);
    EXPECT_EQ(Text("c"), "");
    EXPECT_NE(root->GetStringOr("c", "?").data(), kEmptyScopeBytes);
    EXPECT_EQ(Text("d"), "line\nbreak \"x\" \\");
    EXPECT_EQ(Number("e"), kU);
}

TEST_F(Expression, BytesOfAFourCharacterTextSpreadTheirSign) {
    const std::pair<const char*, std::int64_t> cases[] = {
        {"'abcd'", 0x61626364},
        {"'\x80"
         "bcd'",
         static_cast<std::int32_t>(0x80626364)},
        {"'a\x80"
         "cd'",
         static_cast<std::int32_t>(0xFF806364)},
        {"'ab\xC3\xA4'", static_cast<std::int32_t>(0xFFFFFFA4)},
        {"'abc\xFF'", -1},
        {"'\xC3\xA4"
         "bc'",
         static_cast<std::int32_t>(0xFFA46263)}};
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(FailureOf(std::string("x = ") + text + ";"), "");
        EXPECT_EQ(Number("x"), value) << text;
    }
}

TEST_F(Expression, AnUnterminatedTextDoesNotMatch) {
    EXPECT_EQ(Failure("x = 'never ends; dialog();"), kNotAllRead);
    EXPECT_EQ(Failure("x = '"), kNotAllRead);
}

} // namespace
} // namespace brixen::zeve
