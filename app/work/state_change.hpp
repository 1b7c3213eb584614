// What has come about between two looks, whoever recorded it.
#pragma once

#include "workspace/catching_up.hpp"

#include <quillmere/records/quillmere_state.hpp>

namespace quillmere::work {

/// As much of a state as tells whether the work has moved on.
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

/// What came about by itself since the glimpse.
std::vector<workspace::Event> newsSince(const LastShown& before, const QuillmereState& after);

}  // namespace quillmere::work
