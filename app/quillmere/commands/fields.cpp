#include "commands/fields.hpp"

#include "exit_code.hpp"
#include "text/inert.hpp"

namespace quillmere::app {

CLI::Validator wellFormedText()
{
    return {[](std::string& text) { return isText(text) ? "" : "is not well-formed UTF-8"; }, ""};
}

void PlanOptions::addTo(CLI::App& command, const std::string& prefix)
{
    texts_.addTo(command, prefix);
    command.add_option("--" + prefix + "energy", energy_, "How much energy is there? 1 to 5");
    command.add_option("--" + prefix + "morale", morale_, "How is the mood? 1 to 5");
    command.add_option("--" + prefix + "towards", outcomeNumber_,
                       "The number of the block's outcome it works towards");
}

bool PlanOptions::anyGiven() const { return texts_.anyGiven() || energy_ || morale_ || outcomeNumber_; }

void PlanOptions::applyTo(SessionPlan& plan, const std::optional<Block>& block) const
{
    texts_.applyTo(plan);
    plan.energy = energy_.value_or(plan.energy);
    plan.morale = morale_.value_or(plan.morale);
    if (outcomeNumber_ && block) {
        const auto index = static_cast<std::size_t>(*outcomeNumber_ - 1);
        if (*outcomeNumber_ < 1 || index >= block->outcomes.size()) {
            throw ProgramError(ExitCode::usage,
                               "The block has no outcome " + std::to_string(*outcomeNumber_) + ".");
        }
        plan.blockOutcomeID = block->outcomes[index].id;
    }
}

}  // namespace quillmere::app
