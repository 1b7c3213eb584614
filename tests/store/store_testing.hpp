// Helpers of the store's tests.
#pragma once

#include <quillmere/store/file_manager.hpp>
#include <quillmere/store/state_store.hpp>

#include <optional>

namespace quillmere::test {

inline const FileManager& files() { return FileManager::standard(); }

/// The agent's summary of a state. The directory does not exist: building a summary does not need it.
inline AgentSnapshot summaryOf(const QuillmereState& state, std::optional<Instant> at = std::nullopt)
{
    return StateStore("/nowhere", StateStore::renameReplacing).agentSnapshot(state, at);
}

}  // namespace quillmere::test
