#include "notices/trouble.hpp"

namespace quillmere::app {

void Trouble::met(const std::string& kind, const std::string& message)
{
    if (kind != present_) {
        messages_.say(message);
        present_ = kind;
    }
}

void Trouble::isOver(const std::string& message)
{
    if (!present_.empty()) {
        messages_.say(message);
        present_.clear();
    }
}

}  // namespace quillmere::app
