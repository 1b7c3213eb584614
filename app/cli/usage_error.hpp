// A command line that is not understood, in words.
#pragma once

#include <string>

namespace CLI {
class App;
class ParseError;
}  // namespace CLI

namespace quillmere::cli {

/// What is wrong, the word that was probably meant, and the help that says more: "There is no command
/// "focsu". Did you mean focus? (quillmere --help)". To be called after `line` failed to parse.
std::string usageErrorText(const CLI::App& line, const CLI::ParseError& error);

/// The sentence about a word that is no command of `group`, which is the whole line or a command.
std::string unknownCommandText(const CLI::App& group, const std::string& word);

}  // namespace quillmere::cli
