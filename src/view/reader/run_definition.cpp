#include "view/reader/run_definition.h"

#include "frame/log.h"
#include "toolkit/layout/view_tree.h"
#include "view/reader/reader_state.h"
#include "view/reader/view_reader.h"
#include "view/scope/assertion.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <exception>
#include <string_view>

namespace brixen::zeve {
namespace {

// Restores the marks of the outer run when a hook of it has started this one: marks are never compared with
// positions in another text.
class RunOfItsOwnMarks {
public:
    RunOfItsOwnMarks() : outerMarks(gReaderState.marks) { ++gReaderState.runs; }
    ~RunOfItsOwnMarks() {
        if (--gReaderState.runs > 0) {
            gReaderState.marks = outerMarks;
        }
    }
    RunOfItsOwnMarks(const RunOfItsOwnMarks&) = delete;
    RunOfItsOwnMarks& operator=(const RunOfItsOwnMarks&) = delete;

private:
    HighWaterMarks outerMarks;
};

struct TextPosition {
    unsigned long line = 1;
    unsigned long column = 1; // in bytes
};

TextPosition PositionIn(const char* text, const char* at) {
    TextPosition position;
    for (; text < at; ++text) {
        const bool endsLine = *text == '\n' || (*text == '\r' && text[1] != '\n');
        position =
            endsLine ? TextPosition{position.line + 1, 1} : TextPosition{position.line, position.column + 1};
    }
    return position;
}

// The memory that one run may take, while it reads.
class MemoryLimit {
public:
    explicit MemoryLimit(ScopeMemory& limited) : memory(limited), outerLimit(limited.Limit()) {
        memory.SetLimit(std::min(outerLimit, memory.Held() + gReaderState.limits.memory));
    }
    ~MemoryLimit() { memory.SetLimit(outerLimit); }
    MemoryLimit(const MemoryLimit&) = delete;
    MemoryLimit& operator=(const MemoryLimit&) = delete;

private:
    ScopeMemory& memory;
    const std::size_t outerLimit;
};

// What one run may ask of the window system, while it reads.
class BudgetOfRun {
public:
    explicit BudgetOfRun(CGenerator& limited) : generator(limited), outerBudget(limited.budget) {
        const ReadingLimits& limits = gReaderState.limits;
        generator.budget = {limits.measuredUnits, limits.shownBytes, limits.listItems, limits.controls};
    }
    ~BudgetOfRun() { generator.budget = outerBudget; }
    BudgetOfRun(const BudgetOfRun&) = delete;
    BudgetOfRun& operator=(const BudgetOfRun&) = delete;

private:
    CGenerator& generator;
    const SystemBudget outerBudget;
};

class DefinitionRun {
public:
    DefinitionRun(CExpressViewScope& rootScope, const char* definition)
        : text(definition), generator(rootScope.Generator()), tree(generator),
          reader(rootScope, tree, definition) {}

    ViewHandle Execute() {
        ViewList views;
        Read(views);
        return tree.LayOutAndMakeBoxes(views.Front());
    }

    void LogFailure(const char* reason) const {
        constexpr int kLongestReason = 200, kLongestName = 80; // bytes
        const TextPosition position = PositionIn(text, FailurePosition());
        const std::string_view name = reader.MissingVariable();
        pvn::PvnLog("%s: %s: brixen::zeve::RunDefinition: the description stops at line %lu, column %lu: "
                    "%.*s%s%.*s\n",
                    pvn::kLogComponent, pvn::kLogInfo, position.line, position.column, kLongestReason, reason,
                    name.empty() ? "" : ": ",
                    static_cast<int>(std::min<std::size_t>(name.size(), kLongestName)), name.data());
    }

private:
    void Read(ViewList& views) {
        const MemoryLimit limit(generator.pool.Memory());
        const BudgetOfRun budget(generator);
        const bool isWhole = reader.ReadDefinition(views);
        if (!isWhole) {
            failed = gReaderState.marks.failed;
            FailAssertion("*definition == 0");
        }
        if (views.Count() != 1) {
            failed = views.IsEmpty() ? text + std::strlen(text) : SecondOf(views).details.textPosition;
            FailAssertion("viewProxyList->size() == 1");
        }
    }

    static const ViewProxy& SecondOf(const ViewList& views) { return *++views.begin(); }

    const char* FailurePosition() const {
        if (failed) return failed;
        return tree.Current() ? tree.Current()->details.textPosition : reader.Located();
    }

    const RunOfItsOwnMarks marks;
    const char* const text;
    CGenerator& generator;
    ViewTree tree;
    ViewReader reader;
    const char* failed = nullptr; // where the text stopped, unless something threw
};

} // namespace

ViewHandle RunDefinition(CExpressViewScope& rootScope, const char* text) {
    Assert(text != nullptr, "*definition == 0");
    DefinitionRun run(rootScope, text);
    try {
        return run.Execute();
    } catch (const std::exception& failure) {
        run.LogFailure(failure.what());
        throw;
    } catch (...) {
        run.LogFailure("unknown exception");
        throw;
    }
}

} // namespace brixen::zeve
