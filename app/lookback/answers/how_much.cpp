#include "figures/answers/focus_spans.hpp"
#include "lookback/answers/questions.hpp"
#include "lookback/words.hpp"

#include <algorithm>
#include <string>
#include <utility>

namespace quillmere::lookback {
namespace {

struct NamedSpan {
    const char* name;
    const char* before;
    const figures::FocusSpan& span;
};

bool hasGoal(const figures::FocusSpan& span) { return span.goalSeconds && *span.goalSeconds > 0; }

double shareOfGoal(const figures::FocusSpan& span)
{
    return hasGoal(span) ? std::min(1.0, span.focusSeconds / *span.goalSeconds) : 0;
}

AnswerRow spanRow(const NamedSpan& named)
{
    const figures::FocusSpan& span = named.span;
    const char* const withoutGoal = span.goalSeconds ? "off" : "-";
    return {.cells = {named.name, focusText(span.focusSeconds),
                      hasGoal(span) ? focusText(*span.goalSeconds) : withoutGoal,
                      hasGoal(span) ? shareText(span.focusSeconds, *span.goalSeconds) : "-",
                      focusText(span.beforeSeconds), focusText(span.beforeByNowSeconds)},
            .share = shareOfGoal(span)};
}

/// "This week 12 h 30 min of 20 h (63 %)".
std::string spanText(const NamedSpan& named)
{
    const figures::FocusSpan& span = named.span;
    return std::string(named.name) + " " + focusText(span.focusSeconds) +
           (hasGoal(span) ? " of " + focusText(*span.goalSeconds) + " (" +
                                shareText(span.focusSeconds, *span.goalSeconds) + ")"
                          : "");
}

/// "last week 12 h, 5 h of it by this day".
std::string beforeText(const NamedSpan& named)
{
    const figures::FocusSpan& span = named.span;
    return std::string(named.before) + " " + focusText(span.beforeSeconds) +
           (span.beforeByNowSeconds < span.beforeSeconds
                ? ", " + focusText(span.beforeByNowSeconds) + " of it by this day"
                : "");
}

}  // namespace

Answer howMuchAnswer(const figures::LookBack& look)
{
    const figures::FocusSpans spans = figures::focusSpansOf(look);
    const NamedSpan rows[] = {{"Today", "yesterday", spans.today},
                              {"This week", "last week", spans.thisWeek},
                              {"Last week", "the week before", spans.lastWeek},
                              {"This month", "last month", spans.thisMonth}};
    AnswerTable table{.head = {"Span", "Focus", "Goal", "Share", "Span before", "By this day"},
                      .rows = {},
                      .barName = look.habits.dailyGoalSeconds ? "Of the goal" : ""};
    for (const NamedSpan& row : rows) {
        table.rows.push_back(spanRow(row));
    }
    return {.question = "How much did I focus?",
            .inShort = spanText(rows[0]) + ". " + spanText(rows[1]) + "; " + beforeText(rows[1]),
            .tables = {std::move(table)}};
}

}  // namespace quillmere::lookback
