// The directory with the state and the agent's summary.
#pragma once

#include <quillmere/records/instant.hpp>
#include <quillmere/records/json/coding_error.hpp>
#include <quillmere/records/json/json_decoder.hpp>
#include <quillmere/records/json/json_encoder.hpp>
#include <quillmere/records/quillmere_state.hpp>
#include <quillmere/store/agent_snapshot.hpp>
#include <quillmere/store/file_manager.hpp>
#include <quillmere/store/replace_item.hpp>

#include <filesystem>
#include <optional>

namespace quillmere {

/// A small value with paths and two injected operations; nothing is cached. Errors reach the caller
/// unchanged: `std::system_error` of the file system, EncodingError, DecodingError, and exceptions of
/// `replaceItem`. Nothing is retried, repaired or logged.
///
/// Nothing is locked. A file is replaced in one step: a reader sees the old or the new file, and of two
/// writers the last one wins.
class StateStore {
public:
    /// Stores the path of the directory; does not access the file system.
    StateStore(std::filesystem::path directory, Clock now, ReplaceItem replaceItem);
    /// With the wall clock.
    StateStore(std::filesystem::path directory, ReplaceItem replaceItem);

    /// "Quillmere" in the first application-support directory; creates nothing. It is a fatal error when
    /// there is no such directory.
    static std::filesystem::path defaultDirectory(const FileManager& fileManager);

    const std::filesystem::path& directory() const noexcept { return directory_; }
    /// "state.json" and "agent-state.json" in the directory.
    const std::filesystem::path& stateURL() const noexcept { return stateURL_; }
    const std::filesystem::path& agentStateURL() const noexcept { return agentStateURL_; }

    /// The saved state; without a file, an initial state with the clock's instant. A file that cannot be read
    /// or decoded is an error, and is left unchanged.
    QuillmereState load() const;

    /// Creates the directory if needed (mode 0700), replaces the state file, and then replaces the agent's
    /// summary as of the state's `updatedAt`. If the summary fails, the state is saved all the same.
    void save(const QuillmereState& state) const;

    /// The summary of a state at an instant, by default at the state's `updatedAt`. Uses no file and no
    /// clock. The fatal errors are those of TimerSnapshot::derive.
    AgentSnapshot agentSnapshot(const QuillmereState& state, std::optional<Instant> at) const;

    /// Creates the directory if needed and replaces only the agent's summary.
    void saveAgentSnapshot(const QuillmereState& state, Instant at) const;

    /// The coding of both files: the pretty layout.
    static JsonEncoder encoder();
    static JsonDecoder decoder();

    /// A `replaceItem`: rename(2), which replaces an existing destination atomically. Throws the POSIX code
    /// of the failure, or EIO when errno is not a POSIX code. After a power cut the file may be the old one,
    /// the new one, or an incomplete one.
    static void renameReplacing(const std::filesystem::path& temporaryURL,
                                const std::filesystem::path& destination);

    /// A durable `replaceItem`: syncs the temporary file (fsync(2)), renames it and syncs the directory, so
    /// that after a power cut the file is the complete old or the complete new one. A failure before the
    /// rename leaves the old file in place. When the sync of the directory fails, an error is thrown although
    /// the new file is in place: readers see it, but after a power cut the old one may be back. Where the
    /// system offers no sync of the directory (syncDirectory), that is no error.
    static void renameReplacingDurably(const std::filesystem::path& temporaryURL,
                                       const std::filesystem::path& destination);

private:
    void createDirectoryIfNeeded() const;
    void write(const ByteSource& content, const std::filesystem::path& destination) const;

    std::filesystem::path directory_;
    std::filesystem::path stateURL_;
    std::filesystem::path agentStateURL_;
    ReplaceItem replaceItem_;
    Clock now_;
};

}  // namespace quillmere
