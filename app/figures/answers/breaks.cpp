#include "figures/answers/breaks.hpp"

#include <algorithm>
#include <utility>

namespace quillmere::figures {
namespace {

/// The session before in its block; null for the first.
const WorkSession* sessionBefore(const EndedSession& ended)
{
    return ended.session == &ended.block->sessions.front() ? nullptr : ended.session - 1;
}

}  // namespace

BreakFigures breaksOf(const LookBack& look)
{
    const LocalCalendar calendar(look.habits.dayBeginsAtHour);
    BreakFigures figures;
    std::vector<double> lengths;
    for (const EndedSession& ended : look.sessions) {
        const WorkSession* const before = sessionBefore(ended);
        if (!before || !before->endedAt || !(ended.session->startedAt >= *before->endedAt)) {
            continue;
        }
        if (calendar.dayOf(*before->endedAt) != ended.day) {
            ++figures.overnight;
            continue;
        }
        const TakenBreak taken{.next = &ended,
                               .plannedSeconds = ended.block->breakDurationSeconds,
                               .takenSeconds = ended.session->startedAt - *before->endedAt};
        figures.breaks.push_back(taken);
        lengths.push_back(taken.takenSeconds);
        figures.plannedSeconds += taken.plannedSeconds;
        figures.takenSeconds += taken.takenSeconds;
        figures.longestSeconds = std::max(figures.longestSeconds, taken.takenSeconds);
        figures.overlong += taken.isOverlong() ? 1 : 0;
    }
    figures.medianSeconds = medianOf(std::move(lengths));
    return figures;
}

PauseFigures pausesOf(const LookBack& look)
{
    PauseFigures figures;
    for (const EndedSession& ended : look.sessions) {
        if (!ended.time) {
            continue;
        }
        const double paused = ended.time->pausedSeconds;
        ++figures.sessions;
        figures.pausedSessions += paused > 0 ? 1 : 0;
        figures.pausedSeconds += paused;
        figures.longestSeconds = std::max(figures.longestSeconds, paused);
        figures.overlong += paused > ended.block->breakDurationSeconds ? 1 : 0;
    }
    return figures;
}

}  // namespace quillmere::figures
