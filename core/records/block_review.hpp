// The person's reflection at the end of a block.
#pragma once

#include <string>

namespace quillmere {

struct BlockReview {
    std::string outputProduced;
    std::string normalComparison;
    std::string boggedDown;
    std::string wentWell;
    std::string lessons;

    friend bool operator==(const BlockReview&, const BlockReview&) = default;
};

}  // namespace quillmere
