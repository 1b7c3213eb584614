#include "cli/prompt.hpp"

#include "base/text/sanitize.hpp"
#include "cli/exit_code.hpp"
#include "work/fields/unacceptable.hpp"

#include <istream>
#include <ostream>

namespace quillmere::cli {

std::string ask(base::Environment& environment, const std::string& question)
{
    while (true) {
        environment.err << question << ' ' << std::flush;
        std::string line;
        if (!std::getline(environment.in, line)) {
            environment.err << '\n';
            throw ProgramError(ExitCode::usage, "The input ended before all was answered. Nothing was done.");
        }
        if (base::isText(line)) {
            return line;
        }
        environment.err << "That is not well-formed UTF-8.\n";
    }
}

std::string askUntil(base::Environment& environment, const std::string& question,
                     const std::function<void(const std::string&)>& require)
{
    while (true) {
        std::string line = ask(environment, question);
        try {
            require(line);
            return line;
        } catch (const work::Unacceptable& refusal) {
            environment.err << base::sanitized(refusal.what()) << '\n';
        }
    }
}

bool agrees(base::Environment& environment, const std::string& question)
{
    const std::string answer = askUntil(environment, question + " (yes, no)", [](const std::string& word) {
        if (word != "yes" && word != "no") {
            throw work::Unacceptable("", "Say yes or no.");
        }
    });
    return answer == "yes";
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
