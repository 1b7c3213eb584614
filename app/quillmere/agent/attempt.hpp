// What fails on the files of a person, in words for an agent.
#pragma once

#include "agent/protocol/offer.hpp"

#include <functional>
#include <optional>
#include <stdexcept>

namespace quillmere::app::agent {

using protocol::Json;
using protocol::Moment;
using protocol::ToolResult;

/// Why an agent does not get what it asked for. The text says what it can do about it.
class Refusal : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The text of the exception that is being handled; passes on what is no failure of the person's files.
std::string failureInWords();

/// The result of what returns a value, or none yet; a refusal when it throws.
std::optional<ToolResult> attempt(const std::function<std::optional<Json>()>& action);

}  // namespace quillmere::app::agent
