#include "proofs/steering/random_person.hpp"

#include "amendments/refusal.hpp"
#include "workspace/catching_up.hpp"

#include <quillmere/engine/workflow_error.hpp>
#include <quillmere/records/base/enumeration.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <utility>

#include "proofs/steering/random_steps.hpp"

namespace quillmere::test {
namespace {

constexpr std::size_t kindCount = 12;
constexpr std::size_t stepCount = transition_table::rows.size();

}  // namespace

Deed RandomPerson::act()
{
    letTimePass();
    if (random_.oneIn(200)) {
        damage();
    }
    forgetThePast();
    const Deed deed = anyDeed();
    const Deed done = tryTo(deed) ? deed : Deed::nothing;
    ++deeds_[done];
    isUndoing_ = done == Deed::undo || done == Deed::redo;
    return done;
}

/// More steps than amendments, since most amendments lead out of the work. Undo and redo come in rows.
Deed RandomPerson::anyDeed()
{
    if (isUndoing_ && random_.oneIn(2)) {
        return random_.oneIn(2) ? Deed::undo : Deed::redo;
    }
    const unsigned choice = random_.below(100);
    return choice < 7 ? Deed::amendment : choice < 9 ? Deed::undo : choice < 10 ? Deed::redo : Deed::step;
}

/// Sometimes the clock is set back.
void RandomPerson::letTimePass()
{
    now_ = now_ + static_cast<double>(random_.below(300)) - (random_.oneIn(100) ? 2'000 : 0);
}

/// What only a file can bring, written by another program.
void RandomPerson::damage()
{
    switch (random_.below(5)) {
        case 0: state_.workflowState = WorkflowState::complete; break;
        case 1: state_.currentBlock.reset(); break;
        case 2: state_.workflowState = WorkflowState::idle; break;
        case 3: state_.workflowState = WorkflowState::breaking; break;
        default: state_.workflowState = WorkflowState::blockPlanning; break;
    }
}

/// A state that grows makes the walk slow.
void RandomPerson::forgetThePast()
{
    if (state_.blockHistory.size() > 1) {
        state_.blockHistory.pop_back();
    }
    if (state_.agentQuestions.size() > 2) {
        state_.agentQuestions.erase(state_.agentQuestions.begin());
    }
}

bool RandomPerson::tryTo(Deed deed)
{
    switch (deed) {
        case Deed::step: return takeAnyStep();
        case Deed::amendment: return amendAnyhow();
        case Deed::undo: return undoOrRedo(work::UndoDirection::undo);
        case Deed::redo: return undoOrRedo(work::UndoDirection::redo);
        case Deed::nothing: break;
    }
    return false;
}

bool RandomPerson::takeAnyStep()
{
    QuillmereState tried = caughtUp();
    Step step{};
    int tries = 0;
    do {
        step = transition_table::rows[random_.below(stepCount)].value;
    } while (!isPossible(step, tried) && ++tries < 10);
    try {
        takeStep(step, tried, random_, now_);
    } catch (const WorkflowError&) {
        EXPECT_EQ(tried, state_);
        return false;
    }
    save(std::move(tried));
    return true;
}

bool RandomPerson::amendAnyhow()
{
    QuillmereState tried = caughtUp();
    amendments::Kind kind{};
    int tries = 0;
    do {
        kind = static_cast<amendments::Kind>(random_.below(kindCount));
    } while (!isPossible(kind, tried) && ++tries < 5);
    const bool fits = isPossible(kind, tried);
    try {
        amend(kind, tried, random_, now_);
    } catch (const amendments::Refusal&) {
        EXPECT_EQ(tried, state_);
        return false;
    }
    EXPECT_TRUE(fits) << static_cast<int>(kind);
    EXPECT_EQ(tried.updatedAt, now_);
    ++amendments_[kind];
    save(std::move(tried));
    return true;
}

bool RandomPerson::undoOrRedo(work::UndoDirection direction)
{
    QuillmereState present = state_;
    std::optional<work::UndoStep> offered;
    if (!workspace::catchUp(present, now_).empty()) {
        offered = undo_.next(direction, state_, present, now_);
        save(std::move(present));
    }
    const std::optional<work::UndoStep> step = undo_.next(direction, state_, state_, now_);
    expectOffered(step, offered);
    if (!step) {
        return false;
    }
    EXPECT_EQ(step->state.updatedAt, std::max(now_, state_.updatedAt));
    undo_.note(*step, std::exchange(state_, step->state));
    return true;
}

/// The step that is offered before the time that passed is recorded must be the one that is taken afterwards,
/// where the record does not push a version out that it stands on.
void RandomPerson::expectOffered(const std::optional<work::UndoStep>& taken,
                                 const std::optional<work::UndoStep>& offered) const
{
    const auto isKept = [&](std::int64_t version) { return version == 0 || undo_.keeps(version); };
    if (offered && isKept(offered->version) && isKept(offered->place.target)) {
        EXPECT_TRUE(taken && taken->version == offered->version && taken->changes == offered->changes)
            << offered->changes << " was offered; " << (taken ? taken->changes : "nothing") << " is taken";
    }
}

QuillmereState RandomPerson::caughtUp()
{
    QuillmereState next = state_;
    if (!workspace::catchUp(next, now_).empty()) {
        save(next);
    }
    return next;
}

void RandomPerson::save(QuillmereState next) { undo_.keep(std::exchange(state_, std::move(next))); }

}  // namespace quillmere::test
