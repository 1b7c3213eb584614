// Which characters the terminal can show.
#pragma once

namespace quillmere::base {

/// Whether the terminal uses UTF-8, by the locale of the environment (LC_ALL, LC_CTYPE, LANG). A locale that
/// is not installed here counts by its name: the variables often come from another machine by ssh, and still
/// describe the terminal.
bool terminalUsesUtf8();

}  // namespace quillmere::base
