// The ratings of a session plan, energy and morale. They are the person's own: the program invents none.
#pragma once

#include "cli/text_options.hpp"

namespace quillmere::cli {

bool isRating(const work::RecordField<SessionPlan>& field);

/// Throws ProgramError (`usage`), which names the options, unless each rating was given or asked for.
void requireRatings(const RecordOptions<SessionPlan>& options);

}  // namespace quillmere::cli
