#include "cli/commands.hpp"
#include "cli/usage_error.hpp"

#include <CLI/CLI.hpp>

#include <memory>
#include <ostream>
#include <vector>

namespace quillmere::cli {
namespace {

using Words = std::vector<std::string>;

/// The help of the command with these words. Throws ProgramError (`usage`) when there is none.
std::string helpOf(const CLI::App& line, const Words& words)
{
    const CLI::App* command = &line;
    std::string usage = line.get_name();
    for (const std::string& word : words) {
        const std::vector<const CLI::App*> found =
            command->get_subcommands([&](const CLI::App* each) { return each->get_name() == word; });
        if (found.empty()) {
            throw ProgramError(ExitCode::usage, unknownCommandText(*command, word));
        }
        command = found.front();
        usage += " " + word;
    }
    return line.get_formatter()->make_help(command, usage, CLI::AppFormatMode::Normal);
}

}  // namespace

void addHelp(CLI::App& line, Program& program)
{
    const auto words = std::make_shared<Words>();
    CLI::App* const command =
        addCommand(line, program, "help", "Print the help of the program or of a command",
                   [&line, &program, words] { program.environment().out << helpOf(line, *words); });
    command->add_option("command", *words, "The command: plan, or break extend")->type_name("COMMAND");
}

}  // namespace quillmere::cli
