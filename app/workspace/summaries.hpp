// Reads the two summaries that follow from the state: the agent's and the widget's.
#pragma once

#include "workspace/widget_place.hpp"

#include <quillmere/records/quillmere_state.hpp>
#include <quillmere/store/agent_snapshot.hpp>
#include <quillmere/store/state_store.hpp>
#include <quillmere/widget/widget_snapshot.hpp>

#include <filesystem>
#include <optional>
#include <string_view>

namespace quillmere::workspace {

/// The widget's summary as it was last written; the empty one when there is no file. Throws Refusal
/// (`unusableData`) when the file cannot be read or holds numbers outside the limits.
WidgetSnapshot widgetSummary(const WidgetPlace& place, Instant now);

/// The agent's summary as it was last written. Absent when there is no such file, when it cannot be read,
/// when a newer program wrote it, and when it is so long that reading it would take the time of a status bar.
std::optional<AgentSnapshot> agentSummary(const StateStore& states);

/// Whether both files hold what follows from the state; they do not when a run was killed between the files.
/// A widget's summary that a newer program wrote counts as right.
bool summariesAgree(const StateStore& states, const WidgetPlace& place, const QuillmereState& state);

/// Whether the file has exactly these bytes. False when it cannot be read.
bool fileHolds(const std::filesystem::path& file, std::string_view bytes);

}  // namespace quillmere::workspace
