// Shows the configuration, or opens the person's file in an editor and checks it afterwards.
#include "base/system/child_process.hpp"
#include "base/system/private_directory.hpp"
#include "base/text/sanitize.hpp"
#include "cli/commands.hpp"
#include "cli/configuration_report.hpp"
#include "cli/exit_code.hpp"
#include "cli/ignored_key_signals.hpp"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <cstdlib>
#include <memory>
#include <ostream>
#include <string>

namespace quillmere::cli {
namespace {

/// The editor of this user, a command of the shell.
std::string editorFor(const std::filesystem::path& file)
{
    for (const char* const variable : {"VISUAL", "EDITOR"}) {
        const char* const editor = std::getenv(variable);
        if (editor && *editor) {
            return editor;
        }
    }
    throw ProgramError(ExitCode::usage,
                       "Neither VISUAL nor EDITOR names an editor. Set one, or edit " + file.string() + ".");
}

void runEditor(const std::filesystem::path& file, const base::Environment& environment)
{
    const std::string editor = editorFor(file);
    base::createOwnersDirectory(file.parent_path());
    const pid_t child = base::startChild({.words = {"sh", "-c", editor + " \"$@\"", editor, file.string()},
                                          .input = environment.input,
                                          .output = environment.output});
    const IgnoredKeySignals ignored;
    if (const base::ChildEnding ending = base::awaitEnding(child); !ending.failure.empty()) {
        throw ProgramError(ExitCode::fileError, "The editor, " + editor + ": " + ending.failure + ".");
    }
}

void edit(Program& program)
{
    base::Environment& environment = program.environment();
    if (environment.configDirectory.empty()) {
        throw ProgramError(ExitCode::fileError,
                           "Neither XDG_CONFIG_HOME nor HOME names a directory for the configuration.");
    }
    runEditor(environment.configDirectory / config::ownFileName, environment);
    const config::Configuration after = config::read(environment.configDirectory);
    if (program.settings().json) {
        program.print(configurationJson(after, environment.configDirectory));
        return;
    }
    for (const config::Problem& problem : after.problems) {
        environment.err << base::sanitized(config::problemText(problem)) << '\n';
    }
    if (after.problems.empty()) {
        environment.out << "The configuration can be used as it is.\n";
    }
}

void showConfiguration(Program& program)
{
    const base::Environment& environment = program.environment();
    if (program.settings().json) {
        program.print(configurationJson(program.configurationInSilence(), environment.configDirectory));
    } else {
        printConfiguration(environment.out, program.configuration(), environment.configDirectory);
    }
}

}  // namespace

void addConfig(CLI::App& line, Program& program)
{
    const auto edits = std::make_shared<bool>(false);
    addCommand(line, program, "config", "Show the configuration: each value, and where it comes from",
               [edits, &program] { *edits ? edit(program) : showConfiguration(program); })
        ->add_flag("--edit", *edits,
                   "Open your file in the editor of VISUAL or EDITOR, and check it afterwards");
}

}  // namespace quillmere::cli
