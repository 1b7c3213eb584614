// A few facts of a recall, for little room.
#pragma once

#include "work/forms/form.hpp"
#include "work/recall/passage.hpp"

#include <cstddef>
#include <vector>

namespace quillmere::work {

/// At most `most` facts, in their order and without ratings. One of each passage is preferred, of a review
/// what is to be done better.
std::vector<Fact> briefOf(Recall recall, std::size_t most);

/// The recall without what the form shows anyway: its reminder, and the values that it began with.
Recall beside(const Form& form, Recall recall);

}  // namespace quillmere::work
