// The watch that the wrappers report to.
#pragma once

#include "proofs/system_calls/system_calls.hpp"

namespace quillmere::test {

/// Null while no watch exists.
extern SystemCallWatch* currentWatch;

}  // namespace quillmere::test
