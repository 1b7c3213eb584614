#include "cli/span_option.hpp"

#include "base/text/quotes.hpp"
#include "cli/exit_code.hpp"
#include "cli/text_options.hpp"

#include <CLI/CLI.hpp>

namespace quillmere::cli {
namespace {

/// `place` stands in front of a refusal.
figures::Range spanFrom(const std::string& place, const std::string& text, figures::Day today)
{
    if (const std::optional<figures::Range> span = figures::spanFromText(text, today)) {
        return *span;
    }
    throw ProgramError(ExitCode::usage,
                       place + base::inQuotes(text) + " is no " + std::string(figures::acceptedSpans) + ".");
}

}  // namespace

CLI::Option* addSpan(CLI::App& command, std::vector<std::string>& words)
{
    return command
        .add_option("span", words,
                    "The days: today, yesterday, monday, week, last week, month, 7d, 2026-10, 2026-10-05")
        ->type_name("SPAN")
        ->check(wellFormedText());
}

figures::Range spanOf(const std::vector<std::string>& words, figures::Day today)
{
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : " ") + word;
    }
    return words.empty() ? figures::Range{} : spanFrom("", text, today);
}

figures::Range spanOfOption(const std::string& option, const std::string& text, figures::Day today)
{
    return spanFrom(option + ": ", text, today);
}

}  // namespace quillmere::cli
