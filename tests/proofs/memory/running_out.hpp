// Memory that runs out at every allocation of an attempt, counted.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "support/failing_allocations.hpp"

namespace quillmere::test {

/// What came of an area. Counted while memory is short and judged afterwards, because a judgement takes
/// memory of its own.
struct Tally {
    std::size_t failed = 0;    ///< allocations that were failed
    std::size_t madeGood = 0;  ///< of them, those that nobody heard of
    std::size_t leaking = 0;   ///< of them, those after which a block was not given back
    std::size_t changed = 0;   ///< of them, those after which something was neither old nor new

    Tally& operator+=(const Tally& other);
};

/// Fails every allocation of `attempt` in turn, until it ends undisturbed. `isWhole`, told whether
/// `std::bad_alloc` came out, says after each whether all is as it was, or entirely new, and puts it back.
template <class Attempt, class IsWhole>
Tally runOutIn(Attempt attempt, IsWhole isWhole)
{
    Tally tally;
    const std::size_t blocks = blocksInUse();
    tally.failed = failEveryAllocation(attempt, [&](bool threw) {
        tally.leaking += blocksInUse() == blocks ? 0 : 1;
        tally.madeGood += threw ? 0 : 1;
        tally.changed += isWhole(threw) ? 0 : 1;
    });
    return tally;
}

/// Expects of an area that at least so many allocations were failed, that nothing leaked, that all was whole,
/// and that at most `mayBeMadeGood` failures were made good; reports how many there were.
void expectWhole(const std::string& area, const Tally& tally, std::size_t atLeast,
                 std::size_t mayBeMadeGood = 0);

}  // namespace quillmere::test
