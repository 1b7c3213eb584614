// Compiles the JSON coding of the timer.
#include <quillmere/engine/timer_table.hpp>
#include <quillmere/records/json/instantiate.hpp>

namespace quillmere {

QUILLMERE_INSTANTIATE_CODING(TimerKind);
QUILLMERE_INSTANTIATE_CODING(TimerSnapshot);

}  // namespace quillmere
