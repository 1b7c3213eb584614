// Figures that several parts of the JSON of a look back have.
#pragma once

#include "base/json.hpp"
#include "figures/look_back.hpp"

#include <optional>

namespace quillmere::lookback {

/// "2026-11-15"; null for none.
base::Json dayJson(const std::optional<figures::Day>& day);

/// Null for a mean of nothing.
base::Json meanJson(const figures::Ratings& ratings);

/// {"yes": 9, "half": 3, "no": 1}.
base::Json completionsJson(const figures::Completions& completions);

/// Rounded down; null for none.
base::Json secondsJson(const std::optional<double>& seconds);

}  // namespace quillmere::lookback
