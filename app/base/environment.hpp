// Streams, clock and descriptors, injected so that tests and the tour can run commands in-process.
#pragma once

#include "base/system/sleep_detector.hpp"

#include <quillmere/records/instant.hpp>

#include <filesystem>
#include <functional>
#include <iosfwd>

namespace quillmere::base {

struct Environment {
    std::istream& in;
    std::ostream& out;  ///< results
    std::ostream& err;  ///< messages
    Clock clock;
    bool inputIsTerminal;   ///< questions can be asked
    bool outputIsTerminal;  ///< colour may be used
    /// Versions, drafts and delivered notices are kept in it (XDG state home). Empty: they are not kept.
    std::filesystem::path stateHome = {};
    /// The files of the configuration are in it. Empty: nothing is configured.
    std::filesystem::path configDirectory = {};
    // The descriptors of `in`, `out` and `err`, for poll(2) and for child processes; -1: none.
    int input = -1;
    int output = -1;
    int error = -1;
    /// As `base::suspendedSeconds`.
    std::function<double()> suspended = suspendedSeconds;
};

}  // namespace quillmere::base
