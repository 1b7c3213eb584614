// A walk through the engine: each byte chooses an operation, an argument or a change of the clock.
//
// Instants are whole seconds within a few years, and accepted durations stay below 1e9 seconds: a timer whose
// seconds do not fit 64 bits is a fatal error, as documented.
#include <quillmere/engine/workflow_engine.hpp>
#include <quillmere/records/json/json_decoder.hpp>
#include <quillmere/records/json/json_encoder.hpp>

#include <array>
#include <iterator>
#include <limits>
#include <optional>
#include <utility>

#include "fuzz/draws.hpp"
#include "fuzz/fuzz_target.hpp"
#include "fuzz/situations.hpp"
#include "proofs/values/utf8_check.hpp"

namespace quillmere::test {
namespace {

constexpr WorkflowEngine engine;

class Walk {
public:
    Walk(const std::uint8_t* data, std::size_t size)
        : draws_(data, size), state_(situation(draws_.below(situationCount)))
    {
    }

    void run()
    {
        while (!draws_.empty()) {
            moveTheClock();
            step();
        }
        requireSavable();
    }

private:
    void moveTheClock()
    {
        static constexpr auto steps =
            std::to_array<double>({0, 1, 59, 300, 1499, 1500, 1501, 10'000, 1e6, -1, -300, -10'000, -1e6});
        now_ = now_ + steps[draws_.below(steps.size())];
    }

    double duration()
    {
        static constexpr auto durations = std::to_array<double>(
            {0, -1, std::numeric_limits<double>::quiet_NaN(), -std::numeric_limits<double>::infinity(), -0.0,
             std::numeric_limits<double>::denorm_min(), 0.3, 1, 60, 1500, 1e9});
        return durations[draws_.below(durations.size())];
    }

    Identifier freshIdentifier() { return identifier(++identifiers_); }

    SessionPlan plan()
    {
        SessionPlan plan = SessionPlan::blank(freshIdentifier());
        plan.intendedOutcome = draws_.text();
        plan.energy = static_cast<std::int64_t>(draws_.below(8)) - 1;
        plan.morale = static_cast<std::int64_t>(draws_.below(8)) - 1;
        return plan;
    }

    std::optional<SessionPlan> maybePlan()
    {
        return draws_.below(2) == 0 ? std::nullopt : std::optional(plan());
    }

    Block block()
    {
        Block block = sampleBlock(1);
        block.id = freshIdentifier();
        block.focusDurationSeconds = duration();
        block.breakDurationSeconds = duration();
        block.cycleCount = static_cast<std::int64_t>(draws_.below(6)) - 1;
        block.whyValue = draws_.text();
        switch (draws_.below(4)) {
            case 0: break;
            case 1: block.plannedStart = now_; break;
            case 2: block.plannedStart = now_ + 1; break;
            default: block.plannedStart = now_ - 300; break;
        }
        if (draws_.below(8) == 0) {
            block.scheduledStartTriggeredAt = now_;
        }
        return block;
    }

    SessionReview review()
    {
        SessionReview review = sampleReview(1);
        review.completion = allCases<CompletionResult>()[draws_.below(3)];
        review.distractions = draws_.text();
        return review;
    }

    Identifier question()
    {
        const std::size_t which = draws_.byte();
        return which < state_.agentQuestions.size() ? state_.agentQuestions[which].id : freshIdentifier();
    }

    /// Calls the engine; returns whether the call had an effect.
    bool call()
    {
        switch (draws_.below(19)) {
            case 0: return engine.beginBlockPlanning(state_, now_), true;
            case 1: return engine.startBlock(state_, block(), now_), true;
            case 2: return engine.completeBlockReview(state_, sampleReflection(), now_), true;
            case 3: return engine.scheduleBlock(state_, block(), now_), true;
            case 4: return engine.editScheduledBlock(state_, now_), true;
            case 5: return engine.cancelScheduledBlock(state_, now_), true;
            case 6: return engine.startScheduledBlockNow(state_, now_), true;
            case 7: return evaluateSchedule();
            case 8: return engine.startFocus(state_, maybePlan(), now_), true;
            case 9: return engine.pauseFocus(state_, now_), true;
            case 10: return engine.resumeFocus(state_, now_), true;
            case 11: return engine.endFocus(state_, now_), true;
            case 12: {
                SessionReview given = review();
                engine.saveReviewAndStartBreak(state_, std::move(given), maybePlan(), now_);
                return true;
            }
            case 13: return engine.extendBreak(state_, duration(), now_), true;
            case 14: return engine.endBreak(state_, now_), true;
            case 15: return engine.skipBreak(state_, now_), true;
            case 16: return evaluateTimer();
            case 17: return engine.addQuestion(state_, draws_.text(), now_), true;
            default: {
                const Identifier id = question();
                engine.answerQuestion(state_, id, draws_.text(), now_);
                return true;
            }
        }
    }

    bool evaluateSchedule()
    {
        const bool acted = engine.evaluateSchedule(state_, now_);
        require(!engine.evaluateSchedule(state_, now_), "a schedule comes due once");
        return acted;
    }

    bool evaluateTimer()
    {
        const bool acted = engine.evaluateTimer(state_, now_) != TimerTransition::noChange;
        require(engine.evaluateTimer(state_, now_) == TimerTransition::noChange, "a timer runs out once");
        return acted;
    }

    void step()
    {
        const QuillmereState before = state_;
        bool acted = false;
        try {
            acted = call();
        } catch (const WorkflowError&) {
            require(state_ == before, "a refused operation changes nothing");
            return;
        }
        if (!acted) {
            require(state_ == before, "an evaluation with nothing to do changes nothing");
            return;
        }
        require(state_.updatedAt == now_, "a success is stamped");
        const bool wasComplete = before.workflowState == WorkflowState::complete;
        require(wasComplete || state_.workflowState != WorkflowState::complete,
                "`complete` is never produced");
        require(state_.blockHistory.size() >= before.blockHistory.size(), "the history loses nothing");
        requireNumbered(state_.currentBlock);
    }

    static void requireNumbered(const std::optional<Block>& block)
    {
        if (!block) {
            return;
        }
        require(std::ssize(block->sessions) <= block->cycleCount, "there are no more sessions than cycles");
        for (std::size_t index = 0; index < block->sessions.size(); ++index) {
            require(block->sessions[index].number == static_cast<std::int64_t>(index) + 1,
                    "sessions are numbered from 1");
        }
    }

    /// Texts may be ill-formed in memory, so the first save may change them; the second must not.
    void requireSavable() const
    {
        const JsonEncoder encoder(JsonLayout::compact);
        const Bytes written = encoder.encode(state_);
        require(isUtf8(written.view()), "what is written is a text");
        const QuillmereState again = JsonDecoder().decode<QuillmereState>(written);
        require(encoder.encode(again).view() == written.view(), "a state reads back as it was written");
        require(again.updatedAt == state_.updatedAt && again.workflowState == state_.workflowState &&
                    again.blockHistory.size() == state_.blockHistory.size() &&
                    again.agentQuestions.size() == state_.agentQuestions.size(),
                "and as it was");
    }

    Draws draws_;
    Instant now_ = moment;
    unsigned identifiers_ = 10'000;
    QuillmereState state_;
};

}  // namespace
}  // namespace quillmere::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    quillmere::test::Walk(data, size).run();
    return 0;
}
