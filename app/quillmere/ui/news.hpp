// What has come about between two looks, whoever recorded it.
#pragma once

#include "workspace/catching_up.hpp"

#include <quillmere/records/quillmere_state.hpp>

namespace quillmere::app::ui {

/// As much of a state as tells whether the work has moved on.
struct Glimpse {
    WorkflowState workflowState;
    std::optional<Identifier> block;
    std::optional<Instant> startTriggeredAt;
    std::optional<Identifier> session;
    std::optional<Instant> pausedAt;
    std::optional<Instant> breakEndNotifiedAt;

    static Glimpse of(const QuillmereState& state);

    friend bool operator==(const Glimpse&, const Glimpse&) = default;
};

/// What came about by itself since the glimpse.
std::vector<Event> newsSince(const Glimpse& before, const QuillmereState& after);

}  // namespace quillmere::app::ui
