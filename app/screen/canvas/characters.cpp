#include "screen/canvas/characters.hpp"

#include "base/text/columns.hpp"
#include "base/text/sanitize.hpp"

#include <unigbrk.h>

namespace quillmere::screen {
namespace {

const uint8_t* bytesOf(std::string_view text) { return reinterpret_cast<const uint8_t*>(text.data()); }

}  // namespace

std::size_t afterCharacter(std::string_view text, std::size_t offset)
{
    const uint8_t* const begin = bytesOf(text);
    const uint8_t* const next = u8_grapheme_next(begin + offset, begin + text.size());
    return next ? static_cast<std::size_t>(next - begin) : text.size();
}

std::size_t beforeCharacter(std::string_view text, std::size_t offset)
{
    const uint8_t* const begin = bytesOf(text);
    const uint8_t* const before = u8_grapheme_prev(begin + offset, begin);
    return before ? static_cast<std::size_t>(before - begin) : 0;
}

std::size_t shownColumns(std::string_view text) { return base::columnsOf(base::sanitized(text)); }

}  // namespace quillmere::screen
