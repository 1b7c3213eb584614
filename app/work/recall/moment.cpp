#include "work/recall/moment.hpp"

#include "base/reach.hpp"

#include "base/text/count.hpp"
#include "base/text/duration.hpp"
#include "base/text/local_time.hpp"
#include "figures/local_day.hpp"
#include "figures/statistics.hpp"
#include "work/recall/block_account.hpp"
#include "work/recall/facts.hpp"
#include "work/recall/session_signs.hpp"

#include <algorithm>
#include <cstddef>

namespace quillmere::work {
namespace {

/// Blocks whose lessons are told again.
constexpr std::size_t lessonsShown = 3;
/// Sessions of the block that are told again in the next one.
constexpr std::size_t sessionsShown = 4;

class Moment {
public:
    Moment(const workspace::Situation& situation, const config::Values& values)
        : state_(situation.state), values_(values), here_(situation.now, values.hours)
    {
    }

    Recall recall()
    {
        if (state_.workflowState == WorkflowState::idle) {
            whileNothingRuns();
        } else if (state_.currentBlock) {
            tellOf(*state_.currentBlock);
        }
        return std::move(recall_);
    }

private:
    void tellOf(const Block& block)
    {
        switch (state_.workflowState) {
            case WorkflowState::sessionPlanning: beforeASession(block); break;
            case WorkflowState::focusing: inASession(block); break;
            case WorkflowState::sessionReview: atItsReview(block); break;
            case WorkflowState::breaking: inABreak(block); break;
            case WorkflowState::blockReview: atTheReflection(block); break;
            case WorkflowState::idle:
            case WorkflowState::blockPlanning:
            case WorkflowState::complete: break;
        }
    }

    static void tell(std::vector<Fact>& facts, std::string label, const std::string& text)
    {
        if (!text.empty()) {
            facts.push_back({std::move(label), text});
        }
    }

    figures::LocalCalendar localCalendar() const
    {
        return figures::LocalCalendar(static_cast<int>(values_.dayBeginsAtHour));
    }

    std::span<const Block> recentBlocks() const
    {
        return base::blocksWithin(base::Reach::present, state_, here_.now);
    }

    /// "1 h 40 min of 4 h"; without a goal "1 h 40 min".
    std::string workedToday() const
    {
        figures::LocalCalendar calendar = localCalendar();
        const double worked = figures::focusToday(state_, here_.now, calendar);
        const std::optional<double>& goal = values_.dailyGoalSeconds;
        return base::hoursText(worked) + (goal ? " of " + base::hoursText(*goal) : "");
    }

    void add(std::string heading, std::vector<Fact> facts)
    {
        addPassage(recall_, std::move(heading), std::move(facts));
    }

    void beforeASession(const Block& block)
    {
        if (state_.plannedNextSession) {
            add("The next session", factsOf(*state_.plannedNextSession, block));
        }
        std::vector<Fact> purpose = titlesOf(block);
        for (const auto text : {&Block::whyValue, &Block::doneTest, &Block::hazards}) {
            addFact(purpose, block, text, block);
        }
        add("The block", std::move(purpose));
        if (!block.sessions.empty()) {
            add("So far", {{"Sessions", signsOf(block)}});
            tellReview("The last session", block.sessions.back(), block);
        }
    }

    void inASession(const Block& block)
    {
        const WorkSession* const session = state_.currentSession();
        if (!session) {
            return;
        }
        const SessionPlan& plan = session->plan;
        const Outcome* const served = block.outcomeServed(plan);
        const std::string purpose =
            served && served->title != plan.intendedOutcome ? served->title : std::string();
        std::vector<Fact> facts;
        tell(facts, "First", plan.firstAction);
        tell(facts, "If", plan.hazardsMitigation);
        tell(facts, "View", plan.nicuFraming);
        tell(facts, "For", purpose);
        tell(facts, purpose.empty() ? "For" : "", block.whyValue);
        if (plan.intendedOutcome.empty()) {
            add("This session", std::move(facts));
        } else {
            // Stands also where the person wrote nothing else.
            recall_.push_back({plan.intendedOutcome, std::move(facts)});
        }
        add("", daySoFar(block));
    }

    /// The day's work, and the last sessions of the block with the running one.
    std::vector<Fact> daySoFar(const Block& block) const
    {
        std::vector<Fact> facts = {{"Today", workedToday()}};
        const std::size_t count = block.sessions.size();
        for (std::size_t index = count - std::min(count, sessionsShown); count > 1 && index < count;
             ++index) {
            const WorkSession& session = block.sessions[index];
            if (!session.plan.intendedOutcome.empty()) {
                facts.push_back({labelOf(session), session.plan.intendedOutcome, completionOf(session)});
            }
        }
        addFact(facts, block, &Block::doneTest, block);
        return facts;
    }

    void atItsReview(const Block& block)
    {
        if (const WorkSession* const session = state_.currentSession()) {
            add("What was meant", factsOf(session->plan, block));
        }
    }

    void inABreak(const Block& block)
    {
        if (!block.sessions.empty()) {
            tellReview("Just done", block.sessions.back(), block);
        }
        std::vector<Fact> facts;
        if (state_.plannedNextSession) {
            facts = factsOf(*state_.plannedNextSession, block);
        }
        add("The next session", std::move(facts));
    }

    void atTheReflection(const Block& block)
    {
        add("Outcomes", outcomesWithSessions(block));
        std::vector<Fact> questions;
        addFact(questions, block, &Block::doneTest, block);
        addFact(questions, block, &Block::measurableCheck, block);
        for (Fact& question : questions) {
            question.text += question.text.ends_with('?') ? "" : "?";
        }
        add("Was it reached?", std::move(questions));
        add("What got in the way", foreseenAndMet(block));
    }

    /// Hazards beside distractions.
    static std::vector<Fact> foreseenAndMet(const Block& block)
    {
        std::vector<Fact> facts;
        tell(facts, "Foreseen", block.hazards);
        for (const WorkSession& session : block.sessions) {
            const std::string number = std::to_string(session.number);
            tell(facts, "Foreseen " + number, session.plan.hazardsMitigation);
            if (session.review) {
                tell(facts, "Met " + number, session.review->distractions);
            }
        }
        return facts;
    }

    void whileNothingRuns()
    {
        if (state_.blockHistory.empty() && !state_.currentBlock) {
            add("A block of work", {{"", "You say what should come out of it, and why."},
                                    {"", "You work through it in sessions of focus, with breaks between."},
                                    {"", "You compare what you meant with what you did."}});
            return;
        }
        tellToday();
        tellSchedule();
        tellLessons();
    }

    void tellToday()
    {
        const figures::LocalCalendar calendar = localCalendar();
        const figures::Day today = calendar.dayOf(here_.now);
        std::vector<Fact> facts = {{"Worked", workedToday()}};
        const std::span<const Block> recent = recentBlocks();
        const auto finished = std::count_if(recent.begin(), recent.end(), [&](const Block& block) {
            return calendar.dayOf(base::finishedAt(block)) == today;
        });
        facts.push_back({"Finished", base::countText(finished, "block")});
        add("Today", std::move(facts));
    }

    void tellSchedule()
    {
        if (!state_.currentBlock || !state_.currentBlock->plannedStart) {
            return;
        }
        const Block& block = *state_.currentBlock;
        std::vector<Fact> facts = {
            {"Time", base::localTextSeenFrom(here_, *block.plannedStart) + " to " +
                         base::localTextSeenFrom(here_, block.plannedEnd())},
            {"Sessions", base::countText(block.cycleCount, "session") + " of " +
                             base::durationText(block.focusDurationSeconds) + ", breaks of " +
                             base::durationText(block.breakDurationSeconds)}};
        for (Fact& title : titlesOf(block)) {
            facts.push_back(std::move(title));
        }
        add("Scheduled", std::move(facts));
    }

    void tellLessons()
    {
        std::vector<Fact> facts;
        for (const Block& block : recentBlocks()) {
            if (block.reflection && !block.reflection->lessons.empty() && facts.size() < lessonsShown) {
                facts.push_back({base::localDayText(base::finishedAt(block)), block.reflection->lessons});
            }
        }
        add("The last lessons", std::move(facts));
    }

    void tellReview(const char* heading, const WorkSession& session, const Block& block)
    {
        if (session.review) {
            std::vector<Fact> facts;
            addFact(facts, session.plan, &SessionPlan::intendedOutcome, block);
            for (Fact& fact : factsOf(*session.review, block)) {
                facts.push_back(std::move(fact));
            }
            add(heading, std::move(facts));
        }
    }

    const QuillmereState& state_;
    const config::Values& values_;
    base::SeenFrom here_;
    Recall recall_;
};

}  // namespace

Recall recallAt(const workspace::Situation& situation, const config::Values& values)
{
    return Moment(situation, values).recall();
}

}  // namespace quillmere::work
