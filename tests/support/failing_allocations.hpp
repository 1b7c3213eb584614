// Allocations that fail on purpose.
//
// Linking this file replaces operator new and delete for the whole test program. By default they work as
// usual and count the allocated blocks.
#pragma once

#include <cstddef>
#include <new>

namespace quillmere::test {

/// Blocks from operator new that are not freed yet.
std::size_t blocksInUse();

/// Blocks allocated on this thread since the program started; only differences are meaningful.
std::size_t allocationsMade();

/// Lets one allocation on this thread fail: the one after the next `count`.
void failAllocationAfter(std::size_t count);

/// Lets allocations succeed again; returns whether one failed since `failAllocationAfter`.
bool stopFailingAllocations();

/// Runs `attempt` repeatedly, with its first allocation failing, then its second, and so on until it
/// succeeds. After each failure `attempt` must have thrown `std::bad_alloc`, and `unchanged` checks the state
/// that must not have changed. Returns the number of failed allocations.
template <class Attempt, class Unchanged>
std::size_t failEveryAllocation(Attempt attempt, Unchanged unchanged)
{
    for (std::size_t count = 0;; ++count) {
        failAllocationAfter(count);
        bool threw = false;
        try {
            attempt();
        } catch (const std::bad_alloc&) {
            threw = true;
        } catch (...) {
            // Another error ends the attempts; handling it needs memory.
            stopFailingAllocations();
            throw;
        }
        const bool failed = stopFailingAllocations();
        if (!failed) {
            return count;
        }
        unchanged(threw);
    }
}

}  // namespace quillmere::test
