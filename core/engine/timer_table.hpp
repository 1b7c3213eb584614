// The JSON fields of the timer.
#pragma once

#include <quillmere/engine/timer_snapshot.hpp>
#include <quillmere/records/json/table.hpp>

namespace quillmere::json {

// clang-format off
template <>
struct Table<TimerSnapshot> {
    using Fields = std::tuple<
        Field<"kind",             &TimerSnapshot::kind>,
        Field<"elapsedSeconds",   &TimerSnapshot::elapsedSeconds>,
        Field<"remainingSeconds", &TimerSnapshot::remainingSeconds>,
        Field<"displaySeconds",   &TimerSnapshot::displaySeconds>,
        Field<"isOvertime",       &TimerSnapshot::isOvertime>,
        Field<"isPaused",         &TimerSnapshot::isPaused>>;
};
// clang-format on

}  // namespace quillmere::json
