#include "support/failing_allocations.hpp"

#include <atomic>
#include <cstdlib>

namespace {

constexpr std::size_t never = static_cast<std::size_t>(-1);

thread_local std::size_t allocationsLeft = never;
thread_local bool failedOne = false;
thread_local std::size_t made = 0;
std::atomic<std::size_t> inUse = 0;

/// Allocates, or returns null when this allocation must fail.
void* allocate(std::size_t size, std::size_t alignment)
{
    if (allocationsLeft != never && allocationsLeft-- == 0) {
        allocationsLeft = never;
        failedOne = true;
        return nullptr;
    }
    void* const block = std::aligned_alloc(alignment, (size + alignment - 1) / alignment * alignment);
    inUse += block ? 1 : 0;
    made += block ? 1 : 0;
    return block;
}

void release(void* block)
{
    inUse -= block ? 1 : 0;
    std::free(block);
}

void* allocateOrThrow(std::size_t size, std::size_t alignment)
{
    void* const block = allocate(size, alignment);
    if (!block) {
        throw std::bad_alloc();
    }
    return block;
}

constexpr std::size_t usual = __STDCPP_DEFAULT_NEW_ALIGNMENT__;

}  // namespace

namespace quillmere::test {

std::size_t blocksInUse() { return inUse; }

std::size_t allocationsMade() { return made; }

void failAllocationAfter(std::size_t count)
{
    failedOne = false;
    allocationsLeft = count;
}

bool stopFailingAllocations()
{
    allocationsLeft = never;
    return failedOne;
}

}  // namespace quillmere::test

void* operator new(std::size_t size) { return allocateOrThrow(size, usual); }
void* operator new[](std::size_t size) { return allocateOrThrow(size, usual); }
void* operator new(std::size_t size, std::align_val_t alignment)
{
    return allocateOrThrow(size, static_cast<std::size_t>(alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment)
{
    return allocateOrThrow(size, static_cast<std::size_t>(alignment));
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return allocate(size, usual); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return allocate(size, usual); }
void* operator new(std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept
{
    return allocate(size, static_cast<std::size_t>(alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept
{
    return allocate(size, static_cast<std::size_t>(alignment));
}
void operator delete(void* block) noexcept { release(block); }
void operator delete[](void* block) noexcept { release(block); }
void operator delete(void* block, std::size_t) noexcept { release(block); }
void operator delete[](void* block, std::size_t) noexcept { release(block); }
void operator delete(void* block, std::align_val_t) noexcept { release(block); }
void operator delete[](void* block, std::align_val_t) noexcept { release(block); }
void operator delete(void* block, std::size_t, std::align_val_t) noexcept { release(block); }
void operator delete[](void* block, std::size_t, std::align_val_t) noexcept { release(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { release(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { release(block); }
void operator delete(void* block, std::align_val_t, const std::nothrow_t&) noexcept { release(block); }
void operator delete[](void* block, std::align_val_t, const std::nothrow_t&) noexcept { release(block); }
