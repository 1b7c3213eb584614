// Examines the files and the system that they lie on.
#include "base/refusal.hpp"
#include "base/system/terminal_width.hpp"
#include "cli/commands.hpp"
#include "cli/doctor_report.hpp"
#include "doctor/examine.hpp"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <vector>

namespace quillmere::cli {
namespace {

constexpr std::size_t widthWithoutTerminal = 80;

doctor::Origin originOfDirectory(Program& program)
{
    if (program.settings().directory) {
        return doctor::Origin::option;
    }
    const bool isConfigured = !program.configuration().values.directory.empty();
    return isConfigured ? doctor::Origin::configuration : doctor::usualOrigin();
}

/// Where no directory is known, that is all that can be said.
std::vector<doctor::Check> examined(Program& program)
{
    const base::Environment& environment = program.environment();
    try {
        return doctor::examine({.workspace = program.workspace(),
                                .stateHome = environment.stateHome,
                                .origin = originOfDirectory(program),
                                .now = environment.clock(),
                                .hours = program.hours()});
    } catch (const base::Refusal& refusal) {
        return {{"directory", "Directory",
                 doctor::wrong(refusal.what(), "Without a directory nothing can be kept.")}};
    }
}

void examineAndPrint(Program& program)
{
    const std::vector<doctor::Check> checks = examined(program);
    if (program.settings().json) {
        program.print(doctorJson(checks));
    } else {
        const bool isForTerminal = program.environment().outputIsTerminal;
        const std::size_t width =
            isForTerminal ? base::terminalWidth().value_or(widthWithoutTerminal) : widthWithoutTerminal;
        printDoctor(program.environment().out, checks, width, program.style());
    }
    if (doctor::worstOf(checks) == doctor::Verdict::wrong) {
        program.exitCode = ExitCode::refused;
    }
}

}  // namespace

void addDoctor(CLI::App& line, Program& program)
{
    addCommand(line, program, "doctor", "Examine the files, and what the system offers them",
               [&program] { examineAndPrint(program); });
}

}  // namespace quillmere::cli
