#include "screen/pages/page.hpp"

namespace quillmere::screen {

PageStep Page::press(const Key& key, const Room& room)
{
    if (!takesText() && key.kind == Key::Kind::escape) {
        return {goesBack() ? PageStep::Kind::stays : PageStep::Kind::leaves};
    }
    if (!takesText() && types(key, "q")) {
        return {PageStep::Kind::quits};
    }
    return take(key, room);
}

bool types(const Key& key, std::string_view character)
{
    return key.kind == Key::Kind::character && key.text == character;
}

}  // namespace quillmere::screen
