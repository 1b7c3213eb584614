// When to ask again.
#pragma once

namespace quillmere::agent::protocol {

/// Tells when calls that wait may have a result.
class Changes {
public:
    virtual ~Changes() = default;

    /// For poll(2); -1 while nothing is watched.
    virtual int descriptor() const = 0;
    /// Takes what has happened. Never waits.
    virtual void take() = 0;
};

}  // namespace quillmere::agent::protocol
