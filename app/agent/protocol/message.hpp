// JSON-RPC 2.0 messages, as the Model Context Protocol uses them: one a line, no batches.
#pragma once

#include "agent/protocol/offer.hpp"

#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quillmere::agent::protocol {

/// JSON-RPC 2.0, section 5.1, and the two codes of the Model Context Protocol that this server needs.
enum class ErrorCode {
    parseError = -32700,
    invalidRequest = -32600,
    methodNotFound = -32601,
    invalidParams = -32602,
    internalError = -32603,
    resourceNotFound = -32002,    ///< versions with a handshake
    unsupportedVersion = -32022,  ///< versions without
};

/// Why a message has no result. The text is for whoever wrote the client.
class ProtocolError : public std::runtime_error {
public:
    ProtocolError(ErrorCode code, const std::string& message, Json data = nullptr);

    ErrorCode code() const noexcept { return code_; }
    /// Null when there is none.
    const Json& data() const noexcept { return data_; }

private:
    ErrorCode code_;
    Json data_;
};

/// A request or, without an id, a notification.
struct Request {
    std::optional<Json> id;
    std::string method;
    Json params;  ///< an object; empty where there are none
};

/// How many objects and arrays, one in another, a message may have; more than any has reason to.
inline constexpr int deepestNesting = 64;

/// The longest string, in bytes, that is an id: it is kept for as long as its call waits.
inline constexpr std::size_t longestId = 1'024;

/// Reads one line. Throws ProtocolError when it is no JSON (RFC 8259, UTF-8), or nests too deep.
Json parsedMessage(std::string_view line);

/// A member of an object; null where there is none, also of what is no object. Valid as long as the object.
const Json& memberIn(const Json& object, const char* key);

/// The id that stands under a key of a message or of its params: a string that is not too long, or an integer
/// of 64 bits, to be sent back as it came. Absent when there is none that is one.
std::optional<Json> idIn(const Json& object, const char* key);

/// The request or notification that a message is; absent for a response, which this server never waits for.
/// Throws ProtocolError when it is no message at all.
std::optional<Request> requestIn(Json message);

/// The lines that answer a request. Nothing in them is beyond ASCII, so that nobody takes a character of a
/// text for the end of the line. An error has no id where the message had none that could be read: JSON-RPC
/// has null there, which the protocol's own schema and its clients do not take.
std::string resultLine(const Json& id, Json result);
std::string errorLine(const std::optional<Json>& id, const ProtocolError& error);

}  // namespace quillmere::agent::protocol
