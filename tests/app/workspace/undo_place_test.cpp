// The place of undo among the versions: which are undone, where redo leads, and the file that keeps it.
#include "workspace/undo_place.hpp"

#include <sys/stat.h>

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;
using workspace::UndoPlace;
using workspace::UndoPlaceFile;
using workspace::VersionRange;

/// After changes that left the versions 1 to 3, the person has undone twice.
UndoPlace undoneTwice()
{
    UndoPlace place;
    place.noteUndo(3, 4);
    place.noteUndo(2, 5);
    return place;
}

TEST(UndoPlace, isBehindEveryVersionThatUndoPassed)
{
    const UndoPlace place = undoneTwice();
    EXPECT_FALSE(place.isUndone(1));
    for (const std::int64_t passed : {2, 3, 4, 5}) {
        EXPECT_TRUE(place.isUndone(passed)) << passed;
    }
    EXPECT_EQ(place.undone, (std::vector<VersionRange>{{2, 5}}));
    EXPECT_EQ(place.newest, 5);
    EXPECT_EQ(place.target, 2);
}

TEST(UndoPlace, redoesInTheOppositeOrder)
{
    UndoPlace place = undoneTwice();
    EXPECT_EQ(place.redoable, (std::vector<std::int64_t>{4, 5}));
    place.noteRedo(6);
    EXPECT_EQ(place.redoable, (std::vector<std::int64_t>{4}));
    EXPECT_EQ(place.target, 5);
    EXPECT_EQ(place.newest, 6);
}

TEST(UndoPlace, goesBackOverTheVersionThatARedoKept)
{
    UndoPlace place = undoneTwice();
    place.noteRedo(6);
    EXPECT_FALSE(place.isUndone(6));
    place.noteUndo(6, 7);
    EXPECT_EQ(place.undone, (std::vector<VersionRange>{{2, 7}}));
    EXPECT_EQ(place.redoable, (std::vector<std::int64_t>{4, 7}));
}

TEST(UndoPlace, leavesWhatWasUndoneEarlierBehind)
{
    UndoPlace place;
    place.noteUndo(3, 4);
    // Other changes have left the versions 5 and 6.
    place.noteUndo(6, 7);
    EXPECT_EQ(place.undone, (std::vector<VersionRange>{{3, 4}, {6, 7}}));
    EXPECT_FALSE(place.isUndone(5));
    place.noteUndo(5, 8);
    EXPECT_EQ(place.undone, (std::vector<VersionRange>{{3, 8}}));
}

TEST(UndoPlaceFile, givesBackTheNotedPlace)
{
    const TemporaryDirectory home;
    const UndoPlaceFile file(home.path() / "beside");
    EXPECT_EQ(file.read(), UndoPlace());
    file.write(undoneTwice());
    EXPECT_EQ(file.read(), undoneTwice());
}

TEST(UndoPlaceFile, belongsToItsOwnerAlone)
{
    const TemporaryDirectory home;
    UndoPlaceFile(home.path() / "beside").write(undoneTwice());
    struct stat status;
    ASSERT_EQ(::stat((home.path() / "beside" / "undo.json").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
    EXPECT_EQ(namesIn(home.path() / "beside"), (Words{"undo.json"}));
}

TEST(UndoPlaceFile, notesNothingWithoutADirectory)
{
    const TemporaryDirectory current;
    const fs::path before = fs::current_path();
    fs::current_path(current.path());
    const UndoPlaceFile file{fs::path()};
    file.write(undoneTwice());
    EXPECT_EQ(current.names(), Words{});
    writeText("undo.json", workspace::jsonTextOf(undoneTwice()));
    EXPECT_EQ(file.read(), UndoPlace());
    fs::current_path(before);
}

TEST(UndoPlaceFile, hasNumbersUpToTheHighestOfAVersion)
{
    UndoPlace place;
    place.newest = 1'000'000'000'000;
    EXPECT_EQ(workspace::undoPlaceFrom(workspace::jsonTextOf(place)), place);
    place.newest += 1;
    EXPECT_EQ(workspace::undoPlaceFrom(workspace::jsonTextOf(place)), UndoPlace());
}

TEST(UndoPlaceFile, isAsGoodAsMissingWhenItIsSpoilt)
{
    const TemporaryDirectory home;
    for (const std::string text : {
             "",
             "null",
             "[]",
             R"({"target": 2, "undone": [[2, 5]], "redo": []})",
             R"({"newest": 5, "target": 2, "redo": []})",
             R"({"newest": 5, "target": 2, "undone": [[2, 5]]})",
             R"({"newest": 5, "undone": [[2, 5]], "redo": []})",
             R"({"newest": "5", "target": 2, "undone": [], "redo": []})",
             R"({"newest": 5.5, "target": 2, "undone": [], "redo": []})",
             R"({"newest": -1, "target": 2, "undone": [], "redo": []})",
             R"({"newest": 5e300, "target": 2, "undone": [], "redo": []})",
             R"({"newest": 5, "target": 2, "undone": {}, "redo": []})",
             R"({"newest": 5, "target": 2, "undone": [2], "redo": []})",
             R"({"newest": 5, "target": 2, "undone": [[2]], "redo": []})",
             R"({"newest": 5, "target": 2, "undone": [[5, 2]], "redo": []})",
             R"({"newest": 5, "target": 2, "undone": [[2, 9223372036854775807]], "redo": []})",
             R"({"newest": 5, "target": 2, "undone": [], "redo": {}})",
             R"({"newest": 5, "target": 2, "undone": [], "redo": [true]})",
         }) {
        writeText(home.path() / "undo.json", text);
        EXPECT_EQ(UndoPlaceFile(home.path()).read(), UndoPlace()) << text;
    }
}

}  // namespace
}  // namespace quillmere::test
