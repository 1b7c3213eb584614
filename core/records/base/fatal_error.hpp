// A broken precondition: the program itself is wrong and must not go on.
#pragma once

#include <string_view>

namespace quillmere {

/// Writes `message` and a line break to standard error and aborts, in release builds too. Used where
/// going on would mean inventing a value; whatever a caller can handle is an exception instead.
[[noreturn]] void fatalError(std::string_view message) noexcept;

}  // namespace quillmere
