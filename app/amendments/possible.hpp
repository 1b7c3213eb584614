// Which amendments fit where the work stands.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <string_view>
#include <vector>

namespace quillmere::amendments {

enum class Kind {
    backOut,
    drop,
    finishNow,
    finishWithReview,
    change,
    changeLength,
    goOn,
    forgotToEnd,
    wasAway,
    correct,
    deleteBlock,
    reset,
};

/// Whether the amendment fits. It then succeeds, given values that it accepts.
bool isPossible(Kind kind, const QuillmereState& state);

/// The commands of the amendments that fit, each once: "finish", "change". Without those for records of the
/// past, which fit nearly always.
std::vector<std::string_view> possibleCommands(const QuillmereState& state);

}  // namespace quillmere::amendments
