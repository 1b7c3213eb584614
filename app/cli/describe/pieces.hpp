// The generated pieces of the manual page and of the completions.
#pragma once

#include "cli/describe/command_tree.hpp"

#include <iosfwd>

namespace quillmere::cli::describe {

/// The options of the program itself, as lists of mdoc(7).
void printManualOptions(std::ostream& out, const Command& program);

/// All commands with their arguments and options, as lists of mdoc(7).
void printManualCommands(std::ostream& out, const Command& program);

/// The keys of the configuration and those of a template, as lists of mdoc(7). Nothing of the command line.
void printManualConfiguration(std::ostream& out, const Command& program);

/// The events that hooks run at, with their meanings. Nothing of the command line.
void printManualEvents(std::ostream& out, const Command& program);

/// Branches of a `case` over the command, which set `commands`, `options` and `argument`.
void printBashCommands(std::ostream& out, const Command& program);

/// Branches of a `case` over "command option", which set `value`; flags have no branch.
void printBashValues(std::ostream& out, const Command& program);

/// One function for each command; `_quillmere` for the program.
void printZshFunctions(std::ostream& out, const Command& program);

/// Branches of a `switch` over "command/next word", where the next word is a subcommand.
void printFishCommands(std::ostream& out, const Command& program);

/// Branches of a `switch` over "command/next word", where the next word is an option with a value.
void printFishValues(std::ostream& out, const Command& program);

/// The calls of `complete` with everything to offer.
void printFishOffers(std::ostream& out, const Command& program);

}  // namespace quillmere::cli::describe
