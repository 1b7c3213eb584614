// A barrier for processes.
#pragma once

#include <unistd.h>

#include <atomic>
#include <cstdint>
#include <cstdlib>

namespace quillmere::test {

/// Lies in shared memory, initially zero. `meet` returns when `size` processes have called it. A process must
/// return from it before the same process calls it again.
class Rendezvous {
public:
    void meet(std::uint64_t size)
    {
        constexpr useconds_t pollInterval = 200;
        constexpr int longestWait = 300'000;  // one minute in total: by then a process must have died
        const std::uint64_t round = arrived_++ / size;
        for (int waited = 0; arrived_ < (round + 1) * size; ++waited) {
            if (waited == longestWait) {
                std::abort();
            }
            ::usleep(pollInterval);
        }
    }

private:
    std::atomic<std::uint64_t> arrived_;
};

}  // namespace quillmere::test
