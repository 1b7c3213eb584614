#include "cli/describe/command_tree.hpp"

#include "cli/candidates.hpp"
#include "cli/command_line.hpp"
#include "cli/program.hpp"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iostream>

namespace quillmere::cli::describe {
namespace {

/// The names with their dashes, short names first.
std::vector<std::string> dashedNames(const CLI::Option& option)
{
    std::vector<std::string> names;
    for (const std::string& name : option.get_snames()) {
        names.push_back("-" + name);
    }
    for (const std::string& name : option.get_lnames()) {
        names.push_back("--" + name);
    }
    return names;
}

/// The words of "{yes,half,no}"; none for another type name.
std::vector<std::string> choicesFrom(const std::string& typeName)
{
    const std::size_t open = typeName.find('{');
    const std::size_t close = typeName.rfind('}');
    if (open == std::string::npos || close == std::string::npos) {
        return {};
    }
    return CLI::detail::split(typeName.substr(open + 1, close - open - 1), ',');
}

ValueKind kindOf(const std::string& typeName)
{
    if (!choicesFrom(typeName).empty()) {
        return ValueKind::choice;
    }
    if (isCandidateKind(typeName)) {
        return ValueKind::candidate;
    }
    return typeName == "FILE"        ? ValueKind::file
           : typeName == "DIRECTORY" ? ValueKind::directory
                                     : ValueKind::text;
}

/// The name of a value in the manual. In a type name, a constraint may follow after a colon.
std::string valueNameOf(const std::string& typeName)
{
    const std::string name = typeName.substr(0, typeName.find(':'));
    return name == "INT" || name == "UINT" ? "number" : CLI::detail::to_lower(name);
}

std::string helpOf(const CLI::Option& option)
{
    const std::string usual = option.get_default_str();
    return option.get_description() + (usual.empty() ? "" : " (usual: " + usual + ")");
}

Argument argumentFrom(const CLI::Option& option)
{
    const bool isFlag = option.get_items_expected_max() == 0;
    const std::string typeName = option.get_type_name();
    const ValueKind kind = isFlag ? ValueKind::none : kindOf(typeName);
    Argument argument{
        .names = option.get_positional() ? std::vector{option.get_name(true)} : dashedNames(option),
        .help = helpOf(option),
        .kind = kind,
        .valueName = isFlag ? "" : valueNameOf(typeName),
        .choices = choicesFrom(typeName),
        .candidateKind = kind == ValueKind::candidate ? typeName : "",
        .excluded = {},
        .isRequired = option.get_required(),
        .mayRepeat = option.get_expected_max() > 1,
    };
    for (const CLI::Option* const other : option.get_excludes()) {
        argument.excluded.push_back(other->get_name());
    }
    return argument;
}

bool haveNameInCommon(const Argument& one, const Argument& other)
{
    return std::find_first_of(one.names.begin(), one.names.end(), other.names.begin(), other.names.end()) !=
           one.names.end();
}

/// The options that have no name in common with one of `nearer`.
std::vector<Argument> notHidden(const std::vector<Argument>& options, const std::vector<Argument>& nearer)
{
    std::vector<Argument> rest;
    std::copy_if(options.begin(), options.end(), std::back_inserter(rest), [&](const Argument& option) {
        return std::none_of(nearer.begin(), nearer.end(),
                            [&](const Argument& near) { return haveNameInCommon(option, near); });
    });
    return rest;
}

Command commandFrom(const CLI::App& app, const std::string& path, const std::vector<Argument>& above)
{
    Command command{
        .path = path,
        .name = app.get_name(),
        .purpose = app.get_description(),
        .options = {},
        .inherited = {},
        .arguments = {},
        .commands = {},
    };
    for (const CLI::Option* const option : app.get_options()) {
        // Options without a group are hidden.
        if (!option->get_group().empty()) {
            (option->get_positional() ? command.arguments : command.options).push_back(argumentFrom(*option));
        }
    }
    command.inherited = app.get_fallthrough() ? notHidden(above, command.options) : std::vector<Argument>();
    const std::vector<Argument> understood = allOptions(command);
    for (const CLI::App* const below :
         app.get_subcommands([](const CLI::App* each) { return !each->get_group().empty(); })) {
        const std::string& name = below->get_name();
        command.commands.push_back(commandFrom(*below, path.empty() ? name : path + " " + name, understood));
    }
    return command;
}

}  // namespace

Command thisProgram()
{
    // Commands refer to an environment; no command runs here.
    base::Environment environment{
        .in = std::cin,
        .out = std::cout,
        .err = std::cerr,
        .clock = [] { return Instant(0); },
        .inputIsTerminal = false,
        .outputIsTerminal = false,
    };
    cli::Program program(environment);
    CLI::App line;
    cli::defineCommandLine(line, program);
    return commandFrom(line, "", {});
}

std::vector<const Command*> withAllBelow(const Command& command)
{
    std::vector<const Command*> all{&command};
    for (const Command& each : command.commands) {
        const std::vector<const Command*> below = withAllBelow(each);
        all.insert(all.end(), below.begin(), below.end());
    }
    return all;
}

std::vector<Argument> allOptions(const Command& command)
{
    std::vector<Argument> all = command.options;
    all.insert(all.end(), command.inherited.begin(), command.inherited.end());
    return all;
}

}  // namespace quillmere::cli::describe
