// A change of the work that a person makes.
#pragma once

#include "amendments/possible.hpp"

#include <quillmere/engine/transition.hpp>

#include <variant>

namespace quillmere::work {

/// A step of the workflow, or an amendment.
using Move = std::variant<Step, amendments::Kind>;

/// Whether the engine accepts the step now, or the amendment fits.
inline bool isPossible(const Move& move, const QuillmereState& state)
{
    const auto* const step = std::get_if<Step>(&move);
    return step ? quillmere::isPossible(*step, state)
                : amendments::isPossible(std::get<amendments::Kind>(move), state);
}

}  // namespace quillmere::work
