#include "view/scope/expression_scope.h"

#include "view/express_view_scope.h"
#include "view/verify_generator.h"

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <stdexcept>
#include <string>

namespace brixen::zeve {
namespace {

template <class Call>
std::string FailureOf(Call call) {
    try {
        call();
    } catch (const std::logic_error& error) {
        return error.what();
    }
    return "";
}

TEST(ExpressionScope, ANumberHasTheSharedEmptyText) {
    CExpressionScope scope;
    for (const char* name : {"width", "other"}) {
        scope.DefineNumber(name, 7);
        std::string_view text = "before";
        EXPECT_TRUE(scope.GetString(name, &text));
        EXPECT_EQ(text.data(), kEmptyScopeBytes);
    }
}

TEST(ExpressionScope, ATextHasTheUndefinedNumberAndReadsTrue) {
    CExpressionScope scope;
    scope.DefineString("s", "hello");
    std::int64_t number = 0;
    bool truth = false;
    EXPECT_TRUE(scope.GetLong("s", &number));
    EXPECT_EQ(number, -2147483648LL);
    EXPECT_TRUE(scope.GetBoolean("s", &truth));
    EXPECT_TRUE(truth);
    EXPECT_EQ(scope.GetStringOr("s", ""), "hello");
}

TEST(ExpressionScope, ABooleanIsANumberOtherThanZero) {
    CExpressionScope scope;
    for (const std::int64_t number : {std::int64_t{0}, std::int64_t{-3}, std::int64_t{1} << 32}) {
        bool truth = number == 0;
        scope.DefineNumber("x", number);
        EXPECT_TRUE(scope.GetBoolean("x", &truth));
        EXPECT_EQ(truth, number != 0);
        EXPECT_EQ(scope.GetBooleanOr("x", !truth), truth);
    }
}

TEST(ExpressionScope, AnAbsentNameLeavesTheResultAlone) {
    const CExpressionScope scope;
    bool truth = true;
    std::int64_t whole = 1;
    std::int32_t low = 2;
    std::uint32_t code = 3;
    std::string_view text = "four";
    EXPECT_FALSE(scope.GetBoolean("x", &truth) || scope.GetLong("x", &whole) || scope.GetInt("x", &low) ||
                 scope.GetFourCharCode("x", &code) || scope.GetString("x", &text) || scope.HasVariable("x"));
    EXPECT_TRUE(truth && whole == 1 && low == 2 && code == 3 && text == "four");
    EXPECT_EQ(scope.GetLongOr("x", 5), 5);
    EXPECT_EQ(scope.GetStringOr("x", "six"), "six");
    EXPECT_TRUE(scope.GetBooleanOr("x", true));
}

TEST(ExpressionScope, GettersRefuseANullResult) {
    CExpressionScope scope;
    scope.DefineNumber("x", 1);
    const std::string expected = "Warning! (value != NULL)";
    EXPECT_EQ(FailureOf([&] { scope.GetBoolean("x", nullptr); }), expected);
    EXPECT_EQ(FailureOf([&] { scope.GetLong("x", nullptr); }), expected);
    EXPECT_EQ(FailureOf([&] { scope.GetInt("absent", nullptr); }), expected);
    EXPECT_EQ(FailureOf([&] { scope.GetFourCharCode("x", nullptr); }), expected);
    EXPECT_EQ(FailureOf([&] { scope.GetString("x", nullptr); }), expected);
}

TEST(ExpressionScope, GetIntTakesTheLowHalf) {
    CExpressionScope scope;
    scope.DefineNumber("x", 0x1234567890ABCDEFLL);
    std::int32_t low = 0;
    scope.GetInt("x", &low);
    EXPECT_EQ(low, static_cast<std::int32_t>(0x90ABCDEF));
}

TEST(ExpressionScope, FourCharacterCodeOfPlainTextPacksItsBytes) {
    CExpressionScope scope;
    scope.DefineString("four", "\xC3pqr");
    scope.DefineString("five", "abcde");
    scope.DefineNumber("number", 0x100000041LL);
    EXPECT_EQ(
        [&] {
            std::uint32_t c = 0;
            scope.GetFourCharCode("four", &c);
            return c;
        }(),
        0xC3707172u);
    EXPECT_EQ(
        [&] {
            std::uint32_t c = 0;
            scope.GetFourCharCode("five", &c);
            return c;
        }(),
        0x80000000u);
    EXPECT_EQ(
        [&] {
            std::uint32_t c = 0;
            scope.GetFourCharCode("number", &c);
            return c;
        }(),
        0x41u);
}

TEST(ExpressionScope, AnInnerDefinitionHidesTheOuterOne) {
    CExpressionScope outer;
    CExpressionScope middle(&outer);
    CExpressionScope inner(&middle);
    for (const char* name : {"width", "own_name"}) {
        outer.DefineNumber(name, 1);
        EXPECT_EQ(inner.GetLongOr(name, 0), 1);
        inner.DefineNumber(name, 2);
        EXPECT_EQ(inner.GetLongOr(name, 0), 2);
        EXPECT_EQ(outer.GetLongOr(name, 0), 1);
    }
    EXPECT_FALSE(middle.HasEntries());
    EXPECT_TRUE(inner.HasEntries());
}

TEST(ExpressionScope, NamesAreCaseSensitiveAndOfExactLength) {
    CExpressionScope scope;
    scope.DefineNumber("Width", 1);
    scope.DefineNumber("width2", 2);
    EXPECT_FALSE(scope.HasVariable("width"));
    EXPECT_FALSE(scope.HasVariable("width22"));
    EXPECT_FALSE(scope.HasVariable("Widt"));
}

TEST(ExpressionScope, RedefiningKeepsOneRecord) {
    CExpressionScope scope;
    for (const char* name : {"width", "own_name"}) {
        const std::size_t before = scope.VariableCount();
        scope.DefineNumber(name, 1);
        scope.DefineString(name, "text");
        scope.DefineNumber(name, 2);
        scope.DefineVariable(name, 3, "both");
        EXPECT_EQ(scope.VariableCount(), before + 1) << name;
        EXPECT_EQ(scope.GetLongOr(name, 0), 3);
        EXPECT_EQ(scope.GetStringOr(name, ""), "both");
        scope.DefineNumber(name, 4);
        EXPECT_EQ(scope.GetLongOr(name, 0), 4);
        EXPECT_EQ(scope.GetStringOr(name, "?"), "");
    }
}

TEST(ExpressionScope, ANullTextIsTheSharedEmptyOne) {
    CExpressionScope scope;
    scope.DefineVariable("x", 5, nullptr);
    EXPECT_EQ(scope.GetStringOr("x", "?").data(), kEmptyScopeBytes);
}

// The hash wraps at 32 bits, so a description can make names of equal hash on purpose.
TEST(ExpressionScope, DistinguishesNamesOfEqualHash) {
    CExpressionScope scope;
    scope.DefineNumber("-width", 1); // '-' adds nothing
    scope.DefineNumber("a-b", 2);
    scope.DefineNumber("a.b", 3);
    EXPECT_EQ(ScopeNameHash("-width"), ScopeNameHash("width"));
    EXPECT_FALSE(scope.HasVariable("width"));
    EXPECT_EQ(scope.GetLongOr("a-b", 0), 2);
    EXPECT_EQ(scope.GetLongOr("a.b", 0), 3);
    scope.DefineNumber("width", 4);
    EXPECT_EQ(scope.GetLongOr("-width", 0), 1);
    EXPECT_EQ(scope.GetLongOr("width", 0), 4);
}

TEST(ExpressionScope, HoldsAnyNumberOfNames) {
    CExpressionScope scope;
    for (int n = 0; n < 20000; ++n) {
        scope.DefineNumber("name" + std::to_string(n), n);
        if (n % 997 == 0) {
            EXPECT_EQ(scope.GetLongOr("name" + std::to_string(n / 2), -1), n / 2);
        }
    }
    EXPECT_EQ(scope.VariableCount(), 20000u);
    for (int n = 0; n < 20000; n += 7) ASSERT_EQ(scope.GetLongOr("name" + std::to_string(n), -1), n);
    EXPECT_FALSE(scope.HasVariable("name20000"));
}

TEST(ExpressionScope, TextsOutliveTheScopeInAPoolFromOutside) {
    ScopeStringPool pool;
    std::string_view text;
    {
        CExpressionScope scope(nullptr, nullptr, &pool);
        std::string passing = "kept";
        scope.DefineString("s", passing);
        passing = "gone";
        scope.GetString("s", &text);
    }
    EXPECT_STREQ(text.data(), "kept");
}

TEST(ExpressionScope, CopiesBetweenScopes) {
    CExpressionScope outer, source(&outer), destination;
    outer.DefineNumber("n", 4294967297);
    outer.DefineString("s", "text");
    source.DefineVariable("both", 5, "five");
    EXPECT_TRUE(CopyNumber(destination, source, "n"));
    EXPECT_EQ(destination.GetLongOr("n", 0), 4294967297);
    EXPECT_TRUE(CopyBoolean(destination, source, "n"));
    EXPECT_EQ(destination.GetLongOr("n", 0), 1);
    EXPECT_TRUE(CopyString(destination, source, "s"));
    EXPECT_EQ(destination.GetStringOr("s", ""), "text");
    EXPECT_TRUE(CopyVariable(destination, source, "both"));
    EXPECT_EQ(destination.GetLongOr("both", 0), 5);
    EXPECT_EQ(destination.GetStringOr("both", "?"), "");
    CExpressionScope another;
    EXPECT_TRUE(CopyVariable(another, source, "s"));
    EXPECT_EQ(another.GetStringOr("s", ""), "text");
    EXPECT_EQ(another.GetLongOr("s", 0), kUndefinedNumber);
    EXPECT_FALSE(CopyNumber(another, source, "absent") || CopyBoolean(another, source, "absent") ||
                 CopyString(another, source, "absent") || CopyVariable(another, source, "absent"));
    EXPECT_EQ(another.VariableCount(), 1u);
}

TEST(ExpressionScope, ATextThatIsInThePoolAlreadyIsSharedByCopies) {
    ScopeStringPool pool, elsewhere;
    CExpressionScope source(nullptr, nullptr, &pool), destination(nullptr, nullptr, &pool);
    CExpressionScope other(nullptr, nullptr, &elsewhere);
    source.DefineString("s", "text");
    const char* const stored = source.GetStringOr("s", "").data();
    EXPECT_TRUE(CopyString(destination, source, "s"));
    EXPECT_EQ(destination.GetStringOr("s", "").data(), stored);
    EXPECT_TRUE(CopyVariable(destination, source, "s"));
    EXPECT_EQ(destination.GetStringOr("s", "").data(), stored);
    EXPECT_TRUE(CopyString(other, source, "s"));
    EXPECT_NE(other.GetStringOr("s", "").data(), stored);
    EXPECT_TRUE(elsewhere.Holds(other.GetStringOr("s", "").data()));
}

TEST(ExpressionScope, VariablesLieInTheMemoryOfThePool) {
    ScopeStringPool pool;
    pool.Store("");
    const std::size_t before = pool.Memory().Held();
    {
        CExpressionScope scope(nullptr, nullptr, &pool);
        scope.DefineNumber("own_name", 1);
        EXPECT_GT(pool.Memory().Held(), before);
        for (int n = 0; n < 100; ++n) scope.DefineNumber("name" + std::to_string(n), n);
    }
    EXPECT_EQ(pool.Memory().Held(), before) << "names fit into the block, the rest is given back";
}

TEST(ExpressionScope, ADefinitionThatPassesTheLimitChangesNothing) {
    ScopeStringPool pool;
    CExpressionScope scope(nullptr, nullptr, &pool);
    scope.DefineNumber("first_name", 1);
    pool.Memory().SetLimit(pool.Memory().Held());
    int defined = 1;
    const auto define = [&] { scope.DefineNumber("name" + std::to_string(defined), defined); };
    while (defined < 8) {
        define();
        ++defined;
    }
    EXPECT_THROW(define(), ScopeMemoryExhausted);
    EXPECT_THROW(scope.DefineString("text", std::string(5000, 'x')), ScopeMemoryExhausted);
    EXPECT_EQ(scope.VariableCount(), 8u);
    pool.Memory().SetLimit(ScopeMemory::kUnlimited);
    define();
    EXPECT_EQ(scope.VariableCount(), 9u);
    EXPECT_EQ(scope.GetLongOr("name7", 0), 7);
}

TEST(ExpressionScope, CopiesManyNumbersAsOneByOne) {
    CExpressionScope outer, source(&outer), destination;
    outer.DefineNumber("width", 1);
    outer.DefineNumber("plain", 2);
    source.DefineNumber("width", 3);
    source.DefineString("height", "tall");
    const ScopeName names[] = {"width"_name, "height"_name, "plain"_name, "absent"_name, "margin"_name};
    CopyNumbers(destination, source, names);
    EXPECT_EQ(destination.GetLongOr("width", 0), 3);
    EXPECT_EQ(destination.GetLongOr("height", 0), kUndefinedNumber);
    EXPECT_EQ(destination.GetStringOr("height", "?"), "");
    EXPECT_EQ(destination.GetLongOr("plain", 0), 2);
    EXPECT_EQ(destination.VariableCount(), 3u);
}

TEST(ExpressionScope, CarriesReferencesAtFullWidth) {
    CExpressionScope scope;
    int object = 0;
    scope.DefineNumber("__callback", ReferenceNumber(&object));
    EXPECT_EQ(ReferenceFrom<int>(scope.GetLongOr("__callback", 0)), &object);
}

TEST(ExpressionScope, TakesTheParentsFunctionHostButNotItsObserver) {
    struct Host : ScopeFunctionHost {
        std::int32_t CallFunction(const char*, CExpressionScope&) override { return 0; }
        void ResolveString(std::string&, std::string_view) override {}
    } host, other;
    struct Observer : ScopeParseObserver {
        void OnProduction(ScopeProduction, const char*, const char*) override {}
        bool ResolveVariables() override { return true; }
    } observer;
    CExpressionScope parent(nullptr, &host, nullptr, &observer);
    const CExpressionScope child(&parent);
    const CExpressionScope grandchild(&parent, &other);
    EXPECT_EQ(child.FunctionHost(), &host);
    EXPECT_EQ(child.Observer(), nullptr);
    EXPECT_EQ(grandchild.FunctionHost(), &other);
}

TEST(ExpressionScope, DefinesTheCoreConstantsWhenAsked) {
    CExpressionScope without, with;
    without.DefineConstants(false);
    EXPECT_FALSE(without.HasEntries());
    with.DefineConstants(true);
    const std::pair<const char*, int> constants[] = {
        {"true", 1},        {"false", 0},        {"align_fill", 1},         {"align_left", 4},
        {"align_right", 5}, {"align_top", 4},    {"align_bottom", 5},       {"align_center", 2},
        {"frame_none", 0},  {"frame_bevel", 1},  {"align_proportional", 3}, {"frame_rectangle", 2},
        {"place_row", 1},   {"place_column", 0}, {"place_offscreen", 2}};
    for (const auto& [name, value] : constants) EXPECT_EQ(with.GetLongOr(name, -1), value) << name;
    EXPECT_EQ(with.VariableCount(), std::size(constants));
}

TEST(ExpressViewScope, TakesTheParentsGenerator) {
    CVerifyGenerator generator, other;
    CExpressViewScope root(nullptr, &generator);
    EXPECT_EQ(&CExpressViewScope(&root, nullptr).Generator(), &generator);
    EXPECT_EQ(&CExpressViewScope(&root, &other).Generator(), &other);
}

TEST(ExpressViewScope, CannotBeWithoutAGenerator) {
    CExpressionScope plain;
    EXPECT_EQ(FailureOf([] { CExpressViewScope scope(nullptr, nullptr); }), "Warning! (fGenerator)");
    EXPECT_EQ(FailureOf([&] { CExpressViewScope scope(&plain, nullptr); }), "Warning! (viewParentScope)");
    CVerifyGenerator generator;
    EXPECT_EQ(FailureOf([&] { CExpressViewScope scope(&plain, &generator); }), "");
}

TEST(ExpressViewScope, FactoryDefinesConstantsWhenAsked) {
    CVerifyGenerator generator;
    EXPECT_TRUE(CreateViewScope(nullptr, &generator, nullptr, nullptr, true)->HasVariable("place_row"));
    EXPECT_FALSE(CreateViewScope(nullptr, &generator, nullptr, nullptr, false)->HasEntries());
}

} // namespace
} // namespace brixen::zeve
