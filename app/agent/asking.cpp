#include "agent/asking.hpp"

#include "agent/question_text.hpp"
#include "base/refusal.hpp"
#include "workspace/directory_lock.hpp"

#include <nlohmann/json.hpp>
#include <quillmere/engine/workflow_engine.hpp>

#include <algorithm>
#include <chrono>
#include <optional>

namespace quillmere::agent {
namespace {

using namespace std::chrono_literals;

/// Whether a question has been saved, as far as that can be found out.
bool isSaved(const workspace::Workspace& workspace, const Identifier& id)
{
    try {
        const std::vector<AgentQuestion> questions = workspace.look().state.agentQuestions;
        return std::any_of(questions.begin(), questions.end(),
                           [&](const AgentQuestion& question) { return question.id == id; });
    } catch (const std::exception&) {
        return false;
    }
}

/// Adds the question without waiting for the lock. No version of the state is kept: what was before is what
/// is now, without the question, and agents ask more often than a person has changes to take back.
agent::protocol::Json asked(const workspace::Workspace& workspace, const std::string& question)
{
    const std::string text = askable(question);
    std::optional<Identifier> id;
    const auto add = [&](QuillmereState& state, Instant now) {
        requireRoom(state, now);
        WorkflowEngine().addQuestion(state, text, now);
        id = state.agentQuestions.back().id;
    };
    try {
        const workspace::Situation situation = workspace.change([](const std::vector<workspace::Event>&) {},
                                                                add, {.patience = 0s, .keepsVersion = false});
        return {{"id", id->text()}, {"interruptible", situation.state.interruptible()}};
    } catch (const base::Refusal& error) {
        // The state comes first, so that it may have been saved although a summary could not be.
        if (id && isSaved(workspace, *id)) {
            throw Refusal("The question is saved with the id " + id->text() + "; do not ask it again. But " +
                          error.what());
        }
        throw;
    }
}

}  // namespace

void requireRoom(const QuillmereState& state, Instant now)
{
    if (state.openQuestions().size() >= mostOpen) {
        throw Refusal(std::to_string(mostOpen) +
                      " questions wait for the person already, and no more are taken. Go on without, or ask "
                      "again when some have been answered.");
    }
    // Files keep whole seconds, so what looks 60 seconds old may be a little younger. What a clock that was
    // set back leaves in the future counts as asked now.
    const auto isRecent = [now](const AgentQuestion& question) { return now - question.createdAt <= 60; };
    const auto recent = std::count_if(state.agentQuestions.begin(), state.agentQuestions.end(), isRecent);
    if (static_cast<std::size_t>(recent) >= mostAMinute) {
        throw Refusal(std::to_string(mostAMinute) +
                      " questions were asked within a minute, and no more are taken. Wait a minute, and put "
                      "what belongs together into one question.");
    }
}

agent::protocol::Call askThePerson(const workspace::Workspace& workspace, const std::string& question,
                                   agent::protocol::Moment begin)
{
    return [workspace, question,
            end = begin + workspace::DirectoryLock::usualPatience](agent::protocol::Moment now) {
        return attempt([&]() -> std::variant<agent::protocol::Json, agent::protocol::Later> {
            try {
                return asked(workspace, question);
            } catch (const base::Refusal& error) {
                if (error.kind() == base::Refusal::Kind::busy && now < end) {
                    return agent::protocol::Later{now + workspace::DirectoryLock::pauseBetweenTries};
                }
                throw;
            }
        });
    };
}

}  // namespace quillmere::agent
