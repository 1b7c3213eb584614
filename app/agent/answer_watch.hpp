// Watches for answers.
#pragma once

#include "agent/protocol/changes.hpp"
#include "base/system/directory_watch.hpp"

#include <filesystem>
#include <optional>

namespace quillmere::agent {

/// Watches the directory of the state, beginning with the first call that waits: the number of watches is
/// limited, and most agents never wait.
class AnswerWatch : public protocol::Changes {
public:
    explicit AnswerWatch(std::filesystem::path directory);

    /// Begins to watch, unless it has begun. Throws ToolRefusal when the system allows no more watches.
    void require();

    int descriptor() const override;
    void take() override;

private:
    /// Ends a watch without a descriptor, which the session's poll(2) cannot wait on.
    void dropWithoutDescriptor();

    std::filesystem::path directory_;
    std::optional<base::DirectoryWatch> watch_;
};

}  // namespace quillmere::agent
