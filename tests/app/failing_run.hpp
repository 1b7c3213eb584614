// Runs of the program in which memory runs out.
#pragma once

#include <string>

#include "program_testing.hpp"

namespace quillmere::test {

/// The end of one run.
struct FailingRun {
    ExitCode code;
    bool failed;              ///< whether the run reached the allocation that fails
    bool leaks;               ///< whether memory was not freed
    std::size_t allocations;  ///< the number of allocations made
    std::string err;
};

/// No allocation has this number.
inline constexpr auto undisturbed = static_cast<std::size_t>(-2);

/// Runs the program, in which the allocation of this number fails. Mostly for runs without --json: the
/// library that prints JSON leaks memory when an allocation fails.
FailingRun runFailing(std::size_t allocation, const Words& words, Instant now);

}  // namespace quillmere::test
