// Refusals of the program itself; the library has its own.
#pragma once

#include <stdexcept>
#include <string>

namespace quillmere::base {

/// Thrown before anything is written, unless the function that throws says otherwise. The message is for the
/// user. The kind tells a surface how to continue, and the command line its exit code.
class Refusal : public std::runtime_error {
public:
    enum class Kind {
        invalidRequest,  ///< the request contradicts itself or names something that does not exist
        unusableData,    ///< a file has the wrong content
        fileError,       ///< the system refused an operation
        busy,            ///< another program holds the lock of the directory; retrying helps
    };

    Refusal(Kind kind, const std::string& message) : std::runtime_error(message), kind_(kind) {}

    Kind kind() const noexcept { return kind_; }

private:
    Kind kind_;
};

}  // namespace quillmere::base
