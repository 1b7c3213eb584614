// Starts a focus session.
#include "cli/commands.hpp"
#include "cli/plan_options.hpp"
#include "cli/prompt.hpp"
#include "work/done_text.hpp"
#include "work/next_plan.hpp"

#include <memory>

namespace quillmere::cli {
namespace {

/// The saved plan with the values of the options; absent without options, and the engine then takes the
/// saved plan.
std::optional<SessionPlan> chosenPlan(const PlanOptions& options, const QuillmereState& state, Instant now)
{
    if (!options.anyGiven()) {
        return std::nullopt;
    }
    SessionPlan plan = work::nextPlan(state);
    options.applyTo(plan, state.currentBlock, now);
    return plan;
}

void startFocus(const PlanOptions& options, QuillmereState& state, Instant now)
{
    const bool isPlanSaved = state.plannedNextSession.has_value();
    WorkflowEngine().startFocus(state, chosenPlan(options, state, now), now);
    options.requireOutcome(state.currentBlock);
    if (!isPlanSaved) {
        options.requireRatings();
    }
}

void focus(PlanOptions& options, Program& program)
{
    const auto operationOf = [](const PlanOptions& words) {
        return [&words](QuillmereState& state, Instant now) { startFocus(words, state, now); };
    };
    base::Environment& environment = program.environment();
    if (environment.inputIsTerminal) {
        const workspace::Situation situation = program.workspace().look(base::Reach::prompts);
        // Wrong options are refused before anything is asked.
        const PlanOptions rehearsal = options.asked();
        if (!situation.state.plannedNextSession &&
            program.wouldAccept(operationOf(rehearsal), base::Reach::present)) {
            explainPrompts(environment);
            options.askForMissing({environment, situation.state, {situation.now, program.hours()}});
        }
    }
    program.change(work::done::focusStarted, operationOf(options));
}

}  // namespace

void addFocus(CLI::App& line, Program& program)
{
    const auto options = std::make_shared<PlanOptions>();
    CLI::App* const command =
        addCommand(line, program, "focus", "Start a focus session, with the saved plan or a new one",
                   [options, &program] { focus(*options, program); });
    options->addTo(*command);
}

}  // namespace quillmere::cli
