// Descriptions that nobody should write: each ends in an assertion or quietly, in time and stack that its
// length bounds. A watchdog of the test driver ends a test that does not.
#include "view/reader/reading_limits.h"
#include "unit/view/view_fixture.h"

#include <cctype>

namespace brixen::zeve {
namespace {

using HostileDescription = DescriptionTest;

// As many different names as wanted, all of one hash: whatever a name begins with, some six bytes behind it
// lead to the hash.
std::string AssignmentsOfOneHash(std::uint32_t count) {
    constexpr std::string_view kBytes = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_";
    constexpr std::uint32_t kHash = 12345;
    std::uint32_t shift = 1;
    for (int place = 0; place < 6; ++place) shift *= 63;
    std::string text;
    for (std::uint32_t n = 0; n < count; ++n) {
        std::string name = "a" + std::to_string(n);
        std::uint32_t rest = kHash - ScopeNameHash(name) * shift;
        std::string end(6, '0');
        for (std::size_t place = 6; place-- > 0; rest /= 63) end[place] = kBytes[rest % 63];
        name += end;
        EXPECT_EQ(ScopeNameHash(name), kHash);
        text += name + "=1;";
    }
    return text;
}

std::string Nested(const std::string& open, std::size_t count, const std::string& middle,
                   const std::string& close) {
    return Repeated(open, count) + middle + Repeated(close, count);
}

struct Nesting {
    const char* open;
    const char* middle;
    const char* close;
};

TEST_F(HostileDescription, ExpressionsNestUpToTheLimit) {
    const Nesting nestings[] = {{"(", "1", ")"},    {"-", "1", ""},       {"!", "1", ""},
                                {"1 == ", "1", ""}, {"1 != ", "1", ""},   {"max(1,", "1", ")"},
                                {"in(", "1", ")"},  {"dim(1,", "1", ")"}, {"1 + (", "1", ")"}};
    for (const Nesting& nesting : nestings) {
        const std::string open = nesting.open;
        const auto assignment = [&](std::size_t depth) {
            return "x = " + Nested(open, depth, nesting.middle, nesting.close) + ";";
        };
        EXPECT_EQ(FailureOf(assignment(kMaximumReadingDepth)), "") << open;
        EXPECT_EQ(FailureOf(assignment(kMaximumReadingDepth + 1)), kNotAllRead) << open;
        EXPECT_EQ(FailureOf(assignment(10000)), kNotAllRead) << open;
        EXPECT_EQ(FailureOf("x = " + Repeated(open, 100000)), kNotAllRead) << open;
    }
}

TEST_F(HostileDescription, AllKindsOfNestingShareOneDepth) {
    // 85 times 3 levels, and one more or two
    EXPECT_EQ(FailureOf("x = " + Repeated("(-max(1,", 85) + "(1)" + Repeated("))", 85) + ";"), "");
    EXPECT_EQ(FailureOf("x = " + Repeated("(-max(1,", 85) + "((1))" + Repeated("))", 85) + ";"), kNotAllRead);
    EXPECT_EQ(Failure(Nested("v() {", 255, "v() { x = 1; }", "}")), "");
    EXPECT_EQ(Failure(Nested("v() {", 255, "v() { x = (1); }", "}")), kNotAllRead);
    for (const std::size_t depth : {254u, 255u}) { // and one of eval, and one of the text's own
        root->DefineString("t", "x = (" + Nested("(", depth - 1, "1", ")") + "); done = done + 1;");
        root->DefineString("outer", "eval(t);");
        EXPECT_EQ(FailureOf("done = 0; eval(outer);"), "");
        EXPECT_EQ(Number("done"), depth == 254 ? 1 : 0);
    }
}

TEST_F(HostileDescription, BlocksNestUpToTheLimit) {
    const auto views = [](std::size_t depth) { return Nested("v() {", depth, "w();", "}"); };
    EXPECT_EQ(Failure(views(kMaximumReadingDepth)), "");
    EXPECT_EQ(Failure(views(kMaximumReadingDepth + 1)), kNotAllRead);
    EXPECT_EQ(Failure(views(10000)), kNotAllRead);
    EXPECT_EQ(Failure(Repeated("v() {", 10000)), kNotAllRead);
    EXPECT_EQ(Failure("dialog(); " + Repeated("{", 100000)), kNotAllRead);
    EXPECT_EQ(Failure(Repeated("v(", 100000)), kNotAllRead);
    EXPECT_EQ(Failure(Repeated("}", 100000)), kNotAllRead);
}

TEST_F(HostileDescription, EvalOfItselfEnds) {
    root->DefineString("s", "n = n + 1; eval(s);");
    EXPECT_EQ(FailureOf("n = 0; eval(s);"), "");
    EXPECT_EQ(Number("n"), kMaximumReadingDepth);
    root->DefineString("s", "n = n + 1; eval(s); eval(s);");
    EXPECT_EQ(FailureOf("n = 0; eval(s);"), "");
    EXPECT_LE(Number("n"), kMaximumEvaluatedTexts);
}

TEST_F(HostileDescription, FortyTextsThatEachRunTheNextOneTwiceEnd) {
    for (int n = 0; n < 40; ++n) {
        const std::string next = "eval(t" + std::to_string(n + 1) + ");";
        root->DefineString("t" + std::to_string(n), next + next);
    }
    root->DefineString("t40", "n = n + 1;");
    EXPECT_EQ(Failure("n = 0; dialog() { eval(t0); }"), "");
    EXPECT_GT(generator.created.size(), 0u);
}

TEST_F(HostileDescription, AsManyTextsRunAsTheLimitSays) {
    const std::string evals = Repeated("eval(t);", kMaximumEvaluatedTexts);
    root->DefineString("t", "n = n + 1;");
    EXPECT_EQ(FailureOf("n = 0;" + evals), "");
    EXPECT_EQ(Number("n"), kMaximumEvaluatedTexts);
    EXPECT_EQ(FailureOf("n = 0;" + evals + "eval(t);"), kNotAllRead);
    EXPECT_EQ(Number("n"), kMaximumEvaluatedTexts);
    EXPECT_EQ(FailureOf("n = 0; eval(t);"), "") << "the count is that of one run";
}

TEST_F(HostileDescription, ManyStatementsAreOnlyLong) {
    EXPECT_EQ(FailureOf(Repeated("x=1;", 300000)), "");
    EXPECT_EQ(FailureOf("x = 1" + Repeated("+1", 200000) + ";"), "");
    EXPECT_EQ(Number("x"), 200001);
    std::string distinct;
    for (int n = 0; n < 60000; ++n) distinct += "v" + std::to_string(n) + "=1;";
    EXPECT_EQ(FailureOf(distinct), "");
    EXPECT_EQ(Failure("dialog() {" + Repeated("v();", 20000) + "}"), "");
    EXPECT_EQ(generator.prepared.size(), 20004u);
}

TEST_F(HostileDescription, NamesOfOneHashAreFoundAsFast) {
    const std::size_t before = root->VariableCount();
    EXPECT_EQ(FailureOf(AssignmentsOfOneHash(100000)), "");
    EXPECT_EQ(root->VariableCount(), before + 100000);
}

TEST_F(HostileDescription, HalfReadHeadsAndCallsAreNotReadAgain) {
    EXPECT_EQ(FailureOf("x = " + Repeated("f(a: ", 10000)), kNotAllRead);
    EXPECT_EQ(Failure(Repeated("v(a: max(1, ", 10000)), kNotAllRead);
    EXPECT_EQ(FailureOf("step(" + Repeated("max(", 10000)), kNotAllRead);
    EXPECT_EQ(FailureOf("align_centers(0" + Repeated(", 1", 50000)), kNotAllRead);
    EXPECT_EQ(FailureOf("x = " + Repeated("1 == ", 100000) + "1;"), kNotAllRead);
    EXPECT_EQ(FailureOf(Repeated("=", 100000)), kNotAllRead);
    EXPECT_EQ(FailureOf("x = " + std::string(100000, '\'') + ";"), kNotAllRead);
}

TEST_F(HostileDescription, TheTextEndsAtItsFirstNul) {
    EXPECT_EQ(Failure(std::string("dialog();\0 garbage", 18)), "");
    EXPECT_EQ(Failure(std::string("dialog(\0);", 10)), kNotAllRead);
    EXPECT_EQ(Failure(std::string("x = 'a\0b'; dialog();", 20)), kNotAllRead);
}

TEST_F(HostileDescription, AnyByteIsJustAByte) {
    for (int byte = 1; byte < 256; ++byte) {
        const std::string one(1, static_cast<char>(byte));
        const std::string failure = Failure(one + "dialog();");
        const bool isBlank = one == " " || one == "\t" || one == "\r" || one == "\n";
        const bool isLetter = (byte < 128 && std::isalpha(byte)) || byte == '_';
        EXPECT_EQ(failure, isBlank || isLetter ? "" : kNotAllRead) << byte;
        EXPECT_EQ(Failure("dialog(); " + one), isBlank ? "" : kNotAllRead) << byte;
    }
}

// A small reproducible stream of pieces of the language in no good order.
TEST_F(HostileDescription, ShuffledPiecesEndInAnAssertionOrNot) {
    const char* const pieces[] = {"a",  "(",     ")",   "{", "}",    ";",      ",",        ":",   "=",
                                  "==", "1",     "'t'", "'", "&x",   "min(",   "eval(a);", "d()", "+",
                                  "!",  "step(", "0",   " ", "in(1", "x = 1;", "v() {",    "a: 1"};
    std::uint32_t state = 12345;
    for (int round = 0; round < 3000; ++round) {
        std::string text;
        for (int piece = 0; piece < 30; ++piece) {
            state = state * 1664525 + 1013904223;
            text += pieces[(state >> 16) % std::size(pieces)];
        }
        const std::string failure = Failure(text);
        EXPECT_TRUE(failure.empty() || failure.starts_with("Warning! (")) << text;
    }
}

} // namespace
} // namespace brixen::zeve
