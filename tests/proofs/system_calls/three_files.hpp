// The three files of a person, before and after one question of "quillmere ask".
#pragma once

#include <quillmere/store/state_store.hpp>
#include <quillmere/widget/widget_snapshot_store.hpp>

#include <filesystem>
#include <string>
#include <vector>

#include "proofs/system_calls/version.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {

class ThreeFiles {
public:
    /// Makes a new directory; with an earlier version if `before` says so.
    explicit ThreeFiles(Before before);

    /// The parent of the files' directory, or of the missing directory above it. Contains nothing else.
    const std::filesystem::path& home() const { return home_.path(); }
    const std::filesystem::path& directory() const { return directory_; }

    /// The arguments of the command that asks the question.
    static std::vector<std::string> asking() { return {"ask", "May I?"}; }

    /// The versions of the state, the agent's summary and the widget's. `older` is byte-identical; `newer` is
    /// the earlier state with the question, or a summary of that.
    std::vector<Version> versions() const;

    /// Whether both summaries are those of the state, whatever the state is.
    bool agree() const;

    /// The names of all other files.
    std::vector<std::string> others() const;

private:
    TemporaryDirectory home_;
    std::filesystem::path directory_;
    StateStore states_;
    WidgetSnapshotStore widget_;
    QuillmereState older_;
    std::vector<std::string> olderTexts_;  ///< empty for missing files
};

}  // namespace quillmere::test
