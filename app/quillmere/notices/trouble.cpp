#include "notices/trouble.hpp"

#include "text/inert.hpp"

#include <ostream>

namespace quillmere::app {

void Trouble::met(const std::string& message)
{
    if (message != present_) {
        messages_ << inert(message) << std::endl;
        present_ = message;
    }
}

void Trouble::isOver(const std::string& message)
{
    if (!present_.empty()) {
        messages_ << inert(message) << std::endl;
        present_.clear();
    }
}

}  // namespace quillmere::app
