// Findings on the directory of the files: which one it is, whose, and where links lead.
#pragma once

#include "doctor/check.hpp"
#include "doctor/examined.hpp"
#include "doctor/file_system.hpp"

#include <optional>

namespace quillmere::doctor {

/// Whether the directory exists and files can be made in it, why it is this one, and on what file system.
std::optional<Finding> directoryFinding(const Examined& examined);

/// The finding on a directory in which files can be made. `text` names the directory and its file system.
Finding fileSystemFinding(const std::string& text, const FileSystemType& type);

/// Whether directory and files belong to the user of this process.
std::optional<Finding> ownerFinding(const Examined& examined);

/// Symbolic links: a change would replace a linked file by a new one, and two directories linked to one file
/// would have two locks, so that the state must not be a link. The directory may be one.
std::optional<Finding> linksFinding(const Examined& examined);

}  // namespace quillmere::doctor
