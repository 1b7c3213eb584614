// The table: what may be wrong with a directory, and what each call does then.
#pragma once

#include <array>
#include <span>

#include "columns.hpp"

namespace quillmere::test {

/// One situation; what each column does in it, in the words of `Conduct`.
struct Situation {
    const char* name;
    void (*make)(Scene& scene);
    std::array<const char*, columnCount> expected;
};

/// The directory itself.
std::span<const Situation> directorySituations();

/// What stands where a file should.
std::span<const Situation> fileSituations();

/// The file creation mask and the environment, in which the directory is found.
std::span<const Situation> processSituations();

}  // namespace quillmere::test
