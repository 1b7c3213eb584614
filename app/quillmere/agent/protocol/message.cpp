#include "agent/protocol/message.hpp"

#include <utility>

namespace quillmere::app::protocol {
namespace {

std::string lineOf(const Json& message)
{
    return message.dump(-1, ' ', true, Json::error_handler_t::replace) + '\n';
}

/// Stops the parser before what it builds is too deep to be handled.
bool requireShallow(int depth, Json::parse_event_t, Json&)
{
    if (depth >= deepestNesting) {
        throw ProtocolError(ErrorCode::invalidRequest,
                            "The message nests deeper than " + std::to_string(deepestNesting) + " levels.");
    }
    return true;
}

}  // namespace

ProtocolError::ProtocolError(ErrorCode code, const std::string& message, Json data)
    : std::runtime_error(message), code_(code), data_(std::move(data))
{
}

Json parsedMessage(std::string_view line)
{
    try {
        return Json::parse(line, requireShallow);
    } catch (const Json::exception&) {
        throw ProtocolError(ErrorCode::parseError, "The line is not JSON in UTF-8.");
    }
}

std::optional<Json> idIn(const Json& message)
{
    if (!message.is_object()) {
        return std::nullopt;
    }
    const auto id = message.find("id");
    const bool isOne = id != message.end() && (id->is_string() || id->is_number_integer());
    return isOne ? std::optional(*id) : std::nullopt;
}

std::optional<Request> requestIn(const Json& message)
{
    if (message.is_array()) {
        throw ProtocolError(ErrorCode::invalidRequest, "Batches are not accepted: send one message a line.");
    }
    if (!message.is_object() || message.value("jsonrpc", Json()) != "2.0") {
        throw ProtocolError(ErrorCode::invalidRequest, "The line is no JSON-RPC 2.0 message.");
    }
    const Json method = message.value("method", Json());
    if (method.is_null() && (message.contains("result") || message.contains("error"))) {
        return std::nullopt;
    }
    if (!method.is_string()) {
        throw ProtocolError(ErrorCode::invalidRequest, "The message names no method.");
    }
    Request request{.id = idIn(message), .method = method, .params = message.value("params", Json::object())};
    const bool isNotification = !message.contains("id");
    if (!isNotification && !request.id) {
        throw ProtocolError(ErrorCode::invalidRequest,
                            "The id of a request is a string or an integer of 64 bits.");
    }
    if (!request.params.is_object()) {
        if (!isNotification) {
            throw ProtocolError(ErrorCode::invalidParams, "The params of a request are an object.");
        }
        request.params = Json::object();
    }
    return request;
}

std::string resultLine(const Json& id, Json result)
{
    return lineOf({{"jsonrpc", "2.0"}, {"id", id}, {"result", std::move(result)}});
}

std::string errorLine(const std::optional<Json>& id, const ProtocolError& error)
{
    Json message = {{"jsonrpc", "2.0"},
                    {"error", {{"code", static_cast<int>(error.code())}, {"message", error.what()}}}};
    if (!error.data().is_null()) {
        message["error"]["data"] = error.data();
    }
    if (id) {
        message["id"] = *id;
    }
    return lineOf(message);
}

}  // namespace quillmere::app::protocol
