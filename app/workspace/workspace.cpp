#include "workspace/workspace.hpp"

#include "base/refusal.hpp"
#include "base/text/failure.hpp"
#include "workspace/screening.hpp"
#include "workspace/state_home.hpp"

#include <algorithm>
#include <cmath>
#include <system_error>
#include <utility>

namespace quillmere::workspace {
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

bool holds(const fs::path& file, std::string_view bytes)
{
    try {
        return FileManager::standard().contents(file).view() == bytes;
    } catch (const std::system_error&) {
        return false;
    }
}

bool hasSaved(const StateStore& states, const QuillmereState& state)
{
    return holds(states.stateURL(), StateStore::encoder().encode(state).view());
}

/// The clock in the precision of the files, so that memory and file agree.
Clock wholeSecondsOf(Clock clock)
{
    return [clock = std::move(clock)] { return Instant(std::floor(clock().secondsSince1970())); };
}

}  // namespace

Workspace::Workspace(const fs::path& directory, std::optional<fs::path> widgetDirectory, Clock clock,
                     const fs::path& stateHome)
    : states_(directory, clock, StateStore::renameReplacingDurably),
      widgetDirectory_(std::move(widgetDirectory)),
      stateDirectory_(workspace::stateDirectory(directory, stateHome)),
      clock_(std::move(clock))
{
}

Workspace Workspace::in(const fs::path& directory, Clock clock, const fs::path& stateHome)
{
    const fs::path whole = absolutePath(directory);
    return {whole, whole, wholeSecondsOf(std::move(clock)), stateHome};
}

Workspace Workspace::ofThisUser(Clock clock, const fs::path& stateHome)
{
    const FileManager& fileManager = FileManager::standard();
    if (fileManager.applicationSupportDirectories().empty()) {
        throw base::Refusal(base::Refusal::Kind::fileError,
                            "There is no home to keep things in: set HOME, or XDG_DATA_HOME, to an absolute "
                            "path, or use --directory.");
    }
    return {StateStore::defaultDirectory(fileManager), std::nullopt, wholeSecondsOf(std::move(clock)),
            stateHome};
}

Versions Workspace::versions() const
{
    return Versions(stateDirectory_.empty() ? fs::path() : stateDirectory_ / "versions");
}

Instant Workspace::now() const { return clock_(); }

Situation Workspace::caughtUp(QuillmereState state) const
{
    Situation situation{.state = std::move(state), .events = {}, .now = clock_()};
    requireUsable(situation.state);
    situation.events = catchUp(situation.state, situation.now);
    return situation;
}

Situation Workspace::look() const { return caughtUp(states_.load()); }

std::optional<fs::path> Workspace::widgetDirectory() const
{
    return widgetDirectory_ ? widgetDirectory_
                            : FileManager::standard().containerDirectory(QuillmereAppGroup::identifier);
}

fs::path Workspace::widgetPlace() const
{
    if (std::optional<fs::path> directory = widgetDirectory()) {
        return *std::move(directory);
    }
    // Where FileManager::createContainerDirectory will make it.
    return FileManager::standard().applicationSupportDirectories().at(0) / "group-containers" /
           QuillmereAppGroup::identifier;
}

WidgetSnapshot Workspace::widgetSnapshot(Instant now) const
{
    const std::optional<fs::path> directory = widgetDirectory();
    if (!directory) {
        return WidgetSnapshot::empty(now);
    }
    try {
        WidgetSnapshot summary = WidgetSnapshotStore(*directory).load();
        requireUsable(summary);
        return summary;
    } catch (const WidgetSnapshotLoadError& error) {
        switch (error.reason()) {
            case WidgetSnapshotLoadError::notWritten:
            case WidgetSnapshotLoadError::containerUnavailable: return WidgetSnapshot::empty(now);
            case WidgetSnapshotLoadError::unsupportedSchemaVersion:
                throw base::Refusal(base::Refusal::Kind::unusableData,
                                    "The widget's summary was written by a newer program.");
            case WidgetSnapshotLoadError::unreadable: break;
        }
        throw base::Refusal(base::Refusal::Kind::unusableData, "The widget's summary cannot be read.");
    }
}

bool Workspace::summariesAgreeWith(const QuillmereState& state) const
{
    const AgentSnapshot summary = states_.agentSnapshot(state, std::nullopt);
    return holds(states_.agentStateURL(), StateStore::encoder().encode(summary).view()) &&
           widgetAgreesWith(state);
}

bool Workspace::widgetAgreesWith(const QuillmereState& state) const
{
    const std::optional<fs::path> directory = widgetDirectory();
    if (!directory) {
        return false;
    }
    const WidgetSnapshotStore store(*directory);
    try {
        const Instant madeAt = store.load().updatedAt;
        const WidgetSnapshot summary = WidgetSnapshot::make(state, madeAt);
        return madeAt >= state.updatedAt &&
               holds(store.snapshotURL(), JsonEncoder(JsonLayout::compact).encode(summary).view());
    } catch (const WidgetSnapshotLoadError& error) {
        // What a newer program wrote is not broken.
        return error.reason() == WidgetSnapshotLoadError::unsupportedSchemaVersion;
    }
}

void Workspace::save(const QuillmereState& state, Instant now, const std::string& done) const
{
    const WidgetSnapshot summary = WidgetSnapshot::make(state, now);
    // One that has no JSON form, or no place, is to be found out before anything is written.
    JsonEncoder(JsonLayout::compact).encode(summary);
    const fs::path directory =
        widgetDirectory_ ? *widgetDirectory_
                         : FileManager::standard().createContainerDirectory(QuillmereAppGroup::identifier);
    const WidgetSnapshotStore widget(directory, StateStore::renameReplacingDurably);
    fs::path file = states_.agentStateURL();
    try {
        states_.save(state);
        file = widget.snapshotURL();
        widget.save(summary);
    } catch (const std::system_error& error) {
        if (!hasSaved(states_, state)) {
            throw;
        }
        throw base::Refusal(
            base::Refusal::Kind::fileError,
            done + "; " + file.string() + " could not be written: " + base::fileErrorText(error));
    }
}

std::string Workspace::keepVersion(Instant savedAt) const
{
    try {
        versions().keep(states_.stateURL(), savedAt);
        return {};
    } catch (const std::system_error& error) {
        // The work goes on: the change matters more to the person than the way back from it.
        return "The version before this change could not be kept: " + base::fileErrorText(error);
    }
}

DirectoryLock Workspace::lock(std::chrono::milliseconds patience) const
{
    constexpr mode_t ownerOnly = 0700;
    FileManager::standard().createDirectory(directory(), ownerOnly);
    return DirectoryLock(directory(), patience);
}

Situation Workspace::change(const std::function<void(const std::vector<Event>&)>& report,
                            const Operation& operation, const ChangeManner& manner) const
{
    const FileManager& fileManager = FileManager::standard();
    const auto apply = [&](Situation& situation) {
        operation(situation.state, situation.now);
        requireUsable(situation.state);
    };
    if (!fileManager.fileExists(directory())) {
        // A refusal must not leave a directory behind, so it is found before there is one.
        Situation first = look();
        if (!operation) {
            return first;
        }
        apply(first);
    }
    const DirectoryLock held = lock(manner.patience);
    QuillmereState saved = states_.load();
    const Instant savedAt = saved.updatedAt;
    Situation situation = caughtUp(std::move(saved));
    const bool cameAbout = !situation.events.empty();
    if (cameAbout) {
        situation.warning = keepVersion(savedAt);
        save(situation.state, situation.now, "What came about by itself is saved, and no more was done");
        report(situation.events);
    }
    if (operation) {
        apply(situation);
        if (!cameAbout && manner.keepsVersion) {
            situation.warning = keepVersion(savedAt);
        }
        try {
            save(situation.state, situation.now, "The change itself is saved");
        } catch (const base::Refusal& error) {
            throw ChangeSaved(error.kind(), error.what());
        }
    } else if (!cameAbout && fileManager.fileExists(states_.stateURL()) &&
               !summariesAgreeWith(situation.state)) {
        // Not before the last change, also by a clock that was set back: that would be out of date.
        save(situation.state, std::max(situation.now, situation.state.updatedAt), "The state is as it was");
    }
    return situation;
}

std::optional<QuillmereState> Workspace::stateOf(const Version& version)
{
    try {
        QuillmereState state =
            StateStore::decoder().decode<QuillmereState>(FileManager::standard().contents(version.file));
        requireUsable(state);
        return state;
    } catch (const std::system_error& error) {
        if (error.code() == std::errc::no_such_file_or_directory) {
            return std::nullopt;
        }
        throw;
    }
}

Situation Workspace::bringBack(const Version& version) const
{
    std::optional<QuillmereState> state = stateOf(version);
    if (!state) {
        throw base::Refusal(base::Refusal::Kind::invalidRequest,
                            "There is no version " + std::to_string(version.number) +
                                " any more; quillmere restore lists them.");
    }
    const DirectoryLock held = lock();
    const Instant now = clock_();
    Instant savedAt = now;
    try {
        savedAt = states_.load().updatedAt;
    } catch (const CodingError&) {
        // Bringing a version back is what one does about it.
    }
    versions().keep(states_.stateURL(), savedAt);
    save(*state, std::max(now, state->updatedAt), "The version is brought back");
    return caughtUp(*std::move(state));
}

}  // namespace quillmere::workspace
