#include "workspace/workspace.hpp"

#include "base/system/private_umask.hpp"
#include "base/text/failure.hpp"
#include "statefile/present.hpp"
#include "workspace/changeable.hpp"
#include "workspace/file_clock.hpp"
#include "workspace/loading.hpp"
#include "workspace/saving.hpp"
#include "workspace/screening.hpp"
#include "workspace/state_home.hpp"
#include "workspace/summaries.hpp"

#include <quillmere/records/json/coding_error.hpp>
#include <quillmere/store/atomic_write.hpp>
#include <quillmere/store/file_manager.hpp>

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <new>
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

/// Throws unless every file is written. `saved` says what is saved nevertheless.
template <class Error = base::Refusal>
void requireAllWritten(const std::string& saved, const SaveResult& result)
{
    if (result.unwritten.empty()) {
        return;
    }
    std::string text = saved;
    for (const std::string& failure : result.unwritten) {
        text += "; " + failure;
    }
    throw Error(base::Refusal::Kind::fileError, text + ". quillmere tick tries again.");
}

void warn(Situation& situation, const std::string& sentence)
{
    situation.warning += (situation.warning.empty() ? "" : " ") + sentence;
}

void warn(Situation& situation, const SaveResult& result)
{
    for (const std::string& sentence : result.warnings) {
        warn(situation, sentence);
    }
}

/// Does what is to be done after the save of a change.
void finish(const ChangeManner& manner, Situation& situation)
{
    if (!manner.afterSave) {
        return;
    }
    try {
        manner.afterSave();
    } catch (const std::system_error& error) {
        warn(situation,
             "The change is saved, but a note about it could not be written: " + base::fileErrorText(error));
    }
}

/// Runs what follows a save.
template <class Work>
void onceSaved(const Work& work)
{
    try {
        work();
    } catch (const std::bad_alloc&) {
        throw MemoryRanOutOnceSaved();
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
      stateDirectory_(workspace::stateDirectory(directory, stateHome)),
      places_{directory, std::move(widget),
              Versions(stateDirectory_.empty() ? fs::path() : stateDirectory_ / "versions")},
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

Instant Workspace::now() const { return clock_(); }

Situation Workspace::look(base::Reach reach) const
{
    std::optional<QuillmereState> present;
    if (reach != base::Reach::years) {
        present = statefile::readPresent(states_.stateURL(), reach, clock_());
    }
    return caughtUp(present ? *std::move(present) : load(states_));
}

WidgetSnapshot Workspace::widgetSnapshot(Instant now) const { return widgetSummary(places_.widget, now); }

std::optional<AgentSnapshot> Workspace::agentSnapshot() const { return agentSummary(states_); }

Situation Workspace::change(const EventReport& report, const Operation& operation,
                            const ChangeManner& manner) const
{
    requireChangeable(states_.stateURL());
    if (!FileManager::standard().fileExists(states_.stateURL())) {
        // A refused operation must not leave a directory or a first state behind, so it is tried before there
        // is one.
        Situation first = look();
        if (!operation) {
            return first;
        }
        apply(operation, first);
    }
    StateLock held = lock(manner.patience);
    Loaded loaded = loadToChange(manner.reach);
    ReplacedState replaced = stateToReplace(loaded.state.updatedAt, Keeping::ifPossible, held);
    replaced.kept = loaded.kept ? &*loaded.kept : nullptr;
    Situation situation = caughtUp(std::move(loaded.state));
    const bool hasEvents = !situation.events.empty();
    if (hasEvents) {
        recordEvents(situation, replaced, report);
        replaced.savedAt = situation.state.updatedAt;
    }
    if (operation) {
        apply(operation, situation);
        replaced.keeping = manner.keeping;
        const SaveResult result = saveAll(places_, replaced, situation.state, situation.now);
        onceSaved([&] {
            warn(situation, result);
            finish(manner, situation);
            requireAllWritten<ChangeSaved>("The change itself is saved", result);
        });
    } else if (!hasEvents && FileManager::standard().fileExists(states_.stateURL()) &&
               !summariesAgree(states_, places_.widget, situation.state)) {
        const SaveResult result = saveSummaries(places_, situation.state, situation.now, held);
        requireAllWritten("The state is as it was", result);
        warn(situation, result);
    }
    return situation;
}

Situation Workspace::restore(const Version& version, const EventReport& report) const
{
    QuillmereState state = stateToRestore(version);
    requireChangeable(states_.stateURL());
    StateLock held = lock();
    const Instant replacedAt = savedAt();
    // Catches up before `updatedAt` changes: catchUp takes no timer as run out before `updatedAt`.
    Situation situation = caughtUp(std::move(state));
    situation.state.updatedAt = std::max({situation.now, situation.state.updatedAt, replacedAt});
    const ReplacedState replaced = stateToReplace(replacedAt, Keeping::necessarily, held);
    const SaveResult result = saveAll(places_, replaced, situation.state, situation.now);
    onceSaved([&] {
        warn(situation, result);
        if (!situation.events.empty()) {
            report(situation.events);
        }
        requireAllWritten("Version " + std::to_string(version.number) + " is restored", result);
    });
    return situation;
}

Forgotten Workspace::forgetInVersions(const Identifier& block) const
{
    const StateLock held = lock();
    return forget(block, places_.versions);
}

void Workspace::compressVersion() const
{
    try {
        if (const std::optional<DirectoryLock> held = DirectoryLock::tryTake(directory())) {
            places_.versions.compressOne();
        }
    } catch (const std::system_error&) {
        // A whole version is as good.
    } catch (const std::bad_alloc&) {
    }
}

Workspace::Loaded Workspace::loadToChange(base::Reach reach) const
{
    if (reach != base::Reach::years) {
        if (auto changeable = statefile::readChangeable(states_.stateURL(), reach, clock_())) {
            return {std::move(changeable->state), std::move(changeable->kept)};
        }
    }
    return {load(states_), std::nullopt};
}

Situation Workspace::caughtUp(QuillmereState state) const
{
    Situation situation{.state = std::move(state), .events = {}, .now = clock_()};
    requireUsable(situation.state);
    situation.events = catchUp(situation.state, situation.now);
    return situation;
}

StateLock Workspace::lock(std::chrono::milliseconds patience) const
{
    clock_();  // a clock that cannot be used is refused before anything is made
    constexpr mode_t ownerOnly = 0700;
    const base::PrivateUmask ownersParents;
    FileManager::standard().createDirectory(directory(), ownerOnly);
    return StateLock(
        directory(), states_.stateURL(), [this] { makeFirstState(); }, patience);
}

void Workspace::makeFirstState() const
{
    const base::PrivateUmask ownersOnly;
    const auto link = [](const fs::path& temporary, const fs::path& destination) {
        // Unlike rename(2), link(2) does not replace a state that another program has saved meanwhile.
        if (::link(temporary.c_str(), destination.c_str()) != 0 && errno != EEXIST) {
            throw fs::filesystem_error("link", destination, {errno, std::generic_category()});
        }
    };
    const QuillmereState first = QuillmereState::initial(clock_());
    writeAtomically(StateStore::encoder().source(first), states_.stateURL(), link);
}

void Workspace::recordEvents(Situation& situation, const ReplacedState& replaced,
                             const EventReport& report) const
{
    try {
        const SaveResult result = saveAll(places_, replaced, situation.state, situation.now);
        warn(situation, result);
        report(situation.events);
        requireAllWritten("The time that passed is recorded, and nothing else was done", result);
    } catch (const MemoryRanOutOnceSaved&) {
        throw std::bad_alloc();  // no operation is applied
    }
}

ReplacedState Workspace::stateToReplace(Instant savedAt, Keeping keeping, StateLock& lock) const
{
    return {.file = states_.stateURL(), .savedAt = savedAt, .keeping = keeping, .lock = lock};
}

Instant Workspace::savedAt() const
{
    try {
        return load(states_).updatedAt;
    } catch (const base::Refusal&) {
        return clock_();  // restoring a version is the way out of a state that cannot be decoded
    }
}

}  // namespace quillmere::workspace
