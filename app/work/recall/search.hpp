// Finding blocks by the words recorded of them.
#pragma once

#include "base/text/local_time.hpp"

#include <quillmere/records/block.hpp>

#include <string>
#include <string_view>

namespace quillmere::work {

/// A text to look for, in either case of letters.
class SearchedText {
public:
    explicit SearchedText(std::string_view text);

    /// Whether it occurs in a text of the block's account (block_account.hpp). An empty one occurs in each.
    bool occursIn(const Block& block, const base::SeenFrom& here) const;

private:
    std::string folded_;
};

}  // namespace quillmere::work
