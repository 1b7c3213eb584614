#include "figures/answers/mood.hpp"

#include "base/text/calendar_text.hpp"
#include "lookback/answers/questions.hpp"
#include "lookback/words.hpp"

#include <chrono>
#include <string>
#include <utility>

namespace quillmere::lookback {
namespace {

/// "energy of 4 or 5 reached 80 %, of 1 or 2 60 %"; empty where one of the two has no session.
std::string contrastText(const std::string& name, const figures::Contrast& contrast)
{
    if (figures::total(contrast.high) == 0 || figures::total(contrast.low) == 0) {
        return {};
    }
    return "; with " + name + " of 4 or 5 " + reachedText(contrast.high) + " reached, of 1 or 2 " +
           reachedText(contrast.low);
}

}  // namespace

Answer moodAnswer(const figures::LookBack& look)
{
    const figures::Mood mood = figures::moodOf(look);
    AnswerTable table{.head = {"Weekday", "Energy", "Morale", "Reached"}, .rows = {}};
    for (int offset = 0; offset < 7; ++offset) {
        const std::chrono::weekday weekday = look.habits.weekBegins + std::chrono::days(offset);
        const figures::WeekdayMood& day = mood.weekdays[weekday.c_encoding()];
        table.rows.push_back({.cells = {std::string(base::weekdayInFull(weekday)), meanText(day.energy),
                                        meanText(day.morale), reachedText(day.completions)}});
    }
    return {.question = "How was I?",
            .inShort = "Energy " + meanText(look.total.energy) + " of 5, morale " +
                       meanText(look.total.morale) + contrastText("energy", mood.energy) +
                       contrastText("morale", mood.morale),
            .tables = {std::move(table)}};
}

}  // namespace quillmere::lookback
