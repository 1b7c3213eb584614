// The application, as far as it matters here: it ticks, it acts for a person, and it saves what changed.
#pragma once

#include <quillmere/engine/workflow_engine.hpp>
#include <quillmere/store/state_store.hpp>

#include <cstdint>
#include <filesystem>

namespace quillmere::test {

/// What one tick did.
struct TickReport {
    bool begun;  ///< the scheduled block
    TimerTransition transition;

    bool isNothing() const { return !begun && transition == TimerTransition::noChange; }
};

class Host {
public:
    Host(const std::filesystem::path& directory, Instant now)
        : store_(directory, StateStore::renameReplacing), state_(QuillmereState::initial(now))
    {
        store_.save(state_);
    }

    const QuillmereState& state() const { return state_; }
    std::uint64_t saves() const { return saves_; }

    TickReport tick(Instant now)
    {
        const bool begun = engine_.evaluateSchedule(state_, now);
        const TickReport report{.begun = begun, .transition = engine_.evaluateTimer(state_, now)};
        if (!report.isNothing()) {
            save();
        }
        return report;
    }

    /// Lets a person do something: `action(engine, state)`.
    template <class Action>
    void act(Action action)
    {
        action(engine_, state_);
        save();
    }

    /// What the file holds; a program started now would go on from it.
    QuillmereState saved() const { return store_.load(); }

    /// The program is closed and started again.
    void restart() { state_ = saved(); }

private:
    void save()
    {
        store_.save(state_);
        ++saves_;
    }

    WorkflowEngine engine_;
    StateStore store_;
    QuillmereState state_;
    std::uint64_t saves_ = 0;
};

}  // namespace quillmere::test
