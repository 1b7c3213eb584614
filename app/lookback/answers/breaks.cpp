#include "figures/answers/breaks.hpp"

#include "base/text/count.hpp"
#include "base/text/local_time.hpp"
#include "lookback/answers/questions.hpp"
#include "lookback/words.hpp"

#include <string>
#include <utility>

namespace quillmere::lookback {
namespace {

constexpr std::size_t mostOverlong = 5;

std::string breaksText(const figures::BreakFigures& breaks)
{
    if (breaks.breaks.empty()) {
        return "No breaks";
    }
    const auto count = static_cast<double>(breaks.breaks.size());
    return base::countText(std::ssize(breaks.breaks), "break") + " of " +
           focusText(breaks.takenSeconds / count) + " on average, planned " +
           focusText(breaks.plannedSeconds / count) + ", " + std::to_string(breaks.overlong) +
           " over twice as long";
}

std::string pausesText(const figures::PauseFigures& pauses)
{
    return pauses.pausedSessions == 0 ? "no pauses"
                                      : "pauses of " + focusText(pauses.pausedSeconds) + " in " +
                                            base::countText(pauses.pausedSessions, "session") + ", " +
                                            std::to_string(pauses.overlong) + " longer than a break";
}

/// The latest of those that were over twice as long as planned.
AnswerTable overlongTable(const figures::BreakFigures& breaks, base::Hours hours)
{
    AnswerTable table{.head = {"Latest overlong break", "Taken", "Planned"}, .rows = {}};
    for (auto each = breaks.breaks.rbegin(); each != breaks.breaks.rend() && table.rows.size() < mostOverlong;
         ++each) {
        if (each->isOverlong()) {
            table.rows.push_back(
                {.cells = {"before " + base::localText(each->next->session->startedAt, hours),
                           focusText(each->takenSeconds), focusText(each->plannedSeconds)}});
        }
    }
    return table;
}

AnswerTable lengthTable(const figures::BreakFigures& breaks, const figures::PauseFigures& pauses)
{
    AnswerTable table{.head = {"", "Number", "Taken", "Planned", "Median", "Longest", "Overlong"},
                      .rows = {}};
    if (!breaks.breaks.empty()) {
        table.rows.push_back(
            {.cells = {"Breaks", std::to_string(breaks.breaks.size()), focusText(breaks.takenSeconds),
                       focusText(breaks.plannedSeconds), focusText(breaks.medianSeconds),
                       focusText(breaks.longestSeconds), std::to_string(breaks.overlong)}});
    }
    if (pauses.pausedSessions > 0) {
        table.rows.push_back(
            {.cells = {"Pauses", std::to_string(pauses.pausedSessions), focusText(pauses.pausedSeconds), "-",
                       "-", focusText(pauses.longestSeconds), std::to_string(pauses.overlong)}});
    }
    return table;
}

}  // namespace

Answer breaksAnswer(const figures::LookBack& look)
{
    const figures::BreakFigures breaks = figures::breaksOf(look);
    const figures::PauseFigures pauses = figures::pausesOf(look);
    Answer answer{.question = "Breaks and pauses",
                  .inShort = breaksText(breaks) + "; " + pausesText(pauses),
                  .tables = {}};
    for (AnswerTable& table :
         std::vector{lengthTable(breaks, pauses), overlongTable(breaks, look.habits.hours)}) {
        if (!table.rows.empty()) {
            answer.tables.push_back(std::move(table));
        }
    }
    return answer;
}

}  // namespace quillmere::lookback
