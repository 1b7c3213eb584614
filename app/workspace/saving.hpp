// Writes the three files.
#pragma once

#include "workspace/widget_place.hpp"

#include <quillmere/records/quillmere_state.hpp>
#include <quillmere/store/state_store.hpp>

#include <string>

namespace quillmere::workspace {

/// Replaces the state, the agent's summary and the widget's summary, in this order: a summary never tells of
/// a state that is not saved. The agent's summary is as of the state's `updatedAt`, the widget's as of `now`,
/// but never before `updatedAt`.
///
/// Throws while the state file is the old one: EncodingError, `std::system_error`. Once the state is saved,
/// every file is tried, and the result names each that could not be written, with the reason; it is empty
/// when all three were.
std::string saveAll(const StateStore& states, const WidgetPlace& place, const QuillmereState& state,
                    Instant now);

}  // namespace quillmere::workspace
