// Runs every benchmark in a child process, in several rounds, and prints tables.
#include "child_process.hpp"
#include "sizes.hpp"
#include "times.hpp"

#include <iostream>
#include <sstream>
#include <vector>

namespace quillmere::bench {
namespace {

/// Several rounds, because a disturbance of the machine usually affects only one of them.
constexpr int rounds = 7;

/// Writes a line "name nanoseconds" for every run.
class LineReporter final : public benchmark::BenchmarkReporter {
public:
    explicit LineReporter(std::ostream& lines) { SetOutputStream(&lines); }

    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            const double seconds = run.real_accumulated_time / static_cast<double>(run.iterations);
            GetOutputStream() << run.run_name.function_name << '/' << run.run_name.args << ' '
                              << seconds * 1e9 << '\n';
        }
    }
};

/// The output of the benchmark library in a child process, for the benchmarks that match `filter`.
std::string outputOf(const std::string& filter)
{
    return inChildProcess([&](int output) {
        std::ostringstream lines;
        LineReporter reporter(lines);
        benchmark::RunSpecifiedBenchmarks(&reporter, filter);
        ::dprintf(output, "%s", lines.str().c_str());
    });
}

/// The names of the benchmarks that the command line selects.
std::vector<std::string> chosenNames()
{
    std::istringstream listed(inChildProcess([](int output) {
        char program[] = "quillmere_bench";
        char list[] = "--benchmark_list_tests=true";
        char* arguments[] = {program, list};
        int count = 2;
        benchmark::Initialize(&count, arguments);
        std::ostringstream lines;
        LineReporter reporter(lines);
        benchmark::RunSpecifiedBenchmarks(&reporter);
        ::dprintf(output, "%s", lines.str().c_str());
    }));
    std::vector<std::string> names;
    for (std::string name; listed >> name;) {
        names.push_back(std::move(name));
    }
    return names;
}

void run()
{
    const std::vector<std::string> names = chosenNames();
    for (const std::int64_t blocks : {0, 10, 100, 1'000, 10'000}) {
        fileOf(blocks);
    }
    Times times;
    for (int round = 1; round <= rounds; ++round) {
        std::cerr << "round " << round << " of " << rounds << '\n';
        for (const std::string& name : names) {
            std::istringstream lines(outputOf("^" + name + "$"));
            double nanoseconds = 0;
            for (std::string benchmark; lines >> benchmark >> nanoseconds;) {
                times[benchmark].push_back(nanoseconds);
            }
        }
    }
    printTimes(times);
    printRatios(times);
}

}  // namespace
}  // namespace quillmere::bench

int main(int count, char** arguments)
{
    benchmark::Initialize(&count, arguments);
    if (benchmark::ReportUnrecognizedArguments(count, arguments)) {
        return 2;
    }
    quillmere::bench::run();
}
