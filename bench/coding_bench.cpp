// Reading and writing of records, compared with other libraries.
#include "rivals/rivals.hpp"
#include "sizes.hpp"

#include <simdjson.h>

#include <cstring>
#include <memory>
#include <stdexcept>

namespace quillmere::bench {
namespace {

QuillmereState decode(const Bytes& file) { return StateStore::decoder().decode<QuillmereState>(file); }

/// Only simdjson's tape, with a new parser as for each load.
std::unique_ptr<simdjson::dom::parser> tapeOf(const Bytes& file)
{
    auto parser = std::make_unique<simdjson::dom::parser>();
    if (parser->parse(file.view().data(), file.size(), false).error()) {
        throw std::runtime_error("the sample is not JSON");
    }
    return parser;
}

void nothing() {}

void decodeQuillmere(benchmark::State& run)
{
    const Bytes& file = fileOf(run);
    timeInTurn(
        run, [&] { return decode(file); }, [&] { tapeOf(file); });
}

void decodeTape(benchmark::State& run)
{
    const Bytes& file = fileOf(run);
    timeInTurn(
        run, [&] { return tapeOf(file); }, [&] { decode(file); });
}

void decodeFirst(benchmark::State& run)
{
    const Bytes& file = fileOf(run);
    timeInTurn(
        run, [&] { return decode(file); }, nothing);
}

void decodeNlohmann(benchmark::State& run)
{
    const Bytes& file = fileOf(run);
    timeInTurn(
        run, [&] { return nlohmann_json::decode(file.view()); }, nothing);
}

void decodeRapidjson(benchmark::State& run)
{
    const Bytes& file = fileOf(run);
    timeInTurn(
        run, [&] { return rapid_json::decode(file.view()); }, nothing);
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

/// The text in pieces, as for a file.
void encodePieces(benchmark::State& run)
{
    const QuillmereState state = stateOf(run);
    timeEncoding(run, [&] {
        std::size_t size = 0;
        StateStore::encoder().source(state)([&](std::string_view piece) { size += piece.size(); });
        return size;
    });
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
QUILLMERE_BENCH_ONCE(decodeFirst, "decode/first_in_process");
QUILLMERE_BENCH_SIZES(encodeQuillmere, "encode/quillmere");
QUILLMERE_BENCH_SIZES(encodeMemcpy, "encode/memcpy");
QUILLMERE_BENCH_SIZES(encodeRapidjson, "encode/rapidjson");
QUILLMERE_BENCH_SIZES(encodeNlohmann, "encode/nlohmann");
QUILLMERE_BENCH_SIZES(encodePieces, "encode/pieces");
QUILLMERE_BENCH_ONCE(encodeQuillmere, "encode/first_in_process");
QUILLMERE_BENCH_ONCE(encodePieces, "encode/pieces/first_in_process");

}  // namespace
}  // namespace quillmere::bench
