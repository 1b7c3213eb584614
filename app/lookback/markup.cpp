#include "lookback/markup.hpp"

#include "base/text/sanitize.hpp"

#include <array>
#include <charconv>

namespace quillmere::lookback {
namespace {

struct Entity {
    std::string_view text;
    std::string_view markup;
};

constexpr auto entities = std::to_array<Entity>({
    {"&", "&amp;"},
    {"<", "&lt;"},
    {">", "&gt;"},
    {"\"", "&quot;"},
    {"'", "&#39;"},
    {"\uFFFE", "\uFFFD"},  // no characters of XML
    {"\uFFFF", "\uFFFD"},
});

}  // namespace

std::string escaped(std::string_view text)
{
    const std::string harmless = base::sanitized(text);
    std::string markup;
    for (std::size_t place = 0; place < harmless.size();) {
        const std::string_view rest = std::string_view(harmless).substr(place);
        std::string_view written = rest.substr(0, 1);
        std::size_t length = 1;
        for (const Entity& entity : entities) {
            if (rest.starts_with(entity.text)) {
                written = entity.markup;
                length = entity.text.size();
            }
        }
        markup += written;
        place += length;
    }
    return markup;
}

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
