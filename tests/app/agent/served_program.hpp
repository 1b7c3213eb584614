// The real program serving an agent, in a process of its own.
#pragma once

#include "program_testing.hpp"
#include "support/process.hpp"

#include <filesystem>
#include <string>
#include <string_view>

#include "said.hpp"

namespace quillmere::test {

/// The program and its client: the test writes to a socket that is the program's input, and reads its output
/// from a pipe. The messages of both go to the transcript of the test.
class ServedProgram {
public:
    explicit ServedProgram(const std::filesystem::path& directory, const Words& options = {});
    ServedProgram(const ServedProgram&) = delete;
    ServedProgram& operator=(const ServedProgram&) = delete;
    /// Expects that the program ends when its input ends.
    ~ServedProgram();

    /// Writes any bytes; use `note` first for a message that belongs in the transcript.
    void write(std::string_view bytes) { process_.write(bytes); }
    void note(const Json& message) { transcript_.client(message.dump()); }
    /// Sends a message on a line of its own.
    void send(const Json& message);
    /// The next message; fails the test when none comes.
    Json receive();
    /// Sends a request and returns the next message.
    Json asked(const Json& request);
    /// The structured content of a tool call.
    Json called(const std::string& tool, const Json& arguments = Json::object());

    void closeInput() { process_.closeInput(); }
    void closeOutput() { process_.closeOutput(); }
    void sendSignal(int signal) const { process_.send(signal); }

    /// All that follows until the program closes its output.
    std::string rest() { return process_.rest(); }
    /// Waits for the end; returns the exit code, or 128 and the signal.
    int end() { return process_.wait().code; }

private:
    Process process_;
    Transcript transcript_;
    int requests_ = 0;
};

}  // namespace quillmere::test
