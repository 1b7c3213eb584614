// Runs every benchmark in a process of its own, all of them in turn and again, and prints tables.
#include "apart.hpp"
#include "sizes.hpp"
#include "times.hpp"

#include <algorithm>
#include <iostream>
#include <sstream>
#include <vector>

namespace quillmere::bench {
namespace {

/// Noise comes and goes; a benchmark that is met by it in one round has others.
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

/// What the benchmark library writes when it is started with these arguments in a process of its own,
/// for the benchmarks that match `filter`, or the arguments' own filter when it is empty.
std::string outputOf(std::vector<std::string> arguments, const std::string& filter)
{
    return apart([&](int output) {
        std::vector<char*> pointers;
        for (std::string& argument : arguments) {
            pointers.push_back(argument.data());
        }
        int count = static_cast<int>(pointers.size());
        benchmark::Initialize(&count, pointers.data());
        std::ostringstream lines;
        LineReporter reporter(lines);
        if (filter.empty()) {
            benchmark::RunSpecifiedBenchmarks(&reporter);
        } else {
            benchmark::RunSpecifiedBenchmarks(&reporter, "^" + filter + "$");
        }
        if (::write(output, lines.str().data(), lines.str().size()) == -1) {
            ::_exit(1);
        }
    });
}

void run(const std::vector<std::string>& arguments)
{
    std::vector<std::string> listing = arguments;
    listing.push_back("--benchmark_list_tests=true");
    std::istringstream listed(outputOf(listing, ""));
    std::vector<std::string> names;
    for (std::string name; listed >> name;) {
        names.push_back(std::move(name));
    }

    for (const std::int64_t blocks : {0, 10, 100, 1'000, 10'000}) {
        fileOf(blocks);
    }
    BestTimes best;
    for (int round = 1; round <= rounds; ++round) {
        std::cerr << "round " << round << " of " << rounds << '\n';
        for (const std::string& name : names) {
            std::istringstream lines(outputOf(arguments, name));
            double nanoseconds = 0;
            for (std::string benchmark; lines >> benchmark >> nanoseconds;) {
                double& place = best.emplace(benchmark, nanoseconds).first->second;
                place = std::min(place, nanoseconds);
            }
        }
    }
    printTimes(best);
    printRatios(best);
}

}  // namespace
}  // namespace quillmere::bench

int main(int count, char** arguments) { quillmere::bench::run({arguments, arguments + count}); }
