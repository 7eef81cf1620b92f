// Descriptions against table constructors, from the text to a finished tree. Our side runs RunDefinition, so
// it pays for a new root scope, the layout and the final attributes too.
#include "bench/lua_peer.h"
#include "bench/sample_views.h"
#include "view/express_view_scope.h"
#include "view/reader/run_definition.h"
#include "view/reader/statement_reader.h"
#include "view/verify_generator.h"

#include <benchmark/benchmark.h>

namespace bench {
namespace {

using namespace brixen::zeve;

void PavaneDescription(benchmark::State& state) {
    const std::string text = SampleDescription(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        CVerifyGenerator generator;
        const auto scope = CreateViewScope(nullptr, &generator, nullptr, nullptr, true);
        scope->DefineNumber("gSpace"_name, kSampleSpace);
        RunDefinition(*scope, text.c_str());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void RunChunk(benchmark::State& state, LuaKind kind, const std::string& constants, const std::string& chunk) {
    LuaPeer lua(kind);
    lua.Run(constants);
    for (auto _ : state) lua.Run(chunk);
}

void LuaTables(benchmark::State& state, LuaKind kind) {
    RunChunk(state, kind, kSampleLuaConstants, SampleLuaChunk(static_cast<std::size_t>(state.range(0))));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

// Runs one assignment and nothing around it.
class AssignmentRunner : private StatementReader {
public:
    AssignmentRunner(CExpressionScope& target, const char* text) : StatementReader(target) {
        StartText(text, gReaderState.marks);
    }
    bool Run() {
        Identifier word;
        return ReadIdentifier(word) && NextIs('=') && ReadAssignment(word);
    }
};

constexpr char kAssignment[] = "x = a + b * 2 - c / 3 + d % 5;"; // six operators
constexpr char kAssignmentConstants[] = "a = 11 b = 22 c = 33 d = 44";

void PavaneAssignments(benchmark::State& state) {
    CExpressionScope scope;
    for (std::int64_t value = 0; const char* name : {"a", "b", "c", "d"})
        scope.DefineNumber(name, value += 11);
    std::string text;
    for (std::int64_t i = 0; i < state.range(0); ++i) text += std::string(kAssignment) + "\n";
    for (auto _ : state) {
        AssignmentRunner runner(scope, text.c_str());
        for (std::int64_t i = 0; i < state.range(0); ++i) {
            if (!runner.Run()) state.SkipWithError("the assignment does not parse");
        }
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void LuaAssignments(benchmark::State& state, LuaKind kind) {
    std::string chunk;
    for (std::int64_t i = 0; i < state.range(0); ++i) chunk += std::string(kAssignment) + "\n";
    RunChunk(state, kind, kAssignmentConstants, chunk);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

} // namespace

BENCHMARK(PavaneDescription)->Name("description/pavane")->Arg(100)->Arg(2000)->Arg(10000);
BENCHMARK_CAPTURE(LuaTables, luajit, LuaKind::LuaJit)
    ->Name("description/luajit")
    ->Arg(100)
    ->Arg(2000)
    ->Arg(10000);
BENCHMARK_CAPTURE(LuaTables, lua54, LuaKind::Lua54)
    ->Name("description/lua54")
    ->Arg(100)
    ->Arg(2000)
    ->Arg(10000);
BENCHMARK(PavaneAssignments)->Name("assignment/pavane")->Arg(1)->Arg(1000);
BENCHMARK_CAPTURE(LuaAssignments, luajit, LuaKind::LuaJit)->Name("assignment/luajit")->Arg(1)->Arg(1000);
BENCHMARK_CAPTURE(LuaAssignments, lua54, LuaKind::Lua54)->Name("assignment/lua54")->Arg(1)->Arg(1000);

} // namespace bench
