#include "agent/protocol/message.hpp"

#include <utility>

namespace quillmere::agent::protocol {
namespace {

std::string lineOf(const SortedJson& message) { return base::sortedJsonLine(message) + '\n'; }

/// Checked before parsing, because a parsed value is destroyed by recursion. The parser's own callback could
/// count levels too, but with a callback it searches a whole array again for each element.
void requireShallow(std::string_view line)
{
    int depth = 0;
    bool isInString = false;
    for (std::size_t at = 0; at < line.size(); ++at) {
        const char byte = line[at];
        if (isInString) {
            at += byte == '\\' ? 1 : 0;
            isInString = byte != '"';
        } else if (byte == '[' || byte == '{') {
            ++depth;
        } else if (byte == ']' || byte == '}') {
            --depth;
        } else {
            isInString = byte == '"';
        }
        if (depth > deepestNesting) {
            throw ProtocolError(ErrorCode::invalidRequest, "The message nests deeper than " +
                                                               std::to_string(deepestNesting) + " levels.");
        }
    }
}

}  // namespace

ProtocolError::ProtocolError(ErrorCode code, const std::string& message, SortedJson data)
    : std::runtime_error(message), code_(code), data_(std::move(data))
{
}

SortedJson parsedMessage(std::string_view line)
{
    requireShallow(line);
    try {
        // The parser would end at a NUL.
        if (line.find('\0') == std::string_view::npos) {
            return SortedJson::parse(line);
        }
    } catch (const SortedJson::out_of_range&) {
        throw ProtocolError(ErrorCode::parseError, "A number in the line is too great to be read.");
    } catch (const SortedJson::parse_error&) {
        // Reported below.
    }
    throw ProtocolError(ErrorCode::parseError,
                        "The line is not JSON in UTF-8, or it escapes a lone surrogate.");
}

const SortedJson& memberIn(const SortedJson& object, const char* key)
{
    static const SortedJson none;
    const auto member = object.find(key);
    return member != object.end() ? *member : none;
}

std::optional<SortedJson> idIn(const SortedJson& object, const char* key)
{
    const SortedJson& id = memberIn(object, key);
    const bool isText = id.is_string() && id.get_ref<const std::string&>().size() <= longestId;
    return isText || id.is_number_integer() ? std::optional(id) : std::nullopt;
}

std::optional<Request> requestIn(SortedJson message)
{
    if (message.is_array()) {
        throw ProtocolError(ErrorCode::invalidRequest,
                            "Batches are not accepted: send one message on each line.");
    }
    if (!message.is_object() || memberIn(message, "jsonrpc") != "2.0") {
        throw ProtocolError(ErrorCode::invalidRequest, "The line is no JSON-RPC 2.0 message.");
    }
    const SortedJson& method = memberIn(message, "method");
    if (method.is_null() && (message.contains("result") || message.contains("error"))) {
        return std::nullopt;
    }
    if (!method.is_string()) {
        throw ProtocolError(ErrorCode::invalidRequest, "The message names no method.");
    }
    Request request{.id = idIn(message, "id"), .method = method, .params = std::move(message["params"])};
    const bool isNotification = !message.contains("id");
    if (!isNotification && !request.id) {
        throw ProtocolError(ErrorCode::invalidRequest, "The id of a request is a string of at most " +
                                                           std::to_string(longestId) +
                                                           " bytes or an integer of 64 bits.");
    }
    if (request.params.is_null()) {
        request.params = SortedJson::object();
    }
    if (!request.params.is_object()) {
        if (!isNotification) {
            throw ProtocolError(ErrorCode::invalidParams, "The params of a request are an object.");
        }
        request.params = SortedJson::object();
    }
    return request;
}

std::string resultLine(const SortedJson& id, SortedJson result)
{
    return lineOf({{"jsonrpc", "2.0"}, {"id", id}, {"result", std::move(result)}});
}

std::string errorLine(const std::optional<SortedJson>& id, const ProtocolError& error)
{
    SortedJson message = {{"jsonrpc", "2.0"},
                          {"error", {{"code", static_cast<int>(error.code())}, {"message", error.what()}}}};
    if (!error.data().is_null()) {
        message["error"]["data"] = error.data();
    }
    if (id) {
        message["id"] = *id;
    }
    return lineOf(message);
}

}  // namespace quillmere::agent::protocol
