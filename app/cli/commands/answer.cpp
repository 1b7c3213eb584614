// Answers a question.
#include "cli/commands.hpp"
#include "cli/exit_code.hpp"
#include "cli/text_options.hpp"
#include "work/done_text.hpp"

#include <charconv>
#include <memory>

namespace quillmere::cli {
namespace {

/// The question with the number in the list of open questions, or with the identifier.
Identifier questionNamed(const std::string& name, const QuillmereState& state)
{
    if (const std::optional<Identifier> id = Identifier::fromText(name)) {
        return *id;
    }
    std::size_t number = 0;
    const char* const end = name.data() + name.size();
    const bool isNumber = std::from_chars(name.data(), end, number).ptr == end;
    const std::vector<AgentQuestion> open = state.openQuestions();
    if (!isNumber || number < 1 || number > open.size()) {
        throw ProgramError(ExitCode::usage,
                           "No open question is called " + name + "; see quillmere questions.");
    }
    return open[number - 1].id;
}

}  // namespace

void addAnswer(CLI::App& line, Program& program)
{
    const auto name = std::make_shared<std::string>();
    const auto answer = std::make_shared<std::string>();
    CLI::App* const command = addCommand(line, program, "answer", "Answer a question", [=, &program] {
        program.change(work::done::questionAnswered, [&](QuillmereState& state, Instant now) {
            WorkflowEngine().answerQuestion(state, questionNamed(*name, state), *answer, now);
        });
    });
    command->add_option("question", *name, "Its number in the list of questions, or its identifier")
        ->required()
        ->check(wellFormedText());
    command
        ->add_option(std::string(work::answerPrompt.name), *answer, std::string(work::answerPrompt.question))
        ->required()
        ->check(wellFormedText());
}

}  // namespace quillmere::cli
