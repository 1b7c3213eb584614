// How a save moves its finished files into place.
#pragma once

#include "statefile/kept_part.hpp"
#include "workspace/state_lock.hpp"
#include "workspace/versions.hpp"

#include <quillmere/records/instant.hpp>

#include <filesystem>
#include <optional>
#include <string>
#include <utility>

namespace quillmere::workspace {

/// What becomes of the state that a save replaces.
enum class Keeping {
    no,           ///< not kept: an agent asked
    ifPossible,   ///< kept as a version; where that fails the save is made all the same, with a warning
    necessarily,  ///< kept as a version, or the save fails
};

/// The state file that a save replaces.
struct ReplacedState {
    std::filesystem::path file;
    Instant savedAt;  ///< `updatedAt` of the state in it
    Keeping keeping;
    StateLock& lock;  ///< held by this program
    /// Taken over from it beside the state that is saved; null when that is all there is.
    const statefile::KeptPart* kept = nullptr;
};

/// The `replaceItem` of one save (see ReplaceItem): gives each file mode 0600, syncs it and renames it. The
/// state file's old content gets a second name among the versions just before the rename, and loses it when
/// the rename fails: only a save that succeeds keeps a version, and one that changes nothing keeps none.
class FileReplacement {
public:
    FileReplacement(ReplacedState replaced, Versions versions)
        : replaced_(std::move(replaced)), versions_(std::move(versions))
    {
    }

    /// Throws `std::system_error` while the destination is as it was. Once the state is renamed, a failure
    /// is only noted.
    void operator()(const std::filesystem::path& temporary, const std::filesystem::path& destination);

    bool isStateReplaced() const { return isStateReplaced_; }
    /// Why the replaced state could not be kept as a version; usually empty.
    const std::string& unkept() const { return unkept_; }
    /// Why a power cut may bring the replaced state back; usually empty.
    const std::string& unsynced() const { return unsynced_; }

private:
    struct KeptState {
        std::optional<Version>
            leftOver;  ///< equal to the state: kept by a save that was killed before its rename
        std::optional<Version> kept;  ///< by this save
    };

    void replaceState(const std::filesystem::path& temporary);
    /// Keeps the state if it is to be kept and is not among the versions.
    KeptState keep(bool isKept);

    ReplacedState replaced_;
    Versions versions_;
    bool isStateReplaced_ = false;
    std::string unkept_;
    std::string unsynced_;
};

}  // namespace quillmere::workspace
