// Tells when a question may have been answered.
#pragma once

#include "agent/protocol/changes.hpp"
#include "base/system/directory_watch.hpp"

#include <filesystem>
#include <optional>

namespace quillmere::agent {

/// Watches the directory of the state from the first wait on: the system has few watches to give, and most
/// agents never wait.
class AnswerWatch : public protocol::Changes {
public:
    explicit AnswerWatch(std::filesystem::path directory);

    /// Sees to it that changes from here on are noticed. Throws Refusal when the system can watch no more.
    void require();

    int descriptor() const override;
    void take() override;

private:
    std::filesystem::path directory_;
    std::optional<base::DirectoryWatch> watch_;
};

}  // namespace quillmere::agent
