// The results of an examination.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillmere::doctor {

enum class Verdict {
    good,
    look,   ///< works, but less safe, less private or less complete than it could be
    wrong,  ///< something fails, or others can read what is private
};

/// "good", "look" or "wrong".
std::string_view wordOf(Verdict verdict);

/// What an examination found. Texts may contain paths, and are not sanitized.
struct Finding {
    Verdict verdict = Verdict::good;
    std::string text = {};     ///< one or two sentences
    std::string remedy = {};   ///< a sentence on what to do; empty when there is nothing to do
    std::string command = {};  ///< a command line for a shell that does it; may be empty
};

Finding good(std::string text);
Finding look(std::string text, std::string remedy, std::string command = {});
Finding wrong(std::string text, std::string remedy, std::string command = {});

struct Check {
    std::string_view name;   ///< for programs: "hard_links"
    std::string_view title;  ///< for a person: "Hard links"
    Finding finding;
};

/// The worst verdict; `good` without checks.
Verdict worstOf(const std::vector<Check>& checks);

}  // namespace quillmere::doctor
