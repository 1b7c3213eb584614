// Saving the widget's summary, and the shared container.
#include <quillmere/widget/widget_snapshot_store.hpp>

#include <gtest/gtest.h>

#include <limits>

#include "support/file_system.hpp"
#include "support/process_settings.hpp"
#include "support/sample_states.hpp"
#include "support/store_doubles.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

const std::vector<std::string> oneFile = {"widget-snapshot.json"};

WidgetSnapshot sample() { return WidgetSnapshot::placeholder(moment); }

TEST(QuillmereAppGroup, hasTheNamesThatBothSidesShare)
{
    EXPECT_EQ(QuillmereAppGroup::identifier, "T5Q2N84LW7.quillmere");
    EXPECT_EQ(QuillmereAppGroup::widgetKind, "QuillmereStatusWidget");
    EXPECT_EQ(QuillmereAppGroup::urlScheme, "quillmere");
}

TEST(WidgetSnapshotStore, namesItsFileInItsDirectoryAndTouchesNothing)
{
    const TemporaryDirectory directory;
    const WidgetSnapshotStore store(directory.path() / "new");
    EXPECT_EQ(WidgetSnapshotStore::fileName, "widget-snapshot.json");
    EXPECT_EQ(store.directory(), directory.path() / "new");
    EXPECT_EQ(store.snapshotURL(), directory.path() / "new" / "widget-snapshot.json");
    EXPECT_TRUE(directory.names().empty());
}

TEST(WidgetSnapshotStore, isThatOfTheContainerItselfWhenItIsShared)
{
    PlacesOnly places;
    places.container = "/some/container";
    const auto store = WidgetSnapshotStore::shared("group", places);
    ASSERT_TRUE(store);
    EXPECT_EQ(store->directory(), "/some/container");
    EXPECT_EQ(store->snapshotURL(), "/some/container/widget-snapshot.json");
    EXPECT_EQ(places.groupsAskedFor, std::vector<std::string>{"group"});
}

TEST(WidgetSnapshotStore, isNoneWhenThereIsNoContainer)
{
    const PlacesOnly nowhere;
    EXPECT_FALSE(WidgetSnapshotStore::shared("group", nowhere));
}

TEST(WidgetSnapshotStore, isSharedByTheRealContainerOnceItIsMade)
{
    const TemporaryDirectory directory;
    const EnvironmentVariable data("XDG_DATA_HOME", directory.path().string());
    const FileManager& files = FileManager::standard();
    EXPECT_FALSE(WidgetSnapshotStore::shared(QuillmereAppGroup::identifier, files));
    const fs::path container = files.createContainerDirectory(QuillmereAppGroup::identifier);
    WidgetSnapshotStore::shared(QuillmereAppGroup::identifier, files)->save(sample());
    EXPECT_EQ(container, directory.path() / "group-containers" / "T5Q2N84LW7.quillmere");
    EXPECT_EQ(namesIn(container), oneFile);
    EXPECT_EQ(WidgetSnapshotStore::shared(QuillmereAppGroup::identifier, files)->load(), sample());
}

TEST(WidgetSave, leavesTheFileAndNoTemporaryOne)
{
    const TemporaryDirectory directory;
    const WidgetSnapshotStore store(directory.path());
    store.save(sample());
    store.save(WidgetSnapshot::empty(moment));
    EXPECT_EQ(directory.names(), oneFile);
    EXPECT_EQ(store.load(), WidgetSnapshot::empty(moment));
}

TEST(WidgetSave, writesOneLineOfCompactJson)
{
    const TemporaryDirectory directory;
    const WidgetSnapshotStore store(directory.path());
    store.save(sample());
    EXPECT_EQ(textOf(store.snapshotURL()), JsonEncoder(JsonLayout::compact).encode(sample()).view());
    EXPECT_EQ(textOf(store.snapshotURL()).find('\n'), std::string::npos);
}

TEST(WidgetSave, createsAMissingDirectoryWithTheDefaultMode)
{
    const TemporaryDirectory directory;
    {
        const FileCreationMask mask(0022);
        WidgetSnapshotStore(directory.path() / "one" / "two").save(sample());
    }
    EXPECT_EQ(namesIn(directory.path() / "one" / "two"), oneFile);
    EXPECT_EQ(modeOf(directory.path() / "one"), 0755u);
    EXPECT_EQ(modeOf(directory.path() / "one" / "two"), 0755u);
}

TEST(WidgetSave, leavesAnExistingDirectoryAndItsOtherFilesAlone)
{
    const TemporaryDirectory directory;
    fs::permissions(directory.path(), fs::perms(0770));
    writeText(directory.path() / "other", "kept");
    WidgetSnapshotStore(directory.path()).save(sample());
    EXPECT_EQ(modeOf(directory.path()), 0770u);
    EXPECT_EQ(textOf(directory.path() / "other"), "kept");
}

TEST(WidgetSave, handsOverACompleteHiddenFileInTheSameDirectory)
{
    const TemporaryDirectory directory;
    const RecordingReplaceItem replaceItem;
    const WidgetSnapshotStore store(directory.path(), replaceItem);
    store.save(sample());
    store.save(sample());
    ASSERT_EQ(replaceItem.calls().size(), 2u);
    for (const Replacement& call : replaceItem.calls()) {
        EXPECT_EQ(call.destination, store.snapshotURL());
        EXPECT_EQ(call.temporary.parent_path(), store.directory());
        EXPECT_EQ(call.content, textOf(store.snapshotURL()));
        const std::string name = call.temporary.filename().string();
        const std::string start = ".widget-snapshot.json.";
        ASSERT_EQ(name.size(), start.size() + Identifier::textLength + 4);
        EXPECT_EQ(name.substr(0, start.size()), start);
        const std::string identifier = name.substr(start.size(), Identifier::textLength);
        ASSERT_TRUE(Identifier::fromText(identifier)) << name;
        EXPECT_EQ(name, start + Identifier::fromText(identifier)->text() + ".tmp");
    }
    EXPECT_NE(replaceItem.calls()[0].temporary, replaceItem.calls()[1].temporary);
}

TEST(WidgetSave, usesTheMoveOfTheStateStoreUnlessToldOtherwise)
{
    const TemporaryDirectory directory;
    writeText(directory.path() / "from", "new");
    WidgetSnapshotStore::renameReplacing(directory.path() / "from", directory.path() / "to");
    EXPECT_EQ(directory.names(), std::vector<std::string>{"to"});
    EXPECT_EQ(failureOf([&] {
                  WidgetSnapshotStore::renameReplacing(directory.path() / "from", directory.path() / "to");
              }),
              std::errc::no_such_file_or_directory);
    EXPECT_EQ(textOf(directory.path() / "to"), "new");
}

TEST(WidgetSave, worksWithTheDurableMove)
{
    const TemporaryDirectory directory;
    const WidgetSnapshotStore store(directory.path(), StateStore::renameReplacingDurably);
    store.save(sample());
    EXPECT_EQ(store.load(), sample());
    EXPECT_EQ(directory.names(), oneFile);
}

// When a save fails ----------------------------------------------------------------------------------

/// A directory with one summary, and another summary that replaces it.
class WidgetSaveFailure : public testing::Test {
protected:
    const TemporaryDirectory directory;
    const WidgetSnapshotStore usual{directory.path()};

    void SetUp() override { usual.save(sample()); }

    void expectOldFile() const
    {
        EXPECT_EQ(directory.names(), oneFile);
        EXPECT_EQ(usual.load(), sample());
    }
};

TEST_F(WidgetSaveFailure, ofTheMoveLeavesTheOldSummary)
{
    const WidgetSnapshotStore store(directory.path(), RecordingReplaceItem(1));
    EXPECT_THROW(store.save(WidgetSnapshot::empty(moment)), InjectedFailure);
    expectOldFile();
}

TEST_F(WidgetSaveFailure, thatGoesUnreportedLeavesNoTemporaryFileEither)
{
    const WidgetSnapshotStore store(directory.path(), [](const fs::path&, const fs::path&) {});
    store.save(WidgetSnapshot::empty(moment));
    expectOldFile();
}

TEST_F(WidgetSaveFailure, inEncodingWritesNothing)
{
    const RecordingReplaceItem replaceItem;
    const WidgetSnapshotStore store(directory.path(), replaceItem);
    EXPECT_THROW(store.save(WidgetSnapshot::empty(Instant(std::numeric_limits<double>::quiet_NaN()))),
                 EncodingError);
    EXPECT_TRUE(replaceItem.calls().empty());
    expectOldFile();
}

TEST_F(WidgetSaveFailure, whenTheRoomEndsLeavesTheOldSummary)
{
    std::error_code error;
    {
        const FileSizeLimit limit(100);
        error = failureOf([&] { usual.save(WidgetSnapshot::empty(moment)); });
    }
    EXPECT_EQ(error, std::errc::file_too_large);
    expectOldFile();
}

TEST_F(WidgetSaveFailure, toCreateTheDirectoryTouchesNothing)
{
    const WidgetSnapshotStore there(usual.snapshotURL());
    const WidgetSnapshotStore below(usual.snapshotURL() / "inner");
    EXPECT_EQ(failureOf([&] { there.save(sample()); }), std::errc::file_exists);
    EXPECT_EQ(failureOf([&] { below.save(sample()); }), std::errc::not_a_directory);
    expectOldFile();
}

TEST_F(WidgetSaveFailure, overADirectoryLeavesItThere)
{
    const WidgetSnapshotStore store(directory.path() / "other");
    fs::create_directories(store.snapshotURL());
    EXPECT_EQ(failureOf([&] { store.save(sample()); }), std::errc::is_a_directory);
    EXPECT_EQ(namesIn(store.directory()), oneFile);
}

}  // namespace
}  // namespace quillmere::test
