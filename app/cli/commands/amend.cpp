// Corrects the record of a session that has ended, or of a finished block.
#include "amendments/correct.hpp"
#include "base/text/local_time.hpp"
#include "cli/block_number.hpp"
#include "cli/block_text_options.hpp"
#include "cli/commands.hpp"
#include "cli/exit_code.hpp"
#include "cli/plan_options.hpp"
#include "work/done_text.hpp"
#include "work/fields/answers.hpp"
#include "work/naming.hpp"

#include <CLI/CLI.hpp>

#include <memory>

namespace quillmere::cli {
namespace {

struct AmendCommand {
    std::string name;
    // Of a block.
    BlockTextOptions texts;
    RecordOptions<BlockReview> reflection{work::reflectionFields};
    // Of a session.
    PlanOptions plan;
    RecordOptions<SessionReview> review{work::reviewFields};
    std::optional<std::string> endedAt;

    bool isOfBlock() const { return texts.anyGiven() || reflection.anyGiven(); }
    bool isOfSession() const { return plan.anyGiven() || review.anyGiven() || endedAt; }
};

SessionReview correctedReview(const AmendCommand& command, const WorkSession& session, Instant now)
{
    if (!session.review && !command.review.given("completion")) {
        throw ProgramError(ExitCode::usage, "The session has no review yet: say --completion too.");
    }
    SessionReview review = session.review.value_or(SessionReview{.id = Identifier::random(),
                                                                 .completion = CompletionResult::no,
                                                                 .noteworthyResult = {},
                                                                 .distractions = {},
                                                                 .improvement = {}});
    command.review.applyTo(review, now);
    return review;
}

amendments::SessionCorrection correctionOf(const AmendCommand& command, const work::Named& named, Instant now)
{
    amendments::SessionCorrection correction;
    const WorkSession& session = *named.session;
    if (command.plan.anyGiven()) {
        command.plan.requireOutcome(named.block);
        correction.plan = session.plan;
        command.plan.applyTo(*correction.plan, named.block, now);
    }
    if (command.review.anyGiven()) {
        correction.review = correctedReview(command, session, now);
    }
    if (command.endedAt) {
        // "14:20" is a time on the day of the session.
        correction.endedAt =
            work::pastTimeFrom({"ended-at", *command.endedAt}, session.endedAt.value_or(now));
    }
    return correction;
}

amendments::BlockCorrection correctionOf(const AmendCommand& command, const Block& block, Instant now)
{
    amendments::BlockCorrection correction{.texts = command.texts.textsFor(block)};
    if (command.reflection.anyGiven()) {
        correction.reflection = block.reflection.value_or(BlockReview{});
        command.reflection.applyTo(*correction.reflection, now);
    }
    return correction;
}

void requireFittingOptions(const AmendCommand& command, const work::Named& named, const QuillmereState& state)
{
    if (!command.isOfBlock() && !command.isOfSession()) {
        throw ProgramError(
            ExitCode::usage,
            "Say what to correct, such as --result TEXT; quillmere amend --help lists the options.");
    }
    if (named.session && command.isOfBlock()) {
        throw ProgramError(ExitCode::usage, command.name + " is a session; these options are of its block, " +
                                                work::shortName(named.block.id, state) + ".");
    }
    if (!named.session && command.isOfSession()) {
        throw ProgramError(ExitCode::usage, command.name +
                                                " is a block; these options are of a session, such as " +
                                                work::shortName(named.block.id, state) + ".1.");
    }
}

/// Returns what was corrected.
std::string amend(const AmendCommand& command, QuillmereState& state, const base::SeenFrom& here)
{
    const Instant now = here.now;
    const work::Named named = work::named(command.name, state);
    requireFittingOptions(command, named, state);
    const Identifier block = named.block.id;
    if (named.session) {
        const Identifier session = named.session->id;
        const amendments::SessionCorrection correction = correctionOf(command, named, now);
        amendments::correctSession(state, block, session, correction, now);
        return std::string(work::done::recordCorrected) +
               (correction.endedAt ? " " + work::done::endedOn(*correction.endedAt, here.hours) : "");
    }
    amendments::correctBlock(state, block, correctionOf(command, named.block, now), now);
    return std::string(work::done::recordCorrected);
}

}  // namespace

void addAmend(CLI::App& line, Program& program)
{
    const auto command = std::make_shared<AmendCommand>();
    CLI::App* const app = addCommand(
        line, program, "amend", "Correct the record of a finished block, or of a session that has ended",
        [command, &program] {
            command->name =
                nameWithoutNumber(command->name, false, program.workspace().look().state, program);
            program.change(namingOptions([&](QuillmereState& state, Instant now) {
                               return amend(*command, state, {now, program.hours()});
                           }),
                           base::Reach::years);
        });
    app->add_option("name", command->name,
                    "A block as history names it, such as 9F1C; 9F1C.2 is its second session, .2 that of the "
                    "current block; on a terminal also its number, 1 for the last one")
        ->required()
        ->type_name("RECORD")
        ->check(wellFormedText());
    command->texts.addTo(*app);
    command->reflection.addTo(*app);
    command->plan.addTo(*app, "plan-");
    command->review.addTo(*app);
    app->add_option("--ended-at", command->endedAt, work::helpText(work::endedAtPrompt))
        ->check(wellFormedText());
}

}  // namespace quillmere::cli
