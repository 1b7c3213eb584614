// Shows that the power-cut proof can fail: it detects replace operations with a missing step.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "proofs/power_cut/violations.hpp"
#include "proofs/support/figures.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

void sync(const fs::path& path)
{
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    EXPECT_EQ(::fsync(descriptor), 0);
    ::close(descriptor);
}

std::size_t violationsOf(const ReplaceItem& replaceItem)
{
    return countViolations(Scope::state, amount(1, 2), replaceItem, isStateOldOrNew).violations;
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
