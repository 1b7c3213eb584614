// The real program as it raises a question.
#pragma once

#include <filesystem>
#include <string>

#include "support/process.hpp"
#include "support/process_settings.hpp"

namespace quillmere::test {

inline constexpr int isDone = 0;
inline constexpr int isLockedOut = 75;  ///< nothing was written; trying again helps
inline constexpr int isKilled = 128 + 9;

/// Starts "quillmere ask QUESTION" in a directory. Nobody reads what it prints.
Process startAsking(const std::filesystem::path& directory, const std::string& question);

/// Asks, again and again as long as others keep the directory locked; the last exit code.
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
