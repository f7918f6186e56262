// The interpreter's two reference programs: a million-pass counting loop and a
// recursive Fibonacci of 25. compare.sh runs the same programs in python3.

#include <benchmark/benchmark.h>

#include "host/script/Interpreter.h"

namespace host::script {
namespace {

constexpr const wchar_t* kLoop = L"x = 0; for i = 1 to 1000000 do x += i\nx";
constexpr const wchar_t* kFib = L"fn fib n = if n < 2 then n else fib (n-1) + fib (n-2)\nfib 25";

void RunProgram(benchmark::State& state, const wchar_t* program, int64_t expected) {
    Interpreter in;
    for (auto _ : state) {
        Value result;
        ScriptFailure failure;
        if (!in.Run(program, result, failure) || !result.IsInteger() ||
            result.AsInteger() != expected) {
            state.SkipWithError("the program failed or gave a wrong result");
            return;
        }
    }
}

void BM_CountingLoop(benchmark::State& state) {
    RunProgram(state, kLoop, 500000500000);
}
BENCHMARK(BM_CountingLoop)->Unit(benchmark::kMillisecond);

void BM_Fib25(benchmark::State& state) {
    RunProgram(state, kFib, 75025);
}
BENCHMARK(BM_Fib25)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace host::script
