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
    /// In a directory of their own; with an earlier version when `before` says so.
    explicit ThreeFiles(Before before);

    /// The directory that the files' directory, or the missing one above it, is in; it holds nothing else.
    const std::filesystem::path& home() const { return home_.path(); }
    const std::filesystem::path& directory() const { return directory_; }

    /// The arguments that ask the question.
    static std::vector<std::string> asking() { return {"ask", "May I?"}; }

    /// The state, the agent's summary and the widget's: older is byte-identical; newer is the earlier state
    /// with the question, and what follows from it.
    std::vector<Version> versions() const;

    /// Whether both summaries say what follows from the state, whatever that is.
    bool agree() const;

    /// The names of everything else.
    std::vector<std::string> others() const;

private:
    TemporaryDirectory home_;
    std::filesystem::path directory_;
    StateStore states_;
    WidgetSnapshotStore widget_;
    QuillmereState older_;
    std::vector<std::string> olderTexts_;  ///< none where there was no file
};

}  // namespace quillmere::test
