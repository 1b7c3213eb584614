#include "proofs/endurance/person.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

constexpr double notBefore = std::numeric_limits<double>::infinity();
constexpr double hour = 3'600;
constexpr double focusSeconds = 1'500;
constexpr double breakSeconds = 300;

std::int64_t tickNotBefore(double time) { return static_cast<std::int64_t>(std::ceil(time)); }

/// The first tick, not before `now`, at which `seconds` whole seconds have passed since `start`.
std::int64_t tickAfter(double start, double seconds, double now)
{
    return std::max(tickNotBefore(start) + static_cast<std::int64_t>(std::floor(seconds)),
                    tickNotBefore(now));
}

}  // namespace

/// In the morning; every third day in the evening before.
double Person::planningTime() const
{
    return startOfDay() + (day_ % 3 == 0 && day_ > 0 ? -3 * hour : 7 * hour);
}

Block Person::block(double plannedStart) const
{
    Block block = sampleBlock(1);
    block.createdAt = at(nextAction_);
    block.plannedStart = at(plannedStart);
    block.focusDurationSeconds = focusSeconds;
    block.breakDurationSeconds = breakSeconds;
    block.cycleCount = 4 + day_ % 5;
    return block;
}

void Person::act(Host& host)
{
    switch (host.state().workflowState) {
        case WorkflowState::idle:
            host.state().currentBlock ? changeTheSchedule(host) : planTheDay(host);
            break;
        case WorkflowState::sessionPlanning: startFocus(host); break;
        case WorkflowState::focusing: pauseResumeOrEnd(host); break;
        case WorkflowState::sessionReview: review(host); break;
        case WorkflowState::breaking: extendOrEndBreak(host); break;
        case WorkflowState::blockReview: finish(host); break;
        case WorkflowState::blockPlanning:
        case WorkflowState::complete: break;
    }
}

/// Plans the day's block for nine o'clock, with a fraction of a second when planned on the same day.
void Person::planTheDay(Host& host)
{
    const bool isPlannedOnTheDay = nextAction_ > startOfDay();
    const double start = startOfDay() + 9 * hour + (isPlannedOnTheDay ? 0.5 : 0);
    host.act([&](const WorkflowEngine& engine, QuillmereState& state) {
        engine.beginBlockPlanning(state, at(nextAction_));
    });
    host.act([&](const WorkflowEngine& engine, QuillmereState& state) {
        engine.scheduleBlock(state, block(start), at(nextAction_));
    });
    actions_ += 2;
    expected_.begin = tickNotBefore(start);
    const std::int64_t weekday = day_ % 7;
    const bool isToChange = weekday == 2 || weekday == 5 || weekday == 6;
    nextAction_ = isToChange ? startOfDay() + 8 * hour + 0.25 : notBefore;
}

/// Postpones the block by an hour, cancels it, or starts it now.
void Person::changeTheSchedule(Host& host)
{
    const double now = nextAction_;
    if (day_ % 7 == 2) {
        const double start = startOfDay() + 10 * hour;
        host.act([&](const WorkflowEngine& engine, QuillmereState& state) {
            engine.editScheduledBlock(state, at(now));
        });
        host.act([&](const WorkflowEngine& engine, QuillmereState& state) {
            engine.scheduleBlock(state, block(start), at(now));
        });
        actions_ += 2;
        expected_.begin = tickNotBefore(start);
        nextAction_ = notBefore;
        return;
    }
    const bool isCalledOff = day_ % 7 == 5;
    host.act([&](const WorkflowEngine& engine, QuillmereState& state) {
        isCalledOff ? engine.cancelScheduledBlock(state, at(now))
                    : engine.startScheduledBlockNow(state, at(now));
    });
    ++actions_;
    expected_.begin.reset();
    if (isCalledOff) {
        ++day_;
        nextAction_ = planningTime();
    } else {
        nextAction_ = now + 60;
    }
}

void Person::blockBegan(std::int64_t tick)
{
    expected_.begin.reset();
    nextAction_ = static_cast<double>(tick) + 45.25;
}

void Person::startFocus(Host& host)
{
    host.act([&](const WorkflowEngine& engine, QuillmereState& state) {
        const bool hasPlan = state.plannedNextSession.has_value();
        engine.startFocus(state, hasPlan ? std::nullopt : std::optional(samplePlan(1)), at(nextAction_));
    });
    ++actions_;
    startedAt_ = nextAction_;
    paused_ = 0;
    expected_.focusEnd = tickAfter(startedAt_, focusSeconds, startedAt_);
    const bool pauses = session_ % 4 == 1 || session_ % 16 == 6;
    const bool endsEarly = session_ % 4 == 3;
    nextAction_ = pauses ? startedAt_ + 600.5 : endsEarly ? startedAt_ + 700.25 : notBefore;
}

/// Pauses every fourth session, some twice, and ends one in sixteen while paused; ends every fourth early.
void Person::pauseResumeOrEnd(Host& host)
{
    const double now = nextAction_;
    const bool isPaused = host.state().currentSession()->pausedAt.has_value();
    const bool ends = session_ % 4 == 3 || (session_ % 16 == 6 && isPaused);
    host.act([&](const WorkflowEngine& engine, QuillmereState& state) {
        if (ends) {
            engine.endFocus(state, at(now));
        } else if (isPaused) {
            engine.resumeFocus(state, at(now));
        } else {
            engine.pauseFocus(state, at(now));
        }
    });
    ++actions_;
    if (ends) {
        expected_.focusEnd.reset();
        sessionEnds_.push_back(static_cast<std::int64_t>(std::floor(now)));
        nextAction_ = now + 30.5;
    } else if (isPaused) {
        paused_ += now - pausedAt_;
        expected_.focusEnd = tickAfter(startedAt_, focusSeconds + std::floor(paused_), now);
        const bool pausesAgain = session_ % 8 == 1 && paused_ < 100;
        nextAction_ = pausesAgain ? now + 20.5 : notBefore;
    } else {
        pausedAt_ = now;
        expected_.focusEnd.reset();
        nextAction_ = now + 90.75;
    }
}

void Person::focusEnded(std::int64_t tick)
{
    expected_.focusEnd.reset();
    sessionEnds_.push_back(tick);
    nextAction_ = static_cast<double>(tick) + 30.5;
}

void Person::review(Host& host)
{
    host.act([&](const WorkflowEngine& engine, QuillmereState& state) {
        engine.saveReviewAndStartBreak(state, sampleReview(1), samplePlan(2), at(nextAction_));
    });
    ++actions_;
    ++session_;
    startedAt_ = nextAction_;
    extension_ = 0;
    if (host.state().workflowState == WorkflowState::blockReview) {
        nextAction_ = startedAt_ + 120;
        return;
    }
    expected_.breakEnd = tickAfter(startedAt_, breakSeconds, startedAt_);
    const bool extends = session_ % 5 == 1;
    const bool skips = session_ % 5 == 3;
    nextAction_ = extends ? startedAt_ + 100 : skips ? startedAt_ + 50 : notBefore;
}

/// Extends one break in five before its end and one after it, and skips one.
void Person::extendOrEndBreak(Host& host)
{
    const double now = nextAction_;
    const std::uint64_t kind = session_ % 5;
    const bool extends = extension_ == 0 && (kind == 1 || kind == 2);
    host.act([&](const WorkflowEngine& engine, QuillmereState& state) {
        if (extends) {
            extension_ = kind == 1 ? 60.5 : 120;
            engine.extendBreak(state, extension_, at(now));
        } else if (kind == 3) {
            engine.skipBreak(state, at(now));
        } else {
            engine.endBreak(state, at(now));
        }
    });
    ++actions_;
    if (extends) {
        expected_.breakEnd = tickAfter(startedAt_, breakSeconds + extension_, now);
        nextAction_ = notBefore;
    } else {
        expected_.breakEnd.reset();
        nextAction_ = now + 15;
    }
}

void Person::breakEnded(std::int64_t tick)
{
    expected_.breakEnd.reset();
    nextAction_ = static_cast<double>(tick) + 20;
}

void Person::finish(Host& host)
{
    host.act([&](const WorkflowEngine& engine, QuillmereState& state) {
        engine.completeBlockReview(state, sampleReflection(), at(nextAction_));
    });
    ++actions_;
    ++blocksFinished_;
    ++day_;
    nextAction_ = planningTime();
}

}  // namespace quillmere::test
