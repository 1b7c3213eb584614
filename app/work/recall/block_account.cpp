#include "work/recall/block_account.hpp"

#include "base/text/count.hpp"
#include "base/text/duration.hpp"
#include "figures/look_back.hpp"
#include "work/recall/facts.hpp"
#include "work/recall/session_signs.hpp"

#include <algorithm>
#include <iterator>

namespace quillmere::work {
namespace {

/// What was meant, and what came of it.
std::string meantAndDone(const WorkSession& session)
{
    const std::string& meant = session.plan.intendedOutcome;
    const std::string& result = session.review ? session.review->noteworthyResult : std::string();
    return meant + (meant.empty() || result.empty() ? "" : ": ") + result;
}

std::string timesOf(const WorkSession& session, const base::SeenFrom& here)
{
    std::string text = base::localTextSeenFrom(here, session.startedAt);
    if (session.endedAt) {
        text += " to " + base::localTextSeenFrom({*session.endedAt - 1, here.hours}, *session.endedAt);
    }
    if (const std::optional<figures::SessionTime> time = figures::timeOf(session)) {
        text += ", " + base::durationText(time->workedSeconds) + " of focus";
    }
    if (session.accumulatedPausedSeconds > 0) {
        text += ", " + base::durationText(session.accumulatedPausedSeconds) + " of pauses";
    }
    return text;
}

std::vector<Fact> framesOf(const Block& block, const base::SeenFrom& here)
{
    std::vector<Fact> facts = titlesOf(block);
    const std::vector<Fact> texts = factsOf(block);
    facts.insert(facts.end(), texts.begin(), texts.end());
    facts.push_back({"Planned", base::countText(block.cycleCount, "session") + " of " +
                                    base::durationText(block.focusDurationSeconds) + ", breaks of " +
                                    base::durationText(block.breakDurationSeconds)});
    facts.push_back({"Sessions", signsOf(block)});
    if (block.completedAt) {
        facts.push_back({"Finished", base::localTextSeenFrom(here, *block.completedAt)});
    }
    return facts;
}

}  // namespace

Recall accountOf(const Block& block, const base::SeenFrom& here)
{
    Recall account;
    addPassage(account, "The block", framesOf(block, here));
    for (const WorkSession& session : block.sessions) {
        account.push_back(accountOf(session, block, here));
    }
    if (block.reflection) {
        addPassage(account, "Looking back", factsOf(*block.reflection, block));
    }
    return account;
}

Passage accountOf(const WorkSession& session, const Block& block, const base::SeenFrom& here)
{
    std::vector<Fact> facts = {{"Time", timesOf(session, here)}};
    const auto add = [&](std::vector<Fact> more) {
        std::move(more.begin(), more.end(), std::back_inserter(facts));
    };
    add(factsOf(session.plan, block));
    if (session.review) {
        add(factsOf(*session.review, block));
    }
    return {labelOf(session) + " of " + std::to_string(block.cycleCount), std::move(facts)};
}

std::vector<Fact> titlesOf(const Block& block)
{
    std::vector<Fact> facts;
    for (const Outcome& outcome : block.outcomes) {
        if (!outcome.title.empty()) {
            facts.push_back({std::string(outcomeLabel), outcome.title});
        }
    }
    return facts;
}

double focusSecondsOf(const Block& block)
{
    double seconds = 0;
    for (const WorkSession& session : block.sessions) {
        if (const std::optional<figures::SessionTime> time = figures::timeOf(session)) {
            seconds += time->workedSeconds;
        }
    }
    return seconds;
}

std::vector<Fact> outcomesWithSessions(const Block& block)
{
    std::vector<Fact> facts;
    const auto addSessionsOf = [&](const Outcome* outcome) {
        for (const WorkSession& session : block.sessions) {
            if (block.outcomeServed(session.plan) == outcome) {
                facts.push_back({labelOf(session), meantAndDone(session), completionOf(session)});
            }
        }
    };
    for (const Outcome& outcome : block.outcomes) {
        if (!outcome.title.empty()) {
            facts.push_back({std::string(outcomeLabel), outcome.title});
            addSessionsOf(&outcome);
        }
    }
    const bool isAnyOther =
        std::any_of(block.sessions.begin(), block.sessions.end(),
                    [&](const auto& session) { return !block.outcomeServed(session.plan); });
    if (isAnyOther) {
        if (!facts.empty()) {
            facts.push_back({std::string(outcomeLabel), "none of these"});
        }
        addSessionsOf(nullptr);
    }
    return facts;
}

}  // namespace quillmere::work
