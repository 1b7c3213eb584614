#include "apart.hpp"

#include "listing.hpp"

#include <fcntl.h>
#include <grp.h>
#include <stdlib.h>
#include <string.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <exception>
#include <iostream>
#include <utility>

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

constexpr uid_t superuser = 0;
constexpr uid_t nobody = 65534;
constexpr gid_t noGroup = 65534;

void writeAll(int descriptor, const std::string& text)
{
    for (std::size_t done = 0; done < text.size();) {
        const ssize_t count = ::write(descriptor, text.data() + done, text.size() - done);
        if (count <= 0) {
            return;
        }
        done += static_cast<std::size_t>(count);
    }
}

std::string readAll(int descriptor)
{
    std::string text;
    std::array<char, 4096> some;
    for (ssize_t count = 0;
         (count = ::read(descriptor, some.data(), some.size())) > 0 || (count == -1 && errno == EINTR);) {
        text.append(some.data(), count > 0 ? static_cast<std::size_t>(count) : 0);
    }
    return text;
}

[[noreturn]] void workAndEnd(const std::function<std::string()>& work, unsigned seconds, int answers,
                             const fs::path& errors)
{
    ::alarm(seconds);
    const int caught = ::open(errors.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    ::dup2(caught, STDERR_FILENO);
    try {
        writeAll(answers, work());
    } catch (const std::exception& error) {
        writeAll(answers, error.what());
    }
    std::cout.flush();
    ::_exit(0);
}

std::string endingOf(int status)
{
    if (WIFSIGNALED(status)) {
        return std::string("SIG") + ::sigabbrev_np(WTERMSIG(status));
    }
    return "exit " + std::to_string(WEXITSTATUS(status));
}

/// The places where temporary files may be: the chosen one, one in memory, the usual ones.
std::vector<fs::path> places()
{
    std::vector<fs::path> all = {"/dev/shm", "/tmp", "/var/tmp"};
    if (const char* const chosen = ::getenv("TMPDIR")) {
        all.insert(all.begin(), chosen);
    }
    return all;
}

/// Whether an ordinary user can make files there.
bool isReachable(const fs::path& directory)
{
    const auto tryIt = [&]() -> std::string {
        return becomeOrdinaryUser() && ::access(directory.c_str(), R_OK | W_OK | X_OK) == 0 ? "yes" : "no";
    };
    constexpr unsigned seconds = 20;
    return apart(tryIt, seconds, "/dev/null").said == "yes";
}

}  // namespace

Apart apart(const std::function<std::string()>& work, unsigned seconds, const fs::path& errors)
{
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        throw std::system_error(errno, std::generic_category(), "pipe2");
    }
    std::cout.flush();
    const pid_t process = ::fork();
    if (process == 0) {
        workAndEnd(work, seconds, ends[1], errors);
    }
    ::close(ends[1]);
    Apart result;
    result.said = readAll(ends[0]);
    ::close(ends[0]);
    int status = 0;
    rusage used{};
    while (::wait4(process, &status, 0, &used) == -1 && errno == EINTR) {
    }
    if (result.said.empty() || WIFSIGNALED(status)) {
        result.said = endingOf(status);
    }
    constexpr std::size_t kilobyte = 1024;
    result.memory = static_cast<std::size_t>(used.ru_maxrss) * kilobyte;
    if (fs::is_regular_file(errors)) {
        result.errors = textOf(errors);
        fs::remove(errors);
    }
    return result;
}

bool becomeOrdinaryUser()
{
    if (::geteuid() != superuser) {
        return true;
    }
    const bool done = ::setgroups(0, nullptr) == 0 && ::setresgid(noGroup, noGroup, noGroup) == 0 &&
                      ::setresuid(nobody, nobody, nobody) == 0;
    // The sanitizers look into their own process, which one that changed its user may not.
    ::prctl(PR_SET_DUMPABLE, 1);
    return done;
}

Ground::Ground()
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

Ground::~Ground()
{
    if (!path_.empty()) {
        removeTree(path_);
    }
}

}  // namespace quillmere::test
