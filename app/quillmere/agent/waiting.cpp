#include "agent/waiting.hpp"

#include "agent/question_json.hpp"

#include <algorithm>
#include <chrono>
#include <optional>
#include <utility>

namespace quillmere::app::agent {
namespace {

using namespace std::chrono_literals;

constexpr auto pauseBetweenLooks = 250ms;
constexpr auto longestUnreadable = 1s;

}  // namespace

Call waitForAnswer(const Workspace& workspace, AnswerWatch& watch, const std::string& id, Moment deadline)
{
    std::optional<Moment> unreadableSince;
    auto look = [=, &watch](Moment now) mutable -> std::variant<Json, Later> {
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
            return Later{std::min(deadline, now + pauseBetweenLooks)};
        }
        unreadableSince.reset();
        const AgentQuestion& question = questionIn(*state, id);
        if (!question.answeredAt && now < deadline) {
            return Later{deadline};
        }
        return questionJson(question);
    };
    return [look = std::move(look)](Moment now) mutable { return attempt([&] { return look(now); }); };
}

}  // namespace quillmere::app::agent
