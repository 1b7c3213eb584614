#include "notices/error_throttle.hpp"

namespace quillmere::notices {

void ErrorThrottle::report(const std::string& kind, const std::string& message)
{
    if (kind != present_) {
        messages_.say(message);
        present_ = kind;
    }
}

void ErrorThrottle::resolve(const std::string& message)
{
    if (!present_.empty()) {
        messages_.say(message);
        present_.clear();
    }
}

}  // namespace quillmere::notices
