#include "figures/statistics.hpp"

#include "base/reach.hpp"

#include <algorithm>
#include <iterator>
#include <map>
#include <utility>

namespace quillmere::figures {
namespace {

using Tallies = std::map<Day, Tally>;

bool isRating(std::int64_t rating) { return rating >= lowestRating && rating <= highestRating; }

void addRating(Ratings& ratings, std::int64_t rating)
{
    if (isRating(rating)) {
        ++ratings.count;
        ratings.sum += rating;
    }
}

void addTally(Tally& sum, const Tally& part)
{
    sum.focusSeconds += part.focusSeconds;
    sum.sessions += part.sessions;
    sum.plannedSeconds += part.plannedSeconds;
    sum.workedSeconds += part.workedSeconds;
    sum.pausedSeconds += part.pausedSeconds;
    sum.pausedSessions += part.pausedSessions;
    addTo(sum.completions, part.completions);
    addTo(sum.energy, part.energy);
    addTo(sum.morale, part.morale);
}

void addSession(Tally& tally, const EndedSession& ended)
{
    ++tally.sessions;
    addRating(tally.energy, ended.session->plan.energy);
    addRating(tally.morale, ended.session->plan.morale);
    if (const auto& review = ended.session->review) {
        ++tally.completions[static_cast<std::size_t>(review->completion)];
    }
    if (ended.time) {
        tally.plannedSeconds += ended.session->plannedDurationSeconds;
        tally.workedSeconds += ended.time->workedSeconds;
        tally.pausedSeconds += ended.time->pausedSeconds;
        tally.pausedSessions += ended.time->pausedSeconds > 0 ? 1 : 0;
    }
}

template <class Visit>
void forEachBlock(const QuillmereState& state, Visit visit)
{
    std::for_each(state.blockHistory.begin(), state.blockHistory.end(), visit);
    if (state.currentBlock) {
        visit(*state.currentBlock);
    }
}

std::vector<EndedSession> endedSessions(const QuillmereState& state, const LocalCalendar& calendar)
{
    std::vector<EndedSession> sessions;
    forEachBlock(state, [&](const Block& block) {
        for (const WorkSession& session : block.sessions) {
            if (session.endedAt) {
                sessions.push_back({.block = &block,
                                    .session = &session,
                                    .day = calendar.dayOf(session.startedAt),
                                    .time = timeOf(session),
                                    .settledAt = block.completedAt.value_or(state.updatedAt)});
            }
        }
    });
    std::stable_sort(sessions.begin(), sessions.end(),
                     [](const EndedSession& left, const EndedSession& right) {
                         return left.session->startedAt < right.session->startedAt;
                     });
    return sessions;
}

/// The figures by day.
Tallies dayTallies(const std::vector<EndedSession>& sessions, LocalCalendar& calendar)
{
    Tallies tallies;
    for (const EndedSession& ended : sessions) {
        addSession(tallies[ended.day], ended);
        if (ended.time) {
            calendar.forEachDay(ended.session->startedAt, ended.time->workedSeconds,
                                [&](Day day, double seconds) { tallies[day].focusSeconds += seconds; });
        }
    }
    return tallies;
}

/// Whether a session that began before the range was worked in it.
bool reachesInto(const Range& range, const EndedSession& ended, const LocalCalendar& calendar)
{
    return range.since && ended.day < *range.since && ended.time && ended.time->workedSeconds > 0 &&
           calendar.dayOf(ended.session->startedAt + ended.time->workedSeconds) >= *range.since;
}

/// Sums the days up by week or month, in order.
std::vector<Period> summedUp(const Tallies& days, Unit unit, std::chrono::weekday weekBegins)
{
    std::vector<Period> periods;
    for (const auto& [day, tally] : days) {
        const Day first = firstOf(unit, day, weekBegins);
        if (periods.empty() || periods.back().first != first) {
            periods.push_back({.first = first, .tally = {}});
        }
        addTally(periods.back().tally, tally);
    }
    return periods;
}

void addByRating(ByRating& byRating, std::int64_t rating, CompletionResult completion)
{
    if (isRating(rating)) {
        ++byRating[static_cast<std::size_t>(rating - lowestRating)][static_cast<std::size_t>(completion)];
    }
}

BetweenSessions betweenSessions(const QuillmereState& state, const Range& range,
                                const LocalCalendar& calendar)
{
    BetweenSessions between;
    std::vector<double> gaps;
    std::vector<double> planned;
    forEachBlock(state, [&](const Block& block) {
        for (std::size_t index = 1; index < block.sessions.size(); ++index) {
            const std::optional<Instant>& end = block.sessions[index - 1].endedAt;
            const Instant start = block.sessions[index].startedAt;
            // Not after a record with an impossible time: the clock was set, and nobody knows when it ended.
            if (end && timeOf(block.sessions[index - 1]) && start >= *end &&
                range.contains(calendar.dayOf(start))) {
                gaps.push_back(start - *end);
                planned.push_back(block.breakDurationSeconds);
                between.totalSeconds += gaps.back();
            }
        }
    });
    between.count = std::ssize(gaps);
    between.medianSeconds = medianOf(std::move(gaps));
    between.plannedMedianSeconds = medianOf(std::move(planned));
    return between;
}

/// Whether only days off lie between the two days.
bool follows(Day later, Day earlier, const Habits& habits)
{
    Day between = earlier + oneDay;
    while (between < later && habits.isDayOff(between)) {
        between += oneDay;
    }
    return between == later;
}

void findStreaks(LookBack& look)
{
    std::optional<Streak> streak;
    for (const Period& day : look.days) {
        if (!(day.tally.focusSeconds > 0)) {
            continue;
        }
        ++look.focusDays;
        if (streak && follows(day.first, streak->last, look.habits)) {
            streak->last = day.first;
            ++streak->days;
        } else {
            streak = Streak{.first = day.first, .last = day.first, .days = 1};
        }
        if (!look.longestStreak || streak->days >= look.longestStreak->days) {
            look.longestStreak = streak;
        }
        if (day.first == look.today || follows(look.today, day.first, look.habits)) {
            look.currentStreak = streak;
        }
    }
}

}  // namespace

LookBack statistics(const QuillmereState& state, const Range& range, Day today, const Habits& habits)
{
    LookBack look{.range = range, .today = today, .habits = habits};
    LocalCalendar calendar(habits.dayBeginsAtHour);
    look.sessions = endedSessions(state, calendar);
    Tallies days = dayTallies(look.sessions, calendar);
    look.everyDay = summedUp(days, Unit::day, habits.weekBegins);
    std::erase_if(days, [&](const auto& day) { return !range.contains(day.first); });
    std::copy_if(look.sessions.begin(), look.sessions.end(), std::back_inserter(look.reachingIn),
                 [&](const EndedSession& ended) { return reachesInto(range, ended, calendar); });
    std::erase_if(look.sessions, [&](const EndedSession& ended) { return !range.contains(ended.day); });
    look.days = summedUp(days, Unit::day, habits.weekBegins);
    look.weeks = summedUp(days, Unit::week, habits.weekBegins);
    look.months = summedUp(days, Unit::month, habits.weekBegins);
    for (const Period& month : look.months) {
        addTally(look.total, month.tally);
    }
    for (const EndedSession& ended : look.sessions) {
        look.sessionsWithoutTime += ended.time ? 0 : 1;
        if (const auto& review = ended.session->review) {
            addByRating(look.byEnergy, ended.session->plan.energy, review->completion);
            addByRating(look.byMorale, ended.session->plan.morale, review->completion);
        }
    }
    look.between = betweenSessions(state, range, calendar);
    findStreaks(look);
    return look;
}

double focusToday(const QuillmereState& state, Instant now, LocalCalendar& calendar)
{
    const Day today = calendar.dayOf(now);
    const Instant begin = calendar.startOf(today);
    const Instant end = calendar.startOf(today + oneDay);
    double sum = 0;
    const auto add = [&](const Block& block) {
        for (const WorkSession& session : block.sessions) {
            if (const std::optional<SessionTime> time = timeOf(session)) {
                const Instant from = std::max(session.startedAt, begin);
                const Instant to = std::min(session.startedAt + time->workedSeconds, end);
                sum += from < to ? to - from : 0;
            }
        }
    };
    for (const Block& block : base::blocksWithin(base::Reach::present, state, now)) {
        add(block);
    }
    if (state.currentBlock) {
        add(*state.currentBlock);
    }
    return sum;
}

}  // namespace quillmere::figures
