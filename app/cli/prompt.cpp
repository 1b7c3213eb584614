#include "cli/prompt.hpp"

#include "base/text/columns.hpp"
#include "base/text/sanitize.hpp"
#include "cli/exit_code.hpp"
#include "cli/line_editor.hpp"
#include "work/fields/answers.hpp"
#include "work/fields/unacceptable.hpp"

#include <istream>
#include <ostream>

namespace quillmere::cli {
namespace {

/// The question, with the present answer behind it.
std::string promptOf(const Question& question)
{
    constexpr std::size_t mostColumns = 60;
    const std::string present = base::cutToColumns(base::sanitized(question.present), mostColumns);
    return question.text + (present.empty() ? " " : " [" + present + "] ");
}

/// Absent at the end of the input.
std::optional<std::string> typedLine(base::Environment& environment, const Question& question)
{
    if (canEditLines(environment.input, environment.error)) {
        environment.err << std::flush;
        return editLine({.prompt = promptOf(question),
                         .earlier = question.earlier,
                         .takesLines = question.takesLines,
                         .input = environment.input,
                         .output = environment.error});
    }
    environment.err << promptOf(question) << std::flush;
    std::string line;
    return std::getline(environment.in, line) ? std::optional(line) : std::nullopt;
}

/// Whether a well-formed text has control characters: C0 without tabs and line feeds, DEL or C1.
bool hasControls(std::string_view text)
{
    for (std::size_t index = 0; index < text.size(); ++index) {
        const auto byte = static_cast<unsigned char>(text[index]);
        const bool isC1 =
            byte == 0xC2 && index + 1 < text.size() && static_cast<unsigned char>(text[index + 1]) < 0xA0;
        if ((byte < 0x20 && byte != '\t' && byte != '\n') || byte == 0x7F || isC1) {
            return true;
        }
    }
    return false;
}

/// Empty: the line can be stored.
std::string_view flawOf(const std::string& line)
{
    if (!base::isText(line)) {
        return "That is not well-formed UTF-8.";
    }
    return hasControls(line) ? "That has control characters. Type the answer again without them." : "";
}

}  // namespace

std::string ask(base::Environment& environment, const Question& question)
{
    while (true) {
        const std::optional<std::string> line = typedLine(environment, question);
        if (!line) {
            environment.err << '\n';
            throw ProgramError(ExitCode::usage, "The input ended before all was answered. Nothing was done.");
        }
        const std::string_view flaw = flawOf(*line);
        if (flaw.empty()) {
            return *line;
        }
        tell(environment, flaw);
    }
}

std::string askUntil(base::Environment& environment, const Question& question, const Require& require)
{
    while (true) {
        std::string line = ask(environment, question);
        try {
            require(line);
            return line;
        } catch (const work::Unacceptable& refusal) {
            tell(environment, refusal.what());
        }
    }
}

std::optional<std::string> askToChange(base::Environment& environment, const Question& question,
                                       const Require& require)
{
    std::optional<std::string> answer;
    askUntil(environment, question, [&](const std::string& line) {
        if (line.empty() && !question.present.empty()) {
            answer.reset();
            return;
        }
        answer = question.canBeCleared && line == "-" ? std::string() : line;
        require(*answer);
    });
    return answer;
}

void explainPrompts(base::Environment& environment)
{
    tell(environment, "Enter takes what is in brackets, - clears it, Control-D changes nothing.");
}

void tell(base::Environment& environment, std::string_view line)
{
    environment.err << base::sanitized(line) << '\n';
}

bool agrees(base::Environment& environment, const std::string& question)
{
    const std::size_t lastLine = question.rfind('\n') + 1;
    environment.err << question.substr(0, lastLine);
    const Question prompt{.text = question.substr(lastLine) + " (yes, no)"};
    return work::agreementFrom({"", askUntil(environment, prompt, [](const std::string& word) {
                                    work::agreementFrom({"", word});
                                })});
}

void requireAgreement(base::Environment& environment, const std::string& question)
{
    if (!environment.inputIsTerminal) {
        throw ProgramError(ExitCode::usage,
                           "There is no terminal to confirm on: say --yes. The question is: " + question);
    }
    if (!agrees(environment, question)) {
        throw ProgramError(ExitCode::refused, "Nothing was changed.");
    }
}

}  // namespace quillmere::cli
