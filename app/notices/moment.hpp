// Moments of the steady clock.
#pragma once

#include <chrono>

namespace quillmere::notices {

/// A moment of the steady clock. Only Watch::run reads that clock; everything else is given the moment.
using Moment = std::chrono::steady_clock::time_point;

}  // namespace quillmere::notices
