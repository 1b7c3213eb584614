// Ends the program when a precondition is broken.
#pragma once

#include <string_view>

namespace quillmere {

/// Writes `message` and a line break to standard error and aborts, in release builds too. For errors in the
/// program itself, after which no result would be right. Errors that a caller can handle are exceptions.
[[noreturn]] void fatalError(std::string_view message) noexcept;

}  // namespace quillmere
