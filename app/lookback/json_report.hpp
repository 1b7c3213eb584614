// The look back for programs.
#pragma once

#include "base/json.hpp"
#include "figures/look_back.hpp"

namespace quillmere::lookback {

/// All figures. Times are whole seconds, rounded down; means and what is not known are null where there is
/// nothing to tell. Days, weeks and months are those with any figure.
base::Json lookBackJson(const figures::LookBack& look);

}  // namespace quillmere::lookback
