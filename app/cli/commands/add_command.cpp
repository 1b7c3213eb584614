#include "cli/commands.hpp"

#include <CLI/CLI.hpp>

#include <utility>

namespace quillmere::cli {

CLI::App* addCommand(CLI::App& line, Program& program, const std::string& name, const std::string& purpose,
                     std::function<void()> action)
{
    CLI::App* const command = line.add_subcommand(name, purpose);
    command->fallthrough();
    const CLI::App* const group = command->get_parent();
    const std::string words = group && group->get_parent() ? group->get_name() + " " + name : name;
    command->callback([&program, words, action = std::move(action)] {
        program.action = action;
        program.command = words;
    });
    return command;
}

}  // namespace quillmere::cli
