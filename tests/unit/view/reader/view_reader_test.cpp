#include "view/reader/run_definition.h"

#include "frame/frame_state.h"
#include "frame/log.h"
#include "support/temporary_folder.h"
#include "unit/view/view_fixture.h"
#include "view/verify_generator.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace brixen::zeve {
namespace {

using testing::ElementsAre;
using ViewReaderTest = DescriptionTest;

TEST_F(ViewReaderTest, AViewWithoutChildrenIsAWholeDescription) {
    for (const char* text :
         {"dialog();", "dialog() { }", "dialog(){}", " dialog ( ) ; ", "\r\n\tdialog()\n{\n}\n"}) {
        EXPECT_EQ(Failure(text), "") << text;
    }
}

TEST_F(ViewReaderTest, ThereMustBeExactlyOneViewAtTheTop) {
    for (const char* text : {"", " \n", "a = 1;", "a(); b();", "a() {} b() {}"}) {
        EXPECT_EQ(Failure(text), kNotOneView) << text;
    }
}

TEST_F(ViewReaderTest, WhatIsLeftOverIsAnAssertion) {
    for (const char* text :
         {"dialog() { };", "dialog()", "dialog", "dialog(;", "dialog() {", "dialog() { button() }",
          "dialog() { } }", "dialog(a: 1,);", "dialog(,);", "dialog(a);", "dialog(a:);", "dialog(a: 1 b: 2);",
          "dialog(1);", "// no comments\ndialog();", "dialog(); ?", "dialog() { x = 1 }",
          "dialog() { button(width: 1 +); }", "(dialog)();", "}"}) {
        EXPECT_EQ(Failure(text), kNotAllRead) << text;
    }
}

TEST_F(ViewReaderTest, ANullDescriptionIsAnAssertion) {
    EXPECT_THROW(RunDefinition(*root, nullptr), std::logic_error);
}

TEST_F(ViewReaderTest, ViewsArePreparedAndCreatedInTheOrderOfTheText) {
    Run("w = 2 * 3; dialog() { row() { a(); b(); } eval('c(); d() { e(); }'); }");
    const std::vector<std::string> expected = {"dialog", "row", "a", "b", "c", "d", "e"};
    EXPECT_EQ(generator.prepared, expected);
    std::vector<std::string> created;
    for (const auto& view : generator.created) created.push_back(view.keyword);
    EXPECT_EQ(created, expected);
    EXPECT_EQ(generator.created[3].parent, generator.created[1].handle);
    EXPECT_EQ(generator.created[6].parent, generator.created[5].handle);
    EXPECT_EQ(generator.created[0].parent, nullptr);
}

TEST_F(ViewReaderTest, TheRunReturnsTheRootsHandleOrTheFixedRoot) {
    const ViewHandle root = Run("dialog();");
    ASSERT_EQ(generator.created.size(), 1u);
    EXPECT_EQ(root, generator.created[0].handle);
    generator.fixedRoot = generator.MakeHandle(77);
    EXPECT_EQ(Run("dialog();"), generator.MakeHandle(77));
}

TEST_F(ViewReaderTest, AnUnknownVariableAsParameterIsAnAssertion) {
    EXPECT_EQ(Failure("dialog(width: missing);"), kNoVariable);
    generator.onPrepare = [](std::string_view, CExpressionScope&, CExpressionScope& attributes) {
        EXPECT_EQ(attributes.GetLongOr("width", 0), kU);
    };
    EXPECT_EQ(Failure("dialog(width: missing + 0);"), "");
    EXPECT_EQ(generator.prepared.size(), 1u);
}

// What each view saw in its parameters' chain when it was prepared.
class SeenByViews : public DescriptionTest {
protected:
    SeenByViews() {
        generator.onPrepare = [this](std::string_view, CExpressionScope& viewAttributes,
                                     CExpressionScope& attributes) {
            fromChain.push_back(viewAttributes.GetLongOr("value", -1));
            spacing.push_back(attributes.GetLongOr("spacing", -1));
            EXPECT_EQ(attributes.Parent(), nullptr);
            EXPECT_EQ(&attributes.Pool(), &generator.pool);
        };
    }
    std::vector<std::int64_t> fromChain, spacing;
};

TEST_F(SeenByViews, VariablesOfEnclosingBlocksReachEveryView) {
    Run("spacing = 4; dialog() { button(); row(spacing: 5) { button(); } }");
    EXPECT_THAT(spacing, ElementsAre(4, 4, 5, 4));
}

TEST_F(SeenByViews, ABlocksVariablesEndWithIt) {
    Run("value = 1; dialog() { a(); value = 2; b(); row() { value = 3; c(); } d(); }");
    EXPECT_THAT(fromChain, ElementsAre(1, 1, 2, 2, 3, 2));
    EXPECT_EQ(Number("value"), 1);
}

TEST_F(SeenByViews, ABlockHasAViewScopeOfItsOwnWithoutConstants) {
    generator.onPrepare = [this](std::string_view keyword, CExpressionScope& head, CExpressionScope&) {
        auto* block = dynamic_cast<CExpressViewScope*>(head.Parent());
        ASSERT_NE(block, nullptr);
        EXPECT_EQ(&block->Generator(), &generator);
        EXPECT_EQ(block->Parent(), keyword == "dialog" ? nullptr : root.get());
        EXPECT_EQ(block->HasEntries(), keyword == "dialog");
        EXPECT_EQ(head.GetLongOr("true", 0), 5);
    };
    Run("true = 5; dialog(value: 1) { a(value: 2); }");
    EXPECT_THAT(generator.prepared, ElementsAre("dialog", "a"));
}

TEST_F(SeenByViews, ParametersAreNotSeenByChildren) {
    Run("dialog(value: 1) { a(); b(value: 2); c(); }");
    EXPECT_THAT(fromChain, ElementsAre(1, -1, 2, -1));
}

TEST_F(SeenByViews, AParameterSeesTheEarlierOnes) {
    Run("value = 5; dialog(w: 10, value: w + value, value: value + 1) { a(); }");
    EXPECT_THAT(fromChain, ElementsAre(16, 5));
}

TEST_F(SeenByViews, EvalInABlockAddsItsViewsThere) {
    root->DefineString("part", "button(value: 1); button(value: 2);");
    Run("dialog() { a(value: 0); eval(part); }");
    EXPECT_THAT(fromChain, ElementsAre(-1, 0, 1, 2));
}

TEST_F(SeenByViews, AVariableMayBearTheNameOfAView) {
    Run("dialog = 3; dialog(value: dialog);");
    EXPECT_THAT(fromChain, ElementsAre(3));
}

TEST_F(ViewReaderTest, TextsOfParametersReachThePreparationAndSurviveInTheGeneratorsPool) {
    std::string_view kept;
    generator.onPrepare = [&](std::string_view, CExpressionScope& viewAttributes,
                              CExpressionScope& attributes) {
        CopyString(attributes, viewAttributes, "name");
        attributes.GetString("name", &kept);
    };
    Run("dialog(name: 'Hello', other: 'OKAY', third: name);");
    EXPECT_STREQ(kept.data(), "Hello");
}

TEST_F(ViewReaderTest, AViewMayBearTheNameOfAStatement) {
    Run("eval() { step(); align_centers(width: 3); set_number() {} set_string(a: 1); min(); }");
    EXPECT_THAT(generator.prepared,
                ElementsAre("eval", "step", "align_centers", "set_number", "set_string", "min"));
}

TEST_F(ViewReaderTest, InheritsAlignmentAndOffscreenFromTheEnclosingView) {
    generator.watched = {"horizontal", "vertical"};
    Run("dialog(child_horizontal: align_center, child_vertical: align_bottom) {"
        "  a(); b(horizontal: 4); eval('c();'); }");
    EXPECT_EQ(generator.created[1].numbers.at("horizontal"), 2);
    EXPECT_EQ(generator.created[1].numbers.at("vertical"), 5);
    EXPECT_EQ(generator.created[2].numbers.at("horizontal"), 4);
    EXPECT_EQ(generator.created[3].numbers.at("vertical"), 5) << "an evaluated text stands in the same view";
    EXPECT_EQ(generator.created[0].numbers.count("horizontal"), 0u);
    generator.created.clear();
    Run("dialog(placement: place_offscreen) { a(); }");
    EXPECT_EQ(generator.created[1].numbers.at("horizontal"), 1);
}

TEST_F(ViewReaderTest, WritesTheFinalGeometryIntoTheAttributes) {
    generator.watched = {"width", "height", "top", "left", "outset", "label_width"};
    Run("dialog(margin: 10, spacing: 5) { a(width: 30, height: 20); b(width: 40, height: 10); }");
    EXPECT_EQ(generator.created[0].numbers.at("width"), 60);
    EXPECT_EQ(generator.created[0].numbers.at("height"), 55);
    EXPECT_EQ(generator.created[2].numbers.at("top"), 35);
    EXPECT_EQ(generator.created[2].numbers.size(), 6u);
}

TEST_F(ViewReaderTest, AFailedViewHasPreparedButCreatesNothing) {
    EXPECT_EQ(Failure("dialog() { a(); b() { c( } }"), kNotAllRead);
    EXPECT_THAT(generator.prepared, ElementsAre("dialog", "a", "b"));
    EXPECT_TRUE(generator.created.empty());
}

TEST_F(ViewReaderTest, PassesOnWhatTheGeneratorThrows) {
    generator.onPrepare = [](std::string_view keyword, CExpressionScope&, CExpressionScope&) {
        if (keyword == "bad") throw std::runtime_error("refused");
    };
    EXPECT_THROW(Run("dialog() { a(); row() { bad(); } }"), std::runtime_error);
    EXPECT_EQ(Failure("dialog();"), "");
}

TEST_F(ViewReaderTest, ADescriptionMayRunInsideAnother) {
    auto inner = std::make_unique<CVerifyGenerator>();
    generator.onPrepare = [&](std::string_view, CExpressionScope& viewAttributes, CExpressionScope&) {
        auto scope = CreateViewScope(nullptr, inner.get(), nullptr, nullptr, true);
        RunDefinition(*scope, "dialog(name: 'inner') { a(); }");
        EXPECT_EQ(viewAttributes.GetStringOr("name", ""), "outer");
    };
    EXPECT_EQ(Failure("dialog(name: 'outer') { a(name: 'outer'); }"), "");
}

TEST_F(ViewReaderTest, HighWaterMarksShowWhereTheTextStopped) {
    const std::string text = "a = 1;\ndialog() {\n  button(width: 1, height: );\n}";
    EXPECT_THROW(RunDefinition(*root, text.c_str()), std::logic_error);
    EXPECT_EQ(gReaderState.marks.failed, text.data() + text.find(");\n}"));
    EXPECT_EQ(gReaderState.marks.completed, text.data() + text.find(": );"));
    ResetReaderState();
    EXPECT_EQ(gReaderState.marks.failed, nullptr);
}

TEST_F(ViewReaderTest, HighWaterMarksAreThoseOfTheLatestRun) {
    const std::string texts[] = {"dialog(); ?", "dialog() { }"};
    for (const std::size_t place : {0u, 1u, 0u}) {
        const std::string& text = texts[place];
        Failure(""); // elsewhere
        try {
            RunDefinition(*root, text.c_str());
        } catch (const std::logic_error&) {
        }
        const char* end = text.data() + text.size();
        EXPECT_EQ(gReaderState.marks.completed, place == 0 ? text.data() + text.find(" ?") : end);
        EXPECT_EQ(gReaderState.marks.failed, place == 0 ? text.data() + text.find('?') : end);
    }
}

// Sends the lines of the log to a file of the test while it lives.
class LogCatcher {
public:
    LogCatcher() { pvn::GetFrameState().gLogStream = std::fopen(path.string().c_str(), "w"); }
    ~LogCatcher() { pvn::CloseLog(); }
    std::string Text() const {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

private:
    const pavane_test::TemporaryFolder folder;
    const std::filesystem::path path = folder / "reader.log";
};

class FailureInTheLog : public DescriptionTest {
protected:
    // Runs a description that fails and returns the one line that the log then has, without what all have.
    std::string LineOf(const std::string& text) {
        const LogCatcher log;
        EXPECT_ANY_THROW(Run(text)) << text;
        std::string line = log.Text();
        EXPECT_EQ(std::count(line.begin(), line.end(), '\n'), 1) << line;
        const std::string begin = "PVN: _info_: brixen::zeve::RunDefinition: the description stops at ";
        const std::size_t place = line.find(begin);
        EXPECT_NE(place, std::string::npos) << line;
        line = line.substr(std::min(place + begin.size(), line.size()));
        return line.substr(0, line.find_last_not_of("\r\n") + 1);
    }
};

TEST_F(FailureInTheLog, OfAUsedUpBudgetIsAfterTheHeadOfTheView) {
    generator.onPrepare = [this](std::string_view, CExpressionScope&, CExpressionScope&) {
        Spend(generator.budget.controls, 1);
    };
    gReaderState.limits.controls = 2;
    EXPECT_EQ(LineOf("dialog() {\n  button();\n  button();\n}"),
              std::string("line 3, column 11: ") + kNotAllRead);
}

TEST_F(FailureInTheLog, OfASyntaxErrorIsAtTheFurthestFailure) {
    const std::pair<const char*, const char*> cases[] = {
        {"a = 1;\r\ndialog() {\n  button(width: 1, height: );\n}", "line 3, column 28"},
        {"?", "line 1, column 1"},
        {"dialog(); x\n  y", "line 2, column 3"}, // a word with neither "=" nor "(" after it
        {"dialog();\rx 1;", "line 2, column 3"},
        {"dialog() { button 7; }", "line 1, column 19"},
        {"dialog() { x; }", "line 1, column 13"},
        {"dialog", "line 1, column 7"},
        {"dialog() {", "line 1, column 11"},
        {"\n\r\n\r;", "line 4, column 1"},
        {"eval('x = ;'); dialog() { ?", "line 1, column 27"},
    };
    for (const auto& [text, place] : cases) {
        EXPECT_EQ(LineOf(text), place + std::string(": ") + kNotAllRead) << text;
    }
}

TEST_F(FailureInTheLog, OfAMissingVariableHasItsName) {
    const std::string reason = std::string(": ") + kNoVariable + ": ";
    EXPECT_EQ(LineOf("x = 1;\n y = missing; dialog();"), "line 2, column 6" + reason + "missing");
    EXPECT_EQ(LineOf("dialog(a: 1,\n\twidth: unknown_one);"), "line 2, column 9" + reason + "unknown_one");
    EXPECT_EQ(LineOf("x = 'missing = 1; y = nothing;'; \n eval(x);"), "line 2, column 2" + reason + "nothing")
        << "the place is that of the eval";
    root->DefineString("inner", "y = nothing;");
    EXPECT_EQ(LineOf("x = 'eval(inner);'; \n\n eval(x);"), "line 3, column 2" + reason + "nothing")
        << "of the outermost one";
    EXPECT_EQ(LineOf("eval('x = 1;'); y = nothing;"), "line 1, column 21" + reason + "nothing");
    EXPECT_EQ(LineOf("x = " + std::string(1000, 'n') + ";"),
              "line 1, column 5" + reason + std::string(80, 'n'));
}

TEST_F(FailureInTheLog, OfABadDivisorIsAtTheOperator) {
    const std::string reason = std::string(": ") + kBadDivisor;
    EXPECT_EQ(LineOf("x = 5 * (3\n / (1 - 1)); dialog();"), "line 2, column 2" + reason);
    EXPECT_EQ(LineOf("dialog(width: 4 % 2 % 0);"), "line 1, column 21" + reason);
    EXPECT_EQ(LineOf("dialog() { eval('x = 1 / 0;'); }"), "line 1, column 12" + reason);
}

TEST_F(FailureInTheLog, OfTheNumberOfViewsIsAtTheSecondOrAtTheEnd) {
    const std::string reason = std::string(": ") + kNotOneView;
    EXPECT_EQ(LineOf(""), "line 1, column 1" + reason);
    EXPECT_EQ(LineOf("a = 1;\n"), "line 2, column 1" + reason);
    EXPECT_EQ(LineOf("a();\n b() { c(); }\n d();"), "line 2, column 2" + reason);
    EXPECT_EQ(LineOf("a(); eval('b(); c();');"), "line 1, column 6" + reason);
}

TEST_F(FailureInTheLog, OfAViewThatTheGeneratorRefusesIsAtItsKeyword) {
    generator.onPrepare = [](std::string_view keyword, CExpressionScope&, CExpressionScope&) {
        if (keyword == "bad") throw std::runtime_error("Bad UTF-8 sequence.");
        if (keyword == "worse") throw 5;
    };
    EXPECT_EQ(LineOf("dialog() {\n row() { bad(a: 1, b: 2 / 1); } }"),
              "line 2, column 10: Bad UTF-8 sequence.");
    EXPECT_EQ(LineOf("dialog() {\n eval('row() { bad(); }'); }"), "line 2, column 2: Bad UTF-8 sequence.");
    EXPECT_EQ(LineOf("dialog() { worse(); }"), "line 1, column 12: unknown exception");
}

TEST_F(FailureInTheLog, OfABoxThatTheGeneratorCannotMakeIsAtItsView) {
    class Refusing : public pavane_test::RecordingGenerator {
        ViewHandle CreateView(std::string_view keyword, CExpressionScope&, ViewHandle) override {
            if (keyword == "bad") throw std::runtime_error(std::string(500, 'r'));
            return nullptr;
        }
    } refusing;
    root = CreateViewScope(nullptr, &refusing, nullptr, nullptr, true);
    EXPECT_EQ(LineOf("dialog() { a();\n  bad() { c(); }\n d(); }"),
              "line 2, column 3: " + std::string(200, 'r'));
    EXPECT_EQ(LineOf("dialog() { a();\n eval('bad();'); d(); }"),
              "line 2, column 2: " + std::string(200, 'r'));
    root.reset(); // before its generator
}

TEST_F(FailureInTheLog, OfAFunctionIsAtItsName) {
    class Host : public ScopeFunctionHost {
        std::int32_t CallFunction(const char*, CExpressionScope&) override {
            throw std::runtime_error("refused");
        }
        void ResolveString(std::string&, std::string_view) override {
            throw std::runtime_error("unresolved");
        }
    } host;
    UseHooks(&host, nullptr);
    EXPECT_EQ(LineOf("x = 1 +\n f(a: 1, b: 2);"), "line 2, column 2: refused");
    EXPECT_EQ(LineOf("x = 1;\n set_number(&n, '5');"), "line 2, column 2: unresolved");
}

TEST_F(FailureInTheLog, IsNotThereWithoutAFailure) {
    const LogCatcher log;
    EXPECT_EQ(Failure("dialog() { eval('? no statement'); }"), "");
    EXPECT_EQ(log.Text(), "");
}

TEST_F(ViewReaderTest, ARunInsideAnotherDoesNotMisleadTheLog) {
    static constexpr char kTexts[] = "\n\n?\0dialog();\n ?\0\n\n?"; // the inner one before and after
    static constexpr std::string_view kAll(kTexts, sizeof kTexts - 1);
    const char* outer = kTexts + kAll.find("dialog");
    for (const char* inner : {kTexts, kTexts + kAll.rfind('\n') - 1}) {
        const LogCatcher log;
        CVerifyGenerator innerGenerator;
        generator.onPrepare = [&](std::string_view, CExpressionScope&, CExpressionScope&) {
            const auto scope = CreateViewScope(nullptr, &innerGenerator, nullptr, nullptr, true);
            EXPECT_THROW(RunDefinition(*scope, inner), std::logic_error);
        };
        EXPECT_THROW(RunDefinition(*root, outer), std::logic_error);
        const std::string text = log.Text();
        const std::size_t innerLine = text.find("line 3, column 1: ");
        EXPECT_NE(innerLine, text.npos) << text;
        EXPECT_NE(text.find("line 2, column 2: ", innerLine), text.npos) << text;
        EXPECT_EQ(gReaderState.marks.failed, outer + std::string_view("dialog();\n ").size());
    }
}

TEST_F(ViewReaderTest, EvaluatedTextsDoNotMoveTheMarks) {
    const std::string text = "eval('x = 1; y = 2; z = ; more'); dialog();";
    RunDefinition(*root, text.c_str());
    EXPECT_EQ(gReaderState.marks.completed, text.data() + text.size());
    EXPECT_EQ(gReaderState.marks.failed, text.data() + text.size());
}

TEST_F(ViewReaderTest, DefinitionsStayWhenTheRestFails) {
    EXPECT_EQ(Failure("a = 1; b = 'text'; ?"), kNotAllRead);
    EXPECT_EQ(Number("a"), 1);
    EXPECT_EQ(Text("b"), "text");
}

TEST(VerifyGenerator, RunsADescriptionAndMakesNothing) {
    CVerifyGenerator generator;
    auto root = CreateViewScope(nullptr, &generator, nullptr, nullptr, true);
    EXPECT_EQ(RunDefinition(*root, "x = 3; dialog() { x = 4; button(width: x); }"), nullptr);
    EXPECT_EQ(root->GetLongOr("x", 0), 3);
    EXPECT_THROW(RunDefinition(*root, "dialog(width: 1 / 0);"), std::logic_error);
    EXPECT_THROW(RunDefinition(*root, "dialog(width: y);"), std::logic_error);
}

} // namespace
} // namespace brixen::zeve
