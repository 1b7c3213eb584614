// Earlier versions of the state file, so that a change can be taken back.
#pragma once

#include <quillmere/records/instant.hpp>
#include <quillmere/records/quillmere_state.hpp>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <utility>
#include <vector>

namespace quillmere::workspace {

/// A copy of the state file from before a change.
struct Version {
    std::int64_t number;  ///< one more with every version; at most 10^12
    Instant savedAt;      ///< `updatedAt` of the state
    std::filesystem::path file;
};

/// The versions of one state file, each a file "000123_2026-11-15T15:00:00Z.json" in one directory. Retained
/// are the last ten, and the one saved last on each of the thirty newest local days that have versions: at
/// most forty. The current time plays no part, so that a wrong clock costs one day at most. Only the holder
/// of the workspace's lock may call `keep`.
class Versions {
public:
    /// With an empty path nothing is kept and the list is empty.
    explicit Versions(std::filesystem::path directory) : directory_(std::move(directory)) {}

    /// All versions, the highest number first. Files with other names, and anything but regular files, are
    /// ignored.
    std::vector<Version> list() const;

    /// Copies the file as it is now, if it exists, and deletes versions that are no longer retained. The copy
    /// is durable and atomic. Throws `std::system_error` when it cannot be made; the earlier versions are
    /// then untouched. A version that cannot be deleted stays.
    void keep(const std::filesystem::path& stateFile, Instant savedAt) const;

private:
    /// Deletes versions that are no longer retained, and temporary files of processes that died.
    void prune() const;

    std::filesystem::path directory_;
};

/// The state of a version; absent when its file was deleted. Throws what reading, decoding and screening
/// throw (`std::system_error`, CodingError, Refusal).
std::optional<QuillmereState> stateOf(const Version& version);

}  // namespace quillmere::workspace
