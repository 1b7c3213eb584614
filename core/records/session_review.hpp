// The person's review of a focus session.
#pragma once

#include <quillmere/records/completion_result.hpp>
#include <quillmere/records/identifier.hpp>

#include <string>

namespace quillmere {

struct SessionReview {
    Identifier id;
    CompletionResult completion;
    std::string noteworthyResult;
    std::string distractions;
    std::string improvement;

    friend bool operator==(const SessionReview&, const SessionReview&) = default;
};

}  // namespace quillmere
