// Writes the three files.
#pragma once

#include "workspace/file_replacement.hpp"
#include "workspace/widget_place.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include <filesystem>
#include <new>
#include <string>
#include <vector>

namespace quillmere::workspace {

/// Where the files of a person lie.
struct FilePlaces {
    std::filesystem::path directory;  ///< of the state and the agent's summary
    WidgetPlace widget;
    Versions versions;
};

/// What there is to say after a save that has replaced the state.
struct SaveResult {
    /// Each file that could not be written nevertheless, with the reason. Usually empty.
    std::vector<std::string> unwritten;
    /// Problems beside the save, as sentences for the person. Usually empty.
    std::vector<std::string> warnings;
};

/// There was not enough memory for what follows a save: the state is saved, and nothing may say otherwise.
class MemoryRanOutOnceSaved : public std::bad_alloc {};

/// Replaces the state, the agent's summary and the widget's summary, in this order: a summary never tells of
/// a state that is not saved. The agent's summary is as of the state's `updatedAt`, the widget's as of `now`,
/// but never before `updatedAt`. New files and directories are open to their owner alone.
///
/// Without room on the file system, versions are deleted, the oldest first and never the newest, until there
/// is enough. After the save, versions that are no longer retained are deleted, and temporary files of killed
/// programs.
///
/// Throws while the state file is the old one: EncodingError, and Refusal (`fileError`), which names the
/// file, and `std::bad_alloc`. Once the state is replaced, every file is tried, and MemoryRanOutOnceSaved is
/// thrown when even the result does not fit in memory.
/// With a kept part, `state` is the present of the file that is replaced (statefile::readChangeable).
SaveResult saveAll(const FilePlaces& places, const ReplacedState& replaced, const QuillmereState& state,
                   Instant now);

/// Replaces the two summaries alone, in the same way.
SaveResult saveSummaries(const FilePlaces& places, const QuillmereState& state, Instant now, StateLock& lock);

}  // namespace quillmere::workspace
