#include "agent/asking.hpp"

#include "agent/question_text.hpp"
#include "base/refusal.hpp"
#include "workspace/directory_lock.hpp"
#include "workspace/saving.hpp"

#include <nlohmann/json.hpp>
#include <quillmere/engine/workflow_engine.hpp>

#include <algorithm>
#include <chrono>

namespace quillmere::agent {
namespace {

using namespace std::chrono_literals;

/// Adds the question without waiting for the lock. Keeps no version of the state before: it differs only by
/// the question, and the many questions of agents would push out the versions that a person may want back.
base::SortedJson asked(const workspace::Workspace& workspace, const std::string& question)
{
    const std::string text = askable(question);
    // Made before the save: an agent that is not told that its question is saved asks it again, and after the
    // save there may be no memory to say so.
    const ToolRefusal onlySaved("The question is saved; do not ask it again. There is not enough memory.");
    base::SortedJson result;  // of a library that ends the process where it runs out of memory
    const auto add = [&](QuillmereState& state, Instant now) {
        requireRoom(state, now);
        WorkflowEngine().addQuestion(state, text, now);
        result = {{"id", state.agentQuestions.back().id.text()}, {"interruptible", state.interruptible()}};
    };
    try {
        workspace.change([](const std::vector<workspace::Event>&) {}, add,
                         {.patience = 0s, .keeping = workspace::Keeping::no, .reach = base::Reach::present});
        return result;
    } catch (const workspace::ChangeSaved& error) {
        throw ToolRefusal("The question is saved with the id " + result["id"].get<std::string>() +
                          "; do not ask it again. " + error.what());
    } catch (const workspace::MemoryRanOutOnceSaved&) {
        throw onlySaved;
    }
}

}  // namespace

void requireRoom(const QuillmereState& state, Instant now)
{
    if (state.openQuestions().size() >= mostOpen) {
        throw ToolRefusal(
            std::to_string(mostOpen) +
            " questions wait for the person already, and no more are taken. Go on without, or ask "
            "again when some have been answered.");
    }
    // Files have whole seconds, so a question that looks 60 seconds old may be younger. A date in the future
    // is left by a clock that was set back. Counted as recent, such a question would keep all agents out
    // until its date; the limit of open questions holds for it too.
    const auto isRecent = [now](const AgentQuestion& question) {
        return question.createdAt <= now && now - question.createdAt <= 60;
    };
    const auto recent = std::count_if(state.agentQuestions.begin(), state.agentQuestions.end(), isRecent);
    if (static_cast<std::size_t>(recent) >= mostAMinute) {
        throw ToolRefusal(
            std::to_string(mostAMinute) +
            " questions were asked within a minute, and no more are taken. Wait a minute, and put "
            "what belongs together into one question.");
    }
}

protocol::Call askThePerson(const workspace::Workspace& workspace, const std::string& question,
                            protocol::Moment begin)
{
    return
        [workspace, question, end = begin + workspace::DirectoryLock::usualPatience](protocol::Moment now) {
            return attempt([&]() -> std::variant<base::SortedJson, protocol::Later> {
                try {
                    return asked(workspace, question);
                } catch (const base::Refusal& error) {
                    if (error.kind() == base::Refusal::Kind::busy && now < end) {
                        return protocol::Later{now + workspace::DirectoryLock::pauseBetweenTries};
                    }
                    throw;
                }
            });
        };
}

}  // namespace quillmere::agent
