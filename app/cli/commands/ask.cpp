// Raises a question for the person, on behalf of an agent.
#include "cli/commands.hpp"
#include "cli/text_options.hpp"
#include "work/done_text.hpp"
#include "work/fields/answers.hpp"
#include "work/fields/unacceptable.hpp"

#include <memory>

namespace quillmere::cli {
namespace {

/// Refuses a blank question.
CLI::Validator notBlank()
{
    return {[](std::string& text) -> std::string {
                try {
                    work::requireQuestion("question", text);
                    return "";
                } catch (const work::Unacceptable& refusal) {
                    return refusal.what();
                }
            },
            ""};
}

}  // namespace

void addAsk(CLI::App& line, Program& program)
{
    const auto question = std::make_shared<std::string>();
    addCommand(line, program, "ask", "Raise a question",
               [question, &program] {
                   program.change(work::done::questionAsked, [&](QuillmereState& state, Instant now) {
                       WorkflowEngine().addQuestion(state, *question, now);
                   });
               })
        ->add_option(std::string(work::questionPrompt.name), *question,
                     std::string(work::questionPrompt.question))
        ->required()
        ->check(wellFormedText())
        ->check(notBlank());
}

}  // namespace quillmere::cli
