#include "base/text/xml.hpp"

#include <algorithm>
#include <array>

namespace quillmere::base {
namespace {

struct Escape {
    std::string_view text;
    std::string_view markup;
};

constexpr auto escapes = std::to_array<Escape>({
    {"&", "&amp;"},
    {"<", "&lt;"},
    {">", "&gt;"},
    {"\"", "&quot;"},
    {"'", "&#39;"},  // HTML 4 has no &apos;
    {"\uFFFE", "\uFFFD"},
    {"\uFFFF", "\uFFFD"},
});

}  // namespace

std::string escapedForXml(std::string_view text)
{
    std::string markup;
    while (!text.empty()) {
        const auto escape = std::find_if(escapes.begin(), escapes.end(),
                                         [text](const Escape& each) { return text.starts_with(each.text); });
        const bool isEscaped = escape != escapes.end();
        markup += isEscaped ? escape->markup : text.substr(0, 1);
        text.remove_prefix(isEscaped ? escape->text.size() : 1);
    }
    return markup;
}

}  // namespace quillmere::base
