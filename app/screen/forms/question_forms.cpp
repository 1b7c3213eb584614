// The answer to a question, and a question of one's own.
#include "screen/forms/record_forms.hpp"

#include <quillmere/engine/workflow_engine.hpp>

namespace quillmere::screen {
namespace {

constexpr const char* answerId = "answer";
constexpr const char* questionId = "question";

}  // namespace

void addAnswerFields(Form& form, const QuillmereState& state, Instant)
{
    for (const AgentQuestion& question : state.agentQuestions) {
        if (question.id.text() == form.subject().name) {
            form.add(std::make_unique<TextField>(answerId, question.question, question.answer.value_or(""),
                                                 TextField::Lines::several));
        }
    }
}

void saveAnswer(const Form& form, QuillmereState& state, Instant now)
{
    const std::optional<Identifier> id = Identifier::fromText(form.subject().name);
    WorkflowEngine().answerQuestion(state, *id, form.text(answerId), now);
}

void addQuestionFields(Form& form, const QuillmereState&, Instant)
{
    form.add(std::make_unique<TextField>(questionId, "What is to be asked?", "", TextField::Lines::several));
}

void saveQuestion(const Form& form, QuillmereState& state, Instant now)
{
    std::string question = form.text(questionId);
    if (question.find_first_not_of(" \n") == std::string::npos) {
        throw Unacceptable(questionId, "A question has a text.");
    }
    WorkflowEngine().addQuestion(state, std::move(question), now);
}

}  // namespace quillmere::screen
