// The look back as JSON.
#pragma once

#include "base/json.hpp"
#include "figures/look_back.hpp"

namespace quillmere::lookback {

/// All figures. Times are whole seconds, rounded down. A mean of nothing and a day or streak that does not
/// exist are null. Days, weeks and months without figures are left out.
base::Json lookBackJson(const figures::LookBack& look);

}  // namespace quillmere::lookback
