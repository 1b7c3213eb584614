// An earlier version of the state as text and as JSON.
#pragma once

#include "base/json.hpp"
#include "workspace/versions.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quillmere::cli {

/// A short summary by which a person recognises a version.
struct VersionContent {
    std::string_view phase;  ///< "Focus"
    bool isPaused;
    std::string outcome;
    std::size_t finishedBlocks;
};

struct ListedVersion {
    workspace::Version version;
    std::optional<VersionContent> content;  ///< absent when the file cannot be read
};

/// Reads a version; absent when its file was deleted.
std::optional<ListedVersion> listedVersion(const workspace::Version& version);

/// "2  2026-11-15 15:01:00  Focus, 0 finished blocks: Outline", sanitized.
std::string versionText(const ListedVersion& listed);

base::Json versionJson(const ListedVersion& listed);

}  // namespace quillmere::cli
