// The prompts for the outcomes of a block.
#pragma once

#include "cli/field_prompts.hpp"
#include "cli/prompt.hpp"
#include "work/fields/field_value.hpp"

#include <quillmere/records/block.hpp>

#include <optional>
#include <vector>

namespace quillmere::cli {

/// Asks for the title of each outcome, then for titles of new outcomes until an answer is empty. Enter keeps
/// an outcome, "-" removes it, and another title changes it; its identifier stays. Before a removal, calls
/// `requireRemovable` with the identifier of the outcome. Absent: no outcome was changed.
std::optional<std::vector<work::ListItem>> askForOutcomes(const Asking& asking, const Block& present,
                                                          const Require& requireRemovable = {});

}  // namespace quillmere::cli
