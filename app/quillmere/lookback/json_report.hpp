// The look back for programs.
#pragma once

#include "lookback/look_back.hpp"
#include "program.hpp"

namespace quillmere::app::lookback {

/// All figures. Times are whole seconds, rounded down; means and what is not known are null where there is
/// nothing to tell. Days, weeks and months are those with any figure.
Json lookBackJson(const LookBack& look);

}  // namespace quillmere::app::lookback
