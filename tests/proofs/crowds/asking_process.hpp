// The real program asking a question.
#pragma once

#include <filesystem>
#include <string>

#include "support/process.hpp"
#include "support/process_settings.hpp"

namespace quillmere::test {

inline constexpr int isDone = 0;
inline constexpr int isLockedOut = 75;  ///< nothing was written; the command can be repeated
inline constexpr int isKilled = 128 + 9;

/// Starts "quillmere ask QUESTION" in a directory and discards its output.
Process startAsking(const std::filesystem::path& directory, const std::string& question);

/// Asks, and repeats while the directory is locked. Returns the last exit code.
int ask(const std::filesystem::path& directory, const std::string& question);

/// While an object exists, started programs preload `library` and have the environment variable `variable`
/// set to `value`.
class Preloaded {
public:
    Preloaded(const char* library, const char* variable, const std::string& value);

private:
    EnvironmentVariable library_;
    EnvironmentVariable value_;
    EnvironmentVariable sanitizer_;
};

}  // namespace quillmere::test
