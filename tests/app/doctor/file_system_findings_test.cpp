// Findings on what the file system offers.
#include "doctor/file_system_findings.hpp"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <limits>

#include "doctor_testing.hpp"
#include "support/descriptor.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;
using doctor::Probe;
using doctor::Verdict;

constexpr Probe everythingWorks = {.write = 0,
                                   .syncFile = 0,
                                   .replace = 0,
                                   .hardLink = 0,
                                   .syncDirectory = 0,
                                   .lock = 0,
                                   .fileLock = std::nullopt};

doctor::Examined withProbe(const Probe& probe)
{
    return {.subject = {.workspace = workspace::Workspace::in("/", [] { return moment; }),
                        .stateHome = {},
                        .origin = doctor::Origin::option,
                        .now = moment},
            .reading = {},
            .probe = probe};
}

TEST(Probe, findsThatEverythingWorksAndLeavesNothingBehind)
{
    const Person person = personWithPrivateFiles();
    const fs::path versions = person.stateHome();
    const Words before = person.names();
    const Probe probe = doctor::probe(person.store().stateURL(), versions);
    for (const doctor::CallResult& result :
         {probe.write, probe.syncFile, probe.replace, probe.hardLink, probe.syncDirectory, probe.lock}) {
        EXPECT_EQ(result, 0);
    }
    EXPECT_FALSE(probe.fileLock);
    EXPECT_EQ(person.names(), before);
    EXPECT_EQ(namesIn(versions), Words{});
}

TEST(Probe, makesItsLinkWhereVersionsAreKept)
{
    const TemporaryDirectory directory;
    EXPECT_NE(doctor::probe(directory.path() / "state.json", "/proc").hardLink, 0);
    EXPECT_EQ(doctor::probe(directory.path() / "state.json", directory.path() / "missing").hardLink, 0);
}

TEST(Probe, triesNothingMoreWhereNoFileCanBeMade)
{
    const Probe probe = doctor::probe("/nowhere/at/all/state.json", {});
    EXPECT_EQ(probe.write, ENOENT);
    EXPECT_EQ(probe.lock, ENOENT);
    EXPECT_FALSE(probe.syncFile || probe.replace || probe.hardLink || probe.fileLock);
}

TEST(LockFinding, isToLookAtWhileAnotherProgramHoldsTheLock)
{
    const Person person = personWithPrivateFiles();
    EXPECT_TRUE(isFound(findingOf("lock", person), Verdict::good, "flock"));
    const Descriptor held(::open(person.directory().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    ASSERT_EQ(::flock(held.get(), LOCK_EX), 0);
    EXPECT_TRUE(
        isFound(findingOf("lock", person), Verdict::look, "Another program holds the lock", "lslocks"));
}

TEST(LockFinding, isToLookAtWhereOnlyAFileCanBeLockedAndWrongWhereNothingCan)
{
    for (const int error : {ENOLCK, EOPNOTSUPP, ENOSYS}) {
        Probe probe = everythingWorks;
        probe.lock = error;
        probe.fileLock = 0;
        EXPECT_TRUE(isFound(findingOf("lock", withProbe(probe)), Verdict::look, "lock state.json instead"));
        probe.fileLock = EINVAL;
        EXPECT_TRUE(isFound(findingOf("lock", withProbe(probe)), Verdict::wrong, "Changes are refused"));
    }
    Probe refused = everythingWorks;
    refused.lock = EIO;
    EXPECT_TRUE(isFound(findingOf("lock", withProbe(refused)), Verdict::wrong, "Input/output error"));
}

TEST(SyncFinding, isToLookAtWhereADirectoryCannotBeSynced)
{
    EXPECT_TRUE(isFound(findingOf("sync", withProbe(everythingWorks)), Verdict::good, "power cut"));
    for (const int error : {EINVAL, ENOTSUP, EACCES}) {
        Probe probe = everythingWorks;
        probe.syncDirectory = error;
        EXPECT_TRUE(isFound(findingOf("sync", withProbe(probe)), Verdict::look, "not offered here"));
    }
}

TEST(SyncFinding, isWrongWhereSyncingFails)
{
    for (const int error : {EIO, ENOSPC}) {
        Probe probe = everythingWorks;
        probe.syncDirectory = error;
        EXPECT_TRUE(
            isFound(findingOf("sync", withProbe(probe)), Verdict::wrong, "The directory cannot be synced"));
    }
    Probe probe = everythingWorks;
    probe.syncFile = EINVAL;
    EXPECT_TRUE(isFound(findingOf("sync", withProbe(probe)), Verdict::wrong, "A file cannot be synced"));
}

TEST(ReplaceFinding, isWrongWhereAFileCannotBeReplaced)
{
    Probe probe = everythingWorks;
    EXPECT_TRUE(isFound(findingOf("replace", withProbe(probe)), Verdict::good, "in one step"));
    probe.replace = EPERM;
    EXPECT_TRUE(isFound(findingOf("replace", withProbe(probe)), Verdict::wrong, "Operation not permitted"));
}

TEST(HardLinkFinding, isToLookAtWhereVersionsMustBeCopied)
{
    Probe probe = everythingWorks;
    EXPECT_TRUE(isFound(findingOf("hard_links", withProbe(probe)), Verdict::good, "without copying"));
    for (const int error : {EPERM, EXDEV, EOPNOTSUPP}) {
        probe.hardLink = error;
        EXPECT_TRUE(isFound(findingOf("hard_links", withProbe(probe)), Verdict::look, "versions are copied"));
    }
}

TEST(RoomFinding, growsWithTheState)
{
    struct Case {
        doctor::Room room;
        std::uintmax_t stateSize;
        Verdict verdict;
    };
    constexpr std::uintmax_t many = 100'000;
    for (const Case& each : {
             Case{{.bytes = 64'000'000, .files = many}, 1'000, Verdict::good},
             Case{{.bytes = 63'999'999, .files = many}, 1'000, Verdict::look},
             Case{{.bytes = 159'999'999, .files = many}, 40'000'000, Verdict::look},
             Case{{.bytes = 160'000'000, .files = many}, 40'000'000, Verdict::good},
             Case{{.bytes = 39'999'999, .files = many}, 40'000'000, Verdict::wrong},
             Case{{.bytes = 16'383, .files = many}, 1'000, Verdict::wrong},
             Case{{.bytes = 16'384, .files = many}, 1'000, Verdict::look},
             Case{{.bytes = 64'000'000, .files = 99}, 1'000, Verdict::look},
             Case{{.bytes = 64'000'000, .files = 3}, 1'000, Verdict::wrong},
         }) {
        EXPECT_EQ(doctor::findingOn(each.room, each.stateSize).verdict, each.verdict)
            << each.room.bytes << " bytes, " << each.room.files << " files, a state of " << each.stateSize;
    }
}

TEST(RoomFinding, saysHowMuchIsFree)
{
    const std::uintmax_t many = std::numeric_limits<std::uintmax_t>::max();
    EXPECT_TRUE(isFound(doctor::findingOn({.bytes = 83'600'000'000, .files = many}, 500), Verdict::good,
                        "Free: 83 GB."));
    EXPECT_TRUE(isFound(doctor::findingOn({.bytes = 2'345'000, .files = many}, 500), Verdict::look,
                        "Free: 2.3 MB, which is little"));
    EXPECT_TRUE(isFound(doctor::findingOn({.bytes = 1, .files = many}, 500), Verdict::wrong,
                        "Free: 1 byte, which is too little"));
}

TEST(Room, isThatOfTheFileSystem)
{
    const TemporaryDirectory directory;
    const doctor::Room room = doctor::roomAt(directory.path());
    EXPECT_LE(room.bytes, fs::space(directory.path()).capacity);
    EXPECT_GT(room.bytes, 0U);
    EXPECT_GT(room.files, 0U);
}

}  // namespace
}  // namespace quillmere::test
