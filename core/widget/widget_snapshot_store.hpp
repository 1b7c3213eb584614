// Where the widget's summary lives: a directory shared by an application and its widget.
#pragma once

#include <quillmere/store/state_store.hpp>
#include <quillmere/widget/app_group.hpp>
#include <quillmere/widget/widget_snapshot.hpp>

#include <cstdint>
#include <exception>
#include <filesystem>
#include <optional>
#include <string_view>

namespace quillmere {

/// Why a summary could not be loaded. Carries no text for the person: a user interface chooses its own.
class WidgetSnapshotLoadError : public std::exception {
public:
    enum class Case {
        unsupportedSchemaVersion,  ///< written by a newer program; `found` and `supported` tell
        containerUnavailable,      ///< for users that got no store from `shared`; no operation throws it
        notWritten,                ///< there is no file
        unreadable,                ///< there is one that cannot be read or decoded
    };
    using enum Case;

    explicit WidgetSnapshotLoadError(Case reason) noexcept : reason_(reason) {}

    static WidgetSnapshotLoadError unsupported(std::int64_t found, std::int64_t supported) noexcept;

    Case reason() const noexcept { return reason_; }
    std::int64_t found() const noexcept { return found_; }          ///< the file's version; else 0
    std::int64_t supported() const noexcept { return supported_; }  ///< the newest accepted; else 0

    /// The case as it is spelled in code.
    const char* what() const noexcept override;

    friend bool operator==(const WidgetSnapshotLoadError& left, const WidgetSnapshotLoadError& right) noexcept
    {
        return left.reason_ == right.reason_ && left.found_ == right.found_ &&
               left.supported_ == right.supported_;
    }

private:
    Case reason_;
    std::int64_t found_ = 0;
    std::int64_t supported_ = 0;
};

/// A small value; every call goes to the file system afresh, nothing is locked, and the file is
/// replaced whole: a widget reads an old or a new summary.
class WidgetSnapshotStore {
public:
    static constexpr std::string_view fileName = "widget-snapshot.json";

    /// Takes the directory as given and touches no file.
    explicit WidgetSnapshotStore(std::filesystem::path directory, ReplaceItem replaceItem = renameReplacing);

    /// The store in the shared container of a group; absent when there is no container.
    static std::optional<WidgetSnapshotStore> shared(std::string_view groupIdentifier,
                                                     const FileManager& fileManager);

    const std::filesystem::path& directory() const noexcept { return directory_; }
    const std::filesystem::path& snapshotURL() const noexcept { return snapshotURL_; }

    /// Creates the directory if needed (default mode) and replaces the file: one line of JSON, keys
    /// sorted. Throws `std::system_error`, EncodingError, or what `replaceItem` throws.
    void save(const WidgetSnapshot& snapshot) const;

    /// The saved summary. Throws WidgetSnapshotLoadError and, but for `std::bad_alloc`, nothing else. A
    /// file of a newer version that does not decode either is `unreadable`; versions below 1 are
    /// accepted.
    WidgetSnapshot load() const;

    /// The default `replaceItem`: that of the StateStore.
    static void renameReplacing(const std::filesystem::path& temporaryURL,
                                const std::filesystem::path& destination);

private:
    std::filesystem::path directory_;
    std::filesystem::path snapshotURL_;
    ReplaceItem replaceItem_;
};

}  // namespace quillmere
