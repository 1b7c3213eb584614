// Reviews a focus session, and plans the next one.
#include "commands/commands.hpp"
#include "commands/fields.hpp"
#include "commands/prompt.hpp"
#include "exit_code.hpp"

#include <memory>

namespace quillmere::app {
namespace {

struct ReviewCommand {
    std::string completion;
    TextOptions<SessionReview, reviewFields.size()> texts{reviewFields};
    PlanOptions nextPlan;
};

std::optional<CompletionResult> completionFrom(const std::string& word)
{
    for (const CompletionResult result : allCases<CompletionResult>()) {
        if (CLI::detail::to_lower(std::string(rawValue(result))) == CLI::detail::to_lower(word)) {
            return result;
        }
    }
    return std::nullopt;
}

void askForMissing(ReviewCommand& command, const QuillmereState& state, Environment& environment)
{
    const auto question = [&](const char* text) { return ask(environment, text); };
    if (!completionFrom(command.completion)) {
        command.completion =
            askUntil(environment, "Was it completed? (yes, half, no)",
                     [](const std::string& word) { return completionFrom(word).has_value(); });
    }
    command.texts.askForMissing(question);
    const Block& block = *state.currentBlock;
    if (!command.nextPlan.anyGiven() && std::ssize(block.sessions) < block.cycleCount) {
        environment.err << "The next session.\n";
        command.nextPlan.askForMissing(question);
    }
}

void saveReview(const ReviewCommand& command, QuillmereState& state, Instant now)
{
    const std::optional<CompletionResult> completion = completionFrom(command.completion);
    if (!completion) {
        throw ProgramError(ExitCode::usage, "Say --completion yes, half or no.");
    }
    SessionReview review{
        .id = Identifier::random(),
        .completion = *completion,
        .noteworthyResult = {},
        .distractions = {},
        .improvement = {},
    };
    command.texts.applyTo(review);
    std::optional<SessionPlan> nextPlan;
    if (command.nextPlan.anyGiven()) {
        nextPlan = SessionPlan::blank(Identifier::random());
        command.nextPlan.applyTo(*nextPlan, state.currentBlock);
    }
    WorkflowEngine().saveReviewAndStartBreak(state, std::move(review), std::move(nextPlan), now);
}

void review(ReviewCommand& command, Program& program)
{
    Environment& environment = program.environment();
    if (environment.inputIsTerminal) {
        const QuillmereState state = program.workspace().look().state;
        if (state.workflowState == WorkflowState::sessionReview && state.currentSession()) {
            askForMissing(command, state, environment);
        }
    }
    program.change("The review is saved.",
                   [&](QuillmereState& state, Instant now) { saveReview(command, state, now); });
}

}  // namespace

void addReview(CLI::App& line, Program& program)
{
    const auto command = std::make_shared<ReviewCommand>();
    CLI::App* const app =
        addCommand(line, program, "review", "Review the focus session and plan the next one",
                   [command, &program] { review(*command, program); });
    app->add_option("--completion", command->completion, "Was it completed? yes, half or no");
    command->texts.addTo(*app);
    command->nextPlan.addTo(*app, "next-");
}

}  // namespace quillmere::app
