#include "work/done_text.hpp"

#include "base/text/local_time.hpp"

namespace quillmere::work::done {

std::string scheduledFor(Instant start, base::Hours hours)
{
    return "Scheduled for " + base::localTextInFull(start, hours) + ".";
}

std::string endedOn(Instant end, base::Hours hours)
{
    return "The focus session ended on " + base::localSecondInFull(end, hours) + ".";
}

std::string pauseOf(Instant from, Instant to, base::Hours hours)
{
    return "A pause from " + base::localSecondInFull(from, hours) + " to " +
           base::localSecondInFull(to, hours) + ".";
}

}  // namespace quillmere::work::done
