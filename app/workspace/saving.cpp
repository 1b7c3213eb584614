#include "workspace/saving.hpp"

#include "base/refusal.hpp"
#include "base/system/private_umask.hpp"
#include "base/text/failure.hpp"
#include "workspace/stale_files.hpp"

#include <quillmere/records/json/json_encoder.hpp>
#include <quillmere/store/state_store.hpp>
#include <quillmere/widget/widget_snapshot_store.hpp>

#include <sys/statvfs.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <functional>
#include <new>
#include <string_view>
#include <system_error>
#include <utility>

namespace quillmere::workspace {
namespace {

namespace fs = std::filesystem;

std::string failureToWrite(const fs::path& file, const std::string& reason)
{
    return file.string() + " could not be written: " + reason;
}

/// Whether the file system of the directory lacks the room for a save, or for the names of its files.
bool lacksRoom(const fs::path& directory, std::uintmax_t needed)
{
    struct statvfs status;
    if (::statvfs(directory.c_str(), &status) != 0) {
        return true;
    }
    const std::uintmax_t free = std::uintmax_t{status.f_bavail} * status.f_frsize;
    return free < needed || (status.f_files > 0 && status.f_favail == 0);
}

/// Whether a deleted version may let the save succeed. A device can report ENOSPC although there is room, and
/// then versions would go for nothing. A quota (EDQUOT) shows nowhere beforehand.
bool isWantOfRoom(const std::error_code& code, const fs::path& directory, std::uintmax_t needed)
{
    return code.value() == EDQUOT || (code == std::errc::no_space_on_device && lacksRoom(directory, needed));
}

std::string reasonOf(const std::exception& error)
{
    if (const auto* const failed = dynamic_cast<const std::system_error*>(&error)) {
        return failed->code().message();  // what() names the temporary file
    }
    return dynamic_cast<const std::bad_alloc*>(&error) ? "not enough memory" : error.what();
}

/// One save; `states_` and the widget's store move their files by `replacement_`.
class Save {
public:
    Save(const FilePlaces& places, const ReplacedState& replaced)
        : places_(places),
          replacement_(replaced, places.versions),
          kept_(replaced.kept),
          states_(places.directory, std::ref(replacement_))
    {
    }

    SaveResult all(const QuillmereState& state, Instant now)
    {
        const WidgetSnapshot summary = summaryOf(state, now);
        const WidgetSnapshotStore widget = widgetStore();
        try {
            writeState(state);
            writeWidgetSummary(widget, summary);
            cleanUp(widget, now);
            return result();
        } catch (const std::bad_alloc&) {
            if (replacement_.isStateReplaced()) {
                throw MemoryRanOutOnceSaved();
            }
            throw;
        }
    }

    SaveResult summaries(const QuillmereState& state, Instant now)
    {
        const WidgetSnapshot summary = summaryOf(state, now);
        const WidgetSnapshotStore widget = widgetStore();
        writeAgentSummary(state);
        writeWidgetSummary(widget, summary);
        return result();
    }

private:
    static WidgetSnapshot summaryOf(const QuillmereState& state, Instant now)
    {
        WidgetSnapshot summary = WidgetSnapshot::make(state, std::max(now, state.updatedAt));
        // A summary without a JSON form must be found before the state is written.
        JsonEncoder(JsonLayout::compact).encode(summary);
        return summary;
    }

    WidgetSnapshotStore widgetStore()
    {
        WidgetSnapshotStore store(places_.widget.created(), std::ref(replacement_));
        if (places_.widget.closeToOthers()) {
            warn(store.directory().string() +
                 " could be read by other users of this machine; now it is yours alone.");
        }
        return store;
    }

    void writeState(const QuillmereState& state)
    {
        try {
            withRoom([&] { replaceState(state); });
        } catch (const std::exception& error) {
            if (replacement_.isStateReplaced()) {
                writeAgentSummary(state);
            } else if (dynamic_cast<const std::system_error*>(&error)) {
                throw base::Refusal(
                    base::Refusal::Kind::fileError,
                    failureToWrite(states_.stateURL(), reasonOf(error)) + "; it is as it was.");
            } else {
                throw;
            }
        }
    }

    /// Also writes the agent's summary.
    void replaceState(const QuillmereState& state)
    {
        if (!kept_) {
            states_.save(state);
            return;
        }
        kept_->save(state, states_.stateURL(), std::ref(replacement_));
        states_.saveAgentSnapshot(state, state.updatedAt);
    }

    void writeAgentSummary(const QuillmereState& state)
    {
        tryToWrite(states_.agentStateURL(), [&] { states_.saveAgentSnapshot(state, state.updatedAt); });
    }

    void writeWidgetSummary(const WidgetSnapshotStore& store, const WidgetSnapshot& summary)
    {
        tryToWrite(store.snapshotURL(), [&] { store.save(summary); });
    }

    /// A write after that of the state: a failure is noted.
    template <class Write>
    void tryToWrite(const fs::path& file, const Write& write)
    {
        try {
            withRoom(write);
        } catch (const std::exception& error) {
            result_.unwritten.push_back(failureToWrite(file, reasonOf(error)));
        }
    }

    /// Writes again as long as versions give way for it. The state is never written twice: `write` has
    /// failed for good once it is replaced.
    template <class Write>
    void withRoom(const Write& write)
    {
        const bool wasReplaced = replacement_.isStateReplaced();
        for (;;) {
            try {
                write();
                return;
            } catch (const std::system_error& error) {
                if (!isWantOfRoom(error.code(), places_.directory, roomForSave()) ||
                    wasReplaced != replacement_.isStateReplaced() ||
                    !places_.versions.giveWay(places_.directory)) {
                    throw;
                }
                ++deletedForRoom_;
            }
        }
    }

    /// Generous: the state and its successor, and what the summaries need.
    std::uintmax_t roomForSave() const
    {
        constexpr std::uintmax_t summaries = 1 << 20;
        std::error_code error;
        const std::uintmax_t size = fs::file_size(states_.stateURL(), error);
        return summaries + (error ? 0 : 2 * size);
    }

    void cleanUp(const WidgetSnapshotStore& widget, Instant now)
    {
        prune();
        for (const fs::path& file : {states_.stateURL(), states_.agentStateURL(), widget.snapshotURL()}) {
            removeStaleTemporaries(file.parent_path(), file.filename().string(), now);
        }
    }

    /// The change is saved, so that a failure here must not look like a failure of the change.
    void prune()
    {
        std::error_code error;
        const std::uintmax_t size = fs::file_size(states_.stateURL(), error);
        if (error) {
            return;
        }
        try {
            places_.versions.prune(size);
        } catch (const std::system_error& failure) {
            warn("The earlier versions could not be looked through: " + base::fileErrorText(failure));
        }
    }

    SaveResult result()
    {
        if (!replacement_.unsynced().empty()) {
            result_.unwritten.push_back(replacement_.unsynced() +
                                        "; a power cut may bring the earlier state back");
        }
        if (!replacement_.unkept().empty()) {
            warn("The version before this change could not be kept: " + replacement_.unkept());
        }
        if (deletedForRoom_ > 0) {
            warn("There was no room: " + std::to_string(deletedForRoom_) +
                 (deletedForRoom_ == 1 ? " earlier version was" : " earlier versions were") + " deleted.");
        }
        return std::move(result_);
    }

    void warn(std::string sentence) { result_.warnings.push_back(std::move(sentence)); }

    const base::PrivateUmask ownersOnly_;
    const FilePlaces& places_;
    FileReplacement replacement_;
    const statefile::KeptPart* kept_;
    StateStore states_;
    SaveResult result_;
    std::size_t deletedForRoom_ = 0;
};

}  // namespace

SaveResult saveAll(const FilePlaces& places, const ReplacedState& replaced, const QuillmereState& state,
                   Instant now)
{
    return Save(places, replaced).all(state, now);
}

SaveResult saveSummaries(const FilePlaces& places, const QuillmereState& state, Instant now, StateLock& lock)
{
    const ReplacedState none{.file = {}, .savedAt = state.updatedAt, .keeping = Keeping::no, .lock = lock};
    return Save(places, none).summaries(state, now);
}

}  // namespace quillmere::workspace
