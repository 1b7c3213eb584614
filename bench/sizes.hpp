// The histories that are measured, made once each.
#pragma once

#include "generated_state.hpp"

#include <quillmere/records/base/bytes.hpp>
#include <quillmere/records/json/json_decoder.hpp>
#include <quillmere/store/state_store.hpp>

#include <benchmark/benchmark.h>

#include <map>

namespace quillmere::bench {

/// The file of a history of so many finished blocks.
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

/// The state of that file. Loaded, so that its texts lie in memory as they do after a load.
inline QuillmereState stateOf(const benchmark::State& run)
{
    return StateStore::decoder().decode<QuillmereState>(fileOf(run));
}

/// Times `measured`, which returns what it makes, in turn with `other`, which is not timed: what is timed
/// against each other meets the same caches and the same free memory. Letting go of what was made is not
/// timed either.
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

/// Names a benchmark and runs it for every size that is asked for.
#define QUILLMERE_BENCH(function, name) \
    BENCHMARK(function)->Name(name)->Unit(benchmark::kMillisecond)->UseRealTime()
#define QUILLMERE_BENCH_SIZES(function, name) \
    QUILLMERE_BENCH(function, name)->Arg(10)->Arg(100)->Arg(1000)->Arg(10000)
/// The first run in a process, as a program does it that loads, changes and saves once.
#define QUILLMERE_BENCH_ONCE(function, name) \
    QUILLMERE_BENCH(function, name)->Arg(100)->Arg(10000)->Iterations(1)

}  // namespace quillmere::bench
