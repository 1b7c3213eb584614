// A person who works for a year, and who calculates independently when the program must act.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "proofs/endurance/host.hpp"

namespace quillmere::test {

/// The tick, counted from the first, at which each event must happen; absent when it must not happen.
struct Expected {
    std::optional<std::int64_t> begin;     ///< the scheduled block begins
    std::optional<std::int64_t> focusEnd;  ///< the focus time is used up
    std::optional<std::int64_t> breakEnd;  ///< the break's time is used up
};

/// All times are seconds since the first tick. The person also acts between ticks.
class Person {
public:
    explicit Person(Instant firstTick) : firstTick_(firstTick) {}

    const Expected& expected() const { return expected_; }

    /// The time of the person's next action; infinite while they wait for the program.
    double nextAction() const { return nextAction_; }
    void act(Host& host);

    // The program's notices to the person, each at a tick.
    void blockBegan(std::int64_t tick);
    void focusEnded(std::int64_t tick);
    void breakEnded(std::int64_t tick);

    std::uint64_t actions() const { return actions_; }
    std::uint64_t blocksFinished() const { return blocksFinished_; }

    /// The end of each session, in order, in whole seconds since the first tick.
    const std::vector<std::int64_t>& sessionEnds() const { return sessionEnds_; }

private:
    Instant at(double time) const { return firstTick_ + time; }
    double startOfDay() const { return 86'400.0 * static_cast<double>(day_); }
    double planningTime() const;
    Block block(double plannedStart) const;
    void planTheDay(Host& host);
    void changeTheSchedule(Host& host);
    void startFocus(Host& host);
    void pauseResumeOrEnd(Host& host);
    void review(Host& host);
    void extendOrEndBreak(Host& host);
    void finish(Host& host);

    Instant firstTick_;
    Expected expected_;
    double nextAction_ = 25'200;
    std::int64_t day_ = 0;
    std::uint64_t session_ = 0;  ///< counted over all blocks
    double startedAt_ = 0;       ///< the start of the session or the break
    double pausedAt_ = 0;
    double paused_ = 0;
    double extension_ = 0;
    std::uint64_t actions_ = 0;
    std::uint64_t blocksFinished_ = 0;
    std::vector<std::int64_t> sessionEnds_;
};

}  // namespace quillmere::test
