#include "screen/terminal/curses.hpp"

namespace quillmere::screen {

const Curses& curses()
{
    static const Curses library;
    return library;
}

}  // namespace quillmere::screen
