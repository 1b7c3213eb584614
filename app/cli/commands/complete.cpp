// Prints the candidates for a value. Hidden: the completions of the shells call it.
#include "cli/candidates.hpp"
#include "cli/commands.hpp"

#include <CLI/CLI.hpp>

#include <exception>
#include <memory>
#include <new>
#include <ostream>
#include <vector>

namespace quillmere::cli {
namespace {

struct CompleteCommand {
    std::string kind;
    bool isWordByWord = false;
    std::vector<std::string> typed;
};

/// Nothing is said about files or a configuration that cannot be used: somebody is typing a line.
Candidates candidatesFor(const CompleteCommand& command, const CLI::App& line, Program& program)
{
    try {
        program.configurationInSilence();
        const Candidates all = candidatesOf(command.kind, line, program);
        return command.isWordByWord ? nextWords(all, command.typed) : all;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception&) {
        return {};
    }
}

}  // namespace

void addComplete(CLI::App& line, Program& program)
{
    const auto command = std::make_shared<CompleteCommand>();
    CLI::App* const app = addCommand(
        line, program, "complete", "Print the values that a shell may offer", [&line, &program, command] {
            for (const Candidate& each : candidatesFor(*command, line, program)) {
                program.environment().out << each.value << '\t' << each.description << '\n';
            }
        });
    app->group("");
    app->add_option("kind", command->kind, "The name of the value's type: BLOCK")->required();
    app->add_option("typed", command->typed, "With --word-by-word, the words of the value before this one");
    app->add_flag("--word-by-word", command->isWordByWord, "Print single words of values that have several");
}

}  // namespace quillmere::cli
