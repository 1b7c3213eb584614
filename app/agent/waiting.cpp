#include "agent/waiting.hpp"

#include "agent/question_json.hpp"

#include <algorithm>
#include <chrono>
#include <nlohmann/json.hpp>
#include <optional>
#include <utility>

namespace quillmere::agent {
namespace {

using namespace std::chrono_literals;

constexpr auto pauseBetweenLooks = 250ms;
constexpr auto longestUnreadable = 1s;

}  // namespace

agent::protocol::Call waitForAnswer(const workspace::Workspace& workspace, AnswerWatch& watch,
                                    const std::string& id, agent::protocol::Moment deadline)
{
    std::optional<agent::protocol::Moment> unreadableSince;
    auto look = [=, &watch](agent::protocol::Moment now) mutable
        -> std::variant<agent::protocol::Json, agent::protocol::Later> {
        // Before the look, so that no answer falls between the two.
        watch.require();
        std::optional<QuillmereState> state;
        try {
            state = workspace.look().state;
        } catch (const std::exception&) {
            unreadableSince = unreadableSince.value_or(now);
            if (now >= std::min(deadline, *unreadableSince + longestUnreadable)) {
                throw;
            }
            return agent::protocol::Later{std::min(deadline, now + pauseBetweenLooks)};
        }
        unreadableSince.reset();
        const AgentQuestion& question = questionIn(*state, id);
        if (!question.answeredAt && now < deadline) {
            return agent::protocol::Later{deadline};
        }
        return questionJson(question);
    };
    return [look = std::move(look)](agent::protocol::Moment now) mutable {
        return attempt([&] { return look(now); });
    };
}

}  // namespace quillmere::agent
