// The pieces of the manual page and of the completions that follow from the command line.
#pragma once

#include "cli/describe/command_tree.hpp"

#include <iosfwd>

namespace quillmere::cli::describe {

/// The options of the program itself, as lists of mdoc(7).
void printManualOptions(std::ostream& out, const Command& program);

/// All commands with their arguments and options, as lists of mdoc(7).
void printManualCommands(std::ostream& out, const Command& program);

/// Rows of a `case` over the command that set `commands`, `options` and `argument`.
void printBashCommands(std::ostream& out, const Command& program);

/// Rows of a `case` over "command option" that set `value`; an option without a value has none.
void printBashValues(std::ostream& out, const Command& program);

/// One function a command, `_quillmere` for the program.
void printZshFunctions(std::ostream& out, const Command& program);

/// Cases of a `switch` over the command so far and the next word: those that are a command.
void printFishCommands(std::ostream& out, const Command& program);

/// Cases of a `switch` over the command so far and the next word: options that take a value.
void printFishValues(std::ostream& out, const Command& program);

/// What is offered, by `complete`.
void printFishOffers(std::ostream& out, const Command& program);

}  // namespace quillmere::cli::describe
