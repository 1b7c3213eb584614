// A minimal application: it ticks, acts for a person, and saves changes.
#pragma once

#include <quillmere/engine/workflow_engine.hpp>
#include <quillmere/store/state_store.hpp>

#include <cstdint>
#include <filesystem>

namespace quillmere::test {

/// The effects of one tick.
struct TickReport {
    bool begun;  ///< whether the scheduled block started
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

    /// Performs an action of the person: `action(engine, state)`.
    template <class Action>
    void act(Action action)
    {
        action(engine_, state_);
        save();
    }

    /// The state in the file, from which a restarted program continues.
    QuillmereState saved() const { return store_.load(); }

    /// Simulates closing and starting the program.
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
