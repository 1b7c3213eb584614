// The part of a state file that a change of the present leaves as it is.
#pragma once

#include "statefile/window.hpp"

#include <quillmere/records/quillmere_state.hpp>
#include <quillmere/store/replace_item.hpp>

#include <filesystem>
#include <utility>
#include <vector>

namespace quillmere::statefile {

/// Elements of a list that follow each other in the file, without the commas around them; may be empty.
struct Run {
    std::size_t begin = 0;
    std::size_t end = 0;

    bool isEmpty() const { return begin == end; }
};

/// The closed questions and the earlier blocks of a file.
class KeptPart {
public:
    /// `questions` has one run before each question of `state` and one after the last; `blocks` follow those
    /// of `state`.
    KeptPart(OpenFile file, std::vector<Run> questions, Run blocks, const QuillmereState& state);

    /// Replaces the file of the state by one with `state` and this part. `state` has the questions and blocks
    /// that were read, changed as may be, new questions after and new blocks before them; anything else is a
    /// fatal error. Throws what writeAtomically throws, EBUSY when somebody has written to the old file since
    /// it was opened, and EncodingError.
    void save(const QuillmereState& state, const std::filesystem::path& file,
              const ReplaceItem& replaceItem) const;

private:
    void requireSameRecords(const QuillmereState& state) const;

    OpenFile file_;
    std::vector<Run> questions_;
    Run blocks_;
    std::vector<Identifier> questionsRead_;
    std::vector<Identifier> blocksRead_;
};

}  // namespace quillmere::statefile
