// Prints times and ratios that were measured in one run.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace quillmere::bench {

/// The time of each benchmark, such as "decode/quillmere/1000", in each round, in nanoseconds.
using Times = std::map<std::string, std::vector<double>>;

/// The best times: everything above them is caused by the machine.
void printTimes(const Times& times);

/// The medians of the ratios of the rounds, with their quartiles: a disturbance of the machine usually hits
/// one round, and both times of it.
void printRatios(const Times& times);

}  // namespace quillmere::bench
