// The three files of one person, and the order in which a run touches them.
#pragma once

#include "workspace/catching_up.hpp"

#include <quillmere/store/state_store.hpp>
#include <quillmere/widget/widget_snapshot_store.hpp>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace quillmere::app {

/// A state, and what came about by itself before it was looked at.
struct Situation {
    QuillmereState state;
    std::vector<Event> events;
    Instant now;  ///< whole seconds, as files keep them
};

/// What is done to a state; a throw means that it is not done.
using Operation = std::function<void(QuillmereState&, Instant now)>;

class Workspace {
public:
    /// All three files in one directory.
    static Workspace in(std::filesystem::path directory, Clock clock);
    /// The state where this user's applications keep their data, the widget's summary in the shared
    /// container. Throws ProgramError when the environment names no such place.
    static Workspace ofThisUser(Clock clock);

    const std::filesystem::path& directory() const { return states_.directory(); }

    /// The situation now. Neither locks nor writes.
    Situation look() const;

    /// The widget's summary as it was last written, or the empty one.
    WidgetSnapshot widgetSnapshot(Instant now) const;

    /// The directory in which the widget's summary is, or would be once something is saved: to be watched.
    std::filesystem::path widgetPlace() const;

    /// Under the lock: loads and catches up; saves and tells `report` if anything came about. Then
    /// applies `operation`, if there is one, and saves; nothing of it is written when it throws, and no
    /// directory is made. Without one, saves again when a summary is not that of the state, as a run
    /// that was killed leaves it. A file that cannot be loaded, or that the engine could not live with,
    /// is never saved over. Throws ProgramError (`fileError`) when the state was saved and a summary
    /// was not.
    Situation change(const std::function<void(const std::vector<Event>&)>& report,
                     const Operation& operation) const;

    Instant now() const;

private:
    Workspace(std::filesystem::path directory, std::optional<std::filesystem::path> widgetDirectory,
              Clock clock);

    Situation caughtUp() const;
    /// Where the widget's summary is; absent while nobody has made the shared container.
    std::optional<std::filesystem::path> widgetDirectory() const;
    /// Whether both summaries are those of a state that has been saved.
    bool summariesAgreeWith(const QuillmereState& state) const;
    bool widgetAgreesWith(const QuillmereState& state) const;
    /// Replaces all three files, in the order in which they depend on each other. `done` says what has
    /// come of the state when only a summary fails.
    void save(const QuillmereState& state, Instant now, const std::string& done) const;

    StateStore states_;
    std::optional<std::filesystem::path> widgetDirectory_;  ///< absent: the shared container
    Clock clock_;
};

}  // namespace quillmere::app
