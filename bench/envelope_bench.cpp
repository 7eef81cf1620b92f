// The call format: a call with a payload of 4 KiB, and the answer to it.
#include "net/envelope/method_call.h"
#include "net/envelope/method_response.h"

#include <benchmark/benchmark.h>

#include <string>

namespace bench {
namespace {

using namespace brixen::pvn;

std::string SamplePayload() {
    std::string payload;
    while (payload.size() < 4096) payload += "<field name=\"city\">M\xC3\xBCnchen &amp; around</field>\n";
    payload.resize(4096);
    return payload;
}

void BuildCall(benchmark::State& state) {
    const std::string payload = SamplePayload();
    for (auto _ : state) {
        std::string call;
        benchmark::DoNotOptimize(BuildPayloadCall(payload.c_str(), "Register", "request", call));
        benchmark::DoNotOptimize(call.data());
    }
    state.SetItemsProcessed(state.iterations());
}

void ReadAnswer(benchmark::State& state) {
    PVN_RPCUtf8Param text("reply", SamplePayload().data(), 4096);
    const std::string answer = "<?xml version=\"1.0\"?>\n<methodResponse>\n    <params>\n        <param>\n"
                               "            <name>reply</name>\n            <value><utf8_string>" +
                               std::string(text.GetValue()) +
                               "</utf8_string></value>\n        </param>\n    </params>\n</methodResponse>\n";
    for (auto _ : state) {
        std::string payload;
        benchmark::DoNotOptimize(ReadPayloadResponse(answer.c_str(), "reply", payload));
        benchmark::DoNotOptimize(payload.data());
    }
    state.SetItemsProcessed(state.iterations());
}

} // namespace

BENCHMARK(BuildCall)->Name("payload_call/4096");
BENCHMARK(ReadAnswer)->Name("payload_answer/4096");

} // namespace bench
