// The prompt for one value.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillmere::work {

/// How a value is entered.
enum class FieldKind {
    line,    ///< a text of one line
    text,    ///< a text of several lines
    choice,  ///< one of several options
    list,    ///< any number of one-line texts
};

/// The range of a number, or of a duration in seconds; both zero: no limits.
struct Limits {
    std::int64_t least = 0;
    std::int64_t most = 0;
    bool engineAcceptsMore = false;  ///< the upper limit is this program's own
};

struct Prompt {
    std::string_view name;  ///< of the option, without dashes, and of the field in forms and drafts
    std::string_view question;
    FieldKind kind;
    Limits limits = {};
    std::string_view format = {};  ///< how an answer is written, for the option's help
    std::string_view hint = {};    ///< the same for prompts and empty fields; empty: no hint is needed
};

/// The help of the option: the question and how an answer is written.
std::string helpText(const Prompt& prompt);

/// The question with its hint, for a command that asks.
std::string promptText(const Prompt& prompt);

}  // namespace quillmere::work
