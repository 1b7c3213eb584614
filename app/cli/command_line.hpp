// The command line: global options, commands, and the parsing of arguments.
#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace quillmere::cli {

class Program;

/// Adds the global options and all commands to `line`. The completions of shells take the kind of an option's
/// value from the name of its type (CLI::Option::type_name): FILE, DIRECTORY, a choice in braces,
/// {yes,half,no}, or a kind of candidates such as BLOCK (cli::isCandidateKind).
void defineCommandLine(CLI::App& line, Program& program);

/// Adds the global options and only the commands that the arguments name, because adding all commands is
/// slow. Returns false when the whole command line is needed: the arguments name no command, or one that uses
/// the other commands (help). When parsing fails, the message needs the whole command line too.
bool defineNamedCommands(CLI::App& line, Program& program, const std::vector<std::string>& arguments);

/// Parses the arguments into the settings and the action of the program. Throws
/// CLI::ParseError, and as CLI::Success when help or the version is asked for.
void parse(const std::vector<std::string>& arguments, CLI::App& line);

}  // namespace quillmere::cli
