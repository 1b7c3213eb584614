#include "cli/run.hpp"

#include "cli/command_line.hpp"
#include "cli/error_report.hpp"
#include "cli/program.hpp"
#include "cli/usage_error.hpp"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <new>
#include <ostream>

namespace quillmere::cli {
namespace {

/// Flushes standard output; a failed flush is an error of its own exit code.
ExitCode flushResult(Program& program)
{
    if (!program.environment().out.flush()) {
        const std::string message = "The result cannot be written to standard output";
        return reportError(ExitCode::fileError,
                           message + (program.isCarriedOut() ? "; the command was carried out." : "."),
                           program);
    }
    return program.exitCode;
}

ExitCode runAction(Program& program)
{
    try {
        program.action();
        return flushResult(program);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception&) {
        return reportCurrentException(program);
    }
}

/// Whether errors are printed as JSON. Looks at the arguments too: a failed parse may not have set the
/// option.
bool wantsJson(const std::vector<std::string>& arguments, Program& program)
{
    return program.settings().json ||
           std::find(arguments.begin(), arguments.end(), "--json") != arguments.end();
}

/// Constant texts: there may be no memory to compose one.
const char* outOfMemoryText(bool asJson, bool isCarriedOut)
{
    if (isCarriedOut) {
        return asJson
                   ? R"({"error":{"case":"outOfMemory","message":"The command was carried out, then there was not enough memory."}})"
                   : "The command was carried out, then there was not enough memory.";
    }
    return asJson ? R"({"error":{"case":"outOfMemory","message":"There is not enough memory."}})"
                  : "There is not enough memory.";
}

/// Whether the arguments can be parsed with the commands alone that they name.
bool parseNamed(const std::vector<std::string>& arguments, CLI::App& line, Program& program)
{
    try {
        if (defineNamedCommands(line, program, arguments)) {
            parse(arguments, line);
            return true;
        }
    } catch (const CLI::ParseError&) {
    }
    program.settings() = {};
    return false;
}

/// Parses everything before the action runs, since global options may follow the command.
ExitCode parseAndRun(const std::vector<std::string>& arguments, Program& program)
{
    CLI::App named;  // until the action has run, which may look at its options
    if (parseNamed(arguments, named, program)) {
        return runAction(program);
    }
    CLI::App line("Quillmere: plan a block of work, focus, rest, look back.", "quillmere");
    defineCommandLine(line, program);
    try {
        parse(arguments, line);
    } catch (const CLI::Success& help) {
        line.exit(help, program.environment().out, program.environment().err);
        return flushResult(program);
    } catch (const CLI::ParseError& error) {
        program.settings().json = wantsJson(arguments, program);
        return reportError(ExitCode::usage, usageErrorText(line, error), program);
    }
    return runAction(program);
}

}  // namespace

ExitCode run(const std::vector<std::string>& arguments, base::Environment& environment) noexcept
{
    Program program(environment);
    try {
        return parseAndRun(arguments, program);
    } catch (const std::bad_alloc&) {
        environment.err << outOfMemoryText(wantsJson(arguments, program), program.isCarriedOut()) << '\n';
        return ExitCode::outOfMemory;
    } catch (const std::exception& error) {
        environment.err << error.what() << '\n';
        return ExitCode::fileError;
    }
}

}  // namespace quillmere::cli
