// Completion functions for zsh (zshcompsys(1)): options for _arguments, descriptions for _describe.
#include "cli/describe/pieces.hpp"
#include "cli/describe/words.hpp"

#include <algorithm>
#include <ostream>

namespace quillmere::cli::describe {
namespace {

std::string quoted(const std::string& text)
{
    std::string inside;
    for (const char character : text) {
        inside += character == '\'' ? "'\\''" : std::string(1, character);
    }
    return "'" + inside + "'";
}

std::string functionName(const Command& command)
{
    std::string name = "_quillmere" + (command.path.empty() ? "" : "_" + command.path);
    std::replace(name.begin(), name.end(), ' ', '_');
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

/// The action of _arguments that completes a value.
std::string action(const Argument& argument)
{
    switch (argument.kind) {
        case ValueKind::none:
        case ValueKind::text: break;
        case ValueKind::choice: return "(" + joined(argument.choices) + ")";
        case ValueKind::file: return "_files";
        case ValueKind::directory: return "_files -/";
        // A space in front: called without the arguments that _arguments would add.
        case ValueKind::candidate:
            return (argument.mayRepeat ? " _quillmere_words " : " _quillmere_values ") +
                   argument.candidateKind;
    }
    return " ";
}

/// Prints one line of _arguments for each name of the option; each excludes the other names.
void printOption(std::ostream& out, const Argument& option)
{
    for (const std::string& name : option.names) {
        std::vector<std::string> excluded = option.excluded;
        if (option.names.size() > 1) {
            excluded.insert(excluded.end(), option.names.begin(), option.names.end());
        }
        const bool hasValue = option.kind != ValueKind::none;
        const std::string value =
            hasValue ? ":" + escaped(option.valueName, ":", "\\") + ":" + action(option) : "";
        out << "        "
            << quoted((excluded.empty() ? "" : "(" + joined(excluded) + ")") + (option.mayRepeat ? "*" : "") +
                      name + (hasValue && name.starts_with("--") ? "=" : "") + "[" +
                      escaped(option.help, "[]\\", "\\") + "]" + value)
            << " \\\n";
    }
}

void printArgument(std::ostream& out, const Argument& argument)
{
    // With two colons, the action finds the words of this argument alone.
    const std::string repeated = argument.kind == ValueKind::candidate ? "*::" : "*:";
    const std::string separator = argument.mayRepeat ? repeated : argument.isRequired ? ":" : "::";
    out << "        "
        << quoted(separator + escaped(argument.names.front(), ":", "\\") + ":" + action(argument)) << " \\\n";
}

void printCommandsBelow(std::ostream& out, const Command& command)
{
    out << "        '1: :->command' '*:: :->rest' && return\n"
        << "    case $state in\n"
        << "    command)\n"
        << "        commands=(\n";
    for (const Command& each : command.commands) {
        out << "            " << quoted(each.name + ":" + escaped(each.purpose, "\\", "\\")) << '\n';
    }
    out << "        )\n"
        << "        _describe -t commands command commands ;;\n"
        << "    rest)\n"
        << "        case $words[1] in\n";
    for (const Command& each : command.commands) {
        out << "        " << each.name << ") " << functionName(each) << " ;;\n";
    }
    out << "        esac ;;\n"
        << "    esac\n";
}

void printFunction(std::ostream& out, const Command& command)
{
    out << functionName(command) << "() {\n"
        << "    local curcontext=$curcontext state state_descr line\n"
        << "    local -a commands context\n"
        << "    local -A opt_args\n"
        << (command.path.empty() ? "    local -a typed=(\"${words[@]}\")\n" : "")
        // -A: options after a subcommand belong to the subcommand.
        << "    _arguments -C -S " << (command.commands.empty() ? "" : "-A '-*' ") << "\\\n";
    for (const Argument& option : allOptions(command)) {
        printOption(out, option);
    }
    if (!command.commands.empty()) {
        printCommandsBelow(out, command);
    } else {
        for (const Argument& argument : command.arguments) {
            printArgument(out, argument);
        }
        out << "        && return\n";
    }
    out << "}\n\n";
}

}  // namespace

void printZshFunctions(std::ostream& out, const Command& program)
{
    for (const Command* const command : withAllBelow(program)) {
        printFunction(out, *command);
    }
}

}  // namespace quillmere::cli::describe
