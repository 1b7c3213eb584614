// The directory of the widget's summary.
#pragma once

#include <filesystem>
#include <optional>

namespace quillmere::workspace {

/// A directory that was chosen, or the container that all programs of the user share. The container need not
/// exist, and each call looks again whether it does.
class WidgetPlace {
public:
    explicit WidgetPlace(std::filesystem::path directory) : chosen_(std::move(directory)) {}

    static WidgetPlace sharedContainer() { return WidgetPlace(); }

    /// Absent while nobody has created the shared container.
    std::optional<std::filesystem::path> existing() const;

    /// The path, whether or not the directory exists: to watch it. For the shared container, the environment
    /// must name an application-support directory.
    std::filesystem::path path() const;

    /// The path, with the shared container created where it is missing. Throws `std::system_error`.
    std::filesystem::path created() const;

    /// Takes the rights of all others from the shared container, which earlier releases made with the default
    /// mode; returns whether there were any. A chosen directory is left as it is.
    bool closeToOthers() const;

private:
    WidgetPlace() = default;

    std::optional<std::filesystem::path> chosen_;  ///< absent: the shared container
};

}  // namespace quillmere::workspace
