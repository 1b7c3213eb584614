// The conversation with one client: lines in, lines out. Knows no file, no process and no clock.
#pragma once

#include "agent/protocol/message.hpp"
#include "agent/protocol/version.hpp"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmere::agent::protocol {

/// Serves both kinds of versions of the protocol at the same time: with a handshake (`initialize`), and
/// stateless (each request names its version). A request before the handshake is answered as after it.
class Server {
public:
    explicit Server(Offer offer);

    /// Takes one line of the client, without the line end.
    void receive(std::string_view line, Moment now);

    /// Answers a line that was too long to be read with an error.
    void refuseLongLine();

    /// After a change: the next `askAgain` asks all waiting calls.
    void expectResults();

    /// Asks the waiting calls whose time has come for their result.
    void askAgain(Moment now);

    /// When `askAgain` is due; absent while no call waits.
    std::optional<Moment> nextTime() const;

    /// Whether a waiting call must be finished before the end.
    bool isActing() const;

    /// The lines for the client since the last `takeOutput`.
    std::string takeOutput();

private:
    struct Method;
    struct Waiting {
        SortedJson id;
        const ProtocolVersion* version;
        Call call;
        bool isAction;               ///< of a tool that is not `readOnly`
        std::optional<Moment> next;  ///< absent: the call is done
    };
    /// A result; with `caching` where the protocol has it.
    struct Reply {
        SortedJson result;
        std::optional<Caching> caching = {};
    };

    void answer(Request& request, Moment now);
    void notice(const Request& notification);
    void send(const SortedJson& id, Reply reply, const ProtocolVersion& version);
    /// Runs an action for a request; an exception becomes an error line.
    void guarded(const std::optional<SortedJson>& id, const std::function<void()>& action);

    // The methods. They may move from the params. Absent: the answer comes later.
    std::optional<Reply> initialize(Request& request, const ProtocolVersion& version, Moment now);
    std::optional<Reply> ping(Request& request, const ProtocolVersion& version, Moment now);
    std::optional<Reply> discover(Request& request, const ProtocolVersion& version, Moment now);
    std::optional<Reply> listTools(Request& request, const ProtocolVersion& version, Moment now);
    std::optional<Reply> callTool(Request& request, const ProtocolVersion& version, Moment now);
    std::optional<Reply> listResources(Request& request, const ProtocolVersion& version, Moment now);
    std::optional<Reply> listTemplates(Request& request, const ProtocolVersion& version, Moment now);
    std::optional<Reply> readResource(Request& request, const ProtocolVersion& version, Moment now);

    Offer offer_;
    const ProtocolVersion* agreed_;  ///< by the handshake; before it, the default
    std::vector<Waiting> waiting_;
    std::string output_;
};

}  // namespace quillmere::agent::protocol
