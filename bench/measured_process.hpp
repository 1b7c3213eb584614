// What running a program costs.
#pragma once

#include <string>
#include <vector>

namespace quillmere::bench {

struct Cost {
    double wallSeconds;
    double processorSeconds;  ///< in user and in system mode
    double peakBytes;         ///< at least those of this process
};

/// Runs a program without input and output, and waits for it. Throws when it cannot be started and when it
/// fails.
Cost costOf(const std::vector<std::string>& words);

}  // namespace quillmere::bench
