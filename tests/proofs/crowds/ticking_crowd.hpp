// Processes that let time pass in one directory, all with one clock that does what it is told.
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

/// What came about, to which several processes add.
class EventList {
public:
    void add(const std::string& name, double seconds);

    /// Each as "focus_ended at 1794756300".
    std::vector<std::string> sorted() const;

private:
    static constexpr std::size_t mostEvents = 4'000;
    static constexpr std::size_t longestEvent = 64;

    std::atomic<std::size_t> count_;
    std::array<std::array<char, longestEvent>, mostEvents> events_;
};

/// What they share.
struct Stage {
    std::atomic<double> seconds;  ///< of the clock
    std::atomic<bool> isOver;
    std::array<std::atomic<std::uint64_t>, crowdSize> ticks;
    std::atomic<std::uint64_t> lockOuts;  ///< ticks that ended with exit code 75
    EventList reported;                   ///< by all processes
    EventList expected;                   ///< by the timetable of the person
    Rendezvous rendezvous;
};

/// Lets the whole crowd tick while a person works through `blockCount` blocks of three sessions, each begun
/// by its schedule; whether all went well.
bool tickThroughBlocks(Stage& stage, const std::filesystem::path& directory, std::uint64_t blockCount);

/// Lets each of the crowd tick once, all of them between their load and their save at the same time, which
/// no lock may prevent; whether all went well.
bool tickOnceTogether(Stage& stage, const std::filesystem::path& directory);

}  // namespace quillmere::test
