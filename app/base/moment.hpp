// Moments for waiting.
#pragma once

#include <chrono>

namespace quillmere::base {

/// A moment of the steady clock, which is never set. Only the loop of a program reads that clock; everything
/// else is given the moment.
using Moment = std::chrono::steady_clock::time_point;

}  // namespace quillmere::base
