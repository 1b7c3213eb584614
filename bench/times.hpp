// Prints ratios of best times, measured in one run.
#pragma once

#include <map>
#include <string>

namespace quillmere::bench {

/// The best time of each benchmark, such as "decode/quillmere/1000", in nanoseconds. The best time is that of
/// the code; everything above it is caused by the machine.
using BestTimes = std::map<std::string, double>;

void printTimes(const BestTimes& times);
void printRatios(const BestTimes& times);

}  // namespace quillmere::bench
