// Candidates for the values of options and arguments, for the completions of shells.
#pragma once

#include "cli/candidate.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace CLI {
class App;
}

namespace quillmere::cli {

class Program;

/// Whether an option of this type name (CLI::Option::type_name) has candidates: BLOCK, RECORD (a block or a
/// session), QUESTION, VERSION, MODEL, SPAN, HISTORY (a record or a span), COMMAND, KEY (of
/// the configuration).
bool isCandidateKind(std::string_view typeName);

/// The candidates of a kind, with sanitized and short descriptions; none for an unknown kind. Leaves out
/// values with characters that cannot be shown. Reads the files of the person and throws what reading them
/// throws.
Candidates candidatesOf(std::string_view typeName, const CLI::App& line, Program& program);

/// The next words of a value of several words, such as "last week", after the words that are typed; each
/// once. A word has the description of its value.
Candidates nextWords(const Candidates& candidates, const std::vector<std::string>& typed);

}  // namespace quillmere::cli
