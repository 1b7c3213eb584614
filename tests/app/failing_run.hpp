// Runs of the program in which memory runs out.
#pragma once

#include <string>

#include "program_testing.hpp"

namespace quillmere::test {

/// How one run ended.
struct FailingRun {
    ExitCode code;
    bool failed;              ///< whether an allocation did
    bool leaks;               ///< whether a block was not given back
    std::size_t allocations;  ///< that were made
    std::string err;
};

/// No allocation has this number.
inline constexpr auto undisturbed = static_cast<std::size_t>(-2);

/// Runs the program with its allocation of this number failing. Without --json, mostly: the library that
/// prints JSON loses memory of its own when there is none.
FailingRun runFailing(std::size_t allocation, const Words& words, Instant now);

}  // namespace quillmere::test
