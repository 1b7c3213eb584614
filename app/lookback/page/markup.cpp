#include "lookback/page/markup.hpp"

#include "base/text/sanitize.hpp"
#include "base/text/xml.hpp"

#include <array>
#include <charconv>

namespace quillmere::lookback {

std::string escaped(std::string_view text) { return base::escapedForXml(base::sanitized(text)); }

std::string element(std::string_view name, std::initializer_list<Attribute> attributes,
                    std::string_view content)
{
    std::string markup = "<" + std::string(name);
    for (const Attribute& attribute : attributes) {
        markup.append(" ").append(attribute.name).append("=\"").append(escaped(attribute.value)).append("\"");
    }
    return markup.append(">").append(content).append("</").append(name).append(">");
}

std::string coordinate(double value)
{
    std::array<char, 64> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, 1).ptr;
    return {text.data(), end};
}

}  // namespace quillmere::lookback
