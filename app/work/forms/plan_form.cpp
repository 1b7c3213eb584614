// The form of a session plan.
#include "work/forms/record_forms.hpp"
#include "work/next_plan.hpp"

#include <quillmere/engine/workflow_engine.hpp>

#include <utility>

namespace quillmere::work {
namespace {

std::vector<Option> ratings()
{
    std::vector<Option> options;
    for (std::int64_t rating = ratingLimits.least; rating <= ratingLimits.most; ++rating) {
        options.push_back({std::to_string(rating), std::to_string(rating)});
    }
    return options;
}

/// The block's outcomes, and none of them.
std::vector<Option> outcomeOptions(const std::optional<Block>& block)
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
    for (const RecordField<SessionPlan>& row : planFields) {
        Field field = fieldOf(row, prefix, plan, form.hours());
        if (row.prompt.kind == FieldKind::choice) {
            field.areOptionsLong = row.prompt.limits.most == 0;
            field.options = field.areOptionsLong ? outcomeOptions(block) : ratings();
        }
        form.add(std::move(field));
    }
}

SessionPlan planFrom(const Form& form, const std::string& prefix, SessionPlan plan, Instant now)
{
    applyFields(form, prefix, planFields, plan, now);
    return plan;
}

void addPlanFields(Form& form, const QuillmereState& state, Instant)
{
    if (const std::optional<Block>& block = state.currentBlock) {
        form.setReminder("Session " + std::to_string(block->sessions.size() + 1) + " of " +
                         std::to_string(block->cycleCount));
    }
    addPlan(form, "", nextPlan(state), state.currentBlock);
}

void savePlan(const Form& form, QuillmereState& state, Instant now)
{
    WorkflowEngine().startFocus(state, planFrom(form, "", nextPlan(state), now), now);
}

}  // namespace quillmere::work
