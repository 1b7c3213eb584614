// Findings on versions, and on the watch.
#include <fcntl.h>
#include <sys/file.h>

#include "doctor_testing.hpp"
#include "support/descriptor.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;
using doctor::Verdict;

/// The directory for versions, drafts and notices of the person's files.
fs::path keptBy(const Person& person) { return subjectOf(person).workspace.stateDirectory(); }

doctor::Finding versionsFindingWith(const fs::path& stateHome, const Person& person)
{
    doctor::Subject subject = subjectOf(person);
    subject.workspace = workspace::Workspace::in(
        person.directory(), [] { return moment; }, stateHome);
    subject.stateHome = stateHome;
    return findingOf("versions", doctor::Examined{.subject = subject, .reading = {}});
}

TEST(VersionsFinding, saysHowManyThereAre)
{
    const TimeZone zone("UTC");
    Person person = personWithPrivateFiles();
    EXPECT_TRUE(isFound(findingOf("versions", person), Verdict::good, "There is none yet"));
    person.typesLater(60, {"ask", "First?"});
    person.typesLater(60, {"ask", "Second?"});
    EXPECT_TRUE(isFound(findingOf("versions", person), Verdict::good, "2 versions, "));
    EXPECT_TRUE(isFound(findingOf("versions", person), Verdict::good,
                        "the newest of 2026-11-15 15:01, in " + keptBy(person).string()));
}

TEST(VersionsFinding, isToLookAtWhereNoneAreKept)
{
    const Person person = personWithPrivateFiles();
    EXPECT_TRUE(isFound(versionsFindingWith({}, person), Verdict::look, "no directory for them is known"));
    EXPECT_TRUE(isFound(versionsFindingWith(person.directory(), person), Verdict::look,
                        "lies in the directory of the files"));
}

TEST(VersionsFinding, isToLookAtWhenTheNewestCannotBeRead)
{
    const Person person = personWithPrivateFiles();
    fs::create_directories(keptBy(person) / "versions");
    writeText(keptBy(person) / "versions" / "000001_2026-11-15T15:00:00Z.json", "spoilt");
    EXPECT_TRUE(isFound(findingOf("versions", person), Verdict::look, "The newest cannot be read: expected",
                        "quillmere --directory " + person.directory().string() + " restore"));
}

TEST(VersionsFinding, isWrongWhereTheyCannotBeListed)
{
    const Person person = personWithPrivateFiles();
    fs::create_directories(keptBy(person));
    writeText(keptBy(person) / "versions", "in the way");
    EXPECT_TRUE(isFound(findingOf("versions", person), Verdict::wrong, "This cannot be examined: "));
}

TEST(WatchFinding, isToLookAtWhenNobodyGivesNoticesAnyMore)
{
    const Person person = personWithPrivateFiles();
    EXPECT_TRUE(isFound(findingOf("watch", person), Verdict::good, "No notices have been given here"));
    EXPECT_FALSE(fs::exists(keptBy(person)));
    fs::create_directories(keptBy(person) / "notices");
    EXPECT_TRUE(isFound(findingOf("watch", person), Verdict::look, "Nobody gives notices now",
                        "quillmere --directory " + person.directory().string() + " watch"));
    doctor::Examined usual{.subject = subjectOf(person), .reading = {}};
    usual.subject.origin = doctor::Origin::home;
    EXPECT_EQ(findingOf("watch", usual).command, "systemctl --user enable --now quillmere-watch");
    const Descriptor leader(::open((keptBy(person) / "notices").c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    ASSERT_EQ(::flock(leader.get(), LOCK_EX), 0);
    EXPECT_TRUE(isFound(findingOf("watch", person), Verdict::good, "A quillmere watch gives notices"));
}

}  // namespace
}  // namespace quillmere::test
