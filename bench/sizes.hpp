// The histories that are measured, made once each.
#pragma once

#include "generated_state.hpp"

#include <quillmere/records/bytes.hpp>
#include <quillmere/records/json/json_decoder.hpp>
#include <quillmere/store/state_store.hpp>

#include <benchmark/benchmark.h>

#include <map>

namespace quillmere::bench {

/// A state and its file. The state has been through the file, so that its texts lie in memory as they
/// do after a load.
struct Sample {
    QuillmereState state;
    Bytes file;
};

inline const Sample& sampleOf(const benchmark::State& run)
{
    static std::map<std::int64_t, Sample> samples;
    const std::int64_t blocks = run.range(0);
    const auto found = samples.find(blocks);
    if (found != samples.end()) {
        return found->second;
    }
    Bytes file = StateStore::encoder().encode(generatedState(static_cast<std::size_t>(blocks)));
    QuillmereState state = StateStore::decoder().decode<QuillmereState>(file);
    return samples.emplace(blocks, Sample{std::move(state), std::move(file)}).first->second;
}

/// Names a benchmark and runs it for every size that is asked for.
#define QUILLMERE_BENCH(function, name) \
    BENCHMARK(function)->Name(name)->Unit(benchmark::kMillisecond)->UseRealTime()
#define QUILLMERE_BENCH_SIZES(function, name) \
    QUILLMERE_BENCH(function, name)->Arg(10)->Arg(100)->Arg(1000)->Arg(10000)

}  // namespace quillmere::bench
