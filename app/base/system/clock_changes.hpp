// Notices that the wall clock was set, or went on after a sleep of the computer.
#pragma once

#include "base/system/descriptor.hpp"

namespace quillmere::base {

/// For a loop that waits for a time of day: poll(2) counts the time in which the computer runs, and knows
/// nothing of the clock on the wall. A timer of timerfd_create(2) that only ever fires when the clock makes a
/// jump.
class ClockChanges {
public:
    /// Throws `std::system_error`.
    ClockChanges();

    /// For `waitFor`: readable when the clock has made a jump.
    int descriptor() const { return timer_.get(); }

    /// Waits for the next jump. Never blocks.
    void take();

private:
    void await();

    Descriptor timer_;
};

}  // namespace quillmere::base
