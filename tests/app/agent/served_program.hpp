// The real program serving an agent, in a process of its own.
#pragma once

#include "program_testing.hpp"

#include <sys/types.h>

#include <string>
#include <string_view>

#include "said.hpp"

namespace quillmere::test {

/// A client at the other end of its channels. Whatever is waited for must come within half a minute, or the
/// test fails.
class ServedProgram {
public:
    explicit ServedProgram(const std::filesystem::path& directory, const Words& more = {});
    ServedProgram(const ServedProgram&) = delete;
    ServedProgram& operator=(const ServedProgram&) = delete;
    ~ServedProgram();

    /// Any bytes; a message that is written in this way is to be noted first.
    void write(std::string_view bytes);
    void note(const Json& message) { transcript_.client(message.dump()); }
    /// A message, on a line of its own.
    void send(const Json& message);
    Json receive();
    /// Sends a request and returns what is received next.
    Json asked(const Json& request);
    /// The structured content of a tool call.
    Json called(const std::string& tool, const Json& arguments = Json::object());

    void closeInput();
    void closeOutput();
    void sendSignal(int signal);

    /// All that is left until the program closes its output.
    std::string rest();
    /// Waits for the end: the exit code, or 128 and the signal, as shells say it.
    int end();

private:
    /// Another piece of the output; false at its end.
    bool readMore();

    Transcript transcript_;
    int toServer_ = -1;
    int fromServer_ = -1;
    pid_t process_ = -1;
    int requests_ = 0;
    std::string unread_;
};

}  // namespace quillmere::test
