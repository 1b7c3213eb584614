// The command line as a plain value, from which the manual page and the completions of shells are made.
#pragma once

#include <string>
#include <vector>

namespace quillmere::cli::describe {

/// What a shell may offer for a value.
enum class ValueKind {
    none,       ///< there is no value: a flag
    text,       ///< anything, so nothing
    choice,     ///< one of `choices`
    file,       ///< a path
    directory,  ///< a path of a directory
};

/// An option, or an argument without a name of its own on the command line.
struct Argument {
    std::vector<std::string> names;  ///< "-h" and "--help"; of an argument its one name in help, "duration"
    std::string help;
    ValueKind kind = ValueKind::none;
    std::string valueName;              ///< what stands for an option's value in help: "text"
    std::vector<std::string> choices;   ///< of a choice
    std::vector<std::string> excluded;  ///< options that may not be given with this one
    bool isRequired = false;
    bool mayRepeat = false;
};

/// A command, or the program itself.
struct Command {
    std::string path;  ///< "break extend"; empty: the program
    std::string name;  ///< its last word
    std::string purpose;
    std::vector<Argument> options;    ///< its own
    std::vector<Argument> inherited;  ///< those of the program and the commands above it
    std::vector<Argument> arguments;
    std::vector<Command> commands;
};

/// All that this program understands and shows in its help. A value's kind follows from the name of its type
/// there: FILE, DIRECTORY, or a choice in braces, {yes,half,no}.
Command thisProgram();

/// The command, followed by all below it.
std::vector<const Command*> withAllBelow(const Command& command);

/// What is understood after the command: its own options and those inherited.
std::vector<Argument> allOptions(const Command& command);

}  // namespace quillmere::cli::describe
