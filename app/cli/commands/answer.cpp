// Answers a question, or closes it without an answer.
#include "cli/commands.hpp"
#include "cli/exit_code.hpp"
#include "cli/prompt.hpp"
#include "cli/text_options.hpp"
#include "work/done_text.hpp"
#include "work/fields/answers.hpp"
#include "work/question_naming.hpp"
#include "work/short_names.hpp"

#include <CLI/CLI.hpp>

#include <memory>

namespace quillmere::cli {
namespace {

struct AnswerCommand {
    std::string question;
    std::optional<std::string> text;
    bool isDismissal = false;
};

/// Takes any identifier as it is: the engine refuses unknown ones.
Identifier questionOf(const AnswerCommand& command, const QuillmereState& state)
{
    const std::optional<Identifier> id = Identifier::fromText(command.question);
    return id ? *id : work::questionNamed(command.question, state).id;
}

/// Numbers count the open questions; a name is one among all.
base::Reach reachOf(const AnswerCommand& command)
{
    return command.question.size() < work::shortestName ? base::Reach::present : base::Reach::years;
}

void answer(const AnswerCommand& command, QuillmereState& state, Instant now)
{
    const std::string text = command.isDismissal ? std::string(work::dismissal) : command.text.value_or("");
    WorkflowEngine().answerQuestion(state, questionOf(command, state), text, now);
    work::requireAnswer(std::string(work::answerPrompt.name), text);
}

void askForText(AnswerCommand& command, Program& program)
{
    const QuillmereState state = program.workspace().look(reachOf(command)).state;
    const AgentQuestion& question = work::questionNamed(command.question, state);
    base::Environment& environment = program.environment();
    tell(environment, question.question);
    const Question prompt{.text = std::string(work::answerPrompt.question),
                          .present = question.answer.value_or(""),
                          .takesLines = true};
    const std::optional<std::string> text = askToChange(environment, prompt, [](const std::string& typed) {
        work::requireAnswer(std::string(work::answerPrompt.name), typed);
    });
    command.text = text ? text : question.answer;
}

void answerQuestion(AnswerCommand& command, Program& program)
{
    if (program.environment().inputIsTerminal && !command.text && !command.isDismissal) {
        askForText(command, program);
    }
    program.change(
        command.isDismissal ? work::done::questionDismissed : work::done::questionAnswered,
        [&](QuillmereState& state, Instant now) { answer(command, state, now); }, reachOf(command));
}

}  // namespace

void addAnswer(CLI::App& line, Program& program)
{
    const auto command = std::make_shared<AnswerCommand>();
    CLI::App* const app = addCommand(line, program, "answer", "Answer a question, or answer it again",
                                     [command, &program] { answerQuestion(*command, program); });
    app->add_option("question", command->question,
                    "Its number in the list of questions, or its name there with --all")
        ->required()
        ->type_name("QUESTION")
        ->check(wellFormedText());
    CLI::Option* const text = app->add_option(std::string(work::answerPrompt.name), command->text,
                                              std::string(work::answerPrompt.question));
    text->check(wellFormedText());
    app->add_flag("--dismiss", command->isDismissal, "Close it without an answer; an agent is told that")
        ->excludes(text);
}

}  // namespace quillmere::cli
