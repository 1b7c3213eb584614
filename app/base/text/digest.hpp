// Short names for long texts.
#pragma once

#include <string>
#include <string_view>

namespace quillmere::base {

/// Sixteen hexadecimal digits that depend on the bytes alone: the same on every machine and in every run.
/// To tell texts apart, not to protect them.
std::string digest(std::string_view text);

}  // namespace quillmere::base
