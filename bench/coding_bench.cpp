// Bytes to records and back, against other libraries doing the same.
#include "rivals/rivals.hpp"
#include "sizes.hpp"

#include <simdjson.h>

#include <cstring>
#include <optional>

namespace quillmere::bench {
namespace {

/// Times decoding alone: letting go of the state before is not part of it.
template <class Decode>
void timeDecoding(benchmark::State& run, Decode decode)
{
    for (auto _ : run) {
        std::optional<QuillmereState> state(decode());
        run.PauseTiming();
        state.reset();
        run.ResumeTiming();
    }
}

void decodeQuillmere(benchmark::State& run)
{
    const Bytes& file = fileOf(run);
    timeDecoding(run, [&] { return StateStore::decoder().decode<QuillmereState>(file); });
}

void decodeNlohmann(benchmark::State& run)
{
    const Bytes& file = fileOf(run);
    timeDecoding(run, [&] { return nlohmann_json::decode(file.view()); });
}

void decodeRapidjson(benchmark::State& run)
{
    const Bytes& file = fileOf(run);
    timeDecoding(run, [&] { return rapid_json::decode(file.view()); });
}

/// simdjson's tape and nothing more, with a fresh parser as a load has it.
void decodeTape(benchmark::State& run)
{
    const Bytes& file = fileOf(run);
    for (auto _ : run) {
        simdjson::dom::parser parser;
        simdjson::dom::element root;
        if (parser.parse(file.view().data(), file.size(), false).get(root)) {
            run.SkipWithError("the sample is not JSON");
        }
        benchmark::DoNotOptimize(root);
    }
}

template <class Encode>
void timeEncoding(benchmark::State& run, Encode encode)
{
    for (auto _ : run) {
        benchmark::DoNotOptimize(encode());
    }
}

void encodeQuillmere(benchmark::State& run)
{
    const QuillmereState state = stateOf(run);
    timeEncoding(run, [&] { return StateStore::encoder().encode(state); });
}

void encodeNlohmann(benchmark::State& run)
{
    const QuillmereState state = stateOf(run);
    timeEncoding(run, [&] { return nlohmann_json::encode(state); });
}

void encodeRapidjson(benchmark::State& run)
{
    const QuillmereState state = stateOf(run);
    timeEncoding(run, [&] { return rapid_json::encode(state); });
}

void encodeMemcpy(benchmark::State& run)
{
    const std::string_view file = fileOf(run).view();
    std::string destination(file.size(), '\0');
    for (auto _ : run) {
        std::memcpy(destination.data(), file.data(), file.size());
        benchmark::ClobberMemory();
    }
}

QUILLMERE_BENCH_SIZES(decodeQuillmere, "decode/quillmere");
QUILLMERE_BENCH_SIZES(decodeTape, "decode/tape");
QUILLMERE_BENCH_SIZES(decodeRapidjson, "decode/rapidjson");
QUILLMERE_BENCH_SIZES(decodeNlohmann, "decode/nlohmann");
QUILLMERE_BENCH_ONCE(decodeQuillmere, "decode/first_in_process");
QUILLMERE_BENCH_SIZES(encodeQuillmere, "encode/quillmere");
QUILLMERE_BENCH_SIZES(encodeMemcpy, "encode/memcpy");
QUILLMERE_BENCH_SIZES(encodeRapidjson, "encode/rapidjson");
QUILLMERE_BENCH_SIZES(encodeNlohmann, "encode/nlohmann");
QUILLMERE_BENCH_ONCE(encodeQuillmere, "encode/first_in_process");

}  // namespace
}  // namespace quillmere::bench
