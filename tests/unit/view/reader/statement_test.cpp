#include "unit/view/view_fixture.h"

namespace brixen::zeve {
namespace {

using Statement = DescriptionTest;

TEST_F(Statement, StepDefinesASeries) {
    EXPECT_EQ(FailureOf("step(0, 10, &a, & b, &c);"), "");
    EXPECT_EQ(Number("a"), 0);
    EXPECT_EQ(Number("b"), 10);
    EXPECT_EQ(Number("c"), 20);
    EXPECT_EQ(FailureOf("step ( 5 , -2 , &a );"), "");
    EXPECT_EQ(Number("a"), 5);
}

TEST_F(Statement, StepAddsPlainlyToUndefinedNumbers) {
    EXPECT_EQ(FailureOf("step(unknown, 10, &a, &b);"), "");
    EXPECT_EQ(Number("a"), kU);
    EXPECT_EQ(Number("b"), kU + 10);
}

TEST_F(Statement, AFailedStepLeavesItsEarlierTargets) {
    EXPECT_EQ(FailureOf("step(0, 1, &a, &b,);"), kNotAllRead);
    EXPECT_EQ(Number("a"), 0);
    EXPECT_EQ(Number("b"), 1);
    for (const char* text : {"step(0, 1);", "step(0, &a);", "step(0, 1, a);", "step(0, 1, &a)",
                             "step(0, 1, & );", "step(0, 1, &1);"}) {
        EXPECT_EQ(FailureOf(text), kNotAllRead) << text;
    }
}

TEST_F(Statement, AlignCentersCentersOnTheWidest) {
    EXPECT_EQ(FailureOf("align_centers(100, 20, 40, &a, &b);"), "");
    EXPECT_EQ(Number("a"), 110);
    EXPECT_EQ(Number("b"), 100);
    EXPECT_EQ(FailureOf("align_centers(0, 5, 10, 7, &a, &b, &c);"), "");
    EXPECT_EQ(Number("a"), 2);
    EXPECT_EQ(Number("b"), 0);
    EXPECT_EQ(Number("c"), 1);
}

TEST_F(Statement, AlignCentersTakesNoWidthBelowNothing) {
    EXPECT_EQ(FailureOf("align_centers(10, -5, &a);"), "");
    EXPECT_EQ(Number("a"), 12);
}

TEST_F(Statement, AlignCentersAddsPlainlyToUndefinedNumbers) {
    EXPECT_EQ(FailureOf("align_centers(unknown, 20, 40, &a, &b); align_centers(1, unknown, &c);"), "");
    EXPECT_EQ(Number("a"), kU + 10);
    EXPECT_EQ(Number("b"), kU);
    EXPECT_EQ(Number("c"), 1073741825);
}

TEST_F(Statement, AlignCentersNeedsATargetForEachWidth) {
    EXPECT_EQ(FailureOf("align_centers(100, 20, 40, &a);"), kNotAllRead);
    EXPECT_EQ(Number("a"), 110) << "targets are defined one by one";
    for (const char* text :
         {"align_centers(100, 20, &a, &b);", "align_centers(100, &a);", "align_centers(100, 20);",
          "align_centers(100, 20, , &a);", "align_centers(100, 20, &a,);"}) {
        EXPECT_EQ(FailureOf(text), kNotAllRead) << text;
    }
}

TEST_F(Statement, AlignCentersTakesAnyNumberOfWidths) {
    std::string widths, targets;
    for (int n = 0; n < 300; ++n) {
        widths += ", " + std::to_string(n);
        targets += ", &t" + std::to_string(n);
    }
    EXPECT_EQ(FailureOf("align_centers(0" + widths + targets + ");"), "");
    EXPECT_EQ(Number("t0"), 149);
    EXPECT_EQ(Number("t299"), 0);
}

TEST_F(Statement, SetNumberReadsTexts) {
    root->DefineString("text", " \t-42 apples");
    const std::pair<const char*, std::int64_t> cases[] = {{"'12abc'", 12},
                                                          {"'abc'", 0},
                                                          {"''", 0},
                                                          {"'-7'", -7},
                                                          {"'+8'", 8},
                                                          {"' \t\r\n9'", 9},
                                                          {"'- 9'", 0},
                                                          {"'--9'", 0},
                                                          {"'2147483647'", 2147483647},
                                                          {"'2147483648'", 2147483647},
                                                          {"'99999999999999999999999'", 2147483647},
                                                          {"'-2147483648'", kU},
                                                          {"'-99999999999999999999999'", kU},
                                                          {"'1234'", 1234},
                                                          {"text", -42},
                                                          {"5 + 6", 11},
                                                          {"unknown + 0", kU},
                                                          {"3", 3}};
    for (const auto& [value, number] : cases) {
        EXPECT_EQ(FailureOf(std::string("set_number(&n, ") + value + ");"), "") << value;
        EXPECT_EQ(Number("n"), number) << value;
        EXPECT_EQ(root->GetStringOr("n", "?").data(), kEmptyScopeBytes) << value;
    }
}

TEST_F(Statement, SetNumberReadsNoDigitAfterSaturation) {
    gReaderState.limits.evaluatedBytes = 11;
    EXPECT_EQ(FailureOf("set_number(&n, '-99999999999999999999999999999999');"), "");
    EXPECT_EQ(Number("n"), kU);
}

TEST_F(Statement, SetNumberCountsTheBytesThatItReads) {
    gReaderState.limits.evaluatedBytes = 10;
    for (const char* text : {"' 000000007'", "'-000000007 and more'", "'         7'"}) {
        EXPECT_EQ(FailureOf(std::string("set_number(&n, ") + text + ");"), "") << text;
        EXPECT_EQ(std::abs(Number("n")), 7) << text;
    }
    for (const char* text : {"' 0000000007'", "'           7'"}) {
        EXPECT_EQ(FailureOf(std::string("set_number(&n, ") + text + ");"), kNotAllRead) << text;
    }
    EXPECT_EQ(FailureOf("set_number(&n, '12345'); set_number(&n, '12345');"), "");
    EXPECT_EQ(FailureOf("set_number(&n, '12345'); set_number(&m, '123456');"), kNotAllRead);
    EXPECT_FALSE(root->HasVariable("m"));
    EXPECT_EQ(FailureOf("set_number(&n, 12345678901234);"), "") << "a number is no text";
}

TEST_F(Statement, SetStringWritesNumbers) {
    root->DefineNumber("wide", 0x1FFFFFFFFLL);
    const std::pair<const char*, const char*> cases[] = {
        {"12", "12"},   {"-3", "-3"},         {"unknown + 0", "-2147483648"},
        {"wide", "-1"}, {"'plain'", "plain"}, {"'OKAY'", "OKAY"},
        {"''", ""}};
    for (const auto& [value, text] : cases) {
        EXPECT_EQ(FailureOf(std::string("set_string(&s, ") + value + ");"), "") << value;
        EXPECT_EQ(Text("s"), text) << value;
        EXPECT_EQ(Number("s"), kU) << value;
        EXPECT_NE(root->GetStringOr("s", "?").data(), kEmptyScopeBytes) << value;
    }
}

TEST_F(Statement, ConversionsNeedATargetAValueAndAnEnd) {
    for (const char* text : {"set_number(&n);", "set_number(n, 1);", "set_number(&n, 1, 2);",
                             "set_number(&n, 1)", "set_number(&n, );", "set_string(&s);", "set_string(s, 1);",
                             "set_string(&, 1);", "set_string(&s, 'open);"}) {
        EXPECT_EQ(FailureOf(text), kNotAllRead) << text;
    }
    EXPECT_EQ(FailureOf("set_number(&n, missing);"), kNoVariable);
}

TEST_F(Statement, AnAssignmentWithoutItsEndDefinesNothing) {
    for (const char* text : {"x = 1", "x = 'text'", "x = 1 2;", "x == 1;", "= 1;", "1 = 1;", "x 1;", "x;"}) {
        EXPECT_EQ(FailureOf(text), kNotAllRead) << text;
        EXPECT_FALSE(root->HasVariable("x")) << text;
    }
}

TEST_F(Statement, EvalRunsATextInPlace) {
    root->DefineString("text", "a = 1; b = a + 1;");
    EXPECT_EQ(FailureOf("eval(text); c = b + 1; eval('d = 4;'); eval ( text ) ;"), "");
    EXPECT_EQ(Number("c"), 3);
    EXPECT_EQ(Number("d"), 4);
}

TEST_F(Statement, EvalEndsQuietlyAtWhatItCannotRead) {
    root->DefineString("text", "a = 1; b = ; c = 3;");
    EXPECT_EQ(FailureOf("eval(text); d = 4;"), "");
    EXPECT_EQ(Number("a"), 1);
    EXPECT_FALSE(root->HasVariable("b") || root->HasVariable("c"));
    EXPECT_EQ(Number("d"), 4);
}

TEST_F(Statement, EvalOfAnUnknownNameRunsItsSpelling) {
    EXPECT_EQ(FailureOf("eval(part); eval(part);"), "");
    EXPECT_EQ(FailureOf("number = 5; eval(number);"), "") << "a number has an empty text";
}

TEST_F(Statement, EvalNeedsAStringAndAnEnd) {
    for (const char* text :
         {"eval(1);", "eval('a' 'b');", "eval('a')", "eval('a'", "eval('a);", "eval(a + b);"}) {
        EXPECT_EQ(FailureOf(text), kNotAllRead) << text;
    }
}

TEST_F(Statement, EvalDefinesInItsOwnScope) {
    root->DefineString("text", "inner = 1;");
    EXPECT_EQ(Failure("dialog() { eval(text); button(width: inner); }"), "");
    EXPECT_FALSE(root->HasVariable("inner"));
}

} // namespace
} // namespace brixen::zeve
