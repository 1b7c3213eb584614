// What is tried in a scene.
#pragma once

#include <array>
#include <span>
#include <string>
#include <vector>

#include "scene.hpp"

namespace quillmere::test {

/// One operation, and the files that it changes when all is well.
struct Operation {
    const char* title;
    std::string (*act)(const Scene& scene);  ///< in a child process; its result in a few words
    std::vector<std::string> writes;         ///< sorted
};

inline constexpr std::size_t operationCount = 8;

const std::array<Operation, operationCount>& operations();

/// Opens the program while this process may still do so: an ordinary user may not reach its directory.
void openProgram();

}  // namespace quillmere::test
