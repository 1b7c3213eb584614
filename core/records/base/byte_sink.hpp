// Streaming of file content, so that it need not be in memory as a whole.
#pragma once

#include <functional>
#include <string_view>

namespace quillmere {

/// Receives content piece by piece, in order. A piece is valid only during the call. An exception stops the
/// source and reaches its caller.
using ByteSink = std::function<void(std::string_view piece)>;

/// Produces content: calls the sink for each piece until all of it is delivered.
using ByteSource = std::function<void(const ByteSink& sink)>;

}  // namespace quillmere
