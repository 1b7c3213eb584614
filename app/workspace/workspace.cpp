#include "workspace/workspace.hpp"

#include "base/text/failure.hpp"
#include "workspace/file_clock.hpp"
#include "workspace/saving.hpp"
#include "workspace/screening.hpp"
#include "workspace/state_home.hpp"
#include "workspace/summaries.hpp"

#include <quillmere/records/json/coding_error.hpp>
#include <quillmere/store/file_manager.hpp>

#include <algorithm>
#include <system_error>
#include <utility>

namespace quillmere::workspace {
namespace {

namespace fs = std::filesystem;

/// Absolute, without dots and without a slash at the end. Keeps "..": behind a link, only the system knows
/// where it leads.
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

void apply(const Operation& operation, Situation& situation)
{
    operation(situation.state, situation.now);
    requireUsable(situation.state);
}

/// `saved` says what was saved nevertheless.
std::string saveFailureText(const std::string& saved, const std::string& unwritten)
{
    return saved + "; " + unwritten + ". quillmere tick tries again.";
}

void requireAllWritten(const std::string& saved, const std::string& unwritten)
{
    if (!unwritten.empty()) {
        throw base::Refusal(base::Refusal::Kind::fileError, saveFailureText(saved, unwritten));
    }
}

QuillmereState stateToRestore(const Version& version)
{
    const std::string name = "Version " + std::to_string(version.number);
    const std::string others = "; quillmere restore lists the versions.";
    try {
        std::optional<QuillmereState> state = stateOf(version);
        if (!state) {
            throw base::Refusal(base::Refusal::Kind::invalidRequest,
                                name + " was deleted meanwhile" + others);
        }
        return *std::move(state);
    } catch (const CodingError& error) {
        throw base::Refusal(base::Refusal::Kind::unusableData,
                            name + " cannot be restored: " + error.what() + others);
    }
}

}  // namespace

Workspace::Workspace(const fs::path& directory, WidgetPlace widget, Clock clock, const fs::path& stateHome)
    : states_(directory, clock, StateStore::renameReplacingDurably),
      widget_(std::move(widget)),
      stateDirectory_(workspace::stateDirectory(directory, stateHome)),
      clock_(std::move(clock))
{
}

Workspace Workspace::in(const fs::path& directory, Clock clock, const fs::path& stateHome)
{
    const fs::path whole = absolutePath(directory);
    return {whole, WidgetPlace(whole), fileClock(std::move(clock)), stateHome};
}

Workspace Workspace::ofThisUser(Clock clock, const fs::path& stateHome)
{
    const FileManager& fileManager = FileManager::standard();
    if (fileManager.applicationSupportDirectories().empty()) {
        throw base::Refusal(base::Refusal::Kind::fileError,
                            "No directory for the files is known: set HOME, or XDG_DATA_HOME, to an absolute "
                            "path, or use --directory.");
    }
    return {StateStore::defaultDirectory(fileManager), WidgetPlace::sharedContainer(),
            fileClock(std::move(clock)), stateHome};
}

Versions Workspace::versions() const
{
    return Versions(stateDirectory_.empty() ? fs::path() : stateDirectory_ / "versions");
}

Instant Workspace::now() const { return clock_(); }

Situation Workspace::look() const { return caughtUp(states_.load()); }

WidgetSnapshot Workspace::widgetSnapshot(Instant now) const { return widgetSummary(widget_, now); }

Situation Workspace::change(const EventReport& report, const Operation& operation,
                            const ChangeManner& manner) const
{
    if (!FileManager::standard().fileExists(directory())) {
        // A refused operation must not leave a directory behind, so it is tried before there is one.
        Situation first = look();
        if (!operation) {
            return first;
        }
        apply(operation, first);
    }
    const DirectoryLock held = lock(manner.patience);
    QuillmereState loaded = states_.load();
    const Instant replacedAt = loaded.updatedAt;
    Situation situation = caughtUp(std::move(loaded));
    const bool hasEvents = !situation.events.empty();
    if (hasEvents) {
        situation.warning = keepVersion(replacedAt);
        const std::string unwritten = save(situation);
        report(situation.events);
        requireAllWritten("The time that passed is recorded, and nothing else was done", unwritten);
    }
    if (operation) {
        apply(operation, situation);
        if (!hasEvents && manner.keepsVersion) {
            situation.warning = keepVersion(replacedAt);
        }
        if (const std::string unwritten = save(situation); !unwritten.empty()) {
            throw ChangeSaved(base::Refusal::Kind::fileError,
                              saveFailureText("The change itself is saved", unwritten));
        }
    } else if (!hasEvents && FileManager::standard().fileExists(states_.stateURL()) &&
               !summariesAgree(states_, widget_, situation.state)) {
        requireAllWritten("The state is as it was", save(situation));
    }
    return situation;
}

Situation Workspace::restore(const Version& version, const EventReport& report) const
{
    QuillmereState state = stateToRestore(version);
    const DirectoryLock held = lock();
    const Instant replacedAt = savedAt();
    // Catches up before `updatedAt` changes: catchUp takes no timer as run out before `updatedAt`.
    Situation situation = caughtUp(std::move(state));
    situation.state.updatedAt = std::max({situation.now, situation.state.updatedAt, replacedAt});
    versions().keep(states_.stateURL(), replacedAt);
    const std::string unwritten = save(situation);
    if (!situation.events.empty()) {
        report(situation.events);
    }
    requireAllWritten("Version " + std::to_string(version.number) + " is restored", unwritten);
    return situation;
}

Situation Workspace::caughtUp(QuillmereState state) const
{
    Situation situation{.state = std::move(state), .events = {}, .now = clock_()};
    requireUsable(situation.state);
    situation.events = catchUp(situation.state, situation.now);
    return situation;
}

DirectoryLock Workspace::lock(std::chrono::milliseconds patience) const
{
    clock_();  // a clock that cannot be used is refused before anything is made
    constexpr mode_t ownerOnly = 0700;
    FileManager::standard().createDirectory(directory(), ownerOnly);
    return DirectoryLock(directory(), patience);
}

std::string Workspace::keepVersion(Instant savedAt) const
{
    try {
        versions().keep(states_.stateURL(), savedAt);
        return {};
    } catch (const std::system_error& error) {
        // The change matters more to the person than the way back from it.
        return "The version before this change could not be kept: " + base::fileErrorText(error);
    }
}

std::string Workspace::save(const Situation& situation) const
{
    return saveAll(states_, widget_, situation.state, situation.now);
}

Instant Workspace::savedAt() const
{
    try {
        return states_.load().updatedAt;
    } catch (const CodingError&) {
        return clock_();  // restoring a version is the way out of a state that cannot be decoded
    }
}

}  // namespace quillmere::workspace
