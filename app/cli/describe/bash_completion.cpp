#include "cli/describe/pieces.hpp"
#include "cli/describe/words.hpp"

#include <algorithm>
#include <ostream>

namespace quillmere::cli::describe {
namespace {

/// The first argument for `_quillmere_offer` of the frame.
std::string offer(const Argument& argument)
{
    switch (argument.kind) {
        case ValueKind::none: break;
        case ValueKind::text: return "nothing";
        case ValueKind::choice: return joined(argument.choices);
        case ValueKind::file: return "file";
        case ValueKind::directory: return "directory";
        // The value of an option is one word; an argument of several is typed word by word.
        case ValueKind::candidate:
            return (argument.isPositional() ? "words " : "values ") + argument.candidateKind;
    }
    return "";
}

/// Matches the option after the command and after its subcommands.
std::string pattern(const Command& command, const std::string& option)
{
    return command.commands.empty() ? '"' + command.path + ' ' + option + '"'
                                    : '"' + command.path + "\"*\" " + option + '"';
}

std::vector<std::string> optionNames(const Command& command)
{
    std::vector<std::string> names;
    for (const Argument& option : allOptions(command)) {
        names.insert(names.end(), option.names.begin(), option.names.end());
    }
    return names;
}

/// The offer for the first argument whose values a shell can complete.
std::string argumentOffer(const Command& command)
{
    const auto found = std::find_if(command.arguments.begin(), command.arguments.end(),
                                    [](const Argument& each) { return each.kind != ValueKind::text; });
    return found != command.arguments.end() ? offer(*found) : command.arguments.empty() ? "" : "nothing";
}

}  // namespace

void printBashCommands(std::ostream& out, const Command& program)
{
    for (const Command* const command : withAllBelow(program)) {
        out << "        \"" << command->path << "\")\n            commands=\""
            << joined(namesOf(command->commands)) << "\"\n            options=\""
            << joined(optionNames(*command)) << "\"\n            argument=\"" << argumentOffer(*command)
            << "\" ;;\n";
    }
}

void printBashValues(std::ostream& out, const Command& program)
{
    std::vector<const Command*> commands = withAllBelow(program);
    // Subcommands first: `case` takes the first branch that matches, and a subcommand may have an option of
    // the same name as the command above it.
    std::reverse(commands.begin(), commands.end());
    for (const Command* const command : commands) {
        for (const Argument& option : command->options) {
            if (option.kind != ValueKind::none) {
                for (const std::string& name : option.names) {
                    out << "        " << pattern(*command, name) << ") value=\"" << offer(option)
                        << "\" ;;\n";
                }
            }
        }
    }
}

}  // namespace quillmere::cli::describe
