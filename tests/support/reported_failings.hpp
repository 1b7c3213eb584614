// Expectations for a call without lasting effects when its allocations fail.
#pragma once

#include <gtest/gtest.h>

#include "support/failing_allocations.hpp"

namespace quillmere::test {

/// The JSON parser repeats a failed allocation of its buffer once.
inline constexpr std::size_t parserAsksTwice = 1;

/// Fails each allocation of `attempt` in turn, of which there must be at least `atLeast`. Each failure must
/// be reported as `std::bad_alloc` and must not leak. Up to `recovered` failures may be unreported, because
/// the caller repeats the allocation; `attempt` itself has checked its result then.
template <class Attempt>
void expectReportedFailings(std::size_t atLeast, Attempt attempt, std::size_t recovered = 0)
{
    // Once without failures, for the allocations that happen once per process.
    attempt();
    // Counted here and compared at the end, because a failing expectation allocates.
    std::size_t unreported = 0;
    std::size_t leaking = 0;
    const std::size_t blocks = blocksInUse();
    const std::size_t total = failEveryAllocation(attempt, [&](bool threw) {
        unreported += threw ? 0 : 1;
        leaking += blocksInUse() == blocks ? 0 : 1;
    });
    EXPECT_GE(total, atLeast);
    EXPECT_LE(unreported, recovered);
    EXPECT_EQ(leaking, 0u);
}

}  // namespace quillmere::test
