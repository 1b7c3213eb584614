#include "base/text/calendar_text.hpp"
#include "base/text/count.hpp"
#include "figures/answers/best_times.hpp"
#include "lookback/answers/questions.hpp"
#include "lookback/day_text.hpp"
#include "lookback/words.hpp"

#include <algorithm>
#include <span>
#include <string>
#include <utility>

namespace quillmere::lookback {
namespace {

using figures::TimeSlot;

double mostFocus(std::span<const TimeSlot> slots)
{
    double most = 0;
    for (const TimeSlot& slot : slots) {
        most = std::max(most, slot.focusSeconds);
    }
    return most;
}

AnswerRow slotRow(std::string name, const TimeSlot& slot, double most)
{
    return {.cells = {std::move(name), focusText(slot.focusSeconds), std::to_string(slot.sessions),
                      reachedText(slot.completions)},
            .share = most > 0 ? slot.focusSeconds / most : 0};
}

AnswerTable slotTable(std::string first)
{
    return {.head = {std::move(first), "Focus", "Sessions", "Reached"}, .rows = {}, .barName = "Focus"};
}

/// From the hour at which days begin, without hours that have no session.
AnswerTable hourTable(const figures::BestTimes& times, const figures::Habits& habits)
{
    AnswerTable table = slotTable("Hour");
    const double most = mostFocus(times.hours);
    for (std::size_t index = 0; index < times.hours.size(); ++index) {
        const std::size_t hour =
            (index + static_cast<std::size_t>(habits.dayBeginsAtHour)) % times.hours.size();
        const TimeSlot& slot = times.hours[hour];
        if (slot.focusSeconds > 0 || slot.sessions > 0) {
            table.rows.push_back(slotRow(hourText(hour, habits.hours), slot, most));
        }
    }
    return table;
}

AnswerTable weekdayTable(const figures::BestTimes& times, const figures::Habits& habits)
{
    AnswerTable table = slotTable("Weekday");
    const double most = mostFocus(times.weekdays);
    for (int offset = 0; offset < 7; ++offset) {
        const std::chrono::weekday weekday = habits.weekBegins + std::chrono::days(offset);
        table.rows.push_back(
            slotRow(std::string(base::weekdayInFull(weekday)), times.weekdays[weekday.c_encoding()], most));
    }
    return table;
}

std::string bestSentence(const figures::BestTimes& times, const figures::Habits& habits)
{
    const auto reached = [](const TimeSlot& slot) {
        return " (" + reachedText(slot.completions) + " reached in " +
               base::countText(figures::total(slot.completions), "session") + ")";
    };
    std::string text;
    if (const auto hour = figures::bestOf(times.hours)) {
        text = "Best from " + hourText(*hour, habits.hours) + reached(times.hours[*hour]);
    }
    if (const auto day = figures::bestOf(times.weekdays)) {
        text += (text.empty() ? "Best" : ",") + std::string(" on ") +
                std::string(base::weekdayInFull(std::chrono::weekday(static_cast<unsigned>(*day)))) +
                reached(times.weekdays[*day]);
    }
    return text.empty() ? "Too few sessions have been reviewed to say" : text;
}

}  // namespace

Answer whenAnswer(const figures::LookBack& look)
{
    const figures::BestTimes times = figures::bestTimesOf(look);
    return {.question = "When do I focus best?",
            .inShort = bestSentence(times, look.habits),
            .tables = {hourTable(times, look.habits), weekdayTable(times, look.habits)}};
}

}  // namespace quillmere::lookback
