// What goes wrong for a while.
#pragma once

#include <iosfwd>
#include <string>

namespace quillmere::app {

/// Says a trouble once, however often it is met, and once that it is over.
class Trouble {
public:
    explicit Trouble(std::ostream& messages) : messages_(messages) {}

    /// Says `message` unless it was the last thing said.
    void met(const std::string& message);

    /// Says `message` if there was trouble.
    void isOver(const std::string& message);

private:
    std::ostream& messages_;
    std::string present_;  ///< empty: none
};

}  // namespace quillmere::app
