#include "work/done_text.hpp"

#include "base/text/local_time.hpp"

namespace quillmere::work::done {

std::string scheduledFor(Instant start) { return "Scheduled for " + base::localTextInFull(start) + "."; }

std::string endedOn(Instant end)
{
    return "The focus session ended on " + base::localSecondInFull(end) + ".";
}

std::string pauseOf(Instant from, Instant to)
{
    return "A pause from " + base::localSecondInFull(from) + " to " + base::localSecondInFull(to) + ".";
}

}  // namespace quillmere::work::done
