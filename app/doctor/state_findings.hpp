// Findings on the content of the files.
#pragma once

#include "doctor/check.hpp"
#include "doctor/examined.hpp"

#include <optional>

namespace quillmere::doctor {

/// Whether the state can be read, decoded and used.
std::optional<Finding> stateFinding(const Examined& examined);

/// Whether both summaries say what follows from the state.
std::optional<Finding> summariesFinding(const Examined& examined);

/// Whether the clock is within the years of the files, 0000 to 9999, and not before the newest record: the
/// last change, a question, an answer or a version.
std::optional<Finding> clockFinding(const Examined& examined);

/// Whether an agent may ask a question now.
std::optional<Finding> agentFinding(const Examined& examined);

}  // namespace quillmere::doctor
