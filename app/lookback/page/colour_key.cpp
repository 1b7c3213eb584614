#include "lookback/page/colour_key.hpp"

#include "lookback/page/markup.hpp"

namespace quillmere::lookback {

std::string keyOf(const std::vector<KeyEntry>& entries)
{
    std::string markup;
    for (const KeyEntry& entry : entries) {
        markup +=
            element("span", {{"class", "key"}},
                    element("span", {{"class", "swatch " + entry.colourClass}, {"aria-hidden", "true"}}) +
                        escaped(entry.text));
    }
    return element("p", {{"class", "keys"}}, markup);
}

}  // namespace quillmere::lookback
