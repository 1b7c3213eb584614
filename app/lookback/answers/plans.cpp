#include "figures/answers/plans.hpp"
#include "base/text/count.hpp"
#include "lookback/answers/questions.hpp"
#include "lookback/day_text.hpp"
#include "lookback/words.hpp"

#include <algorithm>
#include <string>
#include <utility>

namespace quillmere::lookback {
namespace {

constexpr std::size_t mostBlocks = 12;

std::string endingOf(const figures::BlockPlan& plan)
{
    if (!plan.isFinished) {
        return "in work";
    }
    return plan.isFinishedEarly ? "ended early" : "as planned";
}

AnswerRow planRow(const figures::BlockPlan& plan)
{
    const std::string titles = titlesOf(*plan.block);
    return {.cells = {titles.empty() ? "Untitled block" : titles, labelOf(figures::Unit::day, plan.day),
                      std::to_string(plan.doneSessions) + " of " + std::to_string(plan.plannedSessions),
                      reachedText(plan.completions), endingOf(plan)}};
}

std::string differenceText(const figures::Plans& plans)
{
    std::string text;
    if (plans.longerSessions > 0) {
        text = focusText(plans.overSeconds) + " over in " + base::countText(plans.longerSessions, "session");
    }
    if (plans.shorterSessions > 0) {
        text += (text.empty() ? "none over, " : ", ") + focusText(plans.underSeconds) + " under in " +
                base::countText(plans.shorterSessions, "session");
    }
    return text.empty() ? "every session as long as planned" : text;
}

std::string plansSentence(const figures::Plans& plans)
{
    if (plans.finishedBlocks == 0) {
        return "No block is finished; " + differenceText(plans);
    }
    return std::to_string(plans.doneSessions) + " of " + base::countText(plans.plannedSessions, "session") +
           " in " + base::countText(plans.finishedBlocks, "block") + ", " +
           std::to_string(plans.finishedEarly) + " ended early; " + differenceText(plans);
}

}  // namespace

Answer plansAnswer(const figures::LookBack& look)
{
    const figures::Plans plans = figures::plansOf(look);
    AnswerTable table{.head = {"Latest block", "Begun", "Sessions", "Reached", "End"}, .rows = {}};
    for (std::size_t index = 0; index < std::min(mostBlocks, plans.blocks.size()); ++index) {
        table.rows.push_back(planRow(plans.blocks[index]));
    }
    Answer answer{.question = "Did plans come true?", .inShort = plansSentence(plans), .tables = {}};
    if (!table.rows.empty()) {
        answer.tables.push_back(std::move(table));
    }
    return answer;
}

}  // namespace quillmere::lookback
