#include "work/timer_text.hpp"

namespace quillmere::work {

std::string timeText(const TimerView& timer, const base::SeenFrom& here)
{
    return timer.hasRunOut() ? overText(timer.end, here) : QuillmereDesign::timeText(timer.remainingSeconds);
}

std::string endText(const TimerView& timer, const base::SeenFrom& here)
{
    if (timer.pausedSince) {
        return "paused since " + base::localTextWithin(here, *timer.pausedSince);
    }
    return timer.hasRunOut() ? "" : "until " + base::localTextWithin(here, timer.end);
}

std::string overText(Instant since, const base::SeenFrom& here)
{
    return "over since " + base::localTextWithin(here, since);
}

std::string timeText(const std::optional<TimerView>& timer, const std::optional<Instant>& overSince,
                     const base::SeenFrom& here)
{
    return timer ? timeText(*timer, here) : overSince ? overText(*overSince, here) : std::string();
}

}  // namespace quillmere::work
