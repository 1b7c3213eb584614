#include "base/version.hpp"
#include "cli/commands.hpp"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <ostream>

namespace quillmere::cli {
namespace {

void printVersion(Program& program, const std::string& text)
{
    if (program.settings().json) {
        program.print({{"version", base::programVersion}});
    } else {
        program.environment().out << text << '\n';
    }
}

}  // namespace

void addVersion(CLI::App& line, Program& program)
{
    const std::string text = std::string("quillmere ") + base::programVersion;
    line.set_version_flag("-V,--version", text, "Print the version");
    addCommand(line, program, "version", "Print the version",
               [&program, text] { printVersion(program, text); });
}

}  // namespace quillmere::cli
