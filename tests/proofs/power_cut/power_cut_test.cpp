// The power is cut at every moment of one, two and three saves in a row.
//
// The failure model stands in file_system_model.hpp: what was not synced is lost, zeroed, cut short or kept,
// each part of it by itself; syncs are believed. Every directory that this permits is built and loaded. What
// holds when a disk lies about a sync, or damages what lasted, is not shown here, nor can it be.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "proofs/power_cut/found_directories.hpp"
#include "proofs/support/figures.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

struct Counts {
    std::size_t moments = 0;
    std::size_t directories = 0;
    std::size_t violations = 0;
};

/// Judges every directory that may be found at every moment of the saves.
template <class Holds>
Counts countViolations(std::size_t mostSaves, const ReplaceItem& replaceItem, Holds holds)
{
    Counts counts;
    for (const bool hasEarlier : {false, true}) {
        FoundDirectories found;
        for (std::size_t count = 1; count <= mostSaves; ++count) {
            for (const CutMoment& cut : cutMoments({hasEarlier, count, replaceItem})) {
                ++counts.moments;
                for (const DirectoryImage& image : cut.images) {
                    counts.violations += holds(found.look(image), cut, hasEarlier) ? 0 : 1;
                }
            }
        }
        counts.directories += found.count();
    }
    return counts;
}

/// Whether the state is the last one whose save had returned, or one whose save had begun.
bool isOldOrNew(const Found& found, const CutMoment& cut, bool hasEarlier)
{
    if (found.state == Finding::nothing) {
        return !hasEarlier && cut.completed == 0;
    }
    const bool isBegun = hasEarlier || found.stateNumber > 0;
    return found.state == Finding::version && isBegun && found.stateNumber >= cut.completed &&
           found.stateNumber <= cut.begun;
}

/// Whether the state is one that was saved, now or earlier, or one that is refused. Where nothing lasted
/// before, nothing may be found.
bool isSavedOnceOrRefused(const Found& found, const CutMoment& cut, bool hasEarlier)
{
    switch (found.state) {
        case Finding::nothing: return !hasEarlier;
        case Finding::version: return (hasEarlier || found.stateNumber > 0) && found.stateNumber <= cut.begun;
        case Finding::refused: return cut.begun > 0;
        case Finding::foreign: return false;
    }
    return false;
}

/// Whether the agent's summary is whole, and of the state or of one before it.
bool isSummaryNotNewer(const Found& found, const CutMoment&, bool)
{
    if (found.summary == Finding::nothing) {
        return true;
    }
    return found.summary == Finding::version && found.state == Finding::version &&
           found.summaryNumber <= found.stateNumber;
}

constexpr std::size_t mostSaves = 3;

TEST(APowerCut, leavesTheOldOrTheNewStateWhenFilesAreReplacedDurably)
{
    const Counts counts = countViolations(mostSaves, StateStore::renameReplacingDurably, isOldOrNew);
    EXPECT_EQ(counts.violations, 0u);
    reportFigure("Power cut, durable replace", "moments of one to three saves", counts.moments);
    reportFigure("Power cut, durable replace", "directories loaded, each old or new", counts.directories);
}

TEST(APowerCut, leavesNoSummaryNewerThanTheStateWhenFilesAreReplacedDurably)
{
    EXPECT_EQ(countViolations(mostSaves, StateStore::renameReplacingDurably, isSummaryNotNewer).violations,
              0u);
}

TEST(APowerCut, leavesNoStateThatLoadsAsSomethingElseWhenFilesAreReplacedPlainly)
{
    const Counts counts = countViolations(mostSaves, StateStore::renameReplacing, isSavedOnceOrRefused);
    EXPECT_EQ(counts.violations, 0u);
    reportFigure("Power cut, plain replace", "moments of one to three saves", counts.moments);
    reportFigure("Power cut, plain replace", "directories loaded, each old, new or refused",
                 counts.directories);
}

// That the proof can fail: replace operations with a part left out.

void sync(const fs::path& path)
{
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    EXPECT_EQ(::fsync(descriptor), 0);
    ::close(descriptor);
}

std::size_t violationsOf(const ReplaceItem& replaceItem)
{
    return countViolations(2, replaceItem, isOldOrNew).violations;
}

TEST(TheModelOfAPowerCut, acceptsAReplacementThatSyncsFileAndDirectory)
{
    EXPECT_EQ(violationsOf([](const fs::path& temporaryURL, const fs::path& destination) {
                  sync(temporaryURL);
                  StateStore::renameReplacing(temporaryURL, destination);
                  sync(destination.parent_path());
              }),
              0u);
}

TEST(TheModelOfAPowerCut, findsOutThatTheFileIsNotSynced)
{
    EXPECT_GT(violationsOf([](const fs::path& temporaryURL, const fs::path& destination) {
                  StateStore::renameReplacing(temporaryURL, destination);
                  sync(destination.parent_path());
              }),
              0u);
}

TEST(TheModelOfAPowerCut, findsOutThatTheDirectoryIsNotSynced)
{
    EXPECT_GT(violationsOf([](const fs::path& temporaryURL, const fs::path& destination) {
                  sync(temporaryURL);
                  StateStore::renameReplacing(temporaryURL, destination);
              }),
              0u);
}

TEST(TheModelOfAPowerCut, findsOutThatTheFileIsSyncedTooLate)
{
    EXPECT_GT(violationsOf([](const fs::path& temporaryURL, const fs::path& destination) {
                  StateStore::renameReplacing(temporaryURL, destination);
                  sync(destination.parent_path());
                  sync(destination);
              }),
              0u);
}

TEST(TheModelOfAPowerCut, findsOutThatThePlainReplacementIsNotDurable)
{
    EXPECT_GT(violationsOf(StateStore::renameReplacing), 0u);
}

TEST(TheModelOfAPowerCut, findsOutThatTheOldFileIsRemovedFirst)
{
    EXPECT_GT(violationsOf([](const fs::path& temporaryURL, const fs::path& destination) {
                  sync(temporaryURL);
                  ::unlink(destination.c_str());
                  StateStore::renameReplacing(temporaryURL, destination);
                  sync(destination.parent_path());
              }),
              0u);
}

}  // namespace
}  // namespace quillmere::test
