// Changes after which waiting calls are asked again.
#pragma once

namespace quillmere::agent::protocol {

/// Reports when waiting calls may have a result.
class Changes {
public:
    virtual ~Changes() = default;

    /// For `base::waitFor`: readable after a change; -1 while nothing is watched.
    virtual int descriptor() const = 0;
    /// Consumes the changes so far. Never waits.
    virtual void take() = 0;
};

}  // namespace quillmere::agent::protocol
