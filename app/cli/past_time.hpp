// Times of the past, as they are given on the command line.
#pragma once

#include <quillmere/records/instant.hpp>

#include <string>

namespace quillmere::cli {

/// The instant of "14:20" or "2026-11-15 14:20", with or without seconds (base::pastInstantFromLocalText).
/// Throws ProgramError (`usage`) for any other text; `option` names the option, without dashes.
Instant pastTime(const std::string& option, const std::string& text, Instant now);

}  // namespace quillmere::cli
