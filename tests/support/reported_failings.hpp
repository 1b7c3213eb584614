// What must hold of a call without lasting effects when memory runs out in it.
#pragma once

#include <gtest/gtest.h>

#include "support/failing_allocations.hpp"

namespace quillmere::test {

/// Lets every allocation of `attempt` fail in turn, of which there must be `atLeast` so many. Each failure
/// must come out as `std::bad_alloc`, and none may leave memory behind.
template <class Attempt>
void expectReportedFailings(std::size_t atLeast, Attempt attempt)
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
    EXPECT_EQ(unreported, 0u);
    EXPECT_EQ(leaking, 0u);
}

}  // namespace quillmere::test
