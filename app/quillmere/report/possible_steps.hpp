// What a person may do next.
#pragma once

#include <quillmere/engine/transition.hpp>

namespace quillmere::app {

using quillmere::isPossible;

}  // namespace quillmere::app
