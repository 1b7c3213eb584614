#include "cli/text_options.hpp"

#include "base/text/sanitize.hpp"
#include "cli/exit_code.hpp"

#include <charconv>

namespace quillmere::cli {

CLI::Validator wellFormedText()
{
    return {[](std::string& text) { return base::isText(text) ? "" : "is not well-formed UTF-8"; }, ""};
}

CLI::Validator wholeNumber()
{
    return {[](std::string& text) -> std::string {
                std::int64_t number = 0;
                const char* const end = text.data() + text.size();
                const auto [stop, error] = std::from_chars(text.data(), end, number);
                if (error != std::errc() || stop != end) {
                    return "is not a whole number: " + text;
                }
                text = std::to_string(number);
                return "";
            },
            ""};
}

void PlanOptions::addTo(CLI::App& command, const std::string& prefix)
{
    texts_.addTo(command, prefix);
    command.add_option("--" + prefix + "energy", energy_, "How much energy is there? 1 to 5")
        ->transform(wholeNumber());
    command.add_option("--" + prefix + "morale", morale_, "How is the mood? 1 to 5")
        ->transform(wholeNumber());
    command
        .add_option("--" + prefix + "towards", outcomeNumber_,
                    "The number of the block's outcome it works towards")
        ->transform(wholeNumber());
}

bool PlanOptions::anyGiven() const { return texts_.anyGiven() || energy_ || morale_ || outcomeNumber_; }

void PlanOptions::applyTo(SessionPlan& plan, const std::optional<Block>& block) const
{
    texts_.applyTo(plan);
    plan.energy = energy_.value_or(plan.energy);
    plan.morale = morale_.value_or(plan.morale);
    if (hasOutcome(block)) {
        plan.blockOutcomeID = block->outcomes[static_cast<std::size_t>(*outcomeNumber_ - 1)].id;
    }
}

void PlanOptions::requireOutcome(const std::optional<Block>& block) const
{
    if (outcomeNumber_ && !hasOutcome(block)) {
        throw ProgramError(ExitCode::usage,
                           "The block has no outcome " + std::to_string(*outcomeNumber_) + ".");
    }
}

bool PlanOptions::hasOutcome(const std::optional<Block>& block) const
{
    return outcomeNumber_ && block && *outcomeNumber_ >= 1 && *outcomeNumber_ <= std::ssize(block->outcomes);
}

}  // namespace quillmere::cli
