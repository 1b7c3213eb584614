#include "lookback/export_text.hpp"

namespace quillmere::lookback {

std::string withoutControls(std::string_view text)
{
    std::string result;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        const bool isLayout = character == '\t' || character == '\n' || character == '\r';
        if ((byte < 0x20 && !isLayout) || byte == 0x7F) {
            result += "\uFFFD";
        } else {
            result += character;
        }
    }
    return result;
}

}  // namespace quillmere::lookback
