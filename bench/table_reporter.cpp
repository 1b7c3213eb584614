#include "table_reporter.hpp"

#include <algorithm>
#include <cstdio>

namespace quillmere::bench {
namespace {

/// A promise: one benchmark's time over another's, or the other way round.
struct Promise {
    const char* what;
    const char* over;
    const char* under;
    double bound;
    bool atLeast;  ///< otherwise at most
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
    {"decode per byte, 10000 over 100 blocks", "decode/quillmere/10000", "decode/quillmere/100", 150, false},
    {"encode per byte, 10000 over 100 blocks", "encode/quillmere/10000", "encode/quillmere/100", 150, false},
};

}  // namespace

bool TableReporter::ReportContext(const Context& context)
{
    PrintBasicContext(&GetErrorStream(), context);
    return true;
}

void TableReporter::ReportRuns(const std::vector<Run>& runs)
{
    for (const Run& run : runs) {
        if (run.run_type != Run::RT_Iteration || run.error_occurred) {
            continue;
        }
        const double nanoseconds = run.real_accumulated_time / static_cast<double>(run.iterations) * 1e9;
        const auto [place, isNew] =
            bestNanoseconds_.emplace(run.run_name.function_name + "/" + run.run_name.args, nanoseconds);
        place->second = std::min(place->second, nanoseconds);
    }
}

void TableReporter::Finalize()
{
    printTimes();
    printRatios();
}

void TableReporter::printTimes() const
{
    std::printf("| Benchmark | best time |\n|---|---|\n");
    for (const auto& [name, nanoseconds] : bestNanoseconds_) {
        if (nanoseconds < 1e4) {
            std::printf("| %s | %.0f ns |\n", name.c_str(), nanoseconds);
        } else {
            std::printf("| %s | %.3f ms |\n", name.c_str(), nanoseconds / 1e6);
        }
    }
}

void TableReporter::printRatios() const
{
    std::printf("\n| Ratio | asked | measured |\n|---|---|---|\n");
    for (const Promise& promise : promises) {
        const auto over = bestNanoseconds_.find(promise.over);
        const auto under = bestNanoseconds_.find(promise.under);
        if (over != bestNanoseconds_.end() && under != bestNanoseconds_.end()) {
            const double ratio = over->second / under->second;
            const bool kept = promise.atLeast ? ratio >= promise.bound : ratio <= promise.bound;
            std::printf("| %s | at %s %g | %.2f%s |\n", promise.what, promise.atLeast ? "least" : "most",
                        promise.bound, ratio, kept ? "" : " (missed)");
        }
    }
}

}  // namespace quillmere::bench
