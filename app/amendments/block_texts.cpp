#include "amendments/block_texts.hpp"

#include "amendments/refusal.hpp"

#include <algorithm>
#include <utility>

namespace quillmere::amendments {
namespace {

bool contains(const std::vector<Outcome>& outcomes, const Identifier& id)
{
    return std::any_of(outcomes.begin(), outcomes.end(),
                       [&](const Outcome& outcome) { return outcome.id == id; });
}

void requireServed(const std::vector<Outcome>& outcomes, const Block& block, const SessionPlan& plan,
                   const std::string& servant)
{
    const Outcome* const served = block.outcomeServed(plan);
    if (served && !contains(outcomes, served->id)) {
        throw Refusal(servant + " serves the outcome \"" + served->title +
                      "\", so that it cannot be removed. Possible: another title for it.");
    }
}

void setIfGiven(std::string& text, std::optional<std::string>& given) noexcept
{
    if (given) {
        text = *std::move(given);
    }
}

}  // namespace

void requireOutcomes(const BlockTexts& texts, const Block& block, const std::optional<SessionPlan>& nextPlan)
{
    if (!texts.outcomes) {
        return;
    }
    const std::vector<Outcome>& outcomes = *texts.outcomes;
    if (outcomes.empty()) {
        throw Refusal("A block keeps at least one outcome. Possible: another title for it.");
    }
    for (auto outcome = outcomes.begin(); outcome != outcomes.end(); ++outcome) {
        if (contains({outcome + 1, outcomes.end()}, outcome->id)) {
            throw Refusal("Two outcomes have the same identifier. Possible: one for each outcome.");
        }
    }
    for (const WorkSession& session : block.sessions) {
        requireServed(outcomes, block, session.plan, "Session " + std::to_string(session.number));
    }
    if (nextPlan) {
        requireServed(outcomes, block, *nextPlan, "The next session");
    }
}

void setTexts(Block& block, BlockTexts texts) noexcept
{
    setIfGiven(block.whyValue, texts.whyValue);
    setIfGiven(block.doneTest, texts.doneTest);
    setIfGiven(block.hazards, texts.hazards);
    setIfGiven(block.measurableCheck, texts.measurableCheck);
    setIfGiven(block.contextNotes, texts.contextNotes);
    if (texts.outcomes) {
        block.outcomes = *std::move(texts.outcomes);
    }
}

}  // namespace quillmere::amendments
