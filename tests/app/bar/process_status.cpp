#include "bar/process_status.hpp"

#include <fstream>
#include <string>

namespace quillmere::test {
namespace {

/// The word after `name` in the status of a process; "0" when there is none.
std::string statusOf(const Process& process, const std::string& name)
{
    std::ifstream file("/proc/" + std::to_string(process.number()) + "/status");
    for (std::string word; file >> word;) {
        if (std::string value; word == name && file >> value) {
            return value;
        }
    }
    return "0";
}

}  // namespace

bool blocksSignal(const Process& process, int signal)
{
    constexpr int hexadecimal = 16;
    const unsigned long long bit = 1ULL << (signal - 1);
    return (std::stoull(statusOf(process, "SigBlk:"), nullptr, hexadecimal) & bit) != 0;
}

bool isAsleep(const Process& process) { return statusOf(process, "State:") == "S"; }

long sleepCount(const Process& process) { return std::stol(statusOf(process, "voluntary_ctxt_switches:")); }

}  // namespace quillmere::test
