// A place where processes wait for each other.
#pragma once

#include <unistd.h>

#include <atomic>
#include <cstdint>
#include <cstdlib>

namespace quillmere::test {

/// Lies in memory that all of them share, zero at first. Whoever comes is one of a round of `size`, and goes
/// on when the round is complete. Each must have left before it comes again.
class Rendezvous {
public:
    void meet(std::uint64_t size)
    {
        constexpr useconds_t littleWhile = 200;
        constexpr int longestWait = 300'000;  // a minute of them: by then, somebody must be missing
        const std::uint64_t round = arrived_++ / size;
        for (int waited = 0; arrived_ < (round + 1) * size; ++waited) {
            if (waited == longestWait) {
                std::abort();
            }
            ::usleep(littleWhile);
        }
    }

private:
    std::atomic<std::uint64_t> arrived_;
};

}  // namespace quillmere::test
