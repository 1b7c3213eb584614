#include "work/recall/moment.hpp"

#include "base/text/count.hpp"
#include "base/text/duration.hpp"
#include "base/text/local_time.hpp"
#include "figures/local_day.hpp"
#include "figures/statistics.hpp"
#include "work/habits.hpp"
#include "work/recall/block_account.hpp"
#include "work/recall/facts.hpp"
#include "work/recall/session_signs.hpp"

#include <algorithm>
#include <cstddef>

namespace quillmere::work {
namespace {

/// Blocks whose lessons are told again.
constexpr std::size_t lessonsShown = 3;

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
        std::vector<Fact> facts = factsOf(session->plan, block);
        addFact(facts, block, &Block::whyValue, block);
        facts.push_back({"Sessions", signsOf(block)});
        add("This session", std::move(facts));
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
        const auto tell = [&](const char* label, const std::string& text) {
            if (!text.empty()) {
                facts.push_back({label, text});
            }
        };
        tell("Foreseen", block.hazards);
        for (const WorkSession& session : block.sessions) {
            const std::string number = std::to_string(session.number);
            tell(("Foreseen " + number).c_str(), session.plan.hazardsMitigation);
            if (session.review) {
                tell(("Met " + number).c_str(), session.review->distractions);
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
        const figures::LocalCalendar calendar(static_cast<int>(values_.dayBeginsAtHour));
        const figures::Day today = calendar.dayOf(here_.now);
        const double worked =
            figures::focusOn(figures::statistics(state_, {today, today}, today, habitsOf(values_)), today);
        const std::optional<double>& goal = values_.dailyGoalSeconds;
        std::vector<Fact> facts = {
            {"Worked", base::hoursText(worked) + (goal ? " of " + base::hoursText(*goal) : "")}};
        const auto finished =
            std::count_if(state_.blockHistory.begin(), state_.blockHistory.end(),
                          [&](const Block& block) { return calendar.dayOf(finishedAt(block)) == today; });
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
        for (const Block& block : state_.blockHistory) {
            if (block.reflection && !block.reflection->lessons.empty() && facts.size() < lessonsShown) {
                facts.push_back({base::localDayText(finishedAt(block)), block.reflection->lessons});
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
