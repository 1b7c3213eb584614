// Makes a pause of time that has passed.
#include "amendments/was_away.hpp"
#include "base/text/local_time.hpp"
#include "cli/commands.hpp"
#include "cli/text_options.hpp"
#include "work/done_text.hpp"
#include "work/fields/answers.hpp"

#include <CLI/CLI.hpp>

#include <memory>

namespace quillmere::cli {
namespace {

struct AwayCommand {
    std::string from;
    std::optional<std::string> to;
};

std::string away(const AwayCommand& command, QuillmereState& state, const base::SeenFrom& here)
{
    const Instant now = here.now;
    const Instant from = work::pastTimeFrom({"from", command.from}, now);
    const std::optional<Instant> to =
        command.to ? std::optional(work::pastTimeFrom({"to", *command.to}, now)) : std::nullopt;
    amendments::wasAway(state, from, to, now);
    return work::done::pauseOf(from, to.value_or(state.currentSession()->pausedAt.value_or(now)), here.hours);
}

}  // namespace

void addAway(CLI::App& line, Program& program)
{
    const auto command = std::make_shared<AwayCommand>();
    CLI::App* const app =
        addCommand(line, program, "away", "Make a pause of time in the focus session that has passed",
                   [command, &program] {
                       program.change(namingOptions([&](QuillmereState& state, Instant now) {
                           return away(*command, state, {now, program.hours()});
                       }));
                   });
    app->add_option("--from", command->from, work::helpText(work::awayFromPrompt))
        ->required()
        ->check(wellFormedText());
    app->add_option("--to", command->to, work::helpText(work::awayToPrompt))->check(wellFormedText());
}

}  // namespace quillmere::cli
