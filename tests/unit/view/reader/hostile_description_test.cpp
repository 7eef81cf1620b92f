// Hostile descriptions: each ends in an assertion or quietly. Their length bounds their time
// and stack. The test driver ends a test that takes too long.
#include "unit/view/view_fixture.h"
#include "view/reader/reading_limits.h"

#include <gmock/gmock.h>

#include <cctype>

namespace brixen::zeve {
namespace {

using HostileDescription = DescriptionTest;

constexpr ReadingLimits kLimits;

// Makes `count` different names of one hash: six bytes at the end of any name can lead to any hash.
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
    EXPECT_LE(Number("n"), kLimits.evaluatedTexts);
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

TEST_F(HostileDescription, AsManyTextsRunAsTheLimitAllows) {
    const std::string evals = Repeated("eval(t);", 65536);
    root->DefineString("t", "n = n + 1;");
    EXPECT_EQ(FailureOf("n = 0;" + evals), "");
    EXPECT_EQ(Number("n"), 65536);
    EXPECT_EQ(FailureOf("n = 0;" + evals + "eval(t);"), kNotAllRead);
    EXPECT_EQ(Number("n"), 65536);
    EXPECT_EQ(FailureOf("n = 0; eval(t);"), "") << "the count is that of one run";
}

TEST_F(HostileDescription, AsManyBytesAreEvaluatedAsTheLimitAllows) {
    const std::string evals = Repeated("eval(t);", 16);
    root->DefineString("t", "n = n + 1;" + std::string((1 << 20) - 10, ' '));
    root->DefineString("one", ";");
    EXPECT_EQ(FailureOf("n = 0;" + evals), "");
    EXPECT_EQ(Number("n"), 16);
    EXPECT_EQ(FailureOf("n = 0;" + evals + "eval('');"), "") << "no byte more";
    EXPECT_EQ(FailureOf("n = 0;" + evals + "eval(one);"), kNotAllRead);
    EXPECT_EQ(FailureOf("n = 0; eval(t);"), "") << "the count is that of one run";
}

TEST_F(HostileDescription, NoTextIsEvaluatedAfterOneThatPassesTheLimit) {
    gReaderState.limits.evaluatedBytes = 30;
    root->DefineString("long", std::string(40, ' '));
    root->DefineString("short", "n = 1;");
    root->DefineString("both", "eval(long);");
    EXPECT_EQ(FailureOf("eval(short);"), "");
    EXPECT_EQ(Number("n"), 1);
    EXPECT_EQ(FailureOf("n = 0; eval(both); eval(short);"), kNotAllRead);
    EXPECT_EQ(Number("n"), 0);
}

TEST_F(HostileDescription, AsManyViewsAreMadeAsTheLimitAllows) {
    const std::string views = Repeated("v();", 32766);
    EXPECT_EQ(Failure("dialog() {" + views + "}"), "");
    EXPECT_EQ(generator.created.size(), 32767u);
    generator.prepared.clear();
    EXPECT_EQ(Failure("dialog() {" + views + "v(); }"), kNotAllRead);
    EXPECT_EQ(generator.prepared.size(), 32767u);
    EXPECT_EQ(Failure("dialog();"), "") << "the count is that of one run";
}

TEST_F(HostileDescription, ViewsThatFailCountToo) {
    gReaderState.limits.views = 4;
    root->DefineString("half", "v() {");
    EXPECT_EQ(Failure("dialog() { eval(half); eval(half); v(); }"), "");
    EXPECT_EQ(Failure("dialog() { eval(half); eval(half); v(); v(); }"), kNotAllRead);
    EXPECT_EQ(Failure("dialog() { v(); v(); v(); eval(half); }"), "") << "eval ends quietly";
    EXPECT_THAT(generator.prepared, testing::SizeIs(12));
}

TEST_F(HostileDescription, AsManyScopesAreSearchedAsTheLimitAllows) {
    EXPECT_EQ(gReaderState.limits.searches, 67'108'864u);
    gReaderState.limits.searches = 10;
    const std::string ten = "x = q" + Repeated("+q", 9) + ";";
    EXPECT_EQ(Failure(ten), kNotOneView);
    EXPECT_EQ(Failure(ten + "y = x;"), kNotAllRead);
    EXPECT_FALSE(root->HasVariable("y"));
    EXPECT_EQ(Failure(Repeated("y = x;", 10)), kNotOneView);
    EXPECT_EQ(Failure(Repeated("y = x;", 11)), kNotAllRead);
    EXPECT_EQ(Failure(Repeated("eval(q);", 10)), kNotOneView);
    EXPECT_EQ(Failure(Repeated("eval(q);", 11)), kNotAllRead);
    gReaderState.limits.searches = 64 + 128 + 2;
    EXPECT_EQ(Failure("d() { v(); x = q + 0; }"), "") << "two scopes in a block";
    EXPECT_EQ(Failure("d() { v(); x = q + q; }"), kNotAllRead);
    EXPECT_EQ(Failure("d() { v(); } w();"), kNotAllRead);
}

// The memory of a run, with a limit that a test can afford.
class HostileMemory : public DescriptionTest {
protected:
    bool Fits(const std::string& text, std::size_t limit) {
        generator.prepared.clear();
        generator.created.clear();
        pavane_test::RecordingGenerator fresh;
        const auto scope = CreateViewScope(nullptr, &fresh, nullptr, nullptr, true);
        gReaderState.limits.memory = limit;
        try {
            RunDefinition(*scope, text.c_str());
            return true;
        } catch (const std::logic_error& error) {
            EXPECT_STREQ(error.what(), kNotAllRead);
            EXPECT_LE(fresh.pool.Memory().Held(), limit);
            EXPECT_EQ(fresh.pool.Memory().Limit(), ScopeMemory::kUnlimited);
            return false;
        }
    }

    // Returns the lowest limit that the description fits into.
    std::size_t Need(const std::string& text) {
        std::size_t tooLow = 0, enough = std::size_t{1} << 24;
        EXPECT_TRUE(Fits(text, enough));
        while (enough - tooLow > 1) {
            const std::size_t middle = (enough + tooLow) / 2;
            (Fits(text, middle) ? enough : tooLow) = middle;
        }
        return enough;
    }
};

TEST_F(HostileMemory, ADescriptionFailsOneByteBeyondTheLimit) {
    EXPECT_EQ(kLimits.memory, std::size_t{256} << 20);
    std::string variables;
    for (int n = 0; n < 1000; ++n) variables += "v" + std::to_string(n) + "=1;";
    const std::string descriptions[] = {
        "d();", variables + "d();", "x = '" + std::string(20000, 'x') + "'; d();",
        "d() {" + Repeated("v();", 1000) + "}", "d() { a = 1; e() { b = 2; f(c: 3); } }"};
    for (const std::string& text : descriptions) {
        const std::size_t need = Need(text);
        EXPECT_TRUE(Fits(text, need));
        EXPECT_FALSE(Fits(text, need - 1));
    }
}

TEST_F(HostileMemory, VariablesTextsAndViewsAllCount) {
    const std::size_t least = Need("d();");
    std::string variables;
    for (int n = 0; n < 1000; ++n) variables += "v" + std::to_string(n) + "=1;";
    EXPECT_GT(Need(variables + "d();"), least + 1000 * 48);
    EXPECT_GT(Need("x = '" + std::string(20000, 'x') + "'; d();"), least + 20000);
    EXPECT_GT(Need("d() {" + Repeated("v();", 1000) + "}"), least + 1000 * 400);
    EXPECT_GT(Need("d() { a = 1; e() { b = 2; } }"), Need("d() { e() { } }")) << "blocks have variables";
}

TEST_F(HostileMemory, IsGivenBackAfterTheRun) {
    Run("d();");
    const std::size_t before = generator.pool.Memory().Held();
    Run("d() {" + Repeated("v() { a = 1; }", 1000) + "}");
    EXPECT_LT(generator.pool.Memory().Held() - before, 10000u) << "only texts and names stay";
}

TEST_F(HostileMemory, AnInheritedTextIsStoredOnce) {
    generator.onPrepare = [](std::string_view, CExpressionScope& parameters, CExpressionScope& attributes) {
        EXPECT_TRUE(CopyString(attributes, parameters, "name"));
        EXPECT_TRUE(CopyVariable(attributes, parameters, "items"));
    };
    const std::string text(1 << 20, 'x');
    root->DefineString("items", "1");
    EXPECT_EQ(
        Failure("name = '" + text + "'; dialog() { items = name; " + Repeated("v(items: name);", 1000) + "}"),
        "");
    EXPECT_LT(generator.pool.Memory().Held(), text.size() * 3);
}

TEST_F(HostileDescription, ARunBeginsWithTheWholeSystemBudget) {
    gReaderState.limits.measuredUnits = 1;
    gReaderState.limits.shownBytes = 4;
    gReaderState.limits.listItems = 2;
    gReaderState.limits.controls = 3;
    generator.onPrepare = [this](std::string_view, CExpressionScope&, CExpressionScope&) {
        EXPECT_EQ(generator.budget.measuredUnits, 1u);
        EXPECT_EQ(generator.budget.shownBytes, 4u);
        EXPECT_EQ(generator.budget.listItems, 2u);
        EXPECT_EQ(generator.budget.controls, 3u);
        Spend(generator.budget.measuredUnits, 1);
    };
    EXPECT_EQ(Failure("v();"), "");
    EXPECT_EQ(Failure("v();"), "") << "the budget is that of one run";
    EXPECT_EQ(generator.budget.measuredUnits, SystemBudget::kUnlimited) << "making the boxes is not limited";
}

TEST_F(HostileDescription, AViewThatPassesTheSystemBudgetFails) {
    generator.onPrepare = [this](std::string_view keyword, CExpressionScope&, CExpressionScope&) {
        Spend(generator.budget.listItems, keyword == "big" ? 3 : 1);
    };
    gReaderState.limits.listItems = 3;
    root->DefineString("t", "big(); x = 1;");
    EXPECT_EQ(Failure("d() { v(); v(); }"), "");
    EXPECT_EQ(Failure("d() { v(); v(); v(); }"), kNotAllRead);
    EXPECT_EQ(Failure("d() { big(); v(); }"), kNotAllRead);
    EXPECT_EQ(Failure("d() { eval(t); v(); v(); }"), "") << "eval ends quietly, and nothing was taken";
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
