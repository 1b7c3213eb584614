// The tools and resources of a server. Knows no messages of the protocol.
#pragma once

#include "base/json.hpp"
#include "base/moment.hpp"

#include <nlohmann/json.hpp>

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <variant>
#include <vector>

namespace quillmere::agent::protocol {

/// The type of all JSON values of the protocol, because a client may send an object with a million keys.
using base::SortedJson;

using base::Moment;

/// The result of a tool call.
struct ToolResult {
    SortedJson value;          ///< fits the tool's output schema
    std::string refusal = {};  ///< for the model: why there is no value; empty with one
};

/// There is no result yet. The call is asked again at this moment, or earlier after a change.
struct Later {
    Moment at;
};

using Outcome = std::variant<ToolResult, Later>;

/// A tool call that has begun. Asked at once, and again until it returns a result.
using Call = std::function<Outcome(Moment now)>;

/// The effects of a tool, for a client that decides whether to allow a call.
struct Hints {
    bool readOnly;
    bool destructive;
    bool idempotent;
    bool openWorld;
};

struct Tool {
    std::string name;
    std::string title;
    std::string description;  ///< the only text that a model reads about it
    SortedJson inputSchema;   ///< of an object; uses only the keywords that `misfitOf` knows
    SortedJson outputSchema;
    Hints hints;  ///< a call that is not `readOnly` is finished even when the input has ended
    /// Begins a call with arguments that fit the input schema.
    std::function<Call(const SortedJson& arguments, Moment now)> begin;
};

/// How long a client may keep a result, and whether it may share it.
struct Caching {
    std::int64_t milliseconds;
    bool isPublic;  ///< nothing in it is about this person
};

struct Resource {
    std::string uri;
    std::string name;
    std::string title;
    std::string description;
    std::string mimeType;
    Caching caching;
    /// The text as of now. Throws `std::exception` with a message for the client when it cannot be read.
    std::function<std::string()> read;
};

/// Lists are sent in this order.
struct Offer {
    std::string name;
    std::string title;
    std::string version;
    std::string instructions;  ///< for a model, before it uses any tool
    std::vector<Tool> tools;
    std::vector<Resource> resources;
};

}  // namespace quillmere::agent::protocol
