#include "lookback/json_report.hpp"

#include "lookback/words.hpp"

#include <quillmere/records/base/checked_arithmetic.hpp>

namespace quillmere::app::lookback {
namespace {

Json dayJson(const std::optional<Day>& day) { return day ? Json(labelOf(Unit::day, *day)) : Json(nullptr); }

Json meanJson(const Ratings& ratings)
{
    const std::optional<double> mean = ratings.mean();
    return mean ? Json(*mean) : Json(nullptr);
}

Json completionsJson(const Completions& completions)
{
    Json json;
    for (const CompletionResult result : allCases<CompletionResult>()) {
        json[completionText(result)] = completions[static_cast<std::size_t>(result)];
    }
    return json;
}

Json tallyJson(const Tally& tally)
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

Json stretchesJson(const LookBack& look, Unit unit, const char* name)
{
    Json list = Json::array();
    for (const Stretch& stretch : look.stretches(unit)) {
        Json json = {{name, labelOf(unit, stretch.first)}};
        json.update(tallyJson(stretch.tally));
        list.push_back(std::move(json));
    }
    return list;
}

Json byRatingJson(const ByRating& byRating)
{
    Json list = Json::array();
    for (std::int64_t rating = lowestRating; rating <= highestRating; ++rating) {
        Json json = {{"rating", rating}};
        json.update(completionsJson(byRating[static_cast<std::size_t>(rating - lowestRating)]));
        list.push_back(std::move(json));
    }
    return list;
}

Json streakJson(const std::optional<Streak>& streak)
{
    if (!streak) {
        return nullptr;
    }
    return {{"days", streak->days},
            {"first", labelOf(Unit::day, streak->first)},
            {"last", labelOf(Unit::day, streak->last())}};
}

}  // namespace

Json lookBackJson(const LookBack& look)
{
    const BetweenSessions& between = look.between;
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
          {"median_seconds", anyBetween ? Json(wholeSeconds(between.medianSeconds)) : Json(nullptr)},
          {"planned_median_seconds",
           anyBetween ? Json(wholeSeconds(between.plannedMedianSeconds)) : Json(nullptr)}}},
        {"current_streak", streakJson(look.currentStreak)},
        {"longest_streak", streakJson(look.longestStreak)},
        {"by_energy", byRatingJson(look.byEnergy)},
        {"by_morale", byRatingJson(look.byMorale)},
        {"days", stretchesJson(look, Unit::day, "day")},
        {"weeks", stretchesJson(look, Unit::week, "week")},
        {"months", stretchesJson(look, Unit::month, "month")},
    };
}

}  // namespace quillmere::app::lookback
