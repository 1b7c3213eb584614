// Reviews a focus session, and plans the next one.
#include "cli/commands/commands.hpp"
#include "cli/exit_code.hpp"
#include "cli/prompt.hpp"
#include "cli/text_options.hpp"

#include <memory>

namespace quillmere::cli {
namespace {

struct ReviewCommand {
    std::string completion;
    TextOptions<SessionReview, work::reviewFields.size()> texts{work::reviewFields};
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

void askForMissing(ReviewCommand& command, const QuillmereState& state, base::Environment& environment)
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

/// What the engine refuses is said before what the command line lacks.
void saveReview(const ReviewCommand& command, QuillmereState& state, Instant now)
{
    const std::optional<CompletionResult> completion = completionFrom(command.completion);
    SessionReview review{
        .id = Identifier::random(),
        .completion = completion.value_or(CompletionResult::no),
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
    command.nextPlan.requireOutcome(state.currentBlock);
    if (!completion) {
        throw ProgramError(ExitCode::usage, "Say --completion yes, half or no.");
    }
}

/// The command with something in the place of all that would be asked for.
ReviewCommand filledIn(ReviewCommand command)
{
    if (!completionFrom(command.completion)) {
        command.completion = rawValue(CompletionResult::no);
    }
    if (!command.nextPlan.anyGiven()) {
        command.nextPlan.askForMissing([](const char*) { return std::string(); });
    }
    return command;
}

void review(ReviewCommand& command, Program& program)
{
    base::Environment& environment = program.environment();
    if (environment.inputIsTerminal) {
        // A slip on the command line is to be found before anything is asked.
        const ReviewCommand rehearsal = filledIn(command);
        if (program.wouldAccept(
                [&](QuillmereState& state, Instant now) { saveReview(rehearsal, state, now); })) {
            askForMissing(command, program.workspace().look().state, environment);
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
    app->add_option("--completion", command->completion, "Was it completed?")
        ->type_name("{yes,half,no}")
        ->check(wellFormedText());
    command->texts.addTo(*app);
    command->nextPlan.addTo(*app, "next-");
}

}  // namespace quillmere::cli
