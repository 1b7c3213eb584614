// Starts a focus session at once.
#include "base/text/blank.hpp"
#include "cli/commands.hpp"
#include "cli/exit_code.hpp"
#include "cli/field_prompts.hpp"
#include "cli/ratings.hpp"
#include "cli/text_options.hpp"
#include "work/done_text.hpp"
#include "work/fields/answers.hpp"
#include "work/next_plan.hpp"
#include "work/session_at_once.hpp"

#include <CLI/CLI.hpp>

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>

namespace quillmere::cli {
namespace {

/// Energy and morale, the last two of a plan.
constexpr auto ratingFields = std::span(work::planFields).last<2>();

struct NowCommand {
    std::string outcome;
    std::optional<std::string> length;
    RecordOptions<SessionPlan> ratings{ratingFields};
};

/// A plan that is saved has ratings, which count.
bool hasSavedPlan(const QuillmereState& state) { return state.plannedNextSession.has_value(); }

void askForRatings(NowCommand& command, const Asking& asking)
{
    const SessionPlan present = SessionPlan::blank(Identifier::random());
    command.ratings.askForMissing(
        [&](const work::RecordField<SessionPlan>& field) { return askForField(asking, field, present); });
}

void startNow(const NowCommand& command, const config::Values& values, QuillmereState& state, Instant now)
{
    SessionPlan plan = work::nextPlan(state);
    plan.intendedOutcome = command.outcome;
    command.ratings.applyTo(plan, now);
    work::startAtOnce(
        state, std::move(plan),
        command.length ? std::optional(work::durationFrom({"for", *command.length})) : std::nullopt, values,
        now);
}

/// Refusals of the engine come before ratings that are missing.
workspace::Operation checkedStart(const NowCommand& command, const config::Values& values)
{
    return namingOptions([&](QuillmereState& state, Instant now) {
        const bool isRated = hasSavedPlan(state);
        startNow(command, values, state, now);
        if (!isRated) {
            requireRatings(command.ratings);
        }
    });
}

void startSession(NowCommand& command, Program& program)
{
    base::Environment& environment = program.environment();
    const config::Values& values = program.configuration().values;
    const auto dryRun =
        namingOptions([&](QuillmereState& state, Instant now) { startNow(command, values, state, now); });
    if (environment.inputIsTerminal && program.wouldAccept(dryRun, base::Reach::present)) {
        const workspace::Situation situation = program.workspace().look(base::Reach::prompts);
        if (!hasSavedPlan(situation.state)) {
            askForRatings(command, {environment, situation.state, {situation.now, program.hours()}});
        }
    }
    program.change(work::done::focusStarted, checkedStart(command, values));
}

CLI::Validator namedOutcome()
{
    return {[](std::string& text) { return std::string(base::isBlank(text) ? "is empty" : ""); }, ""};
}

}  // namespace

void addNow(CLI::App& line, Program& program)
{
    const auto command = std::make_shared<NowCommand>();
    CLI::App* const app = addCommand(line, program, "now",
                                     "Start a session at once: the next one, or one with a block of its own",
                                     [command, &program] { startSession(*command, program); });
    app->add_option("outcome", command->outcome, std::string(work::planFields.front().prompt.question))
        ->required()
        ->check(wellFormedText())
        ->check(namedOutcome());
    app->add_option("--for", command->length, "How long is it? 25m (usual), 1h30m")->check(wellFormedText());
    command->ratings.addTo(*app);
}

}  // namespace quillmere::cli
