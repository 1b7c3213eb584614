// A refusal of the program itself, beside those of the library.
#pragma once

#include <stdexcept>
#include <string>

namespace quillmere::base {

/// Thrown before anything is written, unless the thrower says otherwise. The message is for the person; the
/// kind tells a surface how to go on, and the command line which exit code fits.
class Refusal : public std::runtime_error {
public:
    enum class Kind {
        invalidRequest,  ///< the request cannot be meant as it stands
        unusableData,    ///< a file does not hold what it should
        fileError,       ///< the system refuses
        busy,            ///< another program holds the directory; trying again helps
    };

    Refusal(Kind kind, const std::string& message) : std::runtime_error(message), kind_(kind) {}

    Kind kind() const noexcept { return kind_; }

private:
    Kind kind_;
};

}  // namespace quillmere::base
