// Prints what was asked: ratios of best times, measured in one run.
#pragma once

#include <map>
#include <string>

namespace quillmere::bench {

/// The best time of each benchmark, "decode/quillmere/1000", in nanoseconds. The best time is what the
/// code takes; all above it is the machine.
using BestTimes = std::map<std::string, double>;

void printTimes(const BestTimes& times);
void printRatios(const BestTimes& times);

}  // namespace quillmere::bench
