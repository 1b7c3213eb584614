// Errors that last, reported once.
#pragma once

#include "base/system/line_writer.hpp"

#include <string>

namespace quillmere::notices {

/// Reports an error when it begins and when it is over, however often it occurs in between.
class ErrorThrottle {
public:
    explicit ErrorThrottle(base::LineWriter& messages) : messages_(messages) {}

    /// Prints `message` unless the present error is of the same `kind`. The kind decides because texts may
    /// differ each time, for example by the name of a temporary file.
    void report(const std::string& kind, const std::string& message);

    /// Ends the present error, if there is one, and prints `message` then.
    void resolve(const std::string& message);

private:
    base::LineWriter& messages_;
    std::string present_;  ///< the kind; empty: no error
};

}  // namespace quillmere::notices
