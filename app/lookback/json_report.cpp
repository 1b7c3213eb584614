#include "lookback/json_report.hpp"

#include "lookback/answers_json.hpp"
#include "lookback/day_text.hpp"
#include "lookback/json_parts.hpp"

#include <nlohmann/json.hpp>
#include <quillmere/records/base/checked_arithmetic.hpp>

namespace quillmere::lookback {
namespace {

base::Json tallyJson(const figures::Tally& tally)
{
    return {
        {"focus_seconds", wholeSeconds(tally.focusSeconds)},
        {"sessions", tally.sessions},
        {"planned_seconds", wholeSeconds(tally.plannedSeconds)},
        {"worked_seconds", wholeSeconds(tally.workedSeconds)},
        {"paused_seconds", wholeSeconds(tally.pausedSeconds)},
        {"paused_sessions", tally.pausedSessions},
        {"completion", completionsJson(tally.completions)},
        {"energy", meanJson(tally.energy)},
        {"morale", meanJson(tally.morale)},
    };
}

base::Json periodsJson(const figures::LookBack& look, figures::Unit unit, const char* name)
{
    base::Json list = base::Json::array();
    for (const figures::Period& period : look.periods(unit)) {
        base::Json json = {{name, labelOf(unit, period.first)}};
        json.update(tallyJson(period.tally));
        list.push_back(std::move(json));
    }
    return list;
}

base::Json byRatingJson(const figures::ByRating& byRating)
{
    base::Json list = base::Json::array();
    for (std::int64_t rating = figures::lowestRating; rating <= figures::highestRating; ++rating) {
        base::Json json = {{"rating", rating}};
        json.update(completionsJson(byRating[static_cast<std::size_t>(rating - figures::lowestRating)]));
        list.push_back(std::move(json));
    }
    return list;
}

base::Json streakJson(const std::optional<figures::Streak>& streak)
{
    if (!streak) {
        return nullptr;
    }
    return {{"days", streak->days},
            {"first", labelOf(figures::Unit::day, streak->first)},
            {"last", labelOf(figures::Unit::day, streak->last)}};
}

base::Json goalJson(const std::optional<figures::GoalFigures>& goal)
{
    if (!goal) {
        return nullptr;
    }
    return {{"seconds", wholeSeconds(goal->seconds)},
            {"days", goal->days},
            {"reached_days", goal->reachedDays},
            {"today_seconds", secondsJson(goal->todaySeconds)}};
}

}  // namespace

base::Json lookBackJson(const figures::LookBack& look)
{
    const figures::BetweenSessions& between = look.between;
    const bool anyBetween = between.count > 0;
    return {
        {"since", dayJson(look.range.since)},
        {"until", dayJson(look.range.until)},
        {"today", dayJson(look.today)},
        {"total", tallyJson(look.total)},
        {"focus_days", look.focusDays},
        {"sessions_without_time", look.sessionsWithoutTime},
        {"between_sessions",
         {{"count", between.count},
          {"total_seconds", wholeSeconds(between.totalSeconds)},
          {"median_seconds",
           anyBetween ? base::Json(wholeSeconds(between.medianSeconds)) : base::Json(nullptr)},
          {"planned_median_seconds",
           anyBetween ? base::Json(wholeSeconds(between.plannedMedianSeconds)) : base::Json(nullptr)}}},
        {"current_streak", streakJson(look.currentStreak)},
        {"longest_streak", streakJson(look.longestStreak)},
        {"goal", goalJson(figures::goalOf(look))},
        {"by_energy", byRatingJson(look.byEnergy)},
        {"by_morale", byRatingJson(look.byMorale)},
        {"answers", answersJson(look)},
        {"days", periodsJson(look, figures::Unit::day, "day")},
        {"weeks", periodsJson(look, figures::Unit::week, "week")},
        {"months", periodsJson(look, figures::Unit::month, "month")},
    };
}

}  // namespace quillmere::lookback
