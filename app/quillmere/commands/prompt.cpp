#include "commands/prompt.hpp"

#include "exit_code.hpp"
#include "text/inert.hpp"

#include <istream>
#include <ostream>

namespace quillmere::app {

std::string ask(Environment& environment, const std::string& question)
{
    environment.err << question << ' ' << std::flush;
    std::string line;
    std::getline(environment.in, line);
    if (!isText(line)) {
        throw ProgramError(ExitCode::usage, "That is not well-formed UTF-8.");
    }
    return line;
}

}  // namespace quillmere::app
