// The file with the widget's summary, in a directory that an application and its widget share.
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

/// Why a summary could not be loaded. It has no text for the person: a user interface words it.
class WidgetSnapshotLoadError : public std::exception {
public:
    enum class Case {
        unsupportedSchemaVersion,  ///< written by a newer program, see `found` and `supported`
        containerUnavailable,      ///< for programs that got no store from `shared`; no operation throws it
        notWritten,                ///< there is no file
        unreadable,                ///< the file cannot be read or decoded
    };
    using enum Case;

    /// The error of the case `unsupportedSchemaVersion`.
    static WidgetSnapshotLoadError unsupported(std::int64_t found, std::int64_t supported) noexcept
    {
        return {unsupportedSchemaVersion, found, supported};
    }

    /// The error of any other case.
    template <Case reason>
    requires(reason != unsupportedSchemaVersion) static WidgetSnapshotLoadError of() noexcept
    {
        return {reason, 0, 0};
    }

    Case reason() const noexcept { return reason_; }
    /// The version of the file, and the newest version that is accepted; 0 in the other cases.
    std::int64_t found() const noexcept { return found_; }
    std::int64_t supported() const noexcept { return supported_; }

    /// The name of the case as in the code.
    const char* what() const noexcept override;

    friend bool operator==(const WidgetSnapshotLoadError& left, const WidgetSnapshotLoadError& right) noexcept
    {
        return left.reason_ == right.reason_ && left.found_ == right.found_ &&
               left.supported_ == right.supported_;
    }

private:
    WidgetSnapshotLoadError(Case reason, std::int64_t found, std::int64_t supported) noexcept
        : reason_(reason), found_(found), supported_(supported)
    {
    }

    Case reason_;
    std::int64_t found_;
    std::int64_t supported_;
};

/// A small value with a path and one injected operation. Nothing is cached or locked. The file is replaced in
/// one step: a widget reads the old or the new summary, never a part.
class WidgetSnapshotStore {
public:
    static constexpr std::string_view fileName = "widget-snapshot.json";

    /// Stores the path of the directory; does not access the file system.
    explicit WidgetSnapshotStore(std::filesystem::path directory, ReplaceItem replaceItem = renameReplacing);

    /// The store in the shared container of a group; absent when there is no container.
    static std::optional<WidgetSnapshotStore> shared(std::string_view groupIdentifier,
                                                     const FileManager& fileManager);

    const std::filesystem::path& directory() const noexcept { return directory_; }
    const std::filesystem::path& snapshotURL() const noexcept { return snapshotURL_; }

    /// Creates the directory if needed (default mode) and replaces the file: one line of JSON, keys
    /// sorted. Throws `std::system_error`, EncodingError, or what `replaceItem` throws.
    void save(const WidgetSnapshot& snapshot) const;

    /// The saved summary. Throws WidgetSnapshotLoadError or `std::bad_alloc`, nothing else. A file of a newer
    /// version that cannot be decoded is `unreadable`; versions below 1 are accepted.
    WidgetSnapshot load() const;

    /// The default `replaceItem`: StateStore::renameReplacing.
    static void renameReplacing(const std::filesystem::path& temporaryURL,
                                const std::filesystem::path& destination);

private:
    std::filesystem::path directory_;
    std::filesystem::path snapshotURL_;
    ReplaceItem replaceItem_;
};

}  // namespace quillmere
