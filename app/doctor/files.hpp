// The paths of the program's own files and directories.
#pragma once

#include "doctor/subject.hpp"

#include <filesystem>
#include <vector>

namespace quillmere::doctor {

std::filesystem::path stateFile(const Subject& subject);

/// The agent's summary and the widget's. They need not exist.
std::vector<std::filesystem::path> summaryFiles(const Subject& subject);

/// The directory of the three files, that of the widget's summary and that of versions, drafts and notices,
/// each once, as far as they exist.
std::vector<std::filesystem::path> ownDirectories(const Subject& subject);

/// The three files as far as they exist.
std::vector<std::filesystem::path> ownFiles(const Subject& subject);

/// All of these.
std::vector<std::filesystem::path> ownPaths(const Subject& subject);

}  // namespace quillmere::doctor
