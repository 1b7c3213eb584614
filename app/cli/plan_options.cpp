#include "cli/plan_options.hpp"

#include "cli/exit_code.hpp"
#include "cli/prompt.hpp"
#include "cli/ratings.hpp"
#include "work/fields/answers.hpp"
#include "work/fields/unacceptable.hpp"

#include <algorithm>
#include <string_view>
#include <variant>

namespace quillmere::cli {
namespace {

using PlanField = work::RecordField<SessionPlan>;

bool isOutcomeServed(const PlanField& field)
{
    return std::holds_alternative<std::optional<Identifier> SessionPlan::*>(field.member);
}

bool hasOutcome(std::int64_t number, const std::optional<Block>& block)
{
    return block && number >= 1 && number <= std::ssize(block->outcomes);
}

std::string noOutcome(std::string_view number)
{
    return "The block has no outcome " + std::string(number) + ".";
}

/// Prints the outcomes with their numbers. Returns whether there is one with a title.
bool listOutcomes(const Asking& asking)
{
    const std::optional<Block>& block = asking.state.currentBlock;
    const std::vector<Outcome> outcomes = block ? block->outcomes : std::vector<Outcome>();
    const bool hasTitles =
        std::any_of(outcomes.begin(), outcomes.end(), [](const Outcome& one) { return !one.title.empty(); });
    for (std::size_t index = 0; hasTitles && index < outcomes.size(); ++index) {
        tell(asking.environment, "  " + std::to_string(index + 1) + "  " + outcomes[index].title);
    }
    return hasTitles;
}

/// Its number; absent: none of them.
std::optional<std::string> askForOutcome(const Asking& asking, const work::Prompt& prompt)
{
    if (!listOutcomes(asking)) {
        return std::nullopt;
    }
    constexpr std::string_view none = "none";
    const Question question{.text = work::helpText(prompt), .present = std::string(none)};
    const std::optional<std::string> number =
        askToChange(asking.environment, question, [&](const std::string& answer) {
            const bool isNumber = !answer.empty() && answer != none;
            if (isNumber && !hasOutcome(work::numberFrom({"", answer}, {}), asking.state.currentBlock)) {
                throw work::Unacceptable("", noOutcome(answer));
            }
        });
    return number && !number->empty() && *number != none ? number : std::nullopt;
}

}  // namespace

std::optional<std::int64_t> PlanOptions::outcomeNumber() const
{
    const std::optional<std::string>& text = options_.given("towards");
    return text ? std::optional(work::numberFrom({"towards", *text}, {})) : std::nullopt;
}

void PlanOptions::applyTo(SessionPlan& plan, const std::optional<Block>& block, Instant now) const
{
    options_.applyTo(plan, now);
    const std::optional<std::int64_t> number = outcomeNumber();
    if (number && hasOutcome(*number, block)) {
        plan.blockOutcomeID = block->outcomes[static_cast<std::size_t>(*number - 1)].id;
    }
}

void PlanOptions::requireOutcome(const std::optional<Block>& block) const
{
    const std::optional<std::int64_t> number = outcomeNumber();
    if (number && !hasOutcome(*number, block)) {
        throw ProgramError(ExitCode::usage, noOutcome(std::to_string(*number)));
    }
}

void PlanOptions::requireRatings() const { cli::requireRatings(options_); }

void PlanOptions::askForMissing(const Asking& asking)
{
    const SessionPlan present = SessionPlan::blank(Identifier::random());
    const bool isPlanned = options_.anyGiven();
    options_.askForMissing([&](const PlanField& field) -> std::optional<std::string> {
        if (isPlanned && !isRating(field)) {
            return std::nullopt;
        }
        return isOutcomeServed(field) ? askForOutcome(asking, field.prompt)
                                      : askForField(asking, field, present);
    });
}

PlanOptions PlanOptions::asked() const
{
    PlanOptions copy = *this;
    copy.options_.askForMissing([](const PlanField&) { return std::nullopt; });
    return copy;
}

}  // namespace quillmere::cli
