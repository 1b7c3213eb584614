// The operations to try in a scene.
#pragma once

#include <array>
#include <span>
#include <string>
#include <vector>

#include "scene.hpp"

namespace quillmere::test {

/// One operation, and the files that a successful run changes.
struct Operation {
    const char* title;
    std::string (*act)(const Scene& scene);  ///< in a child process; describes its result
    std::vector<std::string> writes;         ///< sorted
};

inline constexpr std::size_t operationCount = 8;

const std::array<Operation, operationCount>& operations();

/// Opens the program's file in advance, because an ordinary user may not reach its directory.
void openProgram();

}  // namespace quillmere::test
