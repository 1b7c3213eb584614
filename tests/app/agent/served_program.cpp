#include "served_program.hpp"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <stdexcept>
#include <thread>
#include <utility>

extern char** environ;  // NOLINT(readability-redundant-declaration): not everywhere declared

namespace quillmere::test {
namespace {

using namespace std::chrono_literals;

constexpr auto patience = 30s;

struct Ends {
    int ours;
    int theirs;
};

/// A socket, as some clients give it; ours is not inherited.
Ends newChannel()
{
    std::array<int, 2> ends{};
    EXPECT_EQ(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()), 0);
    return {.ours = ends[0], .theirs = ends[1]};
}

/// A pipe, as others do.
Ends newPipe()
{
    std::array<int, 2> ends{};
    EXPECT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
    return {.ours = ends[0], .theirs = ends[1]};
}

}  // namespace

ServedProgram::ServedProgram(const std::filesystem::path& directory, const Words& more)
{
    const Ends in = newChannel();
    const Ends out = newPipe();
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, in.theirs, STDIN_FILENO);
    ::posix_spawn_file_actions_adddup2(&actions, out.theirs, STDOUT_FILENO);
    Words words = {QUILLMERE_PROGRAM, "--directory", directory.string(), "agent", "serve"};
    words.insert(words.end(), more.begin(), more.end());
    std::vector<char*> pointers;
    for (std::string& word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    EXPECT_EQ(::posix_spawn(&process_, QUILLMERE_PROGRAM, &actions, nullptr, pointers.data(), environ), 0);
    ::posix_spawn_file_actions_destroy(&actions);
    ::close(in.theirs);
    ::close(out.theirs);
    toServer_ = in.ours;
    fromServer_ = out.ours;
}

ServedProgram::~ServedProgram()
{
    closeInput();
    if (process_ != -1) {
        end();
    }
    closeOutput();
}

void ServedProgram::write(std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = ::send(toServer_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (count < 0 && errno != EINTR) {
            return;  // It has ended; tests that care see that by how.
        }
        bytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    }
}

void ServedProgram::send(const Json& message)
{
    note(message);
    write(message.dump() + '\n');
}

bool ServedProgram::readMore()
{
    const auto deadline = std::chrono::steady_clock::now() + patience;
    pollfd readable{fromServer_, POLLIN, 0};
    // An end of another program of this process may interrupt the wait.
    while (::poll(&readable, 1, 1000) != 1) {
        if (std::chrono::steady_clock::now() > deadline) {
            throw std::runtime_error("Nothing came.");
        }
    }
    std::array<char, 65536> bytes;
    const ssize_t count = ::read(fromServer_, bytes.data(), bytes.size());
    unread_.append(bytes.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    return count > 0;
}

Json ServedProgram::receive()
{
    std::size_t end = 0;
    while ((end = unread_.find('\n')) == std::string::npos) {
        if (!readMore()) {
            throw std::runtime_error("The program said no more.");
        }
    }
    const std::string line = unread_.substr(0, end);
    unread_.erase(0, end + 1);
    transcript_.server(line);
    return Json::parse(line);
}

Json ServedProgram::asked(const Json& request)
{
    send(request);
    return receive();
}

Json ServedProgram::called(const std::string& tool, const Json& arguments)
{
    const Json answer = asked(request(++requests_, "tools/call", toolCall(tool, arguments)));
    EXPECT_EQ(answer.at("id"), requests_);
    return answer.at("result").at("structuredContent");
}

void ServedProgram::closeInput()
{
    if (toServer_ != -1) {
        ::close(std::exchange(toServer_, -1));
    }
}

void ServedProgram::closeOutput()
{
    if (fromServer_ != -1) {
        ::close(std::exchange(fromServer_, -1));
    }
}

void ServedProgram::sendSignal(int signal) { ::kill(process_, signal); }

std::string ServedProgram::rest()
{
    while (readMore()) {
    }
    return std::exchange(unread_, {});
}

int ServedProgram::end()
{
    const pid_t process = std::exchange(process_, -1);
    int status = 0;
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (::waitpid(process, &status, WNOHANG) == 0) {
        if (std::chrono::steady_clock::now() > deadline) {
            ADD_FAILURE() << "The program does not end.";
            ::kill(process, SIGKILL);
            ::waitpid(process, &status, 0);
            break;
        }
        std::this_thread::sleep_for(1ms);
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace quillmere::test
