#include "workspace/workspace.hpp"

#include "exit_code.hpp"
#include "workspace/directory_lock.hpp"
#include "workspace/screening.hpp"

#include <cmath>
#include <utility>

namespace quillmere::app {
namespace {

namespace fs = std::filesystem;

/// A path that means the same when the working directory changes, without a slash or a dot at its end.
/// "..", which behind a link leads elsewhere than it looks, is left to the system.
fs::path absolutePath(const fs::path& path)
{
    fs::path whole;
    for (const fs::path& part : fs::absolute(path)) {
        if (!part.empty() && part != ".") {
            whole /= part;
        }
    }
    return whole;
}

/// The clock in the precision of the files, so that memory and file agree.
Clock wholeSecondsOf(Clock clock)
{
    return [clock = std::move(clock)] { return Instant(std::floor(clock().secondsSince1970())); };
}

}  // namespace

Workspace::Workspace(fs::path directory, std::optional<fs::path> widgetDirectory, Clock clock)
    : states_(std::move(directory), clock, StateStore::renameReplacingDurably),
      widgetDirectory_(std::move(widgetDirectory)),
      clock_(std::move(clock))
{
}

Workspace Workspace::in(fs::path directory, Clock clock)
{
    const fs::path whole = absolutePath(directory);
    return {whole, whole, wholeSecondsOf(std::move(clock))};
}

Workspace Workspace::ofThisUser(Clock clock)
{
    const FileManager& fileManager = FileManager::standard();
    if (fileManager.applicationSupportDirectories().empty()) {
        throw ProgramError(ExitCode::fileError,
                           "There is no home to keep things in: set HOME, or XDG_DATA_HOME, to an absolute "
                           "path, or use --directory.");
    }
    return {StateStore::defaultDirectory(fileManager), std::nullopt, wholeSecondsOf(std::move(clock))};
}

Instant Workspace::now() const { return clock_(); }

Situation Workspace::caughtUp() const
{
    Situation situation{.state = states_.load(), .events = {}, .now = clock_()};
    screen(situation.state);
    situation.events = catchUp(situation.state, situation.now);
    return situation;
}

Situation Workspace::look() const { return caughtUp(); }

WidgetSnapshot Workspace::widgetSnapshot(Instant now) const
{
    const auto container = [] {
        return FileManager::standard().containerDirectory(QuillmereAppGroup::identifier);
    };
    const std::optional<fs::path> directory = widgetDirectory_ ? widgetDirectory_ : container();
    if (!directory) {
        return WidgetSnapshot::empty(now);
    }
    try {
        WidgetSnapshot summary = WidgetSnapshotStore(*directory).load();
        screen(summary);
        return summary;
    } catch (const WidgetSnapshotLoadError& error) {
        switch (error.reason()) {
            case WidgetSnapshotLoadError::notWritten:
            case WidgetSnapshotLoadError::containerUnavailable: return WidgetSnapshot::empty(now);
            case WidgetSnapshotLoadError::unsupportedSchemaVersion:
                throw ProgramError(ExitCode::unusableData,
                                   "The widget's summary was written by a newer program.");
            case WidgetSnapshotLoadError::unreadable: break;
        }
        throw ProgramError(ExitCode::unusableData, "The widget's summary cannot be read.");
    }
}

void Workspace::save(const QuillmereState& state, Instant now) const
{
    const WidgetSnapshot summary = WidgetSnapshot::make(state, now);
    // One that has no JSON form, or no place, is to be found out before anything is written.
    JsonEncoder(JsonLayout::compact).encode(summary);
    const fs::path directory =
        widgetDirectory_ ? *widgetDirectory_
                         : FileManager::standard().createContainerDirectory(QuillmereAppGroup::identifier);
    states_.save(state);
    WidgetSnapshotStore(directory, StateStore::renameReplacingDurably).save(summary);
}

Situation Workspace::change(const std::function<void(const std::vector<Event>&)>& report,
                            const std::function<void(QuillmereState&, Instant now)>& operation) const
{
    constexpr mode_t ownerOnly = 0700;
    FileManager::standard().createDirectory(directory(), ownerOnly);
    const DirectoryLock lock(directory());
    Situation situation = caughtUp();
    if (!situation.events.empty()) {
        save(situation.state, situation.now);
        report(situation.events);
    }
    if (operation) {
        operation(situation.state, situation.now);
        screen(situation.state);
        save(situation.state, situation.now);
    }
    return situation;
}

}  // namespace quillmere::app
