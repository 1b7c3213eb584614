#include "proofs/crowds/asking_process.hpp"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <stdexcept>
#include <utility>

namespace quillmere::test {

AskingProcess::AskingProcess(const std::filesystem::path& directory, const std::string& question)
{
    std::array<std::string, 5> words = {QUILLMERE_PROGRAM, "--directory", directory.string(), "ask",
                                        question};
    std::array<char*, words.size() + 1> pointers = {};
    for (std::size_t index = 0; index < words.size(); ++index) {
        pointers[index] = words[index].data();
    }
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    for (const int channel : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        ::posix_spawn_file_actions_addopen(&actions, channel, "/dev/null", O_RDWR, 0);
    }
    const int failure =
        ::posix_spawn(&process_, QUILLMERE_PROGRAM, &actions, nullptr, pointers.data(), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    if (failure != 0) {
        throw std::runtime_error("the program cannot be started");
    }
}

AskingProcess::~AskingProcess()
{
    if (process_ != -1) {
        wait();
    }
}

void AskingProcess::kill() { ::kill(process_, SIGKILL); }

int AskingProcess::wait()
{
    const pid_t process = std::exchange(process_, -1);
    int status = 0;
    while (::waitpid(process, &status, 0) == -1 && errno == EINTR) {
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

int ask(const std::filesystem::path& directory, const std::string& question)
{
    int code = isLockedOut;
    while (code == isLockedOut) {
        code = AskingProcess(directory, question).wait();
    }
    return code;
}

// The address sanitizer wants to be the first library, but gets along; what leaks is for other tests.
Preloaded::Preloaded(const char* library, const char* variable, const std::string& value)
    : library_("LD_PRELOAD", library),
      value_(variable, value),
      sanitizer_("ASAN_OPTIONS", "verify_asan_link_order=0:detect_leaks=0")
{
}

}  // namespace quillmere::test
