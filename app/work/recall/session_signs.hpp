// Sessions as signs: done, half, not, running, to come.
#pragma once

#include <quillmere/records/block.hpp>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmere::work {

/// "✓", "½" or "✗" by the review; "◐" while there is none.
std::string_view signOf(const WorkSession& session);

/// By its review; absent while there is none.
std::optional<CompletionResult> completionOf(const WorkSession& session);

/// The sign and the number: "✓ 3".
std::string labelOf(const WorkSession& session);

/// A session as a sign, or the number of the sessions of one result.
struct SessionSign {
    std::string text;
    std::optional<CompletionResult> completion;  ///< absent for sessions without a review
};

/// The parts of `signsOf`, for surfaces that colour them.
std::vector<SessionSign> sessionSigns(const Block& block);

/// The sessions in order, "·" for those to come: "✓ ½ ◐ · ·". Of many sessions the numbers: "9 ✓ 2 ½ 1 ✗ of
/// 30".
std::string signsOf(const Block& block);

}  // namespace quillmere::work
