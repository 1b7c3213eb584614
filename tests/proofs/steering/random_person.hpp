// A person who takes steps of the work, amends it, undoes and redoes, and lets time pass, at random.
#pragma once

#include "amendments/possible.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include <cstdint>
#include <map>
#include <optional>

#include "app/undo_in_memory.hpp"
#include "proofs/steering/random_values.hpp"

namespace quillmere::test {

enum class Deed { nothing, step, amendment, undo, redo };

class RandomPerson {
public:
    /// Lets some time pass, and then does one thing where a few tries find one that is accepted. Fails the
    /// test when a refusal leaves another state, when an amendment succeeds that does not fit, and when an
    /// undo is not the one that was offered before the time that passed was recorded.
    Deed act();

    const QuillmereState& state() const { return state_; }
    Instant now() const { return now_; }

    /// How often each was done.
    std::uint64_t count(Deed deed) const { return valueIn(deeds_, deed); }
    std::uint64_t count(amendments::Kind kind) const { return valueIn(amendments_, kind); }

private:
    template <class Key>
    static std::uint64_t valueIn(const std::map<Key, std::uint64_t>& counts, Key key)
    {
        const auto found = counts.find(key);
        return found == counts.end() ? 0 : found->second;
    }

    Deed anyDeed();
    void letTimePass();
    void damage();
    void forgetThePast();

    bool tryTo(Deed deed);
    bool takeAnyStep();
    bool amendAnyhow();
    bool undoOrRedo(work::UndoDirection direction);

    void expectOffered(const std::optional<work::UndoStep>& taken,
                       const std::optional<work::UndoStep>& offered) const;

    /// The state now. Records what happened by itself.
    QuillmereState caughtUp();
    /// Saves a change; the state before it is kept.
    void save(QuillmereState next);

    RandomValues random_;
    QuillmereState state_ = stateIn(WorkflowState::idle);
    Instant now_ = moment;
    UndoInMemory undo_;
    bool isUndoing_ = false;
    std::map<Deed, std::uint64_t> deeds_;
    std::map<amendments::Kind, std::uint64_t> amendments_;
};

}  // namespace quillmere::test
