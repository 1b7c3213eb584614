// The JSON forms of the timer.
#include <quillmere/engine/timer_snapshot.hpp>
#include <quillmere/records/json/instantiate.hpp>

namespace quillmere {
namespace json {

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

}  // namespace json

QUILLMERE_INSTANTIATE_CODING(TimerKind);
QUILLMERE_INSTANTIATE_CODING(TimerSnapshot);

}  // namespace quillmere
