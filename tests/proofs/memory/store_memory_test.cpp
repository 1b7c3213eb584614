// Allocation failures in a save or a load: std::bad_alloc, every file whole, old or new, and no other file.
#include <quillmere/store/state_store.hpp>
#include <quillmere/widget/widget_snapshot_store.hpp>

#include <map>

#include "running_out.hpp"
#include "support/sample_states.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

using Files = std::map<std::string, std::string>;

Files filesIn(const fs::path& directory)
{
    Files files;
    for (const std::string& name : namesIn(directory)) {
        files[name] = textOf(directory / name);
    }
    return files;
}

/// Whether every file is the old or the new one, with no other file. A missing old file is an error; a
/// missing new file is not written yet.
bool areWhole(const Files& files, const Files& oldFiles, const Files& newFiles)
{
    const auto isIn = [](const Files::value_type& file, const Files& set) {
        const auto place = set.find(file.first);
        return place != set.end() && place->second == file.second;
    };
    for (const Files::value_type& file : oldFiles) {
        if (!files.contains(file.first)) {
            return false;
        }
    }
    for (const Files::value_type& file : files) {
        if (!isIn(file, oldFiles) && !isIn(file, newFiles)) {
            return false;
        }
    }
    return true;
}

/// Fails each allocation in `save`, each time starting from the files that `prepare` puts into `directory`.
template <class Prepare, class Save>
Tally runOutInSaving(const fs::path& directory, Prepare prepare, Save save)
{
    prepare();
    save();
    const Files newFiles = filesIn(directory);
    prepare();
    const Files oldFiles = filesIn(directory);
    const Tally tally = runOutIn(save, [&](bool threw) {
        const Files files = filesIn(directory);
        // The only failure without an exception is in the removal of a temporary file that has already been
        // moved.
        const bool whole = areWhole(files, oldFiles, newFiles) && (threw || files == newFiles);
        prepare();
        return whole;
    });
    EXPECT_EQ(filesIn(directory), newFiles);
    return tally;
}

class MemoryRunningOutInFiles : public testing::Test {
protected:
    const TemporaryDirectory directory;
    const fs::path inner = directory.path() / "some" / "where";
    const QuillmereState oldState = stateIn(WorkflowState::breaking);
    const QuillmereState newState = fullState();
};

TEST_F(MemoryRunningOutInFiles, inASaveLeavesWholeFiles)
{
    Tally tally;
    for (const auto replaceItem : {StateStore::renameReplacing, StateStore::renameReplacingDurably}) {
        const StateStore store(inner, replaceItem);
        const auto oldFiles = [&] { StateStore(inner, StateStore::renameReplacing).save(oldState); };
        const auto nothing = [&] { fs::remove_all(directory.path() / "some"); };
        tally += runOutInSaving(inner, oldFiles, [&] { store.save(newState); });
        tally += runOutInSaving(inner, nothing, [&] { store.save(newState); });
        tally += runOutInSaving(inner, oldFiles, [&] { store.saveAgentSnapshot(newState, moment); });
    }
    constexpr std::size_t atLeast = 200;
    expectWhole("save", tally, atLeast, tally.failed / 2);
}

TEST_F(MemoryRunningOutInFiles, inASaveOfTheWidgetLeavesAWholeFile)
{
    const WidgetSnapshotStore store(inner);
    const auto oldFile = [&] { store.save(WidgetSnapshot::empty(moment)); };
    const auto nothing = [&] { fs::remove_all(directory.path() / "some"); };
    const WidgetSnapshot snapshot = WidgetSnapshot::placeholder(moment);
    Tally tally;
    tally += runOutInSaving(inner, oldFile, [&] { store.save(snapshot); });
    tally += runOutInSaving(inner, nothing, [&] { store.save(snapshot); });
    constexpr std::size_t atLeast = 20;
    expectWhole("widget's save", tally, atLeast, tally.failed / 2);
}

/// The result of a load, without comparing the loaded value.
enum class Loaded { something, refused };

/// Fails each allocation in `load`, which must not change the files.
template <class Load>
Tally runOutInLoading(const fs::path& directory, Loaded expected, Load load)
{
    const Files files = filesIn(directory);
    load();  // once without failures, for the allocations that happen once per process
    std::optional<Loaded> loaded;
    const Tally tally = runOutIn(
        [&] {
            loaded.reset();
            loaded = load();
        },
        // The parser repeats some failed allocations; the load then succeeds.
        [&](bool threw) { return (threw || loaded == expected) && filesIn(directory) == files; });
    EXPECT_EQ(loaded, expected);
    return tally;
}

TEST_F(MemoryRunningOutInFiles, inALoadIsReported)
{
    const StateStore store(
        inner, [] { return moment; }, StateStore::renameReplacing);
    const auto load = [&] {
        try {
            store.load();
            return Loaded::something;
        } catch (const DecodingError&) {
            return Loaded::refused;
        }
    };
    Tally tally = runOutInLoading(inner, Loaded::something, load);
    store.save(newState);
    const std::string text = textOf(store.stateURL());
    tally += runOutInLoading(inner, Loaded::something, load);
    std::string spoilt = text;
    spoilt.replace(spoilt.find("\"energy\" : 4"), 12, "\"energy\" : \"\"");
    // A refusal builds a message, which allocates too.
    for (const std::string& refused : {spoilt, text.substr(0, text.size() / 2), std::string(5000, '[')}) {
        writeText(store.stateURL(), refused);
        tally += runOutInLoading(inner, Loaded::refused, load);
    }
    constexpr std::size_t atLeast = 100;
    constexpr std::size_t askedTwice = 4;  // one for each load that has a file
    expectWhole("load", tally, atLeast, askedTwice);
}

TEST_F(MemoryRunningOutInFiles, inALoadOfTheWidgetIsReported)
{
    const WidgetSnapshotStore store(inner);
    const auto load = [&] {
        try {
            store.load();
            return Loaded::something;
        } catch (const WidgetSnapshotLoadError&) {
            return Loaded::refused;
        }
    };
    Tally tally = runOutInLoading(inner, Loaded::refused, load);
    store.save(WidgetSnapshot::placeholder(moment));
    const std::string text = textOf(store.snapshotURL());
    tally += runOutInLoading(inner, Loaded::something, load);
    for (const std::string& refused : {text.substr(0, text.size() / 2), std::string("{}")}) {
        writeText(store.snapshotURL(), refused);
        tally += runOutInLoading(inner, Loaded::refused, load);
    }
    constexpr std::size_t atLeast = 20;
    constexpr std::size_t askedTwice = 3;
    expectWhole("widget's load", tally, atLeast, askedTwice);
}

}  // namespace
}  // namespace quillmere::test
