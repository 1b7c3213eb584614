// Examples of the commands, as their help shows them.
#pragma once

#include <string>
#include <string_view>

namespace quillmere::cli {

/// The examples of a command, by its words ("break extend"), for the end of its help; empty when there are
/// none.
std::string examplesOf(std::string_view command);

}  // namespace quillmere::cli
