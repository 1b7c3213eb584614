// The content of a file on its way, where it need not be in memory as a whole.
#pragma once

#include <functional>
#include <string_view>

namespace quillmere {

/// Takes a content piece by piece, in order. A piece is of use during the call only. What it throws ends
/// the way of the content.
using ByteSink = std::function<void(std::string_view piece)>;

/// Hands a whole content to a sink.
using ByteSource = std::function<void(const ByteSink& sink)>;

}  // namespace quillmere
