// Shows the configuration or a value of it, keeps a value in the file of programs, or opens the person's file
// in an editor and checks it afterwards.
#include "base/system/child_process.hpp"
#include "base/system/private_directory.hpp"
#include "base/text/sanitize.hpp"
#include "cli/commands.hpp"
#include "cli/configuration_report.hpp"
#include "cli/exit_code.hpp"
#include "cli/ignored_key_signals.hpp"
#include "cli/text_options.hpp"
#include "config/preferences.hpp"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <optional>
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

void printProblems(const config::Configuration& configuration, std::ostream& err)
{
    for (const config::Problem& problem : configuration.problems) {
        err << base::sanitized(config::problemText(problem)) << '\n';
    }
}

void edit(Program& program)
{
    base::Environment& environment = program.environment();
    runEditor(config::fileIn(environment.configDirectory, config::ownFileName), environment);
    const config::Configuration after = config::read(environment.configDirectory);
    if (program.settings().json) {
        program.print(configurationJson(after, environment.configDirectory));
        return;
    }
    printProblems(after, environment.err);
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

void showValue(const std::string& key, Program& program)
{
    if (program.settings().json) {
        program.print(valueJson(program.configurationInSilence(), key));
    } else if (!printValue(program.environment().out, program.configuration(), key)) {
        throw ProgramError(ExitCode::refused, key + " is not set.");
    }
}

/// Says which value is in effect after a change: it need not be the new one.
void reportChange(const std::string& key, Program& program)
{
    base::Environment& environment = program.environment();
    const config::Configuration after = config::read(environment.configDirectory);
    if (program.settings().json) {
        program.print(valueJson(after, key));
        return;
    }
    printProblems(after, environment.err);
    environment.out << base::sanitized(config::settingText(after, key)) << '\n';
}

struct ConfigCommand {
    bool edits = false;
    bool unsets = false;
    std::optional<std::string> key;
    std::optional<std::string> value;
};

void carryOut(const ConfigCommand& command, Program& program)
{
    const std::filesystem::path& directory = program.environment().configDirectory;
    if (command.edits) {
        edit(program);
    } else if (!command.key) {
        showConfiguration(program);
    } else if (command.unsets) {
        config::unsetPreference(directory, *command.key);
        reportChange(*command.key, program);
    } else if (command.value) {
        config::setPreference(directory, *command.key, *command.value);
        reportChange(*command.key, program);
    } else {
        showValue(*command.key, program);
    }
}

}  // namespace

void addConfig(CLI::App& line, Program& program)
{
    const auto command = std::make_shared<ConfigCommand>();
    CLI::App* const app = addCommand(
        line, program, "config", "Show each value of the configuration and where it comes from, or set one",
        [command, &program] { carryOut(*command, program); });
    CLI::Option* const key =
        app->add_option("key", command->key, "Print the value of this key alone")->type_name("KEY");
    CLI::Option* const value = app->add_option(
        "value", command->value,
        "Set the key to it, in preferences.toml: 50m, sunday, or as in TOML: [\"5m\", \"15m\"]");
    for (CLI::Option* const each : {key, value}) {
        each->check(wellFormedText());
    }
    app->add_flag("--unset", command->unsets, "Remove the key from preferences.toml")
        ->needs(key)
        ->excludes(value);
    app->add_flag("--edit", command->edits,
                  "Open your file in the editor of VISUAL or EDITOR, and check it afterwards")
        ->excludes(key);
}

}  // namespace quillmere::cli
