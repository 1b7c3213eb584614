#include "cli/commands.hpp"

#include <CLI/CLI.hpp>

#include <utility>

namespace quillmere::cli {

CLI::App* addCommand(CLI::App& line, Program& program, const std::string& name, const std::string& purpose,
                     std::function<void()> action)
{
    CLI::App* const command = line.add_subcommand(name, purpose);
    command->fallthrough();
    command->callback([&program, action = std::move(action)] { program.action = action; });
    return command;
}

}  // namespace quillmere::cli
