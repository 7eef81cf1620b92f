#include "view/reader/run_definition.h"

#include "frame/frame_state.h"
#include "frame/log.h"
#include "support/temporary_folder.h"
#include "view/verify_generator.h"
#include "unit/view/view_fixture.h"

#include <gmock/gmock.h>

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

TEST_F(ViewReaderTest, WhatTheGeneratorThrowsComesThrough) {
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

// The log's lines go to a file of the test's own while this lives.
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

TEST_F(ViewReaderTest, TheLogTellsLineAndColumnOfTheFurthestFailure) {
    const LogCatcher log;
    EXPECT_EQ(Failure("a = 1;\r\ndialog() {\n  button(width: 1, height: );\n}"), kNotAllRead);
    EXPECT_THAT(log.Text(),
                testing::HasSubstr("PVN: _info_: brixen::zeve::RunDefinition: the description stops at "
                                   "line 3, column 28"));
    EXPECT_EQ(Failure("?"), kNotAllRead);
    EXPECT_THAT(log.Text(), testing::HasSubstr("line 1, column 1"));
}

TEST_F(ViewReaderTest, ARunInsideAnotherDoesNotLeadTheLogAstray) {
    static constexpr char kTexts[] = "\n\n?\0dialog();\n ?\0\n\n?"; // the inner one in front and behind
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
        EXPECT_THAT(log.Text(), testing::ContainsRegex("line 3, column 1\r?\n.*line 2, column 2\r?\n"));
        EXPECT_EQ(gReaderState.marks.failed, outer + std::string_view("dialog();\n ").size());
    }
}

TEST_F(ViewReaderTest, TheLogIsSilentAboutOtherFailures) {
    const LogCatcher log;
    EXPECT_EQ(Failure(""), kNotOneView);
    EXPECT_EQ(Failure("x = missing; dialog();"), kNoVariable);
    EXPECT_EQ(log.Text(), "");
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
