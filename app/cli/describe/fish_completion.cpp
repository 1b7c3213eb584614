#include "cli/describe/pieces.hpp"
#include "cli/describe/words.hpp"

#include <ostream>

namespace quillmere::cli::describe {
namespace {

std::string quotedForFish(const std::string& text) { return "'" + escaped(text, "'\\", "\\") + "'"; }

/// Begins a call of `complete` whose condition is that the command so far matches the glob.
void printOfferAt(std::ostream& out, const std::string& glob)
{
    out << "complete -c quillmere -n " << quotedForFish("__quillmere_at " + quotedForFish(glob));
}

/// The arguments of `complete` for a value.
std::string fishOffer(const Argument& argument)
{
    switch (argument.kind) {
        case ValueKind::none: break;
        case ValueKind::text: return " -x";
        case ValueKind::choice: return " -x -a " + quotedForFish(joined(argument.choices));
        case ValueKind::file: return " -r -F";
        case ValueKind::directory: return " -x -a '(__fish_complete_directories)'";
        case ValueKind::candidate:
            return std::string(" -x -k -a '(__quillmere_") + (argument.isPositional() ? "words" : "values") +
                   " " + argument.candidateKind + ")'";
    }
    return "";
}

void printOption(std::ostream& out, const Command& command, const Argument& option)
{
    printOfferAt(out, globOf(command));
    for (const std::string& name : option.names) {
        out << (name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1));
    }
    out << fishOffer(option) << " -d " << quotedForFish(option.help) << '\n';
}

void printArgumentOffer(std::ostream& out, const Command& command, const Argument& argument)
{
    if (argument.kind != ValueKind::text) {
        printOfferAt(out, command.path);
        out << fishOffer(argument) << " -d " << quotedForFish(argument.help) << '\n';
    }
}

}  // namespace

void printFishCommands(std::ostream& out, const Command& program)
{
    for (const Command* const command : withAllBelow(program)) {
        for (const Command& below : command->commands) {
            out << "            case " << quotedForFish(command->path + "/" + below.name)
                << "\n                set command " << quotedForFish(below.path) << '\n';
        }
    }
}

void printFishValues(std::ostream& out, const Command& program)
{
    for (const Command* const command : withAllBelow(program)) {
        for (const Argument& option : command->options) {
            if (option.kind != ValueKind::none) {
                for (const std::string& name : option.names) {
                    out << "            case " << quotedForFish(globOf(*command) + "/" + name)
                        << "\n                set -e words[1]\n";
                }
            }
        }
    }
}

void printFishOffers(std::ostream& out, const Command& program)
{
    for (const Command* const command : withAllBelow(program)) {
        for (const Command& below : command->commands) {
            printOfferAt(out, command->path);
            out << " -a " << below.name << " -d " << quotedForFish(below.purpose) << '\n';
        }
        for (const Argument& option : command->options) {
            printOption(out, *command, option);
        }
        for (const Argument& argument : command->arguments) {
            printArgumentOffer(out, *command, argument);
        }
    }
}

}  // namespace quillmere::cli::describe
