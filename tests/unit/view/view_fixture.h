// What tests of descriptions share: a root scope with the core constants, on a generator that records.
#pragma once

#include "support/recording_generator.h"
#include "view/reader/reader_state.h"
#include "view/reader/run_definition.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>

namespace brixen::zeve {

inline constexpr std::int64_t kU = kUndefinedNumber;

class DescriptionTest : public testing::Test {
protected:
    ~DescriptionTest() override { ResetReaderState(); }

    void UseHooks(ScopeFunctionHost* host, ScopeParseObserver* observer) {
        root = CreateViewScope(nullptr, &generator, host, observer, true);
    }

    ViewHandle Run(const std::string& text) { return RunDefinition(*root, text.c_str()); }

    // The text of the assertion that the description raises; empty if it raises none.
    std::string Failure(const std::string& text) {
        try {
            Run(text);
        } catch (const std::logic_error& error) {
            return error.what();
        }
        return "";
    }

    // Runs statements in front of an otherwise empty dialog.
    std::string FailureOf(const std::string& statements) { return Failure(statements + " dialog();"); }

    std::int64_t Evaluate(const std::string& expression) {
        EXPECT_EQ(FailureOf("result = " + expression + " ;"), "") << expression;
        return root->GetLongOr("result", -999);
    }

    std::int64_t Number(const char* name) { return root->GetLongOr(name, -999); }
    std::string Text(const char* name) { return std::string(root->GetStringOr(name, "(absent)")); }

    pavane_test::RecordingGenerator generator;
    std::unique_ptr<CExpressViewScope> root = CreateViewScope(nullptr, &generator, nullptr, nullptr, true);
};

inline constexpr char kNotAllRead[] = "Warning! (*definition == 0)";
inline constexpr char kNotOneView[] = "Warning! (viewProxyList->size() == 1)";
inline constexpr char kNoVariable[] = "Warning! (variable != NULL)";
inline constexpr char kBadDivisor[] = "Warning! (divisor != 0)";

inline std::string Repeated(const std::string& text, std::size_t count) {
    std::string result;
    result.reserve(text.size() * count);
    for (std::size_t n = 0; n < count; ++n) result += text;
    return result;
}

} // namespace brixen::zeve
