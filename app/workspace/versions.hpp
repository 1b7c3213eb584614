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

/// The state file as it was before a save replaced it.
struct Version {
    std::int64_t number;  ///< one more with every version; at most 10^12
    Instant savedAt;      ///< `updatedAt` of the state
    std::filesystem::path file;
    std::uintmax_t size;  ///< bytes on disk
    bool isCompressed;
};

/// The versions of one state file in one directory, each a file of its own:
/// "000123_2026-11-15T15:00:00Z.json", or with ".zst" at the end when it is compressed. Only the holder of
/// the workspace's lock may call what changes the directory.
class Versions {
public:
    /// With an empty path nothing is kept and the list is empty.
    explicit Versions(std::filesystem::path directory) : directory_(std::move(directory)) {}

    /// All versions, the highest number first. Files with other names, and anything but regular files, are
    /// ignored.
    std::vector<Version> list() const;

    /// The newest version if it has the same content as the state file, which was saved at `savedAt`: a
    /// save kept it and was killed before it replaced the file.
    std::optional<Version> newestEqualTo(const std::filesystem::path& stateFile, Instant savedAt) const;

    /// Keeps the file as it is now: by a second name for it (link(2)), or by a copy where the system refuses
    /// that. Durable. Absent when there is no such file, or nothing is kept. Throws `std::system_error` when
    /// the version cannot be made; nothing has changed then.
    std::optional<Version> keep(const std::filesystem::path& stateFile, Instant savedAt) const;

    /// Deletes a version. One that cannot be deleted stays.
    void remove(const Version& version) const;

    /// Replaces the state of a version, which keeps its number, its name and its form. Durable. Throws
    /// `std::system_error`; the version is then as it was.
    void rewrite(const Version& version, const QuillmereState& state) const;

    /// Deletes versions that are no longer retained (workspace::retained), and temporary files of processes
    /// that died.
    void prune(std::uintmax_t stateSize) const;

    /// Deletes the oldest version, to make room on the file system of `place`; returns whether it did. Never
    /// deletes the newest, nor anything when the versions are on another file system.
    bool giveWay(const std::filesystem::path& place) const;

    /// Compresses the newest version that is older than the last three and still whole; returns whether
    /// there was one. Takes 80 ms for ten years of work. Throws `std::system_error`; the version is then
    /// still whole.
    bool compressOne() const;

private:
    /// The name of the next version.
    std::filesystem::path nextFile(Instant savedAt) const;

    std::filesystem::path directory_;
};

/// The state of a version; absent when its file was deleted. Throws what reading, decoding and screening
/// throw (`std::system_error`, CodingError, Refusal).
std::optional<QuillmereState> stateOf(const Version& version);

}  // namespace quillmere::workspace
