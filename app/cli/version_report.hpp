// Earlier versions of the state as text and as JSON.
#pragma once

#include "base/json.hpp"
#include "base/text/hours.hpp"
#include "work/describe.hpp"
#include "workspace/workspace.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmere::cli {

/// A short summary by which a person recognises a version.
struct VersionContent {
    std::string_view phase;  ///< "Focus"
    bool isPaused;
    std::string outcome;
    std::int64_t finishedBlocks;
};

struct ListedVersion {
    workspace::Version version;
    std::optional<VersionContent> content;  ///< absent when the file cannot be read
    /// The changes by which the next newer state replaced it, in words; absent when one of the two cannot be
    /// read.
    std::optional<std::vector<std::string>> replacedBy;
};

/// Reads versions from the newest to the oldest, each once.
class VersionWalk {
public:
    /// For a single version: what replaced it stays unknown.
    VersionWalk() = default;
    /// Begins at the present state of the workspace. Where that cannot be read, what replaced the newest
    /// version stays unknown.
    explicit VersionWalk(const workspace::Workspace& workspace);

    /// Reads the next version; absent when its file was deleted.
    std::optional<ListedVersion> next(const workspace::Version& version);

private:
    std::optional<QuillmereState> newer_;
};

/// "2  2026-11-15 15:01:00  Focus, 0 finished blocks: Outline", sanitized.
std::string versionText(const ListedVersion& listed, base::Hours hours);

/// "    then: focus session 1 paused", sanitized; empty when nothing is known to have replaced the version.
std::string replacementText(const ListedVersion& listed);

base::Json versionJson(const ListedVersion& listed);

/// What restoring the version would take away and bring back, in lines.
std::string wayBackText(const workspace::Version& version, const work::WayBack& way);

base::Json wayBackJson(const workspace::Version& version, const work::WayBack& way);

}  // namespace quillmere::cli
