#include "cli/prompt.hpp"

#include "base/text/sanitize.hpp"
#include "cli/exit_code.hpp"

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
                     const std::function<bool(const std::string&)>& accepts)
{
    std::string line = ask(environment, question);
    while (!accepts(line)) {
        environment.err << "That is not understood.\n";
        line = ask(environment, question);
    }
    return line;
}

}  // namespace quillmere::cli
