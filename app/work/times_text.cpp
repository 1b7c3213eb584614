#include "work/times_text.hpp"

#include "base/text/duration.hpp"
#include "base/text/local_time.hpp"

namespace quillmere::work {

std::string timesText(const Block& block, Instant now)
{
    Block begun = block;
    begun.plannedStart = block.plannedStart.value_or(now);
    const std::string from =
        block.plannedStart ? " from " + base::localTextSeenFrom(now, *block.plannedStart) : "";
    return std::to_string(block.cycleCount) + " × " + base::durationText(block.focusDurationSeconds) + "," +
           from + " until " + base::localTextSeenFrom(now, begun.plannedEnd());
}

}  // namespace quillmere::work
