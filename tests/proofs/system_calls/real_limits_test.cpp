// Real faults: a full disk, a limited file size, and no free descriptors.
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <unistd.h>

#include <fstream>
#include <system_error>

#include "proofs/system_calls/scene.hpp"
#include "support/file_system.hpp"
#include "support/process.hpp"
#include "support/process_settings.hpp"
#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

const std::vector<std::string> bothFiles = {"agent-state.json", "state.json"};

/// Limits the number of open files.
class OpenFileLimit {
public:
    explicit OpenFileLimit(rlim_t count)
    {
        ::getrlimit(RLIMIT_NOFILE, &before_);
        const rlimit limit{.rlim_cur = count, .rlim_max = before_.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &limit);
    }
    OpenFileLimit(const OpenFileLimit&) = delete;
    OpenFileLimit& operator=(const OpenFileLimit&) = delete;
    ~OpenFileLimit() { ::setrlimit(RLIMIT_NOFILE, &before_); }

private:
    rlimit before_;
};

TEST(AFileSizeLimit, ofAnyLengthLeavesTheOldFilesOrAllNewOnes)
{
    const Scene example({StoreKind::state, Before::earlierFile, Replacing::plainly});
    example.save();
    const std::uintmax_t longest = std::filesystem::file_size(example.files().front());
    for (rlim_t limit = 0; limit <= longest; limit += longest / 40) {
        const Scene scene({StoreKind::state, Before::earlierFile, Replacing::plainly});
        std::error_code error;
        {
            const FileSizeLimit inForce(limit);
            error = failureOf([&] { scene.save(); });
        }
        // The summary is shorter than the state, so it fits whenever the state does.
        const bool fits = limit >= longest;
        EXPECT_EQ(error, fits ? std::errc() : std::errc::file_too_large) << limit;
        EXPECT_EQ(scene.content().files, std::vector(2, fits ? Version::newer : Version::older)) << limit;
        EXPECT_TRUE(scene.content().others.empty()) << limit;
        scene.save();
        EXPECT_EQ(scene.content().files, std::vector(2, Version::newer)) << limit;
    }
}

TEST(ALimitOfOpenFiles, leavesTheOldFiles)
{
    const Scene scene({StoreKind::state, Before::earlierFile, Replacing::durably});
    std::error_code error;
    std::error_code loadError;
    {
        // Lets standard input be the only open file.
        const OpenFileLimit inForce(1);
        error = failureOf([&] { scene.save(); });
        loadError = failureOf([&] { scene.load(); });
    }
    EXPECT_EQ(error, std::errc::too_many_files_open);
    EXPECT_EQ(loadError, std::errc::too_many_files_open);
    EXPECT_EQ(scene.content().files, std::vector(2, Version::older));
    EXPECT_TRUE(scene.content().others.empty());
    scene.save();
    EXPECT_EQ(scene.content().files, std::vector(2, Version::newer));
}

/// The result of the process on the full disk.
enum Verdict { good = 0, noPlaceOfItsOwn = 10, savedLittle, strangeError, strangeFiles, noSaveAfterwards };

bool writeOneLine(const char* file, const std::string& line)
{
    std::ofstream stream(file);
    stream << line;
    stream.close();
    return stream.good();
}

/// Mounts a private file system in memory of 256 KiB. Needs the superuser, or a system that allows user
/// namespaces.
bool mountOwnDisk(const std::filesystem::path& place)
{
    const uid_t user = ::geteuid();
    const gid_t group = ::getegid();
    const int kinds = user == 0 ? CLONE_NEWNS : CLONE_NEWUSER | CLONE_NEWNS;
    if (::unshare(kinds) != 0) {
        return false;
    }
    const auto becomeSuperuser = [&] {
        return writeOneLine("/proc/self/uid_map", "0 " + std::to_string(user) + " 1") &&
               writeOneLine("/proc/self/setgroups", "deny") &&
               writeOneLine("/proc/self/gid_map", "0 " + std::to_string(group) + " 1");
    };
    return (user == 0 || becomeSuperuser()) &&
           ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           ::mount("tmpfs", place.c_str(), "tmpfs", 0, "size=256k") == 0;
}

/// Saves a growing state until the disk is full, and then a small one.
Verdict fillDisk(const std::filesystem::path& place, ReplaceItem replaceItem)
{
    const StateStore store(place / "store", std::move(replaceItem));
    QuillmereState state = fullState();
    QuillmereState saved = state;
    std::error_code error;
    // More saves than it takes to fill the disk.
    constexpr std::size_t mostSaves = 200;
    std::size_t count = 0;
    for (; !error && count < mostSaves; ++count) {
        saved = state;
        state.agentQuestions.back().question.append(4096, 'x');
        error = failureOf([&] { store.save(state); });
    }
    if (count < 5) {
        return savedLittle;
    }
    if (error != std::errc::no_space_on_device) {
        return strangeError;
    }
    // The state may have been saved even though its summary was not.
    const QuillmereState loaded = store.load();
    if ((loaded != saved && loaded != state) || namesIn(store.directory()) != bothFiles) {
        return strangeFiles;
    }
    store.save(fullState());
    return store.load() == fullState() ? good : noSaveAfterwards;
}

/// Runs in a child process, because a process cannot leave a namespace.
int verdictOnFullDisk(const std::filesystem::path& place, const ReplaceItem& replaceItem)
{
    const auto work = [&]() -> int {
        return mountOwnDisk(place) ? fillDisk(place, replaceItem) : noPlaceOfItsOwn;
    };
    return run({.work = work, .error = Channel::inherited()}).code;
}

TEST(AFullDisk, leavesWholeFilesAndRoomForTheNextSave)
{
    for (const auto replaceItem : {StateStore::renameReplacing, StateStore::renameReplacingDurably}) {
        const TemporaryDirectory place;
        const int verdict = verdictOnFullDisk(place.path(), replaceItem);
        if (verdict == noPlaceOfItsOwn) {
            GTEST_SKIP() << "this machine lets nobody mount a file system of their own here";
        }
        EXPECT_EQ(verdict, good);
    }
}

}  // namespace
}  // namespace quillmere::test
