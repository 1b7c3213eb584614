#include "work/times_text.hpp"

#include "base/text/duration.hpp"

namespace quillmere::work {

std::string timesText(const Block& block, const base::SeenFrom& here)
{
    Block begun = block;
    begun.plannedStart = block.plannedStart.value_or(here.now);
    const std::string from =
        block.plannedStart ? " from " + base::localTextSeenFrom(here, *block.plannedStart) : "";
    return std::to_string(block.cycleCount) + " × " + base::durationText(block.focusDurationSeconds) + "," +
           from + " until " + base::localTextSeenFrom(here, begun.plannedEnd());
}

}  // namespace quillmere::work
