// The functions of curses, which is loaded when a screen is first shown.
#pragma once

#include "base/system/loaded_library.hpp"

// Makes curses declare functions instead of macros where it can.
#define NCURSES_NOMACROS
#include <curses.h>
#include <term.h>

// Macros of curses that clash with names of the screen.
#undef clear
#undef columns
#undef lines
#undef tab

namespace quillmere::screen {

/// Each as its header declares it.
class Curses {
    base::LoadedLibrary library_{"libncursesw.so.6"};

public:
    // The terminal by its description (terminfo(5)).
    decltype(&::setupterm) setupterm = library_["setupterm"];
    decltype(&::del_curterm) del_curterm = library_["del_curterm"];
    decltype(&::tigetflag) tigetflag = library_["tigetflag"];
    decltype(&::tigetnum) tigetnum = library_["tigetnum"];
    decltype(&::tigetstr) tigetstr = library_["tigetstr"];
    decltype(&::tiparm) tiparm = library_["tiparm"];
    decltype(&::tputs) tputs = library_["tputs"];
    decltype(&::cur_term) terminal = library_["cur_term"];

    // Its modes.
    decltype(&::newterm) newterm = library_["newterm"];
    decltype(&::delscreen) delscreen = library_["delscreen"];
    decltype(&::endwin) endwin = library_["endwin"];
    decltype(&::def_prog_mode) def_prog_mode = library_["def_prog_mode"];
    decltype(&::reset_prog_mode) reset_prog_mode = library_["reset_prog_mode"];
    decltype(&::cbreak) cbreak = library_["cbreak"];
    decltype(&::noecho) noecho = library_["noecho"];
    decltype(&::nonl) nonl = library_["nonl"];
    decltype(&::beep) beep = library_["beep"];
    decltype(&::curs_set) curs_set = library_["curs_set"];

    // Windows.
    decltype(&::stdscr) standardWindow = library_["stdscr"];
    decltype(&::curscr) currentWindow = library_["curscr"];
    decltype(&::newpad) newpad = library_["newpad"];
    decltype(&::getmaxx) getmaxx = library_["getmaxx"];
    decltype(&::getmaxy) getmaxy = library_["getmaxy"];
    decltype(&::resize_term) resize_term = library_["resize_term"];
    decltype(&::clearok) clearok = library_["clearok"];
    decltype(&::wrefresh) wrefresh = library_["wrefresh"];

    // Keys.
    decltype(&::set_escdelay) set_escdelay = library_["set_escdelay"];
    decltype(&::define_key) define_key = library_["define_key"];
    decltype(&::keypad) keypad = library_["keypad"];
    decltype(&::nodelay) nodelay = library_["nodelay"];
    decltype(&::wgetch) wgetch = library_["wgetch"];
};

/// Throws Refusal (`fileError`) when the library is not there.
const Curses& curses();

}  // namespace quillmere::screen
