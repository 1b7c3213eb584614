#include "work/changes/parts.hpp"

namespace quillmere::work {
namespace {

using enum ChangeKind;

void addQuestion(Changes& changes, const AgentQuestion& before, const AgentQuestion& after)
{
    if (before.isOpen() && !after.isOpen()) {
        changes.push_back({.kind = questionAnswered, .text = after.question});
    } else if (!before.isOpen() && after.isOpen()) {
        changes.push_back({.kind = answerRemoved, .text = after.question});
    } else if (before.answer != after.answer || before.answeredAt != after.answeredAt) {
        changes.push_back({.kind = answerChanged, .text = after.question});
    } else if (before != after) {
        changes.push_back({.kind = questionChanged, .text = after.question});
    }
}

void addNewQuestion(Changes& changes, const AgentQuestion& question)
{
    changes.push_back({.kind = questionAsked, .text = question.question, .at = question.createdAt});
    AgentQuestion asked = question;
    asked.answer.reset();
    asked.answeredAt.reset();
    addQuestion(changes, asked, question);
}

}  // namespace

void addQuestions(Changes& changes, const std::vector<AgentQuestion>& before,
                  const std::vector<AgentQuestion>& after)
{
    if (before == after) {
        return;
    }
    const ById<AgentQuestion> earlier = byId(before);
    const ById<AgentQuestion> later = byId(after);
    for (const AgentQuestion& question : before) {
        if (!later.contains(question.id)) {
            changes.push_back({.kind = questionRemoved, .text = question.question});
        }
    }
    for (const AgentQuestion& question : after) {
        const auto known = earlier.find(question.id);
        if (known == earlier.end()) {
            addNewQuestion(changes, question);
        } else {
            addQuestion(changes, *known->second, question);
        }
    }
}

}  // namespace quillmere::work
