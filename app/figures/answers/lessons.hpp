// What a person learned, in their own words.
#pragma once

#include "figures/look_back.hpp"

#include <string_view>
#include <vector>

namespace quillmere::figures {

/// A lesson of a block's reflection, or an improvement of a session's review. Points into the state.
struct Lesson {
    Day day;  ///< on which the block was finished, or the session ended
    const Block* block;
    const WorkSession* session;  ///< null for a lesson of the block
    std::string_view text;       ///< never blank
};

/// The newest first, by the starts of sessions; the lesson of a block comes with its last one.
std::vector<Lesson> lessonsOf(const LookBack& look);

}  // namespace quillmere::figures
