// What is called in a scene.
#pragma once

#include <array>
#include <span>
#include <string>
#include <vector>

#include "scene.hpp"

namespace quillmere::test {

/// One call, and the files that it changes when all is well.
struct Column {
    const char* title;
    std::string (*act)(const Scene& scene);  ///< in a process of its own; says what came of it
    std::vector<std::string> writes;         ///< sorted
};

inline constexpr std::size_t columnCount = 8;

const std::array<Column, columnCount>& columns();

/// Opens the program while this process may still do so, for processes that may not get to it.
void keepProgram();

}  // namespace quillmere::test
