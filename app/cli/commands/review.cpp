// Reviews a focus session, and plans the next one or finishes the block. The review of an only session has
// the reflection with it.
#include "amendments/finish_now.hpp"
#include "cli/commands.hpp"
#include "cli/plan_options.hpp"
#include "cli/prompt.hpp"
#include "work/done_text.hpp"
#include "work/fields/answers.hpp"
#include "work/fields/unacceptable.hpp"
#include "work/only_session.hpp"

#include <memory>

namespace quillmere::cli {
namespace {

struct ReviewCommand {
    RecordOptions<SessionReview> options{work::reviewFields};
    RecordOptions<BlockReview> reflection{work::reflectionFields};  ///< on a block of one session
    PlanOptions nextPlan;
    bool finishes = false;
};

void requireCompletion(const std::string& text) { work::completionFrom({"completion", text}); }

/// Whether the completion was given and can be read.
bool hasCompletion(const ReviewCommand& command)
{
    try {
        requireCompletion(command.options.given("completion").value_or(""));
        return true;
    } catch (const work::Unacceptable&) {
        return false;
    }
}

SessionReview emptyReview()
{
    return {.id = Identifier::random(),
            .completion = CompletionResult::no,
            .noteworthyResult = {},
            .distractions = {},
            .improvement = {}};
}

void askForReview(ReviewCommand& command, const Asking& asking)
{
    explainPrompts(asking.environment);
    if (!hasCompletion(command)) {
        command.options.give("completion", std::nullopt);
    }
    command.options.askForMissing([&](const work::RecordField<SessionReview>& field) {
        return askForField(asking, field, emptyReview());
    });
    if (!command.finishes && asking.state.currentBlock->hasCyclesLeft()) {
        tell(asking.environment, "The next session.");
        command.nextPlan.askForMissing(asking);
    } else if (work::isOnlySessionInReview(asking.state)) {
        tell(asking.environment, "The block.");
        command.reflection.askForMissing([&](const work::RecordField<BlockReview>& field) {
            return askForField(asking, field, BlockReview{});
        });
    }
}

/// The command with a value for everything that would be asked.
ReviewCommand filledIn(ReviewCommand command)
{
    if (!hasCompletion(command)) {
        command.options.give("completion", std::string(rawValue(CompletionResult::no)));
    }
    if (!command.finishes) {
        command.nextPlan = command.nextPlan.asked();
    }
    return command;
}

SessionReview reviewFrom(const ReviewCommand& command, Instant now)
{
    SessionReview review = emptyReview();
    filledIn(command).options.applyTo(review, now);
    return review;
}

/// Leaves the block to its reflection, or begins a break.
void saveReviewAlone(const ReviewCommand& command, QuillmereState& state, Instant now)
{
    SessionReview review = reviewFrom(command, now);
    std::optional<SessionPlan> nextPlan;
    if (command.nextPlan.anyGiven()) {
        nextPlan = SessionPlan::blank(Identifier::random());
        command.nextPlan.applyTo(*nextPlan, state.currentBlock, now);
    }
    if (command.finishes) {
        amendments::finishNow(state, std::move(review), now);
    } else {
        WorkflowEngine().saveReviewAndStartBreak(state, std::move(review), std::move(nextPlan), now);
    }
    command.nextPlan.requireOutcome(state.currentBlock);
    if (command.reflection.anyGiven()) {
        throw ProgramError(
            ExitCode::usage,
            "Only the review of a block with one session takes the reflection too; here say it to "
            "quillmere reflect, once the block waits for it.");
    }
}

/// Refusals of the engine come before a completion that is missing.
std::string saveReview(const ReviewCommand& command, QuillmereState& state, Instant now)
{
    const bool isOnly = work::isOnlySessionInReview(state);
    if (isOnly) {
        BlockReview reflection{};
        command.reflection.applyTo(reflection, now);
        work::finishOnlySession(state, reviewFrom(command, now), std::move(reflection), now);
    } else {
        saveReviewAlone(command, state, now);
    }
    requireCompletion(command.options.given("completion").value_or(""));
    if (command.nextPlan.anyGiven()) {
        command.nextPlan.requireRatings();
    }
    return std::string(isOnly             ? work::done::reviewSavedAndBlockFinished
                       : command.finishes ? work::done::reviewSavedAndFinished
                                          : work::done::reviewSaved);
}

void review(ReviewCommand& command, Program& program)
{
    if (command.finishes && command.nextPlan.anyGiven()) {
        throw ProgramError(ExitCode::usage,
                           "With --finish no session follows: leave out the options of the next one.");
    }
    const auto operationOf = [](const ReviewCommand& words) {
        return namingOptions(
            [&](QuillmereState& state, Instant now) { return saveReview(words, state, now); });
    };
    base::Environment& environment = program.environment();
    if (environment.inputIsTerminal) {
        // Wrong options are refused before anything is asked.
        const ReviewCommand rehearsal = filledIn(command);
        if (program.wouldAccept(operationOf(rehearsal), base::Reach::present)) {
            const workspace::Situation situation = program.workspace().look(base::Reach::prompts);
            askForReview(command, {environment, situation.state, {situation.now, program.hours()}});
        }
    }
    program.change(operationOf(command));
}

}  // namespace

void addReview(CLI::App& line, Program& program)
{
    const auto command = std::make_shared<ReviewCommand>();
    CLI::App* const app =
        addCommand(line, program, "review", "Review the focus session and plan the next one",
                   [command, &program] { review(*command, program); });
    command->options.addTo(*app);
    command->reflection.addTo(*app);
    command->nextPlan.addTo(*app, "next-");
    app->add_flag("--finish", command->finishes, "Bring the block to its end; no session follows");
}

}  // namespace quillmere::cli
