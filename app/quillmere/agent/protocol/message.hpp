// JSON-RPC 2.0 messages, as the Model Context Protocol uses them: one a line, no batches.
#pragma once

#include "agent/protocol/offer.hpp"

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quillmere::app::protocol {

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
    Json params;  ///< an object
};

/// Deeper than any message has reason to be.
inline constexpr int deepestNesting = 64;

/// Reads one line. Throws ProtocolError when it is no JSON (RFC 8259, UTF-8), or nests too deep.
Json parsedMessage(std::string_view line);

/// The id by which an answer to the message is known: a string or an integer of 64 bits, to be sent back as
/// it came. Absent when the message has none that is one.
std::optional<Json> idIn(const Json& message);

/// The request or notification that a message is; absent for a response, which this server never waits for.
/// Throws ProtocolError when it is no message at all.
std::optional<Request> requestIn(const Json& message);

/// The lines that answer a request. Nothing in them is beyond ASCII, so that nobody takes a character of a
/// text for the end of the line. An error has no id where the message had none that could be read.
std::string resultLine(const Json& id, Json result);
std::string errorLine(const std::optional<Json>& id, const ProtocolError& error);

}  // namespace quillmere::app::protocol
