// What a look back finds: figures, from which every report is made.
#pragma once

#include "figures/local_day.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace quillmere::figures {

/// Local days, both included; absent: without a bound.
struct Range {
    std::optional<Day> since;
    std::optional<Day> until;

    bool contains(Day day) const { return (!since || day >= *since) && (!until || day <= *until); }
};

/// How many sessions came out how, in the order of CompletionResult; those without a review are not in it.
using Completions = std::array<std::int64_t, allCases<CompletionResult>().size()>;

std::int64_t total(const Completions& completions);

/// Ratings from 1 to 5. Files may hold others; these are in no figure.
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

/// What a stretch of time comes to. A session belongs to the day it started on; its focus time is shared out
/// among the days on which it was spent.
struct Tally {
    double focusSeconds = 0;
    std::int64_t sessions = 0;
    double plannedSeconds = 0;  ///< of these sessions, as long as their time is known
    double workedSeconds = 0;   ///< of these sessions: counted time, pauses left out
    double pausedSeconds = 0;   ///< of these sessions
    std::int64_t pausedSessions = 0;
    Completions completions{};
    Ratings energy{};
    Ratings morale{};

    friend bool operator==(const Tally&, const Tally&) = default;
};

/// A day, a week or a month, as far as it lies in the range.
struct Stretch {
    Day first;
    Tally tally;
};

/// How long a session took.
struct SessionTime {
    double workedSeconds;
    double pausedSeconds;
};

/// The time of a session that has ended. Absent for one that has not, and where the records cannot be true:
/// an end before the start, or more focus than the longest session that can be planned.
std::optional<SessionTime> timeOf(const WorkSession& session);

/// A session that has ended. Points into the state that was looked at.
struct EndedSession {
    const Block* block;
    const WorkSession* session;
    Day day;  ///< on which it started
    std::optional<SessionTime> time;
    /// No change of its record is later: the end of its block, or while that is in hand the last change of
    /// all.
    Instant settledAt;
};

/// The time from the end of a session to the start of the next one of its block, be it a break or a night.
/// It belongs to the session that follows.
struct BetweenSessions {
    std::int64_t count = 0;
    double totalSeconds = 0;
    double medianSeconds = 0;         ///< of two in the middle the longer one
    double plannedMedianSeconds = 0;  ///< the planned breaks of the same blocks, likewise
};

/// Days in a row on which there was focus.
struct Streak {
    Day first;
    std::int64_t days;
    Day last() const { return first + std::chrono::days(days - 1); }
};

/// Everything within the range. Sessions that have ended count, also those of the block in hand.
struct LookBack {
    Range range;
    Day today;
    Tally total = {};
    std::vector<Stretch> days = {};    ///< those with any figure, in order
    std::vector<Stretch> weeks = {};   ///< likewise
    std::vector<Stretch> months = {};  ///< likewise
    std::int64_t focusDays = 0;
    std::vector<EndedSession> sessions = {};  ///< in order of starting
    std::int64_t sessionsWithoutTime = 0;
    ByRating byEnergy{};
    ByRating byMorale{};
    BetweenSessions between = {};
    std::optional<Streak> longestStreak = {};  ///< the latest of several
    /// The one that lasts: until today, or until yesterday, as today is not over.
    std::optional<Streak> currentStreak = {};

    const std::vector<Stretch>& stretches(Unit unit) const;
};

/// The last `most` units up to today or to the end of the range, empty ones included, in order. None lies
/// before the range, or before the first figure where the range has no beginning.
std::vector<Stretch> lastStretches(const LookBack& look, Unit unit, std::size_t most);

/// A whole year of days, in weeks: `weeks` of them from a Monday on, the last one that of `lastDay`.
struct HeatMap {
    Day firstMonday;
    Day firstDay;  ///< nothing is known before it
    Day lastDay;
    std::size_t weeks;
    double mostSeconds;  ///< on any of the days

    /// 0 without any focus, 1 to `levels` by the share of the best day; absent outside the range.
    std::optional<int> levelOf(Day day, double focusSeconds) const;
    static constexpr int levels = 4;
};

HeatMap heatMapOf(const LookBack& look, std::size_t weeks);

/// The focus of a day.
double focusOn(const LookBack& look, Day day);

}  // namespace quillmere::figures
