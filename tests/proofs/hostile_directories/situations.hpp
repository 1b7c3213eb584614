// The table of unusual conditions of a directory, and the expected outcome of each operation.
#pragma once

#include <array>
#include <span>

#include "operations.hpp"

namespace quillmere::test {

/// One situation, and the expected outcome of each operation in it (`Outcome::words`).
struct Situation {
    const char* name;
    void (*make)(Scene& scene);
    std::array<const char*, operationCount> expected;
};

/// The directory itself.
std::span<const Situation> directorySituations();

/// Other things in place of a file.
std::span<const Situation> fileSituations();

/// The file creation mask, and the environment that determines the directory.
std::span<const Situation> processSituations();

}  // namespace quillmere::test
