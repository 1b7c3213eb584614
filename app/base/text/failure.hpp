// Errors as messages.
#pragma once

#include <exception>
#include <string>
#include <string_view>
#include <system_error>

namespace quillmere::base {

/// "open: Permission denied: /some/file": the call, the reason and the paths, as far as they are known.
std::string fileErrorText(const std::system_error& error);

/// The message for the user of a state file that cannot be used, with the reason and the way out.
std::string unusableStateText(std::string_view reason);

/// The message for the user of an exception of the library, the program or the system.
std::string failureText(const std::exception& error);

}  // namespace quillmere::base
