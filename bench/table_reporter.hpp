// Prints what was asked: ratios of best times, measured in one run.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>

namespace quillmere::bench {

/// Collects the best time of each benchmark over all its repetitions and prints a table at the end.
/// The best time is what the code takes; all above it is the machine.
class TableReporter final : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

private:
    void printTimes() const;
    void printRatios() const;

    std::map<std::string, double> bestNanoseconds_;
};

}  // namespace quillmere::bench
