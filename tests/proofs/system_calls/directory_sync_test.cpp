// The sync of a directory: a file system that does not offer it, and one that fails.
#include <quillmere/store/file_manager.hpp>
#include <quillmere/store/sync.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <set>

#include "proofs/system_calls/call_errors.hpp"
#include "proofs/system_calls/system_calls.hpp"
#include "support/file_system.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

void create(const fs::path& directory) { FileManager::standard().createDirectory(directory, std::nullopt); }

/// The directories that a call syncs.
template <class Call>
std::set<fs::path> synced(Call call)
{
    const SystemCallWatch watch;
    call();
    std::set<fs::path> paths;
    for (const CallRecord& record : watch.calls()) {
        if (record.call == SystemCall::fsync) {
            paths.insert(record.path);
        }
    }
    return paths;
}

TEST(SyncDirectory, saysWhetherTheSystemOffersIt)
{
    const TemporaryDirectory directory;
    EXPECT_TRUE(syncDirectory(directory.path()));
    const std::vector<Fault> notOffered = {
        {.call = SystemCall::open, .ordinal = 0, .error = EACCES},
        {.call = SystemCall::fsync, .ordinal = 0, .error = EINVAL},
        {.call = SystemCall::fsync, .ordinal = 0, .error = ENOTSUP},
        {.call = SystemCall::fsync, .ordinal = 0, .error = EOPNOTSUPP},
    };
    for (const Fault& fault : notOffered) {
        SCOPED_TRACE(nameOfError(fault.error));
        const SystemCallWatch watch({fault});
        EXPECT_FALSE(syncDirectory(directory.path()));
        EXPECT_EQ(watch.faultCount(), 1u);
    }
}

TEST(SyncDirectory, failsWithEveryOtherError)
{
    const TemporaryDirectory directory;
    for (const int error : {EIO, ENOSPC, EDQUOT, EROFS}) {
        SCOPED_TRACE(nameOfError(error));
        const SystemCallWatch watch({{.call = SystemCall::fsync, .ordinal = 0, .error = error}});
        EXPECT_EQ(failureOf([&] { syncDirectory(directory.path()); }).value(), error);
    }
}

TEST(SyncFile, failsWithTheErrorsThatADirectoryMayHave)
{
    const TemporaryDirectory directory;
    writeText(directory.path() / "file", "content");
    for (const int error : {EINVAL, ENOTSUP}) {
        SCOPED_TRACE(nameOfError(error));
        const SystemCallWatch watch({{.call = SystemCall::fsync, .ordinal = 0, .error = error}});
        EXPECT_EQ(failureOf([&] { syncFile(directory.path() / "file"); }).value(), error);
    }
}

TEST(CreateDirectory, syncsEveryNewNameAgainAfterAFailedSync)
{
    for (const std::size_t failing : {0u, 1u, 2u}) {
        SCOPED_TRACE(failing);
        const TemporaryDirectory home;
        writeText(home.path() / "file", "");
        const fs::path directory = home.path() / "one" / "two" / "three";
        {
            const SystemCallWatch watch({{.call = SystemCall::fsync, .ordinal = failing, .error = EIO}});
            EXPECT_EQ(failureOf([&] { create(directory); }), std::errc::io_error);
        }
        const std::set<fs::path> again = synced([&] { create(directory); });
        // The names before the failed one are on the disk.
        const std::vector<fs::path> parents = {home.path(), home.path() / "one", home.path() / "one" / "two"};
        for (std::size_t index = failing; index < parents.size(); ++index) {
            EXPECT_TRUE(again.contains(parents[index])) << parents[index];
        }
    }
}

TEST(CreateDirectory, syncsNothingForADirectoryInUse)
{
    const TemporaryDirectory home;
    create(home.path() / "one" / "two");
    writeText(home.path() / "one" / "two" / "file", "");
    EXPECT_EQ(synced([&] { create(home.path() / "one" / "two"); }), std::set<fs::path>{});
}

}  // namespace
}  // namespace quillmere::test
