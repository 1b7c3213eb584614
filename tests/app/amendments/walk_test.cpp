// A person who takes steps, amends, and lets time pass, at random.
#include "amendments/back_out.hpp"
#include "amendments/change_block.hpp"
#include "amendments/change_length.hpp"
#include "amendments/correct.hpp"
#include "amendments/delete_block.hpp"
#include "amendments/drop.hpp"
#include "amendments/finish_now.hpp"
#include "amendments/forgot_to_end.hpp"
#include "amendments/go_on.hpp"
#include "amendments/possible.hpp"
#include "amendments/reset.hpp"
#include "amendments/was_away.hpp"

#include <map>
#include <random>

#include "amendment_testing.hpp"
#include "workspace/catching_up.hpp"

#include <quillmere/engine/workflow_engine.hpp>

namespace quillmere::test {
namespace {

using amendments::Kind;

constexpr WorkflowEngine steps;

class Walk {
public:
    QuillmereState state = stateIn(WorkflowState::idle);
    std::map<Kind, int> made;  ///< how often each amendment was made

    void go()
    {
        now_ = now_ + static_cast<double>(any(300));
        workspace::catchUp(state, now_);
        if (any(100) == 0) {
            damage();
        }
        if (state.blockHistory.size() > 3) {
            state.blockHistory.pop_back();  // a long history makes the walk slow
        }
        // Fewer amendments than steps, since most amendments lead out of the work.
        if (any(4) != 0) {
            step();
        } else {
            amendSomehow();
        }
    }

    /// Leads to `idle` without a block; returns the number of steps and amendments.
    static int wayHome(QuillmereState state, Instant now)
    {
        int count = 0;
        while ((state.workflowState != WorkflowState::idle || state.currentBlock) && count < 10) {
            leadHome(state, now);
            ++count;
        }
        return count;
    }

    Instant now() const { return now_; }

private:
    std::mt19937 random_{1};
    Instant now_ = moment;

    unsigned any(unsigned below) { return static_cast<unsigned>(random_() % below); }
    Instant anyTime() { return now_ - static_cast<double>(any(400)) + 60; }
    double anyLength() { return static_cast<double>(any(3'000)) - 600; }

    /// What only a file can bring.
    void damage()
    {
        switch (any(4)) {
            case 0: state.workflowState = WorkflowState::complete; break;
            case 1: state.currentBlock.reset(); break;
            case 2: state.workflowState = WorkflowState::idle; break;
            default: state.workflowState = WorkflowState::blockPlanning; break;
        }
    }

    /// Takes a step of the engine, if a few tries find one that it accepts.
    void step()
    {
        for (int tries = 0; tries < 10; ++tries) {
            try {
                takeStep();
                return;
            } catch (const WorkflowError&) {
            }
        }
    }

    void takeStep()
    {
        Block block = Block::default_(now_);
        block.cycleCount = 1 + any(4);
        switch (any(12)) {
            case 0: steps.beginBlockPlanning(state, now_); break;
            case 1: steps.startBlock(state, block, now_); break;
            case 2:
                block.plannedStart = now_ + static_cast<double>(any(1'200));
                steps.scheduleBlock(state, block, now_);
                break;
            case 3: steps.editScheduledBlock(state, now_); break;
            case 4: steps.startFocus(state, samplePlan(any(9)), now_); break;
            case 5: steps.pauseFocus(state, now_); break;
            case 6: steps.resumeFocus(state, now_); break;
            case 7: steps.endFocus(state, now_); break;
            case 8: steps.saveReviewAndStartBreak(state, sampleReview(1), samplePlan(2), now_); break;
            case 9: steps.extendBreak(state, 60, now_); break;
            case 10: steps.endBreak(state, now_); break;
            default: steps.completeBlockReview(state, sampleReflection(), now_); break;
        }
    }

    /// Tries amendments until one fits, if a few tries find one.
    void amendSomehow()
    {
        for (int tries = 0; tries < 5; ++tries) {
            const Kind kind = static_cast<Kind>(any(12));
            const bool fits = amendments::isPossible(kind, state);
            amend(kind);
            if (fits) {
                return;
            }
        }
    }

    void amend(Kind kind)
    {
        const bool fits = amendments::isPossible(kind, state);
        QuillmereState tried = state;
        try {
            makeAmendment(kind, tried);
        } catch (const amendments::Refusal&) {
            EXPECT_EQ(tried, state);
            return;
        }
        EXPECT_TRUE(fits) << static_cast<int>(kind);
        ++made[kind];
        state = amended(std::move(tried), now_, [](QuillmereState&) {});
    }

    amendments::PassedStart anyChoice()
    {
        switch (any(3)) {
            case 0: return amendments::StartNow{};
            case 1: return amendments::StartAt{anyTime()};
            default: return amendments::DropBlock{};
        }
    }

    amendments::BlockChange anyChange()
    {
        amendments::BlockChange change;
        if (any(2) == 0) {
            change.breakDurationSeconds = anyLength();
        } else if (any(2) == 0) {
            change.cycleCount = any(6);
        } else {
            change.focusDurationSeconds = anyLength();
            change.texts.outcomes = {{.id = identifier(any(3)), .title = "Any"}};
        }
        return change;
    }

    /// A block of the history, where there is one.
    Identifier anyBlock() const
    {
        return state.blockHistory.empty() ? identifier(0) : state.blockHistory.front().id;
    }

    void correctAny(QuillmereState& tried)
    {
        const bool isCurrent = any(2) == 0 && tried.currentSession();
        if (!isCurrent && tried.blockHistory.empty()) {
            throw amendments::Refusal("There is nothing to correct.");
        }
        const Block& block = isCurrent ? *tried.currentBlock : tried.blockHistory.front();
        const Identifier session = block.sessions.empty() ? identifier(0) : block.sessions.back().id;
        amendments::SessionCorrection correction;
        if (any(2) == 0) {
            correction.review = sampleReview(3);
        } else {
            correction.endedAt = anyTime();
        }
        amendments::correctSession(tried, block.id, session, correction, now_);
    }

    void makeAmendment(Kind kind, QuillmereState& tried)
    {
        using namespace amendments;
        switch (kind) {
            case Kind::backOut: backOut(tried, anyChoice(), now_); break;
            case Kind::drop: drop(tried, now_); break;
            case Kind::finishNow: finishNow(tried, now_); break;
            case Kind::finishWithReview: finishNow(tried, sampleReview(1), now_); break;
            case Kind::change: changeBlock(tried, anyChange(), now_); break;
            case Kind::changeLength: changeLength(tried, anyLength(), now_); break;
            case Kind::goOn:
                goOn(tried, anyLength(),
                     any(2) == 0 ? TimeSinceEnd::countsAsFocus : TimeSinceEnd::countsAsPause, now_);
                break;
            case Kind::forgotToEnd: forgotToEnd(tried, anyTime(), now_); break;
            case Kind::wasAway: wasAway(tried, anyTime(), {}, now_); break;
            case Kind::correct: correctAny(tried); break;
            case Kind::deleteBlock: deleteBlock(tried, anyBlock(), now_); break;
            case Kind::reset: reset(tried, now_); break;
        }
    }

    static void leadHome(QuillmereState& state, Instant now)
    {
        using namespace amendments;
        if (amendments::isPossible(Kind::reset, state)) {
            reset(state, now);
        } else if (amendments::isPossible(Kind::backOut, state)) {
            backOut(state, DropBlock{}, now);
        } else if (amendments::isPossible(Kind::drop, state)) {
            drop(state, now);
        } else if (amendments::isPossible(Kind::finishNow, state)) {
            finishNow(state, now);
        } else if (amendments::isPossible(Kind::finishWithReview, state)) {
            finishNow(state, sampleReview(1), now);
        } else if (quillmere::isPossible(Step::endFocus, state)) {
            steps.endFocus(state, now);
        } else if (quillmere::isPossible(Step::endBreak, state)) {
            steps.endBreak(state, now);
        } else if (quillmere::isPossible(Step::cancelScheduledBlock, state)) {
            steps.cancelScheduledBlock(state, now);
        } else {
            steps.completeBlockReview(state, sampleReflection(), now);
        }
    }
};

TEST(AmendmentWalk, leavesStatesThatTheWorkGoesOnFromAndIdleIsThreeStepsAwayAtMost)
{
    Walk walk;
    for (int count = 0; count < 3'000 && !testing::Test::HasFailure(); ++count) {
        walk.go();
        EXPECT_LE(Walk::wayHome(walk.state, walk.now()), 3);
    }
    // Otherwise the walk shows nothing.
    for (int kind = 0; kind < 12; ++kind) {
        EXPECT_GE(walk.made[static_cast<Kind>(kind)], 5) << kind;
    }
}

}  // namespace
}  // namespace quillmere::test
