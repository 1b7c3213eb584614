// The conversation of one client with an offer: lines in, lines out. Knows no file and no process.
#pragma once

#include "agent/protocol/message.hpp"
#include "agent/protocol/version.hpp"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmere::agent::protocol {

/// Speaks both ways of the protocol, whichever a request speaks: with a handshake (`initialize`), and without
/// (each request says its version). A request before the handshake is answered as after one.
class Server {
public:
    explicit Server(Offer offer);

    /// Takes one line of the client, without its end.
    void receive(std::string_view line, Moment now);

    /// Says that a line was too long to be read.
    void refuseLongLine();

    /// Something has changed: all calls that wait are to be asked again.
    void expectResults();

    /// Asks the calls whose time has come whether they have a result now.
    void askAgain(Moment now);

    /// When that time comes for the first of them; absent while no call waits.
    std::optional<Moment> nextTime() const;

    /// Whether a call waits that is to be brought to its end.
    bool isActing() const;

    /// The lines for the client since the last call.
    std::string takeOutput();

private:
    struct Method;
    struct Waiting {
        Json id;
        const Version* version;
        Call call;
        bool isAction;               ///< not of a tool that only reads
        std::optional<Moment> next;  ///< absent: it is done
    };
    /// A result, and how long it may be kept where that is said.
    struct Reply {
        Json result;
        std::optional<Caching> caching = {};
    };

    void answer(Request& request, Moment now);
    void notice(const Request& notification);
    void send(const Json& id, Reply reply, const Version& version);
    /// Does something for a request; tells the client when it fails.
    void guarded(const std::optional<Json>& id, const std::function<void()>& action);

    // The methods, which may take the params apart. Absent: the answer comes later.
    std::optional<Reply> initialize(Request& request, const Version& version, Moment now);
    std::optional<Reply> ping(Request& request, const Version& version, Moment now);
    std::optional<Reply> discover(Request& request, const Version& version, Moment now);
    std::optional<Reply> listTools(Request& request, const Version& version, Moment now);
    std::optional<Reply> callTool(Request& request, const Version& version, Moment now);
    std::optional<Reply> listResources(Request& request, const Version& version, Moment now);
    std::optional<Reply> listTemplates(Request& request, const Version& version, Moment now);
    std::optional<Reply> readResource(Request& request, const Version& version, Moment now);

    Offer offer_;
    const Version* agreed_;  ///< by the handshake, or what is taken for it until there was one
    std::vector<Waiting> waiting_;
    std::string output_;
};

}  // namespace quillmere::agent::protocol
