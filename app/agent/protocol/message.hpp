// JSON-RPC 2.0 messages as the Model Context Protocol uses them: one on each line, no batches.
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

/// An error response. The message is for the developer of the client.
class ProtocolError : public std::runtime_error {
public:
    ProtocolError(ErrorCode code, const std::string& message, SortedJson data = nullptr);

    ErrorCode code() const noexcept { return code_; }
    /// Null: none.
    const SortedJson& data() const noexcept { return data_; }

private:
    ErrorCode code_;
    SortedJson data_;
};

/// A request or, without an id, a notification.
struct Request {
    std::optional<SortedJson> id;
    std::string method;
    SortedJson params;  ///< an object; empty when the message has none
};

/// The limit of nested objects and arrays in a message; real messages have far fewer levels.
inline constexpr int deepestNesting = 64;

/// The limit of an id that is a string, in bytes. An id is kept while its call waits.
inline constexpr std::size_t longestId = 1'024;

/// Parses one line. Throws ProtocolError when it is not JSON (RFC 8259) in UTF-8 or has too many levels.
SortedJson parsedMessage(std::string_view line);

/// A member of an object. Null without such a member and for a value that is no object. Valid as long as the
/// object.
const SortedJson& memberIn(const SortedJson& object, const char* key);

/// The id under a key of a message or of its params: a string within the limit, or an integer of 64 bits.
/// Absent for any other value and without the key.
std::optional<SortedJson> idIn(const SortedJson& object, const char* key);

/// A message as a request or notification. Absent for a response, which this server never waits for. Throws
/// ProtocolError for any other value.
std::optional<Request> requestIn(SortedJson message);

/// The lines that answer a request, in ASCII, so that no reader takes a character of a text for the end of
/// the line. An error has no id when the message had no readable one: JSON-RPC asks for null there, but the
/// protocol's own schema and its clients do not accept null.
std::string resultLine(const SortedJson& id, SortedJson result);
std::string errorLine(const std::optional<SortedJson>& id, const ProtocolError& error);

}  // namespace quillmere::agent::protocol
