#include "support/process.hpp"

#include <fcntl.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <system_error>
#include <utility>

#include "support/process_start.hpp"

namespace quillmere::test {
namespace {

/// The whole content of a file, from its beginning.
std::string contentOf(const Descriptor& file)
{
    std::string text;
    std::array<char, 4096> some;
    ssize_t count = 0;
    while (file.isOpen() &&
           (count = ::pread(file.get(), some.data(), some.size(), static_cast<off_t>(text.size()))) > 0) {
        text.append(some.data(), static_cast<std::size_t>(count));
    }
    return text;
}

/// Waits until a read (POLLIN) or a write (POLLOUT) returns at once; false when that takes too long.
bool isReady(int descriptor, short events, std::chrono::milliseconds limit)
{
    pollfd poll{.fd = descriptor, .events = events, .revents = 0};
    int result = -1;
    while ((result = ::poll(&poll, 1, static_cast<int>(limit.count()))) == -1 && errno == EINTR) {
    }
    return result == 1;
}

/// Blocks SIGPIPE while a test writes to a child that may have exited.
class WithoutBrokenPipeSignal {
public:
    WithoutBrokenPipeSignal() : before_(std::signal(SIGPIPE, SIG_IGN)) {}
    WithoutBrokenPipeSignal(const WithoutBrokenPipeSignal&) = delete;
    WithoutBrokenPipeSignal& operator=(const WithoutBrokenPipeSignal&) = delete;
    ~WithoutBrokenPipeSignal() { std::signal(SIGPIPE, before_); }

private:
    void (*before_)(int);
};

}  // namespace

Process::Process(const ProcessOptions& options)
    : name_(options.words.empty() ? "a function in a child process" : options.words.front())
{
    StartedProcess started = startProcess(options);
    process_ = started.process;
    input_ = std::move(started.input);
    output_ = std::move(started.output);
    capturedOut_ = std::move(started.capturedOut);
    capturedErr_ = std::move(started.capturedErr);
}

Process::Process(Process&& other) noexcept
    : process_(std::exchange(other.process_, -1)),
      name_(std::move(other.name_)),
      input_(std::move(other.input_)),
      output_(std::move(other.output_)),
      capturedOut_(std::move(other.capturedOut_)),
      capturedErr_(std::move(other.capturedErr_)),
      unread_(std::move(other.unread_)),
      ending_(std::move(other.ending_))
{
}

Process::~Process()
{
    if (process_ != -1 && !ending_) {
        killGroup();
        while (::waitpid(process_, nullptr, 0) == -1 && errno == EINTR) {
        }
    }
}

bool Process::write(std::string_view text)
{
    const WithoutBrokenPipeSignal quietly;
    while (input_.isOpen() && !text.empty()) {
        if (!isReady(input_.get(), POLLOUT, patience)) {
            ADD_FAILURE() << name_ << " reads nothing; not written: " << text.size() << " bytes";
            return false;
        }
        // No more than there is room for in a pipe that is ready.
        const ssize_t count =
            ::write(input_.get(), text.data(), std::min<std::size_t>(text.size(), PIPE_BUF));
        if (count == -1 && errno != EINTR) {
            return false;
        }
        text.remove_prefix(count > 0 ? static_cast<std::size_t>(count) : 0);
    }
    return input_.isOpen();
}

bool Process::hasOutput() const { return !unread_.empty() || isReady(output_.get(), POLLIN, {}); }

bool Process::readMore()
{
    if (!isReady(output_.get(), POLLIN, patience)) {
        ADD_FAILURE() << name_ << " printed nothing more within the limit; unread: " << unread_ << err();
        return false;
    }
    std::array<char, 65'536> some;
    // Reading from a terminal whose other side is closed fails instead of returning 0.
    const ssize_t count = ::read(output_.get(), some.data(), some.size());
    unread_.append(some.data(), count > 0 ? static_cast<std::size_t>(count) : 0);
    return count > 0;
}

std::string Process::line()
{
    std::size_t end = std::string::npos;
    while ((end = unread_.find('\n')) == std::string::npos) {
        if (!readMore()) {
            ADD_FAILURE() << name_ << " printed no whole line, but: " << unread_ << err();
            return {};
        }
    }
    const std::string line = unread_.substr(0, end);
    unread_.erase(0, end + 1);
    return line;
}

std::string Process::rest()
{
    while (readMore()) {
    }
    return std::exchange(unread_, {});
}

std::string Process::out() const { return contentOf(capturedOut_); }

std::string Process::err() const { return contentOf(capturedErr_); }

void Process::send(int signal) const
{
    if (!ending_) {
        ::kill(process_, signal);
    }
}

void Process::killGroup() const
{
    ::kill(-process_, SIGKILL);
    // The child may have left its process group.
    ::kill(process_, SIGKILL);
}

bool Process::hasEnded()
{
    int status = 0;
    rusage used{};
    if (!ending_ && ::wait4(process_, &status, WNOHANG, &used) == process_) {
        constexpr std::size_t kilobyte = 1024;
        ending_ = ProcessEnding{.code = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status),
                                .signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0,
                                .mostMemory = static_cast<std::size_t>(used.ru_maxrss) * kilobyte};
    }
    return ending_.has_value();
}

bool Process::waitForStop()
{
    siginfo_t info{};
    EXPECT_TRUE(eventually([&] {
        // WNOWAIT keeps an exit available for `hasEnded`.
        constexpr int changes = WSTOPPED | WEXITED | WNOHANG | WNOWAIT;
        return ::waitid(P_PID, static_cast<id_t>(process_), &info, changes) == 0 && info.si_pid == process_;
    })) << name_;
    return info.si_code == CLD_STOPPED;
}

ProcessEnding Process::wait(std::chrono::milliseconds limit)
{
    const auto printed = [&] { return name_ + " still runs and has printed: " + out() + err(); };
    const testing::AssertionResult ended = eventually([&] { return hasEnded(); }, printed, limit);
    if (!ended) {
        ADD_FAILURE() << ended.message();
        killGroup();
        while (!hasEnded()) {
            ::usleep(1'000);
        }
    }
    ProcessEnding ending = *ending_;
    ending.out = out();
    ending.err = err();
    return ending;
}

ProcessEnding run(const ProcessOptions& options, std::chrono::milliseconds limit)
{
    return Process(options).wait(limit);
}

ProcessEnding runShell(const std::string& line, ProcessOptions options)
{
    options.words = {"/bin/sh", "-c", line};
    return run(options);
}

std::string shellWord(std::string_view text)
{
    std::string word = "'";
    for (const char character : text) {
        word += character == '\'' ? std::string("'\\''") : std::string(1, character);
    }
    return word + "'";
}

bool succeeds(const std::vector<std::string>& words)
{
    try {
        return run({.words = words}).code == 0;
    } catch (const std::system_error&) {
        return false;
    }
}

Descriptor openFifo(const std::filesystem::path& path)
{
    const int number = ::open(path.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
    if (number == -1) {
        throw std::system_error(errno, std::generic_category(), path.string());
    }
    return Descriptor(number);
}

}  // namespace quillmere::test
