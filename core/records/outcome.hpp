// One intended outcome of a block.
#pragma once

#include <quillmere/records/identifier.hpp>

#include <string>

namespace quillmere {

struct Outcome {
    Identifier id;
    std::string title;  ///< empty while it is not filled in

    friend bool operator==(const Outcome&, const Outcome&) = default;
};

}  // namespace quillmere
