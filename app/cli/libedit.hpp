// The functions of libedit, which is loaded when a line is first edited.
#pragma once

#include "base/system/loaded_library.hpp"

#include <histedit.h>

namespace quillmere::cli {

/// Each as its header declares it.
class Libedit {
    // Debian gives it another number than its authors.
    base::LoadedLibrary library_{"libedit.so.2", "libedit.so.0"};

public:
    decltype(&::el_init) init = library_["el_init"];
    decltype(&::el_end) end = library_["el_end"];
    decltype(&::el_resize) resize = library_["el_resize"];
    decltype(&::el_wset) set = library_["el_wset"];
    decltype(&::el_wget) get = library_["el_wget"];
    decltype(&::el_wgets) takeLine = library_["el_wgets"];
    decltype(&::el_winsertstr) insert = library_["el_winsertstr"];
    decltype(&::history_winit) initHistory = library_["history_winit"];
    decltype(&::history_wend) endHistory = library_["history_wend"];
    decltype(&::history_w) history = library_["history_w"];
};

/// Throws Refusal (`fileError`) when the library is not there.
const Libedit& libedit();

}  // namespace quillmere::cli
