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

protocol::Call waitForAnswer(const workspace::Workspace& workspace, AnswerWatch& watch, const std::string& id,
                             protocol::Moment deadline)
{
    std::optional<protocol::Moment> unreadableSince;
    auto look = [=, &watch](protocol::Moment now) mutable -> std::variant<base::SortedJson, protocol::Later> {
        // Before the reading, so that no answer is missed between the two.
        watch.require();
        std::optional<AgentQuestion> question;
        try {
            question = questionIn(workspace, id);
        } catch (const ToolRefusal&) {
            throw;
        } catch (const std::exception&) {
            unreadableSince = unreadableSince.value_or(now);
            if (now >= std::min(deadline, *unreadableSince + longestUnreadable)) {
                throw;
            }
            return protocol::Later{std::min(deadline, now + pauseBetweenLooks)};
        }
        unreadableSince.reset();
        if (question->isOpen() && now < deadline) {
            return protocol::Later{deadline};
        }
        return questionJson(*question);
    };
    return
        [look = std::move(look)](protocol::Moment now) mutable { return attempt([&] { return look(now); }); };
}

}  // namespace quillmere::agent
