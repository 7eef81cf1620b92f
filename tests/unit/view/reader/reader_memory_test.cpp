// Out of memory at every place where a description takes some.
#include "support/failing_allocator.h"
#include "view/reader/run_definition.h"
#include "view/verify_generator.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>

namespace brixen::zeve {
namespace {

class Doubler : public ScopeFunctionHost {
    std::int32_t CallFunction(const char*, CExpressionScope& arguments) override {
        return static_cast<std::int32_t>(arguments.GetLongOr("a", 0) * 2);
    }
    void ResolveString(std::string& outText, std::string_view key) override { outText = key; }
};

// Everything that a description can do, with names enough for the heads of the buckets.
constexpr char kDescription[] =
    "a = 'OKAY'; b = 'a text that is longer than what fits into a short one'; s = 'v(name: b); w = 2;';"
    "c1 = 1; c2 = 2; c3 = 3; c4 = 4; c5 = 5; c6 = 6; c7 = 7; c8 = 8; c9 = 9;"
    "step(0, 1, &d1, &d2); align_centers(0, 1, 2, &e1, &e2); set_number(&f, '12'); set_string(&g, 12);"
    "h = doubled_value_of_it(a: 2, text: 'x') + unknown;"
    "dialog(name: 'Hello', width: max(1, 2), a_name_of_their_own: b) {"
    "  eval(s); row(spacing: 2) { x = 'y'; button(name: b); button(); } eval('button();'); }";

TEST(ReaderMemory, AFailedAllocationLeaksNothingAndTheReaderWorksOn) {
    int finished = 0;
    const std::size_t failures = pavane_test::ForEveryFailingAllocation([&] {
        try {
            Doubler host;
            CVerifyGenerator generator;
            auto root = CreateViewScope(nullptr, &generator, &host, nullptr, true);
            RunDefinition(*root, kDescription);
            ++finished;
        } catch (const std::bad_alloc&) {
        }
    });
    EXPECT_GT(failures, 20u);
    EXPECT_EQ(finished, 2) << "the first run and the last, which nothing disturbed";
}

TEST(ReaderMemory, AScopeIsAsBeforeWhenADefinitionFails) {
    CExpressionScope scope;
    for (int n = 0; n < 600; ++n) {
        const std::string name = "variable_with_a_long_name_" + std::to_string(n);
        for (std::size_t nth = 1;; ++nth) {
            const std::size_t before = scope.VariableCount();
            try {
                const pavane_test::FailNthAllocation failure(nth);
                scope.DefineNumber(name, n);
            } catch (const std::bad_alloc&) {
                ASSERT_EQ(scope.VariableCount(), before);
                ASSERT_FALSE(scope.HasVariable(name));
                continue;
            }
            break;
        }
        ASSERT_EQ(scope.GetLongOr(name, -1), n);
    }
    for (int n = 0; n < 600; ++n) {
        ASSERT_EQ(scope.GetLongOr("variable_with_a_long_name_" + std::to_string(n), -1), n);
    }
}

TEST(ReaderMemory, HeadsThatFailKeepNoNames) {
    CVerifyGenerator generator;
    auto root = CreateViewScope(nullptr, &generator, nullptr, nullptr, true);
    root->DefineString("half", "v(" + std::string(1000, 'n') + ": 1,");
    std::string text = "d();";
    for (int n = 0; n < 1000; ++n) text += "eval(half);";
    const std::size_t before = pavane_test::AllocationCount();
    RunDefinition(*root, text.c_str());
    EXPECT_LT(pavane_test::AllocationCount() - before, 1100u) << "a record each, and no new room for names";
}

TEST(ReaderMemory, LookingANameUpTakesNone) {
    CExpressionScope outer, middle(&outer), inner(&middle);
    outer.DefineNumber("somewhere", 1);
    inner.DefineNumber("width", 2);
    const std::size_t before = pavane_test::AllocationCount();
    EXPECT_EQ(inner.GetLongOr("somewhere", 0) + inner.GetLongOr("width", 0) + inner.GetLongOr("nowhere", 0),
              3);
    EXPECT_EQ(pavane_test::AllocationCount(), before);
}

} // namespace
} // namespace brixen::zeve
