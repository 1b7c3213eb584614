// What fails on the files of a person, in words for an agent.
#pragma once

#include "agent/protocol/offer.hpp"

#include <functional>
#include <stdexcept>
#include <variant>

namespace quillmere::agent {

using protocol::Call;
using protocol::Json;
using protocol::Later;
using protocol::Moment;
using protocol::Outcome;

/// Why an agent does not get what it asked for. The text says what it can do about it.
class Refusal : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The text of the exception that is being handled; passes on what is no failure of the person's files.
std::string failureInWords();

/// What has come of something that returns a value, or when to try again; a refusal when it throws.
agent::protocol::Outcome attempt(
    const std::function<std::variant<agent::protocol::Json, agent::protocol::Later>()>& action);

}  // namespace quillmere::agent
