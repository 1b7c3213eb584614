// The prompts for the outcomes of a block.
#pragma once

#include "cli/field_prompts.hpp"
#include "cli/prompt.hpp"
#include "work/fields/field_value.hpp"

#include <quillmere/records/block.hpp>

#include <optional>
#include <vector>

namespace quillmere::cli {

/// Asks for the titles one by one; Enter keeps one, "-" removes it, another title leaves it its identifier.
/// An empty answer ends new ones. `requireRemovable` is given the identifier of one that is to be removed.
/// Absent: all stay as they are.
std::optional<std::vector<work::ListItem>> askForOutcomes(const Asking& asking, const Block& present,
                                                          const Require& requireRemovable = {});

}  // namespace quillmere::cli
