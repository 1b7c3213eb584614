// The operations to try in a scene.
#pragma once

#include <sys/types.h>

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
    mode_t ofFiles = 0644;                   ///< the usual mode of files that it makes
    mode_t ofParents = 0755;                 ///< the usual mode of parents of the directory
};

inline constexpr std::size_t operationCount = 8;

const std::array<Operation, operationCount>& operations();

/// Opens the program's file in advance, because an ordinary user may not reach its directory.
void openProgram();

}  // namespace quillmere::test
