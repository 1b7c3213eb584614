// Raises a question for the person, on behalf of an agent.
#include "cli/commands/commands.hpp"
#include "cli/text_options.hpp"

#include <memory>

namespace quillmere::cli {
namespace {

/// Refuses what nobody could answer.
CLI::Validator notBlank()
{
    return {[](std::string& text) {
                return text.find_first_not_of(" \t\n\v\f\r") == std::string::npos ? "is blank" : "";
            },
            ""};
}

}  // namespace

void addAsk(CLI::App& line, Program& program)
{
    const auto question = std::make_shared<std::string>();
    addCommand(line, program, "ask", "Raise a question",
               [question, &program] {
                   program.change("The question waits for an answer.",
                                  [&](QuillmereState& state, Instant now) {
                                      WorkflowEngine().addQuestion(state, *question, now);
                                  });
               })
        ->add_option("question", *question, "The question")
        ->required()
        ->check(wellFormedText())
        ->check(notBlank());
}

}  // namespace quillmere::cli
