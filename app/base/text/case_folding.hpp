// Comparing texts without regard to case.
#pragma once

#include <string>
#include <string_view>

namespace quillmere::base {

/// The text with the differences of case removed, in any script (Unicode Standard, 3.13, default case
/// folding). Ill-formed bytes become U+FFFD.
std::string caseFolded(std::string_view text);

}  // namespace quillmere::base
