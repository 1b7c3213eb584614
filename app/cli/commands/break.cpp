// Lengthens, ends or skips a break.
#include "base/text/duration.hpp"
#include "cli/commands.hpp"
#include "cli/exit_code.hpp"
#include "cli/text_options.hpp"
#include "work/break_extension.hpp"
#include "work/done_text.hpp"

#include <CLI/CLI.hpp>

#include <memory>

namespace quillmere::cli {
namespace {

void extendBreak(const std::string& text, Program& program)
{
    const std::optional<double> by = base::durationFromText(text);
    program.change(work::done::breakExtended, [&](QuillmereState& state, Instant now) {
        // First the engine, with any duration: its refusal is reported before an error of the command line.
        work::extendBreak(state, by.value_or(base::shortestDuration), now);
        if (!by) {
            throw ProgramError(ExitCode::usage, "Give a " + std::string(base::acceptedDurations) + ".");
        }
    });
}

}  // namespace

void addBreak(CLI::App& line, Program& program)
{
    CLI::App* const group = line.add_subcommand("break", "Lengthen, end or skip the break");
    group->fallthrough()->require_subcommand(1);
    const auto by = std::make_shared<std::string>();
    addCommand(*group, program, "extend", "Lengthen the break", [by, &program] { extendBreak(*by, program); })
        ->add_option("duration", *by, "By how much: 5m, 90s")
        ->required()
        ->check(wellFormedText());
    addCommand(*group, program, "end", "End the break", [&program] {
        program.change(work::done::breakEnded,
                       [](QuillmereState& state, Instant now) { WorkflowEngine().endBreak(state, now); });
    });
    addCommand(*group, program, "skip", "Go on without a break", [&program] {
        program.change(work::done::breakSkipped,
                       [](QuillmereState& state, Instant now) { WorkflowEngine().skipBreak(state, now); });
    });
}

}  // namespace quillmere::cli
