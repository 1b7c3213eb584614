// Makes a session longer or shorter, or lets it go on after its end.
#include "amendments/possible.hpp"
#include "amendments/refusal.hpp"
#include "cli/commands.hpp"
#include "cli/exit_code.hpp"
#include "cli/text_options.hpp"
#include "work/fields/answers.hpp"
#include "work/focus_extension.hpp"

#include <CLI/CLI.hpp>

#include <memory>

namespace quillmere::cli {
namespace {

struct ExtendCommand {
    std::string by;  ///< negative: shorter
    bool isPause = false;
};

std::string extend(const ExtendCommand& command, QuillmereState& state, Instant now)
{
    const double by = work::lengthChangeFrom({"by", command.by});
    if (command.isPause && amendments::isPossible(amendments::Kind::changeLength, state)) {
        throw amendments::Refusal(
            "The session has not ended, so that no time since its end can be a pause. Possible: extend "
            "without "
            "--as-pause; away, for a pause that was forgotten.");
    }
    using amendments::TimeSinceEnd;
    return std::string(work::extendFocus(
        state, by, command.isPause ? TimeSinceEnd::countsAsPause : TimeSinceEnd::countsAsFocus, now));
}

}  // namespace

void addExtend(CLI::App& line, Program& program)
{
    const auto command = std::make_shared<ExtendCommand>();
    CLI::App* const app = addCommand(
        line, program, "extend", "Make the focus session longer or shorter; after its end, go on with it",
        [command, &program] {
            std::string done;
            const workspace::Operation operation = namingOptions(
                [&](QuillmereState& state, Instant now) { done = extend(*command, state, now); });
            program.change([&](QuillmereState& state, Instant now) {
                operation(state, now);
                return done;
            });
        });
    CLI::Option* const duration =
        app->add_option("duration", command->by, "By how much: 10m, 90s")->check(wellFormedText());
    app->add_option("--by", command->by, "The same; a negative one makes it shorter: --by=-5m")
        ->check(wellFormedText())
        ->excludes(duration);
    app->add_flag("--as-pause", command->isPause,
                  "After the end: the time since then counts as a pause, otherwise as focus");
}

}  // namespace quillmere::cli
