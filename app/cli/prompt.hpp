// Asks a person at a terminal.
#pragma once

#include "base/environment.hpp"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmere::cli {

/// A question as it stands at a prompt.
struct Question {
    std::string text;
    std::string present = {};               ///< stands in brackets; Enter keeps it
    std::vector<std::string> earlier = {};  ///< answers to choose from with the arrow keys, newest first
    bool takesLines = false;                ///< whether a pasted line break stays one, or becomes a space
    bool canBeCleared = true;               ///< whether "-" means an empty answer
};

/// Throws work::Unacceptable for an answer that cannot be used.
using Require = std::function<void(const std::string& answer)>;

/// Writes the question to standard error and returns the line that is typed: on a terminal edited with its
/// keys (editLine), otherwise as it comes. Asks again while that is not well-formed UTF-8, or has control
/// characters. Throws ProgramError at the end of the input (Control-D), which is no answer.
std::string ask(base::Environment& environment, const Question& question);

/// Asks until `require` accepts the line: one slip must not lose the answers before it. Prints the reason of
/// each refusal.
std::string askUntil(base::Environment& environment, const Question& question, const Require& require);

/// Asks for a value in place of the present one. Absent: Enter, and the present one stays.
std::optional<std::string> askToChange(base::Environment& environment, const Question& question,
                                       const Require& require);

/// Says how the prompts of a form are answered. For the first of several prompts.
void explainPrompts(base::Environment& environment);

/// Writes a line to standard error, sanitized.
void tell(base::Environment& environment, std::string_view line);

/// Whether the person agrees: "y" and "yes" do, "n" and "no" do not, in upper or lower case. Asks again after
/// any other answer.
bool agrees(base::Environment& environment, const std::string& question);

/// Asks the question on a terminal and throws ProgramError (`refused`) unless the person agrees. Without a
/// terminal throws ProgramError (`usage`), which names `--yes`.
void requireAgreement(base::Environment& environment, const std::string& question);

}  // namespace quillmere::cli
