// The answers of a look back as JSON.
#pragma once

#include "base/json.hpp"
#include "figures/look_back.hpp"

namespace quillmere::lookback {

/// An object with a member for each question. docs/file-formats.md names all members.
base::Json answersJson(const figures::LookBack& look);

}  // namespace quillmere::lookback
