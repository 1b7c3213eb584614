#include "proofs/endurance/process_memory.hpp"

#include <fstream>
#include <string>

namespace quillmere::test {

std::int64_t residentKilobytes()
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        std::int64_t kilobytes = 0;
        if (word == "VmRSS:" && status >> kilobytes) {
            return kilobytes;
        }
    }
    return 0;
}

}  // namespace quillmere::test
