// A value that a shell offers while a line is typed.
#pragma once

#include <string>
#include <vector>

namespace quillmere::cli {

struct Candidate {
    std::string value;        ///< as it would be typed, without quotation marks
    std::string description;  ///< by which a person recognises it; may be empty
};

using Candidates = std::vector<Candidate>;

}  // namespace quillmere::cli
