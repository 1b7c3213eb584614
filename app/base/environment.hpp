// What surrounds a run of the program: handed in, so that a run can be had anywhere.
#pragma once

#include <quillmere/records/instant.hpp>

#include <filesystem>
#include <iosfwd>

namespace quillmere::base {

struct Environment {
    std::istream& in;
    std::ostream& out;  ///< results
    std::ostream& err;  ///< messages
    Clock clock;
    bool inputIsTerminal;   ///< someone is there to be asked
    bool outputIsTerminal;  ///< colour may be used
    /// Where versions, drafts and notices are kept (XDG state home); empty: nowhere.
    std::filesystem::path stateHome = {};
    // The descriptors of `in`, `out` and `err`, for what streams are not enough for; -1: there is none.
    int input = -1;
    int output = -1;
    int error = -1;
};

}  // namespace quillmere::base
