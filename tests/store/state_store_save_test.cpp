// The files after a save, and the steps of a save.
#include <quillmere/store/state_store.hpp>

#include <gtest/gtest.h>

#include <algorithm>

#include "support/file_system.hpp"
#include "support/process_settings.hpp"
#include "support/sample_states.hpp"
#include "support/store_doubles.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

const std::vector<std::string> bothFiles = {"agent-state.json", "state.json"};

StateStore storeIn(const fs::path& directory) { return StateStore(directory, StateStore::renameReplacing); }

TEST(Save, writesBothFilesAndLeavesNoTemporaryOne)
{
    const TemporaryDirectory directory;
    storeIn(directory.path()).save(fullState());
    EXPECT_EQ(directory.names(), bothFiles);
}

TEST(Save, createsTheDirectoryForItsOwnerAlone)
{
    const TemporaryDirectory directory;
    {
        const FileCreationMask mask(0022);
        storeIn(directory.path() / "data" / "Quillmere").save(fullState());
    }
    EXPECT_EQ(namesIn(directory.path() / "data" / "Quillmere"), bothFiles);
    EXPECT_EQ(modeOf(directory.path() / "data" / "Quillmere"), 0700u);
    EXPECT_EQ(modeOf(directory.path() / "data"), 0755u);
}

TEST(Save, leavesThePermissionsOfAnExistingDirectory)
{
    const TemporaryDirectory directory;
    fs::permissions(directory.path(), fs::perms(0710));
    storeIn(directory.path()).save(fullState());
    EXPECT_EQ(modeOf(directory.path()), 0710u);
}

TEST(Save, givesTheFilesTheDefaultMode)
{
    const TemporaryDirectory directory;
    {
        const FileCreationMask mask(0027);
        storeIn(directory.path()).save(fullState());
    }
    EXPECT_EQ(modeOf(directory.path() / "state.json"), 0640u);
    EXPECT_EQ(modeOf(directory.path() / "agent-state.json"), 0640u);
}

TEST(Save, isReadBackAsTheSameState)
{
    const TemporaryDirectory directory;
    const StateStore store = storeIn(directory.path());
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        SCOPED_TRACE(rawValue(workflowState));
        store.save(stateIn(workflowState));
        EXPECT_EQ(store.load(), stateIn(workflowState));
    }
    store.save(stateWithScheduledBlock());
    EXPECT_EQ(store.load(), stateWithScheduledBlock());
    store.save(fullState());
    EXPECT_EQ(store.load(), fullState());
}

TEST(Save, dropsTheFractionOfASecondTowardThePast)
{
    const TemporaryDirectory directory;
    const StateStore store = storeIn(directory.path());
    constexpr struct {
        double instant;
        double readBack;
    } rows[] = {
        {1772442900.750, 1772442900},  // 2026-03-02T09:15:00.750Z
        {1772442900.999999, 1772442900},
        {0.5, 0},
        {-0.5, -1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.instant);
        store.save(QuillmereState::initial(Instant(row.instant)));
        EXPECT_EQ(store.load().updatedAt, Instant(row.readBack));
    }
    store.save(QuillmereState::initial(Instant(1772442900.750)));
    EXPECT_NE(textOf(store.stateURL()).find("\"2026-03-02T09:15:00Z\""), std::string::npos);
}

TEST(Save, replacesTheStateFirstAndThenTheAgentsSummary)
{
    const TemporaryDirectory directory;
    const RecordingReplaceItem replaceItem;
    const StateStore store(directory.path(), replaceItem);
    store.save(fullState());
    ASSERT_EQ(replaceItem.calls().size(), 2u);
    EXPECT_EQ(replaceItem.calls()[0].destination, store.stateURL());
    EXPECT_EQ(replaceItem.calls()[1].destination, store.agentStateURL());
}

TEST(Save, handsOverAHiddenFileInTheSameDirectoryThatNamesItsDestination)
{
    const TemporaryDirectory directory;
    const RecordingReplaceItem replaceItem;
    const StateStore store(directory.path(), replaceItem);
    store.save(fullState());
    ASSERT_EQ(replaceItem.calls().size(), 2u);
    for (const Replacement& call : replaceItem.calls()) {
        EXPECT_EQ(call.temporary.parent_path(), store.directory());
        const std::string name = call.temporary.filename().string();
        const std::string start = "." + call.destination.filename().string() + ".";
        const std::string end = ".tmp";
        ASSERT_EQ(name.size(), start.size() + Identifier::textLength + end.size()) << name;
        EXPECT_EQ(name.substr(0, start.size()), start);
        EXPECT_EQ(name.substr(name.size() - end.size()), end);
        const std::string identifier = name.substr(start.size(), Identifier::textLength);
        ASSERT_TRUE(Identifier::fromText(identifier)) << name;
        EXPECT_EQ(Identifier::fromText(identifier)->text(), identifier);
        EXPECT_EQ(identifier[14], '4') << "the version of random identifiers";
    }
}

TEST(Save, handsOverAFileThatIsComplete)
{
    const TemporaryDirectory directory;
    const RecordingReplaceItem replaceItem;
    const StateStore store(directory.path(), replaceItem);
    store.save(fullState());
    ASSERT_EQ(replaceItem.calls().size(), 2u);
    EXPECT_EQ(replaceItem.calls()[0].content, textOf(store.stateURL()));
    EXPECT_EQ(replaceItem.calls()[1].content, textOf(store.agentStateURL()));
}

TEST(Save, hasOneTemporaryFileAtATimeAndEachUnderANewName)
{
    const TemporaryDirectory directory;
    const RecordingReplaceItem replaceItem;
    const StateStore store(directory.path(), replaceItem);
    store.save(fullState());
    store.save(fullState());
    ASSERT_EQ(replaceItem.calls().size(), 4u);
    std::vector<std::string> names;
    for (const Replacement& call : replaceItem.calls()) {
        names.push_back(
            call.temporary.filename().string().substr(call.destination.filename().string().size()));
        for (const std::string& name : call.namesAround) {
            EXPECT_TRUE(name == "state.json" || name == "agent-state.json" ||
                        name == call.temporary.filename())
                << name;
        }
    }
    std::sort(names.begin(), names.end());
    EXPECT_EQ(std::unique(names.begin(), names.end()), names.end());
}

TEST(Save, describesTheStateToTheAgentAsOfItsOwnUpdate)
{
    const TemporaryDirectory directory;
    const StandingClock clock(moment + 9999);
    const StateStore store(directory.path(), clock, StateStore::renameReplacing);
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.updatedAt = moment + 60;
    store.save(state);
    const AgentSnapshot snapshot =
        StateStore::decoder().decode<AgentSnapshot>(FileManager::standard().contents(store.agentStateURL()));
    EXPECT_EQ(snapshot.updatedAt, moment + 60);
    EXPECT_EQ(snapshot.remainingSeconds, 1440);
    EXPECT_EQ(clock.readings(), 0);
}

TEST(Save, leavesTheLeftoversOfACrashAlone)
{
    const TemporaryDirectory directory;
    const std::string leftover = ".state.json.9F1C2A4E-0B7D-4C55-8E21-3A6B5D0C7F10.tmp";
    writeText(directory.path() / leftover, "cut sho");
    storeIn(directory.path()).save(fullState());
    EXPECT_EQ(directory.names(), (std::vector<std::string>{leftover, "agent-state.json", "state.json"}));
    EXPECT_EQ(textOf(directory.path() / leftover), "cut sho");
}

TEST(Save, replacesALinkAndNotItsTarget)
{
    const TemporaryDirectory directory;
    const StateStore store = storeIn(directory.path());
    writeText(directory.path() / "elsewhere", "kept");
    fs::create_symlink("elsewhere", store.stateURL());
    store.save(fullState());
    EXPECT_FALSE(fs::is_symlink(store.stateURL()));
    EXPECT_EQ(textOf(directory.path() / "elsewhere"), "kept");
}

TEST(Save, worksInARelativeDirectoryToo)
{
    const TemporaryDirectory directory;
    const CurrentDirectory current(directory.path());
    for (const char* relative : {"inner", "one/two", "slash/"}) {
        SCOPED_TRACE(relative);
        const StateStore store(relative, StateStore::renameReplacingDurably);
        store.save(fullState());
        EXPECT_EQ(namesIn(relative), bothFiles);
        EXPECT_EQ(store.load(), fullState());
    }
}

TEST(Save, worksThroughACopyOfTheStore)
{
    const TemporaryDirectory directory;
    const StateStore copy = [&] {
        const StateStore original = storeIn(directory.path());
        return original;
    }();
    copy.save(fullState());
    EXPECT_EQ(storeIn(directory.path()).load(), fullState());
}

TEST(Save, leavesNoFileOpen)
{
    const TemporaryDirectory directory;
    const StateStore store(directory.path(), StateStore::renameReplacingDurably);
    const std::size_t before = openFileCount();
    store.save(fullState());
    store.load();
    EXPECT_EQ(openFileCount(), before);
}

}  // namespace
}  // namespace quillmere::test
