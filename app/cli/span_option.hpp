// Spans of days, as they are given on the command line.
#pragma once

#include "figures/span.hpp"

#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace quillmere::cli {

/// Adds the words of a span, which may be several: "last week".
CLI::Option* addSpan(CLI::App& command, std::vector<std::string>& words);

/// The days that the words name; without words no bounds. Throws ProgramError (`usage`) for words that are no
/// span.
figures::Range spanOf(const std::vector<std::string>& words, figures::Day today);

/// The days that the text of an option names. Throws ProgramError (`usage`) with the option in the message.
figures::Range spanOfOption(const std::string& option, const std::string& text, figures::Day today);

}  // namespace quillmere::cli
