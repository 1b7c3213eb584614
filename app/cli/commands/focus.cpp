// Starts a focus session.
#include "cli/commands/commands.hpp"
#include "cli/prompt.hpp"
#include "cli/text_options.hpp"

#include <memory>

namespace quillmere::cli {
namespace {

/// The plan that the options describe, on top of the saved one; absent when they say nothing, which
/// leaves the choice to the engine.
std::optional<SessionPlan> chosenPlan(const PlanOptions& options, const QuillmereState& state)
{
    if (!options.anyGiven()) {
        return std::nullopt;
    }
    SessionPlan plan = state.plannedNextSession.value_or(SessionPlan::blank(Identifier::random()));
    options.applyTo(plan, state.currentBlock);
    return plan;
}

/// Whether a session would start but for its plan.
bool needsPlan(const QuillmereState& state)
{
    return state.workflowState == WorkflowState::sessionPlanning && !state.plannedNextSession;
}

void focus(PlanOptions& options, Program& program)
{
    base::Environment& environment = program.environment();
    if (environment.inputIsTerminal && !options.anyGiven() && needsPlan(program.workspace().look().state)) {
        options.askForMissing([&](const char* question) { return ask(environment, question); });
    }
    program.change("Focus.", [&](QuillmereState& state, Instant now) {
        WorkflowEngine().startFocus(state, chosenPlan(options, state), now);
        options.requireOutcome(state.currentBlock);
    });
}

}  // namespace

void addFocus(CLI::App& line, Program& program)
{
    const auto options = std::make_shared<PlanOptions>();
    CLI::App* const command =
        addCommand(line, program, "focus", "Start a focus session, by the saved plan or a new one",
                   [options, &program] { focus(*options, program); });
    options->addTo(*command);
}

}  // namespace quillmere::cli
