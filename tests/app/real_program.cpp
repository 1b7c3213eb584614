#include "real_program.hpp"

#include <fcntl.h>
#include <spawn.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <utility>

extern char** environ;  // NOLINT(readability-redundant-declaration): not everywhere declared

namespace quillmere::test {
namespace {

/// What the new process does before it becomes the program.
class FileActions {
public:
    FileActions() { ::posix_spawn_file_actions_init(&actions_); }
    FileActions(const FileActions&) = delete;
    FileActions& operator=(const FileActions&) = delete;
    ~FileActions() { ::posix_spawn_file_actions_destroy(&actions_); }

    void open(int number, const std::filesystem::path& file, int flags)
    {
        ::posix_spawn_file_actions_addopen(&actions_, number, file.c_str(), flags, 0600);
    }

    void lead(int number, const Channel& channel, const std::filesystem::path& usual, int flags)
    {
        switch (channel.kind) {
            case Channel::Kind::usual: open(number, usual, flags); break;
            case Channel::Kind::file: open(number, channel.file, flags); break;
            case Channel::Kind::closed: ::posix_spawn_file_actions_addclose(&actions_, number); break;
        }
    }

    const posix_spawn_file_actions_t* get() const { return &actions_; }

private:
    posix_spawn_file_actions_t actions_;
};

pid_t spawn(const Words& arguments, const FileActions& actions)
{
    Words words = {QUILLMERE_PROGRAM};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    for (std::string& word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    pid_t process = -1;
    EXPECT_EQ(::posix_spawn(&process, QUILLMERE_PROGRAM, actions.get(), nullptr, pointers.data(), environ),
              0);
    return process;
}

int endOf(pid_t process)
{
    int status = 0;
    while (::waitpid(process, &status, 0) == -1 && errno == EINTR) {
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace

RealProgram::RealProgram(const Words& arguments, const Channels& channels)
{
    FileActions actions;
    actions.lead(STDIN_FILENO, channels.in, "/dev/null", O_RDONLY);
    actions.lead(STDOUT_FILENO, channels.out, caught_.path() / "out", O_WRONLY | O_CREAT);
    actions.lead(STDERR_FILENO, channels.err, caught_.path() / "err", O_WRONLY | O_CREAT);
    process_ = spawn(arguments, actions);
}

RealProgram::~RealProgram()
{
    if (process_ != -1) {
        endOf(process_);
    }
}

ProcessEnding RealProgram::wait()
{
    const int code = endOf(std::exchange(process_, -1));
    const auto caught = [&](const char* name) {
        const std::filesystem::path file = caught_.path() / name;
        return std::filesystem::exists(file) ? textOf(file) : std::string();
    };
    return {.code = code, .out = caught("out"), .err = caught("err")};
}

ProcessEnding onTerminal(const Words& arguments, const std::string& typed)
{
    const int screen = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    EXPECT_EQ(::grantpt(screen), 0);
    EXPECT_EQ(::unlockpt(screen), 0);
    const std::filesystem::path terminal = ::ptsname(screen);
    // Held open until the end, so that what is typed ahead is not lost.
    const int held = ::open(terminal.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    EXPECT_EQ(::write(screen, typed.data(), typed.size()), static_cast<ssize_t>(typed.size()));
    FileActions actions;
    for (const int channel : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        actions.open(channel, terminal, O_RDWR | O_NOCTTY);
    }
    const pid_t process = spawn(arguments, actions);
    ::close(held);
    ProcessEnding ending{};
    std::array<char, 4096> characters;
    for (ssize_t count = 0; (count = ::read(screen, characters.data(), characters.size())) > 0;) {
        ending.out.append(characters.data(), static_cast<std::size_t>(count));
    }
    ending.code = endOf(process);
    ::close(screen);
    std::erase(ending.out, '\r');
    return ending;
}

}  // namespace quillmere::test
