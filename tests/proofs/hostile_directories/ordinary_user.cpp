#include "ordinary_user.hpp"

#include "listing.hpp"

#include <grp.h>
#include <stdlib.h>
#include <string.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <chrono>
#include <iostream>
#include <utility>
#include <vector>

#include "support/process.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

constexpr uid_t superuser = 0;
constexpr uid_t nobody = 65534;
constexpr gid_t noGroup = 65534;

/// Candidates for temporary files: TMPDIR, memory, the usual directories.
std::vector<fs::path> places()
{
    std::vector<fs::path> all = {"/dev/shm", "/tmp", "/var/tmp"};
    if (const char* const chosen = ::getenv("TMPDIR")) {
        all.insert(all.begin(), chosen);
    }
    return all;
}

/// Whether an ordinary user can create files there.
bool isReachable(const fs::path& directory)
{
    const auto tryIt = [&]() -> std::string {
        return becomeOrdinaryUser() && ::access(directory.c_str(), R_OK | W_OK | X_OK) == 0 ? "yes" : "no";
    };
    constexpr unsigned seconds = 20;
    return resultOfChild(tryIt, seconds).result == "yes";
}

}  // namespace

ChildResult resultOfChild(const std::function<std::string()>& work, unsigned seconds)
{
    const auto limited = [&] {
        ::alarm(seconds);
        std::cout << work();
        return 0;
    };
    // The alarm must end the child before the outer limit does.
    const ProcessEnding ending = run({.work = limited}, std::chrono::seconds(seconds) + patience);
    std::string result = ending.out;
    if (ending.signal != 0) {
        result = std::string("SIG") + ::sigabbrev_np(ending.signal);
    } else if (result.empty() || ending.code != 0) {
        result = "exit " + std::to_string(ending.code);
    }
    return {.result = std::move(result), .errors = ending.err, .memory = ending.mostMemory};
}

bool becomeOrdinaryUser()
{
    if (::geteuid() != superuser) {
        return true;
    }
    const bool done = ::setgroups(0, nullptr) == 0 && ::setresgid(noGroup, noGroup, noGroup) == 0 &&
                      ::setresuid(nobody, nobody, nobody) == 0;
    // The sanitizers read /proc/self, which becomes inaccessible after a change of the user.
    ::prctl(PR_SET_DUMPABLE, 1);
    return done;
}

WritableDirectory::WritableDirectory()
{
    for (const fs::path& place : places()) {
        std::string name = (place / "quillmere-hostile-XXXXXX").string();
        if (!::mkdtemp(name.data())) {
            continue;
        }
        const bool given = ::geteuid() != superuser || ::chown(name.c_str(), nobody, noGroup) == 0;
        if (given && isReachable(name)) {
            path_ = name;
            return;
        }
        fs::remove_all(name);
    }
}

WritableDirectory::~WritableDirectory()
{
    if (!path_.empty()) {
        removeTree(path_);
    }
}

}  // namespace quillmere::test
