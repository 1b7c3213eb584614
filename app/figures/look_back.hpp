// The figures of a look back; every report shows these.
#pragma once

#include "figures/habits.hpp"
#include "figures/local_day.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace quillmere::figures {

/// From a local day to a local day, both included; absent: no bound.
struct Range {
    std::optional<Day> since;
    std::optional<Day> until;

    bool contains(Day day) const { return (!since || day >= *since) && (!until || day <= *until); }
};

/// Number of reviewed sessions by their CompletionResult, in its order.
using Completions = std::array<std::int64_t, allCases<CompletionResult>().size()>;

std::int64_t total(const Completions& completions);
void addTo(Completions& sum, const Completions& part);

/// How much of what they were meant to reach sessions reached, 0 to 1: "half" counts as a half. Absent
/// without a reviewed session.
std::optional<double> reachedShare(const Completions& completions);

/// Ratings from 1 to 5. Files may contain others, which no figure counts.
inline constexpr std::int64_t lowestRating = 1;
inline constexpr std::int64_t highestRating = 5;
using ByRating = std::array<Completions, highestRating - lowestRating + 1>;

struct Ratings {
    std::int64_t count = 0;
    std::int64_t sum = 0;

    std::optional<double> mean() const
    {
        return count > 0 ? std::optional(static_cast<double>(sum) / static_cast<double>(count))
                         : std::nullopt;
    }
    friend bool operator==(const Ratings&, const Ratings&) = default;
};

void addTo(Ratings& sum, const Ratings& part);

/// The upper median; zero for no values.
double medianOf(std::vector<double> values);

/// Totals. A session counts on the day on which it started; its focus time is divided among the days on which
/// it was spent.
struct Tally {
    double focusSeconds = 0;
    std::int64_t sessions = 0;
    double plannedSeconds = 0;  ///< of the sessions whose time is known
    double workedSeconds = 0;   ///< of the same sessions, without pauses
    double pausedSeconds = 0;   ///< of the same sessions
    std::int64_t pausedSessions = 0;
    Completions completions{};
    Ratings energy{};
    Ratings morale{};

    friend bool operator==(const Tally&, const Tally&) = default;
};

/// A day, week or month, as far as it lies in the range.
struct Period {
    Day first;
    Tally tally;
};

/// How long a session took.
struct SessionTime {
    double workedSeconds;
    double pausedSeconds;
};

/// Absent for a session that has not ended, and for impossible records: an end before the start, or more
/// focus than the longest session that can be planned.
std::optional<SessionTime> timeOf(const WorkSession& session);

/// A session that has ended. Points into the state.
struct EndedSession {
    const Block* block;
    const WorkSession* session;
    Day day;  ///< on which it started
    std::optional<SessionTime> time;
    /// The record has not changed since: the end of its block, or for the current block the last change of
    /// the state.
    Instant settledAt;
};

/// The times from the end of a session to the start of the next one of its block, breaks and nights alike.
/// Each counts on the day of the later session.
struct BetweenSessions {
    std::int64_t count = 0;
    double totalSeconds = 0;
    double medianSeconds = 0;         ///< the upper median
    double plannedMedianSeconds = 0;  ///< of the breaks planned in the same blocks
};

/// Days with focus that only days off without focus lie between.
struct Streak {
    Day first;
    Day last;
    std::int64_t days;  ///< with focus
};

/// Everything within the range. Ended sessions count, also those of the current block.
struct LookBack {
    Range range;
    Day today;
    Habits habits = {};
    Tally total = {};
    std::vector<Period> days = {};      ///< those with a figure other than zero, in order
    std::vector<Period> weeks = {};     ///< the same
    std::vector<Period> months = {};    ///< the same
    std::vector<Period> everyDay = {};  ///< as `days`, but those outside the range too
    std::int64_t focusDays = 0;
    std::vector<EndedSession> sessions = {};    ///< by their start
    std::vector<EndedSession> reachingIn = {};  ///< that began before the range and worked within it
    std::int64_t sessionsWithoutTime = 0;
    ByRating byEnergy{};
    ByRating byMorale{};
    BetweenSessions between = {};
    std::optional<Streak> longestStreak = {};  ///< the latest of equally long ones
    /// The streak that today may continue or has continued: today is not over.
    std::optional<Streak> currentStreak = {};

    const std::vector<Period>& periods(Unit unit) const;
};

/// The last `most` days, weeks or months up to today or the end of the range, in order, empty ones included.
/// They begin no earlier than the range, or than the first figure if the range has no start.
std::vector<Period> lastPeriods(const LookBack& look, Unit unit, std::size_t most);

/// Days with a goal, up to today or the end of the range.
struct GoalFigures {
    double seconds;                      ///< the goal of a day
    std::int64_t days;                   ///< with a goal; today only once it is reached
    std::int64_t reachedDays;            ///< with that much focus
    std::optional<double> todaySeconds;  ///< focus so far; absent when today is outside the range
};

/// Absent without a goal.
std::optional<GoalFigures> goalOf(const LookBack& look);

/// Days in columns of weeks; the last week contains `lastDay`.
struct HeatMap {
    Day firstWeek;  ///< its first day
    Day firstDay;   ///< of the range, or of the first week
    Day lastDay;
    std::size_t weeks;
    double mostSeconds;  ///< focus of the best day

    /// 0 without focus, otherwise 1 to `levels` by the share of the best day; absent outside the range.
    std::optional<int> levelOf(Day day, double focusSeconds) const;
    static constexpr int levels = 4;
};

HeatMap heatMapOf(const LookBack& look, std::size_t weeks);

/// In seconds.
double focusOn(const LookBack& look, Day day);

}  // namespace quillmere::figures
