// How a person divides and reads time, from their configuration.
#pragma once

#include "config/values.hpp"
#include "figures/habits.hpp"

namespace quillmere::work {

figures::Habits habitsOf(const config::Values& values);

}  // namespace quillmere::work
