#include "lookback/answers_json.hpp"

#include "base/text/calendar_text.hpp"
#include "base/text/lower_case.hpp"
#include "figures/answers/best_times.hpp"
#include "figures/answers/breaks.hpp"
#include "figures/answers/distractions.hpp"
#include "figures/answers/focus_spans.hpp"
#include "figures/answers/lessons.hpp"
#include "figures/answers/mood.hpp"
#include "figures/answers/outcomes.hpp"
#include "figures/answers/plans.hpp"
#include "lookback/day_text.hpp"
#include "lookback/json_parts.hpp"

#include <nlohmann/json.hpp>

#include <chrono>
#include <cstddef>
#include <optional>
#include <utility>

namespace quillmere::lookback {
namespace {

/// The items of a list as an array, each by `itemJson`.
template <class List, class ItemJson>
base::Json arrayJson(const List& list, ItemJson itemJson)
{
    base::Json array = base::Json::array();
    for (const auto& item : list) {
        array.push_back(itemJson(item));
    }
    return array;
}

base::Json spanJson(const figures::FocusSpan& span)
{
    return {{"first", dayJson(span.first)},
            {"last", dayJson(span.last)},
            {"focus_seconds", secondsJson(span.focusSeconds)},
            {"goal_seconds", secondsJson(span.goalSeconds)},
            {"before_seconds", secondsJson(span.beforeSeconds)},
            {"before_by_now_seconds", secondsJson(span.beforeByNowSeconds)}};
}

base::Json howMuchJson(const figures::LookBack& look)
{
    const figures::FocusSpans spans = figures::focusSpansOf(look);
    return {{"today", spanJson(spans.today)},
            {"this_week", spanJson(spans.thisWeek)},
            {"last_week", spanJson(spans.lastWeek)},
            {"this_month", spanJson(spans.thisMonth)}};
}

base::Json slotJson(base::Json json, const figures::TimeSlot& slot)
{
    json["focus_seconds"] = secondsJson(slot.focusSeconds);
    json["sessions"] = slot.sessions;
    json["completion"] = completionsJson(slot.completions);
    return json;
}

/// The days of a week in the order of the person, each by `dayJsonOf(its name as an object, c_encoding)`.
template <class DayJson>
base::Json weekJson(const figures::LookBack& look, DayJson dayJsonOf)
{
    base::Json array = base::Json::array();
    for (int offset = 0; offset < 7; ++offset) {
        const std::chrono::weekday weekday = look.habits.weekBegins + std::chrono::days(offset);
        base::Json day;
        day["weekday"] = base::lowerCase(base::weekdayInFull(weekday));
        array.push_back(dayJsonOf(std::move(day), weekday.c_encoding()));
    }
    return array;
}

base::Json whenJson(const figures::LookBack& look)
{
    const figures::BestTimes times = figures::bestTimesOf(look);
    base::Json hours = base::Json::array();
    for (std::size_t hour = 0; hour < times.hours.size(); ++hour) {
        base::Json json;
        json["hour"] = hour;
        hours.push_back(slotJson(std::move(json), times.hours[hour]));
    }
    const auto day = [&](base::Json name, unsigned weekday) {
        return slotJson(std::move(name), times.weekdays[weekday]);
    };
    return {{"hours", std::move(hours)}, {"weekdays", weekJson(look, day)}};
}

base::Json outcomesJson(const figures::LookBack& look)
{
    const figures::OutcomeFigures figures = figures::outcomesOf(look);
    const auto label = [&](figures::Day first) { return base::Json(labelOf(figures.trendUnit, first)); };
    const auto outcome = [](const figures::OutcomeWork& work) -> base::Json {
        return {{"title", work.title},
                {"worked_seconds", secondsJson(work.workedSeconds)},
                {"sessions", work.sessions},
                {"completion", completionsJson(work.completions)},
                {"trend_seconds", arrayJson(work.trend, secondsJson)}};
    };
    return {{"trend_periods", arrayJson(figures.trendFirsts, label)},
            {"outcomes", arrayJson(figures.outcomes, outcome)}};
}

base::Json blockPlanJson(const figures::BlockPlan& plan)
{
    return {{"block_id", plan.block->id.text()},
            {"day", dayJson(plan.day)},
            {"planned_sessions", plan.plannedSessions},
            {"sessions", plan.doneSessions},
            {"completion", completionsJson(plan.completions)},
            {"planned_seconds", secondsJson(plan.plannedSeconds)},
            {"worked_seconds", secondsJson(plan.workedSeconds)},
            {"finished", plan.isFinished},
            {"finished_early", plan.isFinishedEarly}};
}

base::Json plansJson(const figures::LookBack& look)
{
    const figures::Plans plans = figures::plansOf(look);
    return {
        {"finished_blocks", plans.finishedBlocks},         {"finished_early", plans.finishedEarly},
        {"planned_sessions", plans.plannedSessions},       {"sessions", plans.doneSessions},
        {"longer_sessions", plans.longerSessions},         {"over_seconds", secondsJson(plans.overSeconds)},
        {"shorter_sessions", plans.shorterSessions},       {"under_seconds", secondsJson(plans.underSeconds)},
        {"blocks", arrayJson(plans.blocks, blockPlanJson)}};
}

base::Json distractionsJson(const figures::LookBack& look)
{
    const figures::Distractions distractions = figures::distractionsOf(look);
    const auto item = [](const figures::Distraction& each) -> base::Json {
        return {{"text", each.text}, {"sessions", each.sessions}, {"foreseen", each.foreseen}};
    };
    return {{"reviewed_sessions", distractions.reviewedSessions},
            {"disturbed_sessions", distractions.disturbedSessions},
            {"words", arrayJson(distractions.words, item)},
            {"phrases", arrayJson(distractions.phrases, item)}};
}

base::Json lessonsJson(const figures::LookBack& look)
{
    return arrayJson(figures::lessonsOf(look), [](const figures::Lesson& lesson) -> base::Json {
        return {{"day", dayJson(lesson.day)},
                {"block_id", lesson.block->id.text()},
                {"session_id", lesson.session ? base::Json(lesson.session->id.text()) : base::Json(nullptr)},
                {"text", lesson.text}};
    });
}

base::Json contrastJson(const figures::Contrast& contrast)
{
    return {{"high", completionsJson(contrast.high)}, {"low", completionsJson(contrast.low)}};
}

base::Json moodJson(const figures::LookBack& look)
{
    const figures::Mood mood = figures::moodOf(look);
    const auto day = [&](base::Json json, unsigned weekday) {
        json["energy"] = meanJson(mood.weekdays[weekday].energy);
        json["morale"] = meanJson(mood.weekdays[weekday].morale);
        json["completion"] = completionsJson(mood.weekdays[weekday].completions);
        return json;
    };
    return {{"energy", contrastJson(mood.energy)},
            {"morale", contrastJson(mood.morale)},
            {"weekdays", weekJson(look, day)}};
}

base::Json breaksJson(const figures::LookBack& look)
{
    const figures::BreakFigures breaks = figures::breaksOf(look);
    const figures::PauseFigures pauses = figures::pausesOf(look);
    const bool anyBreak = !breaks.breaks.empty();
    return {{"breaks",
             {{"count", breaks.breaks.size()},
              {"planned_seconds", secondsJson(breaks.plannedSeconds)},
              {"taken_seconds", secondsJson(breaks.takenSeconds)},
              {"median_seconds", secondsJson(anyBreak ? std::optional(breaks.medianSeconds) : std::nullopt)},
              {"longest_seconds", secondsJson(breaks.longestSeconds)},
              {"overlong", breaks.overlong},
              {"overnight", breaks.overnight}}},
            {"pauses",
             {{"sessions", pauses.sessions},
              {"paused_sessions", pauses.pausedSessions},
              {"paused_seconds", secondsJson(pauses.pausedSeconds)},
              {"longest_seconds", secondsJson(pauses.longestSeconds)},
              {"overlong", pauses.overlong}}}};
}

}  // namespace

base::Json answersJson(const figures::LookBack& look)
{
    return {{"how_much", howMuchJson(look)},
            {"when", whenJson(look)},
            {"outcomes", outcomesJson(look)},
            {"plans", plansJson(look)},
            {"distractions", distractionsJson(look)},
            {"lessons", lessonsJson(look)},
            {"mood", moodJson(look)},
            {"breaks_and_pauses", breaksJson(look)}};
}

}  // namespace quillmere::lookback
