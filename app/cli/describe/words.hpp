// Helpers for words in shell scripts.
#pragma once

#include "cli/describe/command_tree.hpp"

#include <string>
#include <vector>

namespace quillmere::cli::describe {

inline std::string joined(const std::vector<std::string>& words, const char* between = " ")
{
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : between) + word;
    }
    return text;
}

/// `text` with `escape` before each of `characters`.
inline std::string escaped(const std::string& text, const std::string& characters, const std::string& escape)
{
    std::string result;
    for (const char character : text) {
        result += (characters.find(character) == std::string::npos ? "" : escape) + character;
    }
    return result;
}

inline std::vector<std::string> namesOf(const std::vector<Command>& commands)
{
    std::vector<std::string> names;
    for (const Command& command : commands) {
        names.push_back(command.name);
    }
    return names;
}

/// A glob that matches the path of the command and of its subcommands, where its options are valid too.
inline std::string globOf(const Command& command)
{
    return command.path + (command.commands.empty() ? "" : "*");
}

}  // namespace quillmere::cli::describe
