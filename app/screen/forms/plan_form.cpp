// The plan of a focus session.
#include "screen/fields/choice_field.hpp"
#include "screen/forms/record_forms.hpp"

#include <quillmere/engine/workflow_engine.hpp>

namespace quillmere::screen {
namespace {

struct RatingField {
    const char* id;
    std::int64_t SessionPlan::*member;
    const char* question;
};

constexpr auto ratingFields = std::to_array<RatingField>({
    {"energy", &SessionPlan::energy, "How much energy is there?"},
    {"morale", &SessionPlan::morale, "How is the mood?"},
});

constexpr const char* towardsId = "towards";

std::vector<Option> ratings()
{
    std::vector<Option> options;
    for (const char* rating : {"1", "2", "3", "4", "5"}) {
        options.push_back({rating, rating});
    }
    return options;
}

/// The block's outcomes, and none of them.
std::vector<Option> towardsOptions(const std::optional<Block>& block)
{
    std::vector<Option> options = {{"", "none of them"}};
    for (const Outcome& outcome : block ? block->outcomes : std::vector<Outcome>()) {
        options.push_back({outcome.id.text(), std::to_string(options.size()) + "  " + outcome.title});
    }
    return options;
}

}  // namespace

void addPlan(Form& form, const std::string& prefix, const SessionPlan& plan,
             const std::optional<Block>& block)
{
    addTexts(form, prefix, work::planFields, plan);
    form.add(std::make_unique<ChoiceField>(
        prefix + towardsId, "Which outcome of the block does it serve?", towardsOptions(block),
        plan.blockOutcomeID ? plan.blockOutcomeID->text() : "", ChoiceField::Direction::down));
    for (const RatingField& field : ratingFields) {
        form.add(std::make_unique<ChoiceField>(prefix + field.id, field.question, ratings(),
                                               std::to_string(plan.*field.member)));
    }
}

SessionPlan planFrom(const Form& form, const std::string& prefix, SessionPlan plan)
{
    applyTexts(form, prefix, work::planFields, plan);
    plan.blockOutcomeID = Identifier::fromText(form.text(prefix + towardsId));
    for (const RatingField& field : ratingFields) {
        const std::string chosen = form.text(prefix + field.id);
        // What was out of range stays so until something is chosen, and the engine says what it thinks of it.
        plan.*field.member = chosen.empty() ? plan.*field.member : chosen.front() - '0';
    }
    return plan;
}

void addPlanFields(Form& form, const QuillmereState& state, Instant)
{
    if (const std::optional<Block>& block = state.currentBlock) {
        form.setReminder("Session " + std::to_string(block->sessions.size() + 1) + " of " +
                         std::to_string(block->cycleCount));
    }
    addPlan(form, "", state.plannedNextSession.value_or(SessionPlan::blank(Identifier::random())),
            state.currentBlock);
}

void savePlan(const Form& form, QuillmereState& state, Instant now)
{
    const SessionPlan before = state.plannedNextSession.value_or(SessionPlan::blank(Identifier::random()));
    WorkflowEngine().startFocus(state, planFrom(form, "", before), now);
}

}  // namespace quillmere::screen
