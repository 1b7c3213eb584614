// Starts a focus session.
#include "cli/commands.hpp"
#include "cli/prompt.hpp"
#include "cli/text_options.hpp"
#include "work/done_text.hpp"
#include "work/next_plan.hpp"

#include <quillmere/engine/transition.hpp>

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

/// Whether only a plan is missing for a session to start.
bool needsPlan(const QuillmereState& state)
{
    return isPossible(Step::startFocus, state) && !state.plannedNextSession;
}

void focus(PlanOptions& options, Program& program)
{
    base::Environment& environment = program.environment();
    if (environment.inputIsTerminal && !options.anyGiven() && needsPlan(program.workspace().look().state)) {
        options.askForMissing(
            [&](const work::Prompt& prompt) { return ask(environment, work::promptText(prompt)); });
    }
    program.change(work::done::focusStarted, [&](QuillmereState& state, Instant now) {
        WorkflowEngine().startFocus(state, chosenPlan(options, state, now), now);
        options.requireOutcome(state.currentBlock);
    });
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
