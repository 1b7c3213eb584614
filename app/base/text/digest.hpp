// Short names for long texts.
#pragma once

#include <string>
#include <string_view>

namespace quillmere::base {

/// A hash of 16 hexadecimal digits, the same on every machine and in every run. Not for security.
std::string digest(std::string_view text);

}  // namespace quillmere::base
