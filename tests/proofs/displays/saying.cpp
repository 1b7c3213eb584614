#include "proofs/displays/saying.hpp"

#include "base/text/local_time.hpp"
#include "cli/status.hpp"
#include "work/timer_text.hpp"

#include <quillmere/store/state_store.hpp>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <ostream>
#include <sstream>
#include <tuple>

namespace quillmere::test {
namespace {

constexpr std::string_view overWords = "over since ";

/// The instant of "over since 14:55"; empty for other words.
std::string overIn(const std::string& words)
{
    return words.starts_with(overWords) ? words.substr(overWords.size()) : "";
}

/// "+01:15" is -75.
std::string secondsIn(const std::string& timeText)
{
    const std::size_t colon = timeText.find(':');
    if (colon == std::string::npos) {
        return "";
    }
    const bool isOver = timeText.front() == '+';
    const long seconds = 60 * std::atol(timeText.substr(isOver ? 1 : 0, colon).c_str()) +
                         std::atol(timeText.substr(colon + 1).c_str());
    return std::to_string(isOver ? -seconds : seconds);
}

auto members(const Saying& saying)
{
    return std::tie(saying.phase, saying.title, saying.heading, saying.remaining, saying.share, saying.over,
                    saying.paused);
}

template <class Member>
bool areAlike(const Member& one, const Member& other)
{
    return !one || !other || *one == *other;
}

}  // namespace

void PrintTo(const Saying& saying, std::ostream* stream)
{
    std::apply([&](const auto&... member) { ((*stream << '[' << member.value_or("not said") << "] "), ...); },
               members(saying));
}

bool agree(const Saying& one, const Saying& other)
{
    return areAlike(one.phase, other.phase) && areAlike(one.title, other.title) &&
           areAlike(one.heading, other.heading) && areAlike(one.remaining, other.remaining) &&
           areAlike(one.share, other.share) && areAlike(one.over, other.over) &&
           areAlike(one.paused, other.paused);
}

Saying sayingOf(const work::SituationView& view, Instant now)
{
    return {.phase = std::string(rawValue(view.phase)),
            .title = std::string(view.title),
            .heading = view.caption,
            .remaining = view.timer ? std::to_string(view.timer->remainingSeconds) : "",
            .share = view.timer ? std::to_string(std::lround(view.timer->usedShare * 100)) : "",
            .over = view.overSince ? base::localTextWithin(now, *view.overSince) : "",
            .paused = view.timer && view.timer->isPaused ? "paused" : ""};
}

Saying sayingOfStatus(const workspace::Situation& situation)
{
    std::ostringstream out;
    cli::printStatus(out, situation, base::Style(false), {}, cli::StatusDetail::brief);
    std::istringstream lines(out.str());
    std::string first;
    std::string second;
    std::getline(lines, first);
    std::getline(lines, second);
    const std::size_t gap = first.find("  ");
    return {.phase = {},
            .title = first.substr(0, gap),
            .heading = first.substr(gap + 2),
            .remaining = {},
            .share = {},
            .over = overIn(second.substr(0, second.find("  "))),
            .paused = second.find("paused since") == std::string::npos ? "" : "paused"};
}

Saying sayingOfStatusJson(const workspace::Situation& situation)
{
    const base::Json json = cli::statusJson(situation);
    return {.phase = json.at("widget").at("phase").get<std::string>(),
            .title = {},
            .heading = json.at("caption").get<std::string>(),
            .remaining = secondsIn(json.value("time_text", "")),
            .share = {},
            .over = {},
            .paused = {}};
}

Saying sayingOf(const bar::BarContent& content)
{
    const auto has = [&](const char* word) {
        return std::find(content.classes.begin(), content.classes.end(), word) != content.classes.end();
    };
    const bar::BarFacts& facts = content.facts.value();
    return {.phase = content.alternative,
            .title = facts.title,
            .heading = content.details.at(0),
            .remaining = facts.remainingSeconds ? std::to_string(*facts.remainingSeconds) : "",
            .share = content.percentage ? std::to_string(*content.percentage) : "",
            .over = has("overtime") ? overIn(content.details.at(1)) : "",
            .paused = has("paused") ? "paused" : ""};
}

Saying sayingOfAgent(const workspace::Situation& situation)
{
    const AgentSnapshot summary =
        StateStore({}, StateStore::renameReplacing).agentSnapshot(situation.state, situation.now);
    const auto workflowState = fromRawValue<WorkflowState>(summary.workflowState).value();
    const auto phase = fromWorkflowState<WidgetPhase>(workflowState);
    const bool isPaused = workflowState == WorkflowState::focusing && summary.currentSession &&
                          summary.currentSession->pausedAt;
    return {.phase = std::string(rawValue(phase)),
            .title = std::string(title(phase)),
            .heading = {},
            .remaining = summary.remainingSeconds ? std::to_string(*summary.remainingSeconds) : "",
            .share = {},
            .over = {},
            .paused = isPaused ? "paused" : ""};
}

}  // namespace quillmere::test
