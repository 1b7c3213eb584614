// Failures in words.
#pragma once

#include <string>
#include <system_error>

namespace quillmere::base {

/// "open: Permission denied: /some/file": the call, the reason and the path, as far as they are known.
std::string fileErrorText(const std::system_error& error);

/// What an exception of the library, the program or the system says to a person.
std::string failureText(const std::exception& error);

}  // namespace quillmere::base
