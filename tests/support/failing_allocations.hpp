// Memory that runs out on purpose.
//
// Linking this file replaces operator new and delete for the whole test program. Left alone they work
// as usual and count the blocks that they give out and those that are in use.
#pragma once

#include <cstddef>
#include <new>

namespace quillmere::test {

/// Blocks from operator new that have not been given back.
std::size_t blocksInUse();

/// Blocks that operator new has given out on this thread since the program began; only differences mean
/// something.
std::size_t allocationsMade();

/// Lets the allocation after the next `count` ones fail, once, on this thread.
void failAllocationAfter(std::size_t count);

/// Lets allocations succeed again; says whether one failed since `failAllocationAfter`.
bool stopFailingAllocations();

/// Runs `attempt` again and again, with its first allocation failing, then its second, and so on until
/// it succeeds undisturbed. After each failure `attempt` must have thrown `std::bad_alloc` and
/// `unchanged` is called to check what must not have changed. Returns how many allocations were failed.
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
            // Another error ends the attempts; whoever hears of it needs memory again.
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
