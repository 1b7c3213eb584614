// Fails every allocation of an attempt in turn and counts the results.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "support/failing_allocations.hpp"

namespace quillmere::test {

/// The results of one area. Counted during the failures and checked afterwards, because assertions allocate
/// memory.
struct Tally {
    std::size_t failed = 0;     ///< failed allocations
    std::size_t recovered = 0;  ///< failures that the attempt recovered from without an exception
    std::size_t leaking = 0;    ///< failures that leaked a block
    std::size_t changed = 0;    ///< failures that left a mixture of old and new

    Tally& operator+=(const Tally& other);
};

/// Fails each allocation of `attempt` in turn, until one attempt ends without a failure. After each,
/// `isWhole(threw)` returns whether the result is entirely old or entirely new, and restores the old one;
/// `threw` tells whether `std::bad_alloc` was thrown.
template <class Attempt, class IsWhole>
Tally runOutIn(Attempt attempt, IsWhole isWhole)
{
    Tally tally;
    const std::size_t blocks = blocksInUse();
    tally.failed = failEveryAllocation(attempt, [&](bool threw) {
        tally.leaking += blocksInUse() == blocks ? 0 : 1;
        tally.recovered += threw ? 0 : 1;
        tally.changed += isWhole(threw) ? 0 : 1;
    });
    return tally;
}

/// Expects at least `atLeast` failed allocations, no leaks, no mixtures and at most `mostRecovered` failures
/// without an exception. Reports the number of failures.
void expectWhole(const std::string& area, const Tally& tally, std::size_t atLeast,
                 std::size_t mostRecovered = 0);

}  // namespace quillmere::test
