// What goes wrong for a while.
#pragma once

#include "base/system/line_writer.hpp"

#include <string>

namespace quillmere::notices {

/// Says a trouble once, however often it is met, and once that it is over.
class ErrorThrottle {
public:
    explicit ErrorThrottle(base::LineWriter& messages) : messages_(messages) {}

    /// Says `message` unless the last trouble was of the same `kind`: texts may differ each time, by the name
    /// of a temporary file for one.
    void met(const std::string& kind, const std::string& message);

    /// Says `message` if there was trouble.
    void isOver(const std::string& message);

private:
    base::LineWriter& messages_;
    std::string present_;  ///< the kind; empty: none
};

}  // namespace quillmere::notices
