#include "random_walk.hpp"

#include <array>
#include <utility>

#include "engine_testing.hpp"

namespace quillmere::test {

struct RandomWalk::Operation {
    std::string_view name;
    bool (*call)(RandomWalk& walk);  ///< whether it did something

    static const Operation& drawn(Chance& chance);
};

const RandomWalk::Operation& RandomWalk::Operation::drawn(Chance& chance)
{
    using Walk = RandomWalk;
    // An operation without a report has done something unless it threw. No call draws two arguments in
    // one expression: their order would be the compiler's choice, and the walk another one.
    static constexpr auto operations = std::to_array<Operation>({
        {"beginBlockPlanning", [](Walk& w) { return engine.beginBlockPlanning(w.state_, w.now_), true; }},
        {"startBlock", [](Walk& w) { return engine.startBlock(w.state_, w.block(), w.now_), true; }},
        {"scheduleBlock", [](Walk& w) { return engine.scheduleBlock(w.state_, w.block(), w.now_), true; }},
        {"editScheduledBlock", [](Walk& w) { return engine.editScheduledBlock(w.state_, w.now_), true; }},
        {"cancelScheduledBlock", [](Walk& w) { return engine.cancelScheduledBlock(w.state_, w.now_), true; }},
        {"startScheduledBlockNow",
         [](Walk& w) { return engine.startScheduledBlockNow(w.state_, w.now_), true; }},
        {"evaluateSchedule", [](Walk& w) { return engine.evaluateSchedule(w.state_, w.now_); }},
        {"startFocus", [](Walk& w) { return engine.startFocus(w.state_, w.maybePlan(), w.now_), true; }},
        {"pauseFocus", [](Walk& w) { return engine.pauseFocus(w.state_, w.now_), true; }},
        {"resumeFocus", [](Walk& w) { return engine.resumeFocus(w.state_, w.now_), true; }},
        {"endFocus", [](Walk& w) { return engine.endFocus(w.state_, w.now_), true; }},
        {"saveReviewAndStartBreak",
         [](Walk& w) {
             SessionReview review = sampleReview(w.chance_.below(50));
             std::optional<SessionPlan> next = w.maybePlan();
             engine.saveReviewAndStartBreak(w.state_, std::move(review), std::move(next), w.now_);
             return true;
         }},
        {"extendBreak", [](Walk& w) { return engine.extendBreak(w.state_, w.duration(), w.now_), true; }},
        {"endBreak", [](Walk& w) { return engine.endBreak(w.state_, w.now_), true; }},
        {"skipBreak", [](Walk& w) { return engine.skipBreak(w.state_, w.now_), true; }},
        {"evaluateTimer",
         [](Walk& w) { return engine.evaluateTimer(w.state_, w.now_) != TimerTransition::noChange; }},
        {"completeBlockReview",
         [](Walk& w) { return engine.completeBlockReview(w.state_, sampleReflection(), w.now_), true; }},
        {"addQuestion", [](Walk& w) { return engine.addQuestion(w.state_, w.text(), w.now_), true; }},
        {"answerQuestion",
         [](Walk& w) {
             const Identifier id = w.question();
             engine.answerQuestion(w.state_, id, w.text(), w.now_);
             return true;
         }},
    });
    const Operation& drawn = operations[chance.below(operations.size())];
    // Most questions are left unasked, or they would pile up: nothing refuses them.
    const bool isSpared = drawn.name == "addQuestion" && !chance.oneIn(5);
    return isSpared ? Operation::drawn(chance) : drawn;
}

RandomWalk::RandomWalk(std::uint32_t seed, double tick)
    : chance_(seed), tick_(tick), now_(moment), state_(QuillmereState::initial(moment))
{
}

Attempt RandomWalk::step()
{
    moveTheClock();
    const Operation& operation = Operation::drawn(chance_);
    bool didSomething = false;
    const auto refusal = refusalOf([&] { didSomething = operation.call(*this); });
    return {operation.name, refusal, didSomething};
}

void RandomWalk::moveTheClock()
{
    if (chance_.oneIn(12)) {
        now_ = now_ - seconds(5000);
    } else {
        now_ = now_ + seconds(600);
    }
}

Identifier RandomWalk::freshIdentifier() { return identifier(++identifiers_); }

/// One in eight is refused.
double RandomWalk::duration()
{
    switch (chance_.below(24)) {
        case 0: return 0;
        case 1: return -seconds(600) - tick_;
        case 2: return notANumber;
        case 3: return 0.3;
        default: return seconds(1800) + tick_;
    }
}

/// One in ten is refused.
std::int64_t RandomWalk::rating()
{
    return chance_.oneIn(10) ? (chance_.oneIn(2) ? 0 : 6) : 1 + std::int64_t{chance_.below(5)};
}

SessionPlan RandomWalk::plan()
{
    SessionPlan plan = samplePlan(chance_.below(50));
    plan.id = freshIdentifier();
    plan.energy = rating();
    plan.morale = rating();
    return plan;
}

std::optional<SessionPlan> RandomWalk::maybePlan()
{
    return chance_.oneIn(3) ? std::nullopt : std::optional(plan());
}

Block RandomWalk::block()
{
    Block block = sampleBlock(1);
    block.id = freshIdentifier();
    block.createdAt = now_;
    block.focusDurationSeconds = duration();
    block.breakDurationSeconds = duration();
    // Two in seven are refused.
    block.cycleCount = std::int64_t{chance_.below(7)} / 2;
    if (!chance_.oneIn(3)) {
        block.plannedStart = now_ - 1200 * tick_ + seconds(3600);
    }
    if (chance_.oneIn(6)) {
        block.scheduledStartTriggeredAt = now_;
    }
    return block;
}

std::string RandomWalk::text()
{
    static constexpr auto texts = std::to_array<std::string_view>({
        "",
        "  ",
        "Which \"build\" fails?",
        "The\nnightly one \\ and https://example.com/a",
        "Größe – 大きさ 🙂",
    });
    return std::string(texts[chance_.below(texts.size())]);
}

/// One of the state's questions, or none of them.
Identifier RandomWalk::question()
{
    const auto count = static_cast<std::uint32_t>(state_.agentQuestions.size());
    const std::uint32_t drawn = chance_.below(count + 1);
    return drawn == count ? freshIdentifier() : state_.agentQuestions[drawn].id;
}

}  // namespace quillmere::test
