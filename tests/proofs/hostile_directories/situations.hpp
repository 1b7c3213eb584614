// The table: what may be wrong with a directory, and what each operation does then.
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

/// What stands where a file should.
std::span<const Situation> fileSituations();

/// The file creation mask and the environment, in which the directory is found.
std::span<const Situation> processSituations();

}  // namespace quillmere::test
