// The histories to measure, each made once.
#pragma once

#include "generated_state.hpp"

#include <quillmere/records/base/bytes.hpp>
#include <quillmere/records/json/json_decoder.hpp>
#include <quillmere/store/state_store.hpp>

#include <benchmark/benchmark.h>

#include <map>

namespace quillmere::bench {

/// The file of a history of `blocks` finished blocks.
inline const Bytes& fileOf(std::int64_t blocks)
{
    static std::map<std::int64_t, Bytes> files;
    const auto found = files.find(blocks);
    if (found != files.end()) {
        return found->second;
    }
    const QuillmereState state = generatedState(static_cast<std::size_t>(blocks));
    return files.emplace(blocks, StateStore::encoder().encode(state)).first->second;
}

inline const Bytes& fileOf(const benchmark::State& run) { return fileOf(run.range(0)); }

/// The state of that file. Loaded, so that its texts are placed in memory as after every load.
inline QuillmereState stateOf(const benchmark::State& run)
{
    return StateStore::decoder().decode<QuillmereState>(fileOf(run));
}

/// Times `measured`, and runs `other` untimed before each run, so that both of two compared functions meet
/// the same caches and the same free memory. Destroying the result is not timed.
template <class Measured, class Other>
void timeInTurn(benchmark::State& run, Measured measured, Other other)
{
    for (auto _ : run) {
        run.PauseTiming();
        other();
        run.ResumeTiming();
        {
            auto made = measured();
            benchmark::DoNotOptimize(made);
            run.PauseTiming();
        }
        run.ResumeTiming();
    }
}

/// Names a benchmark and runs it for every size.
#define QUILLMERE_BENCH(function, name) \
    BENCHMARK(function)->Name(name)->Unit(benchmark::kMillisecond)->UseRealTime()
#define QUILLMERE_BENCH_SIZES(function, name) \
    QUILLMERE_BENCH(function, name)->Arg(10)->Arg(100)->Arg(1000)->Arg(10000)
/// Only the first run in a process, like a program that loads, changes and saves once.
#define QUILLMERE_BENCH_ONCE(function, name) \
    QUILLMERE_BENCH(function, name)->Arg(100)->Arg(10000)->Iterations(1)

}  // namespace quillmere::bench
