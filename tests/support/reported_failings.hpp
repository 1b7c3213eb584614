// What must hold of a call without lasting effects when memory runs out in it.
#pragma once

#include <gtest/gtest.h>

#include "support/failing_allocations.hpp"

namespace quillmere::test {

/// The JSON parser asks a second time for a buffer that it could not get.
inline constexpr std::size_t parserAsksTwice = 1;

/// Lets every allocation of `attempt` fail in turn, of which there must be `atLeast` so many. Each failure
/// must come out as `std::bad_alloc`, and none may leave memory behind. Up to `madeGood` of them need not
/// be heard of, because who asked for the memory asks a second time; `attempt` has judged its result then.
template <class Attempt>
void expectReportedFailings(std::size_t atLeast, Attempt attempt, std::size_t madeGood = 0)
{
    // Once undisturbed: what is made only once in a program stays.
    attempt();
    // Counted here and judged at the end, because a judgement takes memory of its own.
    std::size_t unreported = 0;
    std::size_t leaking = 0;
    const std::size_t blocks = blocksInUse();
    const std::size_t total = failEveryAllocation(attempt, [&](bool threw) {
        unreported += threw ? 0 : 1;
        leaking += blocksInUse() == blocks ? 0 : 1;
    });
    EXPECT_GE(total, atLeast);
    EXPECT_LE(unreported, madeGood);
    EXPECT_EQ(leaking, 0u);
}

}  // namespace quillmere::test
