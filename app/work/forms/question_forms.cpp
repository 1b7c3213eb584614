// The forms of an answer and of a new question.
#include "work/forms/record_forms.hpp"

#include <quillmere/engine/workflow_engine.hpp>

#include <utility>

namespace quillmere::work {

void addAnswerFields(Form& form, const QuillmereState& state, Instant)
{
    for (const AgentQuestion& question : state.agentQuestions) {
        if (question.id.text() == form.subject().name) {
            Field field = fieldOf(answerPrompt, "", question.answer.value_or(""));
            field.question = question.question;
            form.add(std::move(field));
        }
    }
}

void saveAnswer(const Form& form, QuillmereState& state, Instant now)
{
    const std::optional<Identifier> id = Identifier::fromText(form.subject().name);
    requireAnswer(std::string(answerPrompt.name), form.text(answerPrompt.name));
    WorkflowEngine().answerQuestion(state, *id, form.text(answerPrompt.name), now);
}

void addQuestionFields(Form& form, const QuillmereState&, Instant)
{
    form.add(fieldOf(questionPrompt, "", std::string()));
}

void saveQuestion(const Form& form, QuillmereState& state, Instant now)
{
    std::string question = form.text(questionPrompt.name);
    requireQuestion(std::string(questionPrompt.name), question);
    WorkflowEngine().addQuestion(state, std::move(question), now);
}

}  // namespace quillmere::work
