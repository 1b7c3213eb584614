#include "cli/run.hpp"

#include "base/refusal.hpp"
#include "base/text/failure.hpp"
#include "base/text/sanitize.hpp"
#include "base/version.hpp"
#include "cli/commands/commands.hpp"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <new>
#include <ostream>
#include <system_error>

namespace quillmere::cli {

void addEverything(CLI::App& line, Program& program)
{
    line.add_option("--directory", program.settings().directory, "Keep the files there instead of at home")
        ->type_name("DIRECTORY")
        ->check([](const std::string& path) { return std::string(path.empty() ? "is empty" : ""); });
    line.add_flag("--json", program.settings().json, "Print for programs");
    line.set_version_flag("--version", std::string("quillmere ") + base::programVersion);
    line.set_help_flag("-h,--help", "Print this help");
    line.require_subcommand(0, 1);
    // The screen comes after the status, whose place it takes on a terminal when no command is named.
    // clang-format off
    for (const auto add : {
             addStatus, addUi,
             addPlan, addStart, addEdit, addCancel,
             addFocus, addPause, addResume, addEnd, addReview, addBreak, addReflect,
             addAsk, addQuestions, addAnswer,
             addHistory, addReport, addRestore,
             addWidget, addBar, addAgent, addOpen,
             addTick, addWatch, addTour}) {
        // clang-format on
        add(line, program);
    }
}

namespace {

ExitCode exitCodeOf(base::Refusal::Kind kind)
{
    switch (kind) {
        case base::Refusal::Kind::invalidRequest: return ExitCode::usage;
        case base::Refusal::Kind::unusableData: return ExitCode::unusableData;
        case base::Refusal::Kind::fileError: return ExitCode::fileError;
        case base::Refusal::Kind::busy: break;
    }
    return ExitCode::lockBusy;
}

/// Puts a failure where it belongs: a sentence for persons, an object for programs.
ExitCode report(ExitCode code, std::string_view name, const std::string& message, Program& program)
{
    std::ostream& err = program.environment().err;
    if (program.settings().json) {
        const base::Json error = {{"error", {{"case", name}, {"message", message}}},
                                  {"events", eventsJson(program.events())}};
        err << base::jsonLine(error) << '\n';
    } else {
        err << base::sanitized(message) << '\n';
    }
    return code;
}

std::string_view nameOf(ExitCode code)
{
    switch (code) {
        case ExitCode::done: return "done";
        case ExitCode::refused: return "refused";
        case ExitCode::usage: return "usage";
        case ExitCode::urgent: return "urgent";
        case ExitCode::unusableData: return "unusableData";
        case ExitCode::outOfMemory: return "outOfMemory";
        case ExitCode::fileError: return "fileError";
        case ExitCode::lockBusy: return "lockBusy";
    }
    return "unknown";
}

ExitCode report(ExitCode code, const std::string& message, Program& program)
{
    return report(code, nameOf(code), message, program);
}

/// Done as the command says, when the result has arrived.
ExitCode finish(Program& program)
{
    if (!program.environment().out.flush()) {
        const std::string message = "The result cannot be written to standard output";
        return report(ExitCode::fileError,
                      message + (program.isDone() ? "; what was asked has been done." : "."), program);
    }
    return program.ending;
}

/// Runs the command and turns what it throws into an end of the program.
ExitCode act(Program& program)
{
    try {
        program.action();
        return finish(program);
    } catch (const WorkflowError& error) {
        return report(ExitCode::refused, error.caseName(), base::failureText(error), program);
    } catch (const ProgramError& error) {
        return report(error.code(), error.what(), program);
    } catch (const base::Refusal& refusal) {
        return report(exitCodeOf(refusal.kind()), refusal.what(), program);
    } catch (const CodingError& error) {
        return report(ExitCode::unusableData, base::failureText(error), program);
    } catch (const std::system_error& error) {
        return report(ExitCode::fileError, base::failureText(error), program);
    }
}

/// Whether a program reads the messages. Where parsing stops early, no option has been set yet.
bool isForProgram(const std::vector<std::string>& arguments, Program& program)
{
    return program.settings().json ||
           std::find(arguments.begin(), arguments.end(), "--json") != arguments.end();
}

/// The arguments with "--option=" as two words, "--option" and an empty one: CLI11 would take the word
/// that follows for the value.
std::vector<std::string> withEmptyValues(const std::vector<std::string>& arguments)
{
    std::vector<std::string> words;
    bool optionsMayFollow = true;
    for (const std::string& argument : arguments) {
        optionsMayFollow = optionsMayFollow && argument != "--";
        const bool isOption = optionsMayFollow && argument.starts_with("--");
        if (isOption && argument.find('=') == argument.size() - 1) {
            words.push_back(argument.substr(0, argument.size() - 1));
            words.emplace_back();
        } else {
            words.push_back(argument);
        }
    }
    return words;
}

/// Global options may follow the command, so everything is parsed before anything is done.
ExitCode parseAndAct(const std::vector<std::string>& arguments, Program& program)
{
    CLI::App line("Quillmere: plan a block of work, focus, rest, look back.", "quillmere");
    addEverything(line, program);
    try {
        std::vector<std::string> words = withEmptyValues(arguments);
        std::reverse(words.begin(), words.end());
        line.parse(words);
    } catch (const CLI::Success& help) {
        line.exit(help, program.environment().out, program.environment().err);
        return finish(program);
    } catch (const CLI::ParseError& error) {
        program.settings().json = isForProgram(arguments, program);
        return report(ExitCode::usage, error.what() + std::string(" (quillmere --help)"), program);
    }
    return act(program);
}

}  // namespace

ExitCode run(const std::vector<std::string>& arguments, base::Environment& environment) noexcept
{
    Program program(environment);
    try {
        return parseAndAct(arguments, program);
    } catch (const std::bad_alloc&) {
        // Ready texts, as there may be no memory to compose one, nor to say what came about before.
        environment.err
            << (isForProgram(arguments, program)
                    ? R"({"error":{"case":"outOfMemory","message":"There is not enough memory."}})"
                    : "There is not enough memory.")
            << '\n';
        return ExitCode::outOfMemory;
    } catch (const std::exception& error) {
        environment.err << error.what() << '\n';
        return ExitCode::fileError;
    }
}

}  // namespace quillmere::cli
