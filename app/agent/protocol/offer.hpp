// What a server offers: tools to call and resources to read. Knows none of the protocol's messages.
#pragma once

#include <nlohmann/json.hpp>

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <variant>
#include <vector>

namespace quillmere::agent::protocol {

/// Sorted by key, so that neither the order of a list nor an object with a million keys is a surprise.
using Json = nlohmann::json;

/// On the clock by which waits are timed, which is never set.
using Moment = std::chrono::steady_clock::time_point;

/// What has come of a tool call.
struct ToolResult {
    Json value;                ///< as the tool's output schema says
    std::string refusal = {};  ///< why there is no value, for a model to act on; empty when there is one
};

/// There is no result yet, and this is when to ask for it again even if nothing has changed.
struct Later {
    Moment at;
};

using Outcome = std::variant<ToolResult, Later>;

/// A tool call that has begun: says what has come of it so far. Asked at once, and again until there is a
/// result.
using Call = std::function<Outcome(Moment now)>;

/// What a call of a tool does to the world, as a client may want to know before it allows one.
struct Hints {
    bool readOnly;
    bool destructive;
    bool idempotent;
    bool openWorld;
};

struct Tool {
    std::string name;
    std::string title;
    std::string description;  ///< all that a model is told about it
    Json inputSchema;         ///< of an object; in the words that `misfitOf` knows
    Json outputSchema;
    Hints hints;  ///< a call that is not `readOnly` is brought to its end also when the client says no more
    /// Takes arguments that fit the input schema.
    std::function<Call(const Json& arguments, Moment now)> begin;
};

/// How long what was read may be taken for true, and by whom.
struct Caching {
    std::int64_t milliseconds;
    bool isPublic;  ///< says nothing about this person
};

struct Resource {
    std::string uri;
    std::string name;
    std::string title;
    std::string description;
    std::string mimeType;
    Caching caching;
    /// The text as of now; throws `std::exception`, whose text is for the client, when it cannot be had.
    std::function<std::string()> read;
};

/// Lists are answered in the order that they have here.
struct Offer {
    std::string name;
    std::string title;
    std::string version;
    std::string instructions;  ///< what a model should know before it uses any of it
    std::vector<Tool> tools;
    std::vector<Resource> resources;
};

}  // namespace quillmere::agent::protocol
