// Where the wrapped calls find out that they are watched.
#pragma once

#include "proofs/system_calls/system_calls.hpp"

namespace quillmere::test {

/// Null while nobody watches.
extern SystemCallWatch* currentWatch;

}  // namespace quillmere::test
