// Processes that tick in one directory, all with one simulated clock.
#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "proofs/crowds/crowd.hpp"
#include "proofs/crowds/rendezvous.hpp"
#include "proofs/crowds/shared.hpp"

namespace quillmere::test {

/// Events that occurred. Several processes add to the list.
class EventList {
public:
    void add(const std::string& name, double seconds);

    /// For example "focus_ended at 1794756300".
    std::vector<std::string> sorted() const;

private:
    static constexpr std::size_t mostEvents = 4'000;
    static constexpr std::size_t longestEvent = 64;

    std::atomic<std::size_t> count_;
    std::array<std::array<char, longestEvent>, mostEvents> events_;
};

/// Data shared by the processes.
struct Stage {
    std::atomic<double> seconds;  ///< the time of the clock
    std::atomic<bool> isOver;
    std::array<std::atomic<std::uint64_t>, crowdSize> ticks;
    std::atomic<std::uint64_t> lockOuts;  ///< ticks that ended with exit code 75
    EventList reported;                   ///< by all processes
    EventList expected;                   ///< by the timetable of the person
    Rendezvous rendezvous;
};

/// Lets the whole crowd tick while a person works through `blockCount` blocks of three sessions, each started
/// by its schedule. Returns whether every command succeeded.
bool tickThroughBlocks(Stage& stage, const std::filesystem::path& directory, std::uint64_t blockCount);

/// Lets each process tick once, with all of them between their load and their save at the same time; the lock
/// must be disabled. Returns whether every command succeeded.
bool tickOnceTogether(Stage& stage, const std::filesystem::path& directory);

}  // namespace quillmere::test
