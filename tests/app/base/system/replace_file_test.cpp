// Files that a person asks for.
#include "base/system/replace_file.hpp"

#include "base/refusal.hpp"
#include "base/system/descriptor.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <optional>

#include "program_testing.hpp"
#include "support/file_system.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;
using base::Descriptor;
using base::destinationOf;
using base::liesWithin;
using base::Refusal;
using base::replaceFile;

template <class Operation>
std::optional<Refusal::Kind> kindOf(Operation operation)
{
    try {
        operation();
        return std::nullopt;
    } catch (const Refusal& refusal) {
        return refusal.kind();
    }
}

TEST(DestinationOf, isTheSameForEveryPathToAFile)
{
    const TemporaryDirectory place;
    const fs::path root = fs::canonical(place.path());
    fs::create_directory(root / "deep");
    fs::create_directory_symlink("deep", root / "folder");
    fs::create_symlink("deep/a", root / "link");
    fs::create_symlink(root / "link", root / "link to a link");
    for (const bool exists : {false, true}) {
        if (exists) {
            writeText(root / "deep" / "a", "old");
        }
        for (const fs::path& file :
             {root / "deep" / "a", root / "deep" / "." / "a", root / "folder" / "a",
              root / "deep" / ".." / "deep" / "a", root / "link", root / "link to a link"}) {
            SCOPED_TRACE(file);
            EXPECT_EQ(destinationOf(file), root / "deep" / "a");
        }
    }
}

TEST(DestinationOf, refusesOpenFilesOfProcesses)
{
    const TemporaryDirectory place;
    writeText(place.path() / "real", "old");
    const Descriptor open(::open((place.path() / "real").c_str(), O_WRONLY | O_CLOEXEC));
    const std::string number = std::to_string(open.get());
    fs::create_symlink("/dev/fd/" + number, place.path() / "link");
    fs::create_directory_symlink("/proc/self/fd", place.path() / "folder");
    for (const fs::path& file : {fs::path("/dev/stdout"), fs::path("/dev/stderr"),
                                 fs::path("/dev/fd/" + number), fs::path("/proc/self/fd/" + number),
                                 fs::path("/proc/" + std::to_string(::getpid()) + "/fd/" + number),
                                 place.path() / "link", place.path() / "folder" / number}) {
        SCOPED_TRACE(file);
        EXPECT_EQ(kindOf([&] { destinationOf(file); }), Refusal::Kind::invalidRequest);
    }
}

TEST(DestinationOf, failsForLinksInACircle)
{
    const TemporaryDirectory place;
    fs::create_symlink("b", place.path() / "a");
    fs::create_symlink("a", place.path() / "b");
    EXPECT_EQ(failureOf([&] { destinationOf(place.path() / "a"); }),
              std::make_error_code(std::errc::too_many_symbolic_link_levels));
}

TEST(LiesWithin, holdsAtEveryDepthAndThroughLinks)
{
    const TemporaryDirectory place;
    const TemporaryDirectory other;
    fs::create_directories(place.path() / "deep" / "down");
    fs::create_directory_symlink(place.path(), other.path() / "folder");
    for (const fs::path& file : {place.path() / "new", place.path() / "deep" / "down" / "new",
                                 place.path() / "deep" / ".." / "new", other.path() / "folder" / "new"}) {
        EXPECT_TRUE(liesWithin(file, place.path())) << file;
    }
    EXPECT_FALSE(liesWithin(other.path() / "new", place.path()));
    EXPECT_FALSE(liesWithin(place.path(), place.path()));
    EXPECT_FALSE(liesWithin(place.path() / "new", place.path() / "missing"));
}

TEST(ReplaceFile, keepsPermissionsAndFollowsLinks)
{
    const TemporaryDirectory place;
    const fs::path file = place.path() / "real";
    writeText(file, "old");
    fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink("real", place.path() / "link");
    replaceFile(place.path() / "link", "new");
    EXPECT_EQ(textOf(file), "new");
    EXPECT_EQ(modeOf(file), 0600u);
    EXPECT_TRUE(fs::is_symlink(place.path() / "link"));
    EXPECT_EQ(place.names(), (Words{"link", "real"}));
    fs::remove(file);
    replaceFile(place.path() / "link", "newer");
    EXPECT_EQ(textOf(file), "newer");
    EXPECT_EQ(place.names(), (Words{"link", "real"}));
}

TEST(ReplaceFile, leavesTheOldFileWhenTheNewOneCannotBeWritten)
{
    const TemporaryDirectory place;
    const fs::path file = place.path() / "real";
    writeText(file, "old");
    const std::string content(100'000, 'x');
    {
        const FileSizeLimit full(4096);
        EXPECT_EQ(failureOf([&] { replaceFile(file, content); }),
                  std::make_error_code(std::errc::file_too_large));
    }
    EXPECT_EQ(textOf(file), "old");
    EXPECT_EQ(place.names(), Words{"real"});
}

TEST(ReplaceFile, refusesWhatIsNoRegularFile)
{
    const TemporaryDirectory place;
    makeFifo(place.path() / "fifo");
    EXPECT_EQ(kindOf([&] { replaceFile(place.path() / "fifo", "new"); }), Refusal::Kind::fileError);
    EXPECT_EQ(kindOf([&] { replaceFile(place.path(), "new"); }), Refusal::Kind::fileError);
    EXPECT_TRUE(fs::is_fifo(place.path() / "fifo"));
}

}  // namespace
}  // namespace quillmere::test
