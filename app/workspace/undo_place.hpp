// Where a person who undoes changes stands in the list of versions.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillmere::workspace {

/// Numbers of versions, both ends included.
struct VersionRange {
    std::int64_t first;
    std::int64_t last;

    friend bool operator==(const VersionRange&, const VersionRange&) = default;
};

/// Undoing goes to a version and keeps the state before as a new version, so the numbers alone do not tell
/// what was undone. The next undo leads to the newest version that is not undone; what redo leads to is a
/// list of its own, which the next other change empties.
struct UndoPlace {
    std::int64_t newest = 0;                  ///< number of the newest version when the place was noted
    std::int64_t target = 0;                  ///< the version that the last undo or redo led to
    std::vector<VersionRange> undone = {};    ///< ascending, with a version between every two
    std::vector<std::int64_t> redoable = {};  ///< redo leads to the last of them

    bool isUndone(std::int64_t number) const;

    /// After an undo that led to `version`, and kept the state before as the version `kept`.
    void noteUndo(std::int64_t version, std::int64_t kept);

    /// After a redo that led to the last of `redoable`, and kept the state before as the version `kept`.
    void noteRedo(std::int64_t kept);

    friend bool operator==(const UndoPlace&, const UndoPlace&) = default;
};

/// The place as JSON: the content of its file.
std::string jsonTextOf(const UndoPlace& place);

/// The place that a text of any content describes; one of nothing undone when it describes none.
UndoPlace undoPlaceFrom(std::string_view text);

/// The file of the place, beside the directory of the versions. Only the holder of the workspace's lock may
/// write it.
class UndoPlaceFile {
public:
    /// With an empty path nothing is noted.
    explicit UndoPlaceFile(std::filesystem::path stateDirectory) : directory_(std::move(stateDirectory)) {}

    /// The place that was noted last. A place of nothing undone without a file, and for a file that cannot be
    /// read: undo then goes back from the newest version.
    UndoPlace read() const;

    /// Replaces the file, readable by its owner alone. Throws `std::system_error`.
    void write(const UndoPlace& place) const;

private:
    std::filesystem::path directory_;
};

}  // namespace quillmere::workspace
