// Events that happened between two looks at a state, also when another program recorded them.
#pragma once

#include "workspace/catching_up.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include <optional>
#include <vector>

namespace quillmere::work {

/// The part of a state that tells whether the work has moved on.
struct LastShown {
    WorkflowState workflowState;
    std::optional<Identifier> block;
    std::optional<Instant> startTriggeredAt;
    std::optional<Identifier> session;
    std::optional<Instant> pausedAt;
    std::optional<Instant> breakEndNotifiedAt;

    static LastShown of(const QuillmereState& state);

    friend bool operator==(const LastShown&, const LastShown&) = default;
};

/// Whether the block was begun by its schedule: an early start by a person removes the planned start.
bool beganBySchedule(const Block& block);

/// The events since the state was shown; what a person did is no event.
std::vector<workspace::Event> newsSince(const LastShown& before, const QuillmereState& after);

}  // namespace quillmere::work
