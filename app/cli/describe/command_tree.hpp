// The command line as a plain value: the source of the manual page and of the completions of shells.
#pragma once

#include <string>
#include <vector>

namespace quillmere::cli::describe {

/// The candidates that a shell can offer for a value.
enum class ValueKind {
    none,       ///< a flag, which has no value
    text,       ///< any text: the shell offers nothing
    choice,     ///< one of `choices`
    file,       ///< a path
    directory,  ///< a path of a directory
    candidate,  ///< one of those that `quillmere complete` prints for `candidateKind`
};

/// An option or a positional argument.
struct Argument {
    std::vector<std::string> names;  ///< "-h", "--help"; of a positional argument: "duration"
    std::string help;
    ValueKind kind = ValueKind::none;
    std::string valueName;              ///< the placeholder for the value in help: "text"
    std::vector<std::string> choices;   ///< for ValueKind::choice
    std::string candidateKind;          ///< for ValueKind::candidate: "BLOCK"
    std::vector<std::string> excluded;  ///< options that cannot be combined with this one
    bool isRequired = false;
    bool mayRepeat = false;

    bool isPositional() const { return !names.front().starts_with('-'); }
};

/// A command, or the program as a whole.
struct Command {
    std::string path;  ///< "break extend"; empty for the program
    std::string name;  ///< its last word
    std::string purpose;
    std::vector<Argument> options;    ///< its own
    std::vector<Argument> inherited;  ///< those of the program and the commands above it
    std::vector<Argument> arguments;
    std::vector<Command> commands;
};

/// The whole command line of this program, without hidden options. The kind of a value follows from the name
/// of its type: FILE, DIRECTORY, a choice in braces, {yes,half,no}, or a kind of candidates
/// (cli::isCandidateKind).
Command thisProgram();

/// The command, followed by all its subcommands, at every depth.
std::vector<const Command*> withAllBelow(const Command& command);

/// All options that may follow the command: its own and the inherited ones.
std::vector<Argument> allOptions(const Command& command);

}  // namespace quillmere::cli::describe
