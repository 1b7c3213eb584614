// Where the state lives: one directory with the state and the agent's summary.
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

/// A small value: paths and two injected operations; every call goes to the file system afresh. Errors
/// reach the caller unchanged: `std::system_error` of the file system, EncodingError, DecodingError,
/// and whatever `replaceItem` throws. Nothing is retried, repaired or logged.
///
/// Nothing is locked either. Every file is replaced whole, so a reader sees an old or a new one, and
/// of two writers the last wins.
class StateStore {
public:
    /// Takes the directory as given and touches no file.
    StateStore(std::filesystem::path directory, Clock now, ReplaceItem replaceItem);
    /// With the wall clock.
    StateStore(std::filesystem::path directory, ReplaceItem replaceItem);

    /// "Quillmere" in the first application-support directory. That there is one is a precondition:
    /// none is a fatal error. Nothing is created.
    static std::filesystem::path defaultDirectory(const FileManager& fileManager);

    const std::filesystem::path& directory() const noexcept { return directory_; }
    const std::filesystem::path& stateURL() const noexcept { return stateURL_; }  ///< "state.json"
    const std::filesystem::path& agentStateURL() const noexcept
    {
        return agentStateURL_;
    }  ///< "agent-state.json"

    /// The saved state; an initial one, stamped with the clock, when there is no file. A file that
    /// cannot be read or decoded is an error and stays as it is.
    QuillmereState load() const;

    /// Creates the directory if needed (mode 0700), replaces the state file, then the agent's summary
    /// as of the state's `updatedAt`. When the second fails, the first has been replaced.
    void save(const QuillmereState& state) const;

    /// The summary of a state at an instant, or at the state's own `updatedAt`. No file, no clock; the
    /// fatal errors are those of TimerSnapshot::derive.
    AgentSnapshot agentSnapshot(const QuillmereState& state, std::optional<Instant> at) const;

    /// Replaces the agent's summary alone, creating the directory if needed.
    void saveAgentSnapshot(const QuillmereState& state, Instant at) const;

    /// The form of both files: pretty, keys sorted.
    static JsonEncoder encoder();
    static JsonDecoder decoder();

    /// A `replaceItem`: rename(2), which replaces an existing destination atomically. Throws the POSIX
    /// code of the failure, EIO when the system gives a number that is none. After a power cut the
    /// file may be the old one, the new one, or one cut short.
    static void renameReplacing(const std::filesystem::path& temporaryURL,
                                const std::filesystem::path& destination);

    /// A `replaceItem` that is durable: the temporary file is synced, renamed, and the directory synced
    /// (fsync(2)), so that after a power cut the file is the old or the new one, whole. A failure before
    /// the rename leaves the old file in place. A failure to sync the directory after it is an error
    /// with the new file in place: readers see it, but a power cut may still bring back the old one.
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
