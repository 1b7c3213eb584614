#include "times.hpp"

#include "quartiles.hpp"

#include <algorithm>
#include <cstdio>
#include <vector>

namespace quillmere::bench {
namespace {

/// A bound for the ratio of two benchmarks' times.
struct Promise {
    const char* what;
    const char* over;
    const char* under;
    double bound;
    bool atLeast;      ///< otherwise at most
    double times = 1;  ///< factor of the second time
};

constexpr Promise promises[] = {
    {"decode, nlohmann/json over ours, 1000 blocks", "decode/nlohmann/1000", "decode/quillmere/1000", 9,
     true},
    {"decode, nlohmann/json over ours, 10000 blocks", "decode/nlohmann/10000", "decode/quillmere/10000", 9,
     true},
    {"decode, RapidJSON over ours, 1000 blocks", "decode/rapidjson/1000", "decode/quillmere/1000", 2.5, true},
    {"decode, RapidJSON over ours, 10000 blocks", "decode/rapidjson/10000", "decode/quillmere/10000", 2.5,
     true},
    {"decode, ours over simdjson's tape, 1000 blocks", "decode/quillmere/1000", "decode/tape/1000", 1.7,
     false},
    {"decode, ours over simdjson's tape, 10000 blocks", "decode/quillmere/10000", "decode/tape/10000", 1.7,
     false},
    {"encode, nlohmann/json over ours, 1000 blocks", "encode/nlohmann/1000", "encode/quillmere/1000", 13,
     true},
    {"encode, nlohmann/json over ours, 10000 blocks", "encode/nlohmann/10000", "encode/quillmere/10000", 13,
     true},
    {"encode, RapidJSON over ours, 1000 blocks", "encode/rapidjson/1000", "encode/quillmere/1000", 2.4, true},
    {"encode, RapidJSON over ours, 10000 blocks", "encode/rapidjson/10000", "encode/quillmere/10000", 2.4,
     true},
    {"encode, ours over memcpy, 1000 blocks", "encode/quillmere/1000", "encode/memcpy/1000", 4, false},
    {"save, ours over write and rename, 1000 blocks", "save/quillmere/1000", "save/write_and_rename/1000",
     1.8, false},
    {"save where files lie in memory, ours over write and rename, 1000 blocks",
     "save/in_memory/quillmere/1000", "save/in_memory/write_and_rename/1000", 1.8, false},
    {"decode, first in a process, 10000 blocks over 100 times 100", "decode/first_in_process/10000",
     "decode/first_in_process/100", 1.5, false, 100},
    {"encode, first in a process, 10000 blocks over 100 times 100", "encode/pieces/first_in_process/10000",
     "encode/pieces/first_in_process/100", 1.5, false, 100},
    {"decode, again and again, 10000 blocks over 100 times 100", "decode/quillmere/10000",
     "decode/quillmere/100", 1.5, false, 100},
    {"encode, again and again, 10000 blocks over 100 times 100", "encode/pieces/10000", "encode/pieces/100",
     1.5, false, 100},
};

}  // namespace

void printTimes(const Times& times)
{
    std::printf("| Benchmark | best time |\n|---|---|\n");
    for (const auto& [name, rounds] : times) {
        const double nanoseconds = *std::min_element(rounds.begin(), rounds.end());
        if (nanoseconds < 1e4) {
            std::printf("| %s | %.0f ns |\n", name.c_str(), nanoseconds);
        } else {
            std::printf("| %s | %.3f ms |\n", name.c_str(), nanoseconds / 1e6);
        }
    }
}

void printRatios(const Times& times)
{
    std::printf("\n| Ratio | asked | measured | quartiles |\n|---|---|---|---|\n");
    for (const Promise& promise : promises) {
        const auto over = times.find(promise.over);
        const auto under = times.find(promise.under);
        if (over == times.end() || under == times.end()) {
            continue;
        }
        std::vector<double> ratios(over->second.size());
        std::transform(over->second.begin(), over->second.end(), under->second.begin(), ratios.begin(),
                       [&](double above, double below) { return above / (below * promise.times); });
        const Quartiles ratio = quartilesOf(ratios);
        const bool isKept = promise.atLeast ? ratio.median >= promise.bound : ratio.median <= promise.bound;
        std::printf("| %s | at %s %g | %.2f%s | %.2f to %.2f |\n", promise.what,
                    promise.atLeast ? "least" : "most", promise.bound, ratio.median,
                    isKept ? "" : " (missed)", ratio.lower, ratio.upper);
    }
}

}  // namespace quillmere::bench
