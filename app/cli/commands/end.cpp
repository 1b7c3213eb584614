// Ends a focus session, now or at an earlier time.
#include "amendments/forgot_to_end.hpp"
#include "base/text/local_time.hpp"
#include "cli/commands.hpp"
#include "cli/exit_code.hpp"
#include "cli/text_options.hpp"
#include "work/done_text.hpp"
#include "work/fields/answers.hpp"

#include <CLI/CLI.hpp>

#include <memory>

namespace quillmere::cli {
namespace {

struct EndCommand {
    std::optional<std::string> at;
    std::optional<std::string> ago;
};

/// Absent without options.
std::optional<Instant> endOf(const EndCommand& command, Instant now)
{
    if (command.at) {
        return work::pastTimeFrom({"at", *command.at}, now);
    }
    if (!command.ago) {
        return std::nullopt;
    }
    return now - work::durationFrom({"ago", *command.ago});
}

std::string end(const EndCommand& command, QuillmereState& state, const base::SeenFrom& here)
{
    if (const std::optional<Instant> at = endOf(command, here.now)) {
        amendments::forgotToEnd(state, *at, here.now);
        return work::done::endedOn(*at, here.hours);
    }
    WorkflowEngine().endFocus(state, here.now);
    return std::string(work::done::focusEnded);
}

}  // namespace

void addEnd(CLI::App& line, Program& program)
{
    const auto command = std::make_shared<EndCommand>();
    CLI::App* const app = addCommand(line, program, "end", "End the focus session", [command, &program] {
        program.change(namingOptions([&](QuillmereState& state, Instant now) {
            return end(*command, state, {now, program.hours()});
        }));
    });
    CLI::Option* const at =
        app->add_option(
               "--at", command->at,
               "It ended at this time, also when it has ended since: 14:20, 2:20pm, \"yesterday 17:00\"")
            ->check(wellFormedText());
    app->add_option("--ago", command->ago, "It ended this long ago: 10m")
        ->check(wellFormedText())
        ->excludes(at);
}

}  // namespace quillmere::cli
