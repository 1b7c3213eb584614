#include "work/timer_text.hpp"

namespace quillmere::work {
namespace {

bool hasRunOut(const TimerView& timer) { return timer.remainingSeconds < 1 && !timer.isPaused; }

}  // namespace

std::string timeText(const TimerView& timer, const base::SeenFrom& here)
{
    return hasRunOut(timer) ? "over since " + base::localTextWithin(here, timer.end)
                            : QuillmereDesign::timeText(timer.remainingSeconds);
}

std::string endText(const TimerView& timer, const base::SeenFrom& here)
{
    if (timer.pausedSince) {
        return "paused since " + base::localTextWithin(here, *timer.pausedSince);
    }
    return hasRunOut(timer) ? "" : "until " + base::localTextWithin(here, timer.end);
}

}  // namespace quillmere::work
