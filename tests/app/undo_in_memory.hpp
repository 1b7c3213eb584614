// Undo and redo among states in memory, without files.
#pragma once

#include "work/undo/next_step.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <iterator>
#include <optional>
#include <utility>

namespace quillmere::test {

/// Keeps the states that were replaced, as a workspace keeps versions of its file.
class UndoInMemory {
public:
    static constexpr std::size_t mostKept = 10;

    /// Keeps a state that a change replaces.
    void keep(QuillmereState replaced)
    {
        kept_.push_front({.number = ++newest_, .state = std::move(replaced)});
        if (kept_.size() > mostKept) {
            kept_.pop_back();
        }
    }

    /// The next step. `saved` is the present before it was caught up to `now`.
    std::optional<work::UndoStep> next(work::UndoDirection direction, const QuillmereState& saved,
                                       const QuillmereState& present, Instant now) const
    {
        work::UndoHistory history{
            .versions = {},
            .stateOf = [this](std::int64_t number) { return stateOf(number); },
            .place = place,
            .saved = saved,
        };
        for (const Kept& kept : kept_) {
            history.versions.push_back(kept.number);
        }
        return work::nextStep(direction, history, present, now);
    }

    /// Notes a step that replaces a state.
    void note(const work::UndoStep& step, QuillmereState replaced)
    {
        keep(std::move(replaced));
        place = work::placeAfter(step, newest_);
    }

    /// Whether the version with this number is still kept.
    bool keeps(std::int64_t number) const
    {
        return number <= newest_ && newest_ - number < std::ssize(kept_);
    }

    workspace::UndoPlace place;

private:
    struct Kept {
        std::int64_t number;
        QuillmereState state;
    };

    std::optional<QuillmereState> stateOf(std::int64_t number) const
    {
        // Numbers fall by one from the front.
        return keeps(number) ? std::optional(kept_[static_cast<std::size_t>(newest_ - number)].state)
                             : std::nullopt;
    }

    std::deque<Kept> kept_;  ///< the newest first
    std::int64_t newest_ = 0;
};

}  // namespace quillmere::test
