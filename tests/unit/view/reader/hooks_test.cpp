// The function host and the observer.
#include "unit/view/view_fixture.h"

#include <gmock/gmock.h>

namespace brixen::zeve {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Pair;

class Host : public ScopeFunctionHost {
public:
    std::int32_t CallFunction(const char* name, CExpressionScope& arguments) override {
        calls.emplace_back(name);
        published.push_back(gReaderState.currentScope);
        EXPECT_EQ(arguments.Parent(), gReaderState.currentScope);
        EXPECT_EQ(arguments.Observer(), arguments.Parent()->Observer());
        if (calls.back() == "refuse") throw std::runtime_error("refused");
        return static_cast<std::int32_t>(arguments.GetLongOr("a", 0) * 10 + arguments.GetLongOr("b", 0));
    }
    void ResolveString(std::string& outText, std::string_view key) override {
        outText = "1" + std::string(key);
    }
    std::vector<std::string> calls;
    std::vector<CExpressionScope*> published;
};

class UserFunction : public DescriptionTest {
protected:
    UserFunction() { UseHooks(&host, nullptr); }
    Host host;
};

TEST_F(UserFunction, TakesParametersByName) {
    EXPECT_EQ(Evaluate("twice(a: 4, b: 2) + 1"), 43);
    EXPECT_EQ(Evaluate("none()"), 0);
    EXPECT_EQ(Evaluate("f(a: 1, b: a + 1)"), 12) << "a parameter sees the earlier ones";
    EXPECT_EQ(Evaluate("f(a: f(b: 3))"), 30);
    EXPECT_THAT(host.calls, ElementsAre("twice", "none", "f", "f", "f"));
}

TEST_F(UserFunction, PublishesTheScopeOfTheExpressionForTheCall) {
    Evaluate("f(a: 1)");
    EXPECT_THAT(host.published, ElementsAre(root.get()));
    EXPECT_EQ(gReaderState.currentScope, nullptr);
    EXPECT_THROW(Run("x = refuse();"), std::runtime_error);
    EXPECT_EQ(gReaderState.currentScope, nullptr);
}

TEST_F(UserFunction, TheResultIsWidenedWithItsSign) { EXPECT_EQ(Evaluate("f(b: -1)"), -1); }

TEST_F(UserFunction, MayShareANameWithABuiltIn) {
    EXPECT_EQ(Evaluate("min(a: 2)"), 20);
    EXPECT_EQ(Evaluate("min(3, 2)"), 2);
    EXPECT_THAT(host.calls, ElementsAre("min"));
}

TEST_F(UserFunction, IsNotCalledByItsNameAlone) {
    root->DefineNumber("a", 7);
    EXPECT_EQ(Evaluate("((a))"), 7);
    EXPECT_EQ(Evaluate("a + 1"), 8);
    EXPECT_EQ(Evaluate("max(a, 3)"), 7);
    EXPECT_TRUE(host.calls.empty());
}

TEST_F(UserFunction, AllowsNoTrailingComma) {
    for (const char* text : {"f(a: 1,)", "f(a)", "f(1)", "f(a: 1 b: 2)", "f("}) {
        EXPECT_EQ(FailureOf(std::string("x = ") + text + ";"), kNotAllRead) << text;
    }
    EXPECT_TRUE(host.calls.empty());
}

TEST_F(UserFunction, ReachesExpressionsInBlocksAndHeads) {
    Run("dialog(width: f(a: 1)) { x = f(a: 2); button(); }");
    EXPECT_EQ(host.calls.size(), 2u);
    EXPECT_NE(host.published[0], root.get());
}

TEST_F(UserFunction, ResolvesTheTextsOfSetNumber) {
    EXPECT_EQ(FailureOf("set_number(&n, '23'); set_number(&m, 5);"), "");
    EXPECT_EQ(Number("n"), 123);
    EXPECT_EQ(Number("m"), 5);
}

class Observer : public ScopeParseObserver {
public:
    void OnProduction(ScopeProduction code, const char* begin, const char* end) override {
        ASSERT_LE(begin, end);
        seen.emplace_back(static_cast<int>(code), std::string(begin, end));
    }
    bool ResolveVariables() override { return resolves; }

    std::vector<std::pair<int, std::string>> seen;
    bool resolves = true;
};

class Observing : public DescriptionTest {
protected:
    Observing() { UseHooks(&host, &observer); }

    void Watch(const std::string& text) {
        observer.seen.clear();
        Run(text);
    }
    Host host;
    Observer observer;
};

TEST_F(Observing, HearsEveryProductionInnerOnesFirst) {
    Watch(" x = 1 ; d ( ) ; ");
    EXPECT_THAT(observer.seen,
                ElementsAre(Pair(45, "x"), Pair(46, "1"), Pair(47, "1"), Pair(32, "1"), Pair(31, "1"),
                            Pair(27, "1"), Pair(9, "1"), Pair(24, "1"), Pair(19, "1"), Pair(18, "1"),
                            Pair(10, "1"), Pair(15, "1"), Pair(12, "x = 1 ;"), Pair(45, "d"), Pair(41, ""),
                            Pair(52, "d ( )"), Pair(51, "d ( ) ;"), Pair(50, "d ( ) ;"),
                            Pair(49, "x = 1 ; d ( ) ;"), Pair(48, "")));
}

TEST_F(Observing, HearsTheCodeAndTheRangeOfEachKind) {
    struct Case {
        const char* text;
        int code;
        const char* range;
    };
    const Case cases[] = {
        {"step(0, 1, &a);", 3, "step(0, 1, &a);"},
        {"step(0, 1, &a);", 4, "step(0, 1, &a);"},
        {"align_centers(0, 1, &a) ;", 5, "align_centers(0, 1, &a) ;"},
        {"align_centers(0, 1, &a);", 3, "align_centers(0, 1, &a);"},
        {"eval( word );", 6, "word"},
        {"s = 'a'; eval(s);", 7, "s"},
        {"eval( 'a=1;' );", 8, "'a=1;'"},
        {"x = 1 + 2 ;", 9, "1 + 2"},
        {"x = 1 || 2;", 10, "1 || 2"},
        {"x = 'quoted';", 11, "'quoted'"},
        {"x = 'quoted' ;", 12, "x = 'quoted' ;"},
        {"x = true ;", 13, "true"},
        {"x = 'quoted' ;", 14, "'quoted'"},
        {"x = 1 + 2 ;", 15, "1 + 2"},
        {"x = 1 + 2 ;", 16, "+ 2"},
        {"x = 1 - 2 ;", 17, "- 2"},
        {"x = 1 && 2;", 18, "1 && 2"},
        {"x = 1 > 2;", 19, "1 > 2"},
        {"x = 1 > 2;", 20, "> 2"},
        {"x = 1 >= 2;", 21, ">= 2"},
        {"x = 1 < 2;", 22, "< 2"},
        {"x = 1 <= 2;", 23, "<= 2"},
        {"x = 1 == 2 ;", 24, "1 == 2"},
        {"x = 1 == 2 || 3;", 25, "== 2 || 3"},
        {"x = 1 != 2;", 26, "!= 2"},
        {"x = 1 * 2 / 3;", 27, "1 * 2 / 3"},
        {"x = 1 * 2 / 3;", 28, "* 2"},
        {"x = 1 * 2 / 3;", 29, "/ 3"},
        {"x = 1 % 2;", 30, "% 2"},
        {"x = - 1;", 31, "- 1"},
        {"x = max(1, 2);", 32, "max(1, 2)"},
        {"x = 1 + true ;", 33, "true"},
        {"x = ( 1 ) ;", 34, "( 1 )"},
        {"x = + 1;", 35, "+ 1"},
        {"x = - 1;", 36, "- 1"},
        {"x = ! 1;", 37, "! 1"},
        {"x = dim(1, 2);", 38, "dim(1, 2)"},
        {"x = f(a: 1) ;", 39, "f(a: 1)"},
        {"x = f(a: 1) ;", 38, "f(a: 1)"},
        {"x = f( a : 1 );", 40, "a : 1"},
        {"x = f( a: 1, b: 2 );", 41, "a: 1, b: 2"},
        {"x = dim (1, 2);", 42, "dim (1, 2)"},
        {"x = min(1, 2);", 43, "min(1, 2)"},
        {"x = max(1, 2);", 43, "max(1, 2)"},
        {"x = in(1, 2) ;", 44, "in(1, 2)"},
        {"word = 1;", 45, "word"},
        {"x = 123 ;", 46, "123"},
        {"x = 123 ;", 47, "123"},
        {"eval('x = 1; ?');", 48, ""},
        {"eval('x = 1; ?');", 49, "x = 1;"},
        {"eval('x = 1;') ;", 54, "eval('x = 1;') ;"},
        {"set_number(&n, 1);", 55, "set_number(&n, 1);"},
        {"set_number(&n, 1);", 3, "set_number(&n, 1);"},
        {"set_string(&n, 1);", 56, "set_string(&n, 1);"},
        {"set_string(&n, 1);", 3, "set_string(&n, 1);"},
    };
    for (const auto& [text, code, range] : cases) {
        Watch(std::string(text) + " dialog();");
        EXPECT_THAT(observer.seen, Contains(Pair(code, std::string(range)))) << text << " for code " << code;
    }
}

TEST_F(Observing, HearsTheEndOfAnEvaluatedTextAsOfTheDefinition) {
    Watch("eval('x = 1;'); eval('?'); dialog();");
    EXPECT_THAT(observer.seen, Contains(Pair(48, "")).Times(3));
}

TEST_F(Observing, HearsOfViewsAndBlocks) {
    Watch("dialog( w: 1 ) { a(); b() { } } ");
    EXPECT_THAT(observer.seen, Contains(Pair(53, "{ a(); b() { } }")));
    EXPECT_THAT(observer.seen, Contains(Pair(53, "{ }")));
    EXPECT_THAT(observer.seen, Contains(Pair(52, "dialog( w: 1 )")));
    EXPECT_THAT(observer.seen, Contains(Pair(51, "b() { }")));
    EXPECT_THAT(observer.seen, Contains(Pair(50, "a();")));
    EXPECT_THAT(observer.seen, Contains(Pair(49, "a(); b() { }")));
    EXPECT_THAT(observer.seen, Contains(Pair(41, "w: 1")));
}

TEST_F(Observing, IsPassedOnToTheScopesOfHeadsBlocksAndCalls) {
    generator.onPrepare = [this](std::string_view, CExpressionScope& head, CExpressionScope& attributes) {
        EXPECT_EQ(head.Observer(), &observer);
        EXPECT_EQ(head.Parent()->Observer(), &observer);
        EXPECT_EQ(attributes.Observer(), nullptr);
    };
    Watch("dialog() { x = f(a: 1); button(width: f(a: 2)); }");
    EXPECT_EQ(generator.prepared.size(), 2u);
    EXPECT_EQ(host.calls.size(), 2u);
}

TEST_F(Observing, MayKeepVariablesFromBeingLookedUp) {
    observer.resolves = false;
    Watch("x = missing; y = 1; y = x; dialog(width: missing);");
    EXPECT_EQ(Number("x"), kU);
    EXPECT_EQ(Text("x"), "");
    EXPECT_EQ(Number("y"), kU);
    EXPECT_THAT(observer.seen, Contains(Pair(13, "missing")));
}

} // namespace
} // namespace brixen::zeve
