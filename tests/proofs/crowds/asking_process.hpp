// The real program as it raises a question.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>

#include "support/process_settings.hpp"

namespace quillmere::test {

inline constexpr int isDone = 0;
inline constexpr int isLockedOut = 75;  ///< nothing was written; trying again helps
inline constexpr int isKilled = 128 + 9;

/// "quillmere ask QUESTION" in a directory. Nobody reads what it prints.
class AskingProcess {
public:
    AskingProcess(const std::filesystem::path& directory, const std::string& question);
    AskingProcess(const AskingProcess&) = delete;
    AskingProcess& operator=(const AskingProcess&) = delete;
    /// Waits for the end.
    ~AskingProcess();

    /// Kills it wherever it is.
    void kill();

    /// Waits for the end: the exit code, or 128 and the signal. Once.
    int wait();

private:
    pid_t process_ = -1;
};

/// Asks, again and again as long as others keep the directory locked; how it ended at last.
int ask(const std::filesystem::path& directory, const std::string& question);

/// As long as it lives, programs that are started load `library` before all others, and find `value` in
/// the environment.
class Preloaded {
public:
    Preloaded(const char* library, const char* variable, const std::string& value);

private:
    EnvironmentVariable library_;
    EnvironmentVariable value_;
    EnvironmentVariable sanitizer_;
};

}  // namespace quillmere::test
