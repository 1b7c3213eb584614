// Failures of tool calls, in words for an agent.
#pragma once

#include "agent/protocol/offer.hpp"

#include <functional>
#include <stdexcept>
#include <variant>

namespace quillmere::agent {

/// Why a tool call has no result. The message tells the agent what it can do.
class ToolRefusal : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The message of the exception that is being handled. Rethrows it when it is neither a refusal nor a failure
/// of the files.
std::string failureInWords();

/// Runs an action that returns a value or when to try again. An exception becomes a refusal.
protocol::Outcome attempt(const std::function<std::variant<base::SortedJson, protocol::Later>()>& action);

}  // namespace quillmere::agent
