#include "agent/protocol/server.hpp"

#include "agent/protocol/input_schema.hpp"
#include "agent/protocol/replies.hpp"

#include <algorithm>
#include <new>
#include <utility>

namespace quillmere::agent::protocol {
namespace {

/// More calls than a client needs at a time; each costs memory until its time is up.
constexpr std::size_t mostWaiting = 64;

/// A required string of the params.
std::string textIn(const SortedJson& params, const char* key)
{
    const SortedJson& value = memberIn(params, key);
    if (!value.is_string()) {
        throw ProtocolError(ErrorCode::invalidParams, std::string("params need \"") + key + "\", a string.");
    }
    return value;
}

/// Lists have one page, so that no cursor is valid.
void refuseCursor(const SortedJson& params)
{
    if (!memberIn(params, "cursor").is_null()) {
        throw ProtocolError(ErrorCode::invalidParams, "There is no such page.");
    }
}

/// The arguments of a call. Null means that an argument is left out: some models write it so.
SortedJson argumentsIn(SortedJson params)
{
    SortedJson arguments = std::move(params["arguments"]);
    if (arguments.is_null()) {
        return SortedJson::object();
    }
    if (arguments.is_object()) {
        std::erase_if(arguments.get_ref<SortedJson::object_t&>(),
                      [](const auto& argument) { return argument.second.is_null(); });
    }
    return arguments;
}

ToolResult refused(std::string why) { return {.value = nullptr, .refusal = std::move(why)}; }

}  // namespace

struct Server::Method {
    std::string_view name;
    bool withHandshake;
    bool stateless;
    std::optional<Reply> (Server::*answer)(Request& request, const ProtocolVersion& version, Moment now);

    static const Method& named(const std::string& name, const ProtocolVersion& version);
};

const Server::Method& Server::Method::named(const std::string& name, const ProtocolVersion& version)
{
    // clang-format off
    static constexpr auto methods = std::to_array<Method>({
        {"initialize",               true,  false, &Server::initialize},
        {"ping",                     true,  false, &Server::ping},
        {"server/discover",          false, true,  &Server::discover},
        {"tools/list",               true,  true,  &Server::listTools},
        {"tools/call",               true,  true,  &Server::callTool},
        {"resources/list",           true,  true,  &Server::listResources},
        {"resources/templates/list", true,  true,  &Server::listTemplates},
        {"resources/read",           true,  true,  &Server::readResource},
    });
    // clang-format on
    const auto found = std::find_if(methods.begin(), methods.end(),
                                    [&](const Method& method) { return method.name == name; });
    if (found == methods.end() || (version.isStateless && !found->stateless)) {
        throw ProtocolError(ErrorCode::methodNotFound, "There is no method " + name + ".");
    }
    if (!version.isStateless && !found->withHandshake) {
        throw ProtocolError(ErrorCode::invalidParams,
                            "params._meta needs the version that " + name + " speaks.");
    }
    return *found;
}

Server::Server(Offer offer) : offer_(std::move(offer)), agreed_(&versionAfterHandshake("")) {}

void Server::receive(std::string_view line, Moment now)
{
    std::optional<SortedJson> id;
    guarded(id, [&] {
        SortedJson message = parsedMessage(line);
        id = idIn(message, "id");
        std::optional<Request> request = requestIn(std::move(message));
        if (request && request->id) {
            answer(*request, now);
        } else if (request) {
            notice(*request);
        }
    });
}

void Server::refuseLongLine()
{
    guarded(std::nullopt, [] { throw ProtocolError(ErrorCode::invalidRequest, "The line is too long."); });
}

void Server::guarded(const std::optional<SortedJson>& id, const std::function<void()>& action)
{
    try {
        action();
    } catch (const ProtocolError& error) {
        output_ += errorLine(id, error);
    } catch (const std::bad_alloc&) {
        output_ +=
            errorLine(id, ProtocolError(ErrorCode::internalError,
                                        "There was not enough memory for an answer. The request may have "
                                        "been carried out: look before you repeat it."));
    } catch (const std::exception& error) {
        output_ += errorLine(id, ProtocolError(ErrorCode::internalError, error.what()));
    }
}

void Server::answer(Request& request, Moment now)
{
    const ProtocolVersion& version = versionOf(request.params, *agreed_);
    const Method& method = Method::named(request.method, version);
    if (std::optional<Reply> reply = (this->*method.answer)(request, version, now)) {
        send(*request.id, *std::move(reply), version);
    }
}

void Server::notice(const Request& notification)
{
    // Other notifications, and cancellations of calls that have ended, are ignored.
    if (notification.method == "notifications/cancelled") {
        const std::optional<SortedJson> id = idIn(notification.params, "requestId");
        // Compared as text: as numbers, -1 and the greatest integer of 64 bits would be equal.
        std::erase_if(waiting_,
                      [&](const Waiting& waiting) { return id && waiting.id.dump() == id->dump(); });
    }
}

void Server::send(const SortedJson& id, Reply reply, const ProtocolVersion& version)
{
    output_ += resultLine(id, complete(std::move(reply.result), reply.caching, offer_, version));
}

void Server::expectResults()
{
    for (Waiting& waiting : waiting_) {
        waiting.next = Moment::min();
    }
}

void Server::askAgain(Moment now)
{
    for (Waiting& waiting : waiting_) {
        if (waiting.next > now) {
            continue;
        }
        waiting.next.reset();  // before the call, which may throw
        guarded(waiting.id, [&] {
            const Outcome outcome = waiting.call(now);
            if (const Later* const later = std::get_if<Later>(&outcome)) {
                waiting.next = later->at;
            } else {
                const SortedJson result = callResult(std::get<ToolResult>(outcome), *waiting.version);
                send(waiting.id, {result}, *waiting.version);
            }
        });
    }
    std::erase_if(waiting_, [](const Waiting& waiting) { return !waiting.next; });
}

std::optional<Moment> Server::nextTime() const
{
    std::optional<Moment> first;
    for (const Waiting& waiting : waiting_) {
        first = std::min(first.value_or(Moment::max()), *waiting.next);
    }
    return first;
}

bool Server::isActing() const
{
    return std::any_of(waiting_.begin(), waiting_.end(),
                       [](const Waiting& waiting) { return waiting.isAction; });
}

std::string Server::takeOutput() { return std::exchange(output_, {}); }

std::optional<Server::Reply> Server::initialize(Request& request, const ProtocolVersion&, Moment)
{
    agreed_ = &versionAfterHandshake(textIn(request.params, "protocolVersion"));
    return Reply{initializeResult(offer_, *agreed_)};
}

std::optional<Server::Reply> Server::ping(Request&, const ProtocolVersion&, Moment)
{
    return Reply{SortedJson::object()};
}

std::optional<Server::Reply> Server::discover(Request&, const ProtocolVersion&, Moment)
{
    return Reply{discoverResult(offer_), cachingOfLists};
}

std::optional<Server::Reply> Server::listTools(Request& request, const ProtocolVersion& version, Moment)
{
    refuseCursor(request.params);
    return Reply{toolList(offer_, version), cachingOfLists};
}

std::optional<Server::Reply> Server::callTool(Request& request, const ProtocolVersion& version, Moment now)
{
    const std::string name = textIn(request.params, "name");
    const auto tool = std::find_if(offer_.tools.begin(), offer_.tools.end(),
                                   [&](const Tool& candidate) { return candidate.name == name; });
    if (tool == offer_.tools.end()) {
        throw ProtocolError(ErrorCode::invalidParams, "There is no tool " + name + ".");
    }
    const SortedJson arguments = argumentsIn(std::move(request.params));
    // A result, not an error: a model sees only results, and can correct its arguments.
    if (std::string misfit = misfitOf(arguments, tool->inputSchema); !misfit.empty()) {
        return Reply{callResult(refused(std::move(misfit)), version)};
    }
    Call call = tool->begin(arguments, now);
    const Outcome outcome = call(now);
    if (const ToolResult* const result = std::get_if<ToolResult>(&outcome)) {
        return Reply{callResult(*result, version)};
    }
    if (waiting_.size() >= mostWaiting) {
        return Reply{
            callResult(refused("Too many calls wait already. Wait for their results first."), version)};
    }
    waiting_.push_back({.id = *request.id,
                        .version = &version,
                        .call = std::move(call),
                        .isAction = !tool->hints.readOnly,
                        .next = std::get<Later>(outcome).at});
    return std::nullopt;
}

std::optional<Server::Reply> Server::listResources(Request& request, const ProtocolVersion& version, Moment)
{
    refuseCursor(request.params);
    return Reply{resourceList(offer_, version), cachingOfLists};
}

std::optional<Server::Reply> Server::listTemplates(Request& request, const ProtocolVersion&, Moment)
{
    refuseCursor(request.params);
    return Reply{resourceTemplateList(), cachingOfLists};
}

std::optional<Server::Reply> Server::readResource(Request& request, const ProtocolVersion& version, Moment)
{
    const std::string uri = textIn(request.params, "uri");
    const auto resource = std::find_if(offer_.resources.begin(), offer_.resources.end(),
                                       [&](const Resource& candidate) { return candidate.uri == uri; });
    if (resource == offer_.resources.end()) {
        throw ProtocolError(version.isStateless ? ErrorCode::invalidParams : ErrorCode::resourceNotFound,
                            "Resource not found", {{"uri", uri}});
    }
    return Reply{resourceContents(*resource), resource->caching};
}

}  // namespace quillmere::agent::protocol
