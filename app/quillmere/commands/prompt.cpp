#include "commands/prompt.hpp"

#include "exit_code.hpp"
#include "text/inert.hpp"

#include <istream>
#include <ostream>

namespace quillmere::app {

std::string ask(Environment& environment, const std::string& question)
{
    while (true) {
        environment.err << question << ' ' << std::flush;
        std::string line;
        if (!std::getline(environment.in, line)) {
            environment.err << '\n';
            throw ProgramError(ExitCode::usage, "The input ended before all was answered. Nothing was done.");
        }
        if (isText(line)) {
            return line;
        }
        environment.err << "That is not well-formed UTF-8.\n";
    }
}

std::string askUntil(Environment& environment, const std::string& question,
                     const std::function<bool(const std::string&)>& accepts)
{
    std::string line = ask(environment, question);
    while (!accepts(line)) {
        environment.err << "That is not understood.\n";
        line = ask(environment, question);
    }
    return line;
}

}  // namespace quillmere::app
