// Runs `quillmere-notifier`, the program that gives notices on the session bus.
//
// It is a separate program for two reasons. A bus may accept a connection and never answer; the process that
// asked then waits inside the call, and only a child can be killed. And the libraries for the bus cost every
// start of a program that is linked to them about half a millisecond of processor time (0.3 to 0.7 ms, means
// of 300 runs each), half as much again as a small program costs at all; status bars and prompts start
// `quillmere` often.
#pragma once

#include "base/system/descriptor.hpp"
#include "notices/notifier_channel.hpp"

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace quillmere::notices {

/// The path of the notifier: beside this program in a build directory, else where it is installed.
std::filesystem::path notifierProgram();

/// How long the notifier waits for answers of the notification service. It is killed a little later.
struct NotifierPatience {
    std::chrono::milliseconds capabilities{3'000};
    /// Longer: the service may be busy, and a notice that it has accepted must not be requested again.
    std::chrono::milliseconds notice{10'000};
};

class NotifierProcess : public NotifierChannel {
public:
    explicit NotifierProcess(std::filesystem::path program, const NotifierPatience& patience = {});
    NotifierProcess(const NotifierProcess&) = delete;
    NotifierProcess& operator=(const NotifierProcess&) = delete;
    ~NotifierProcess() override;

    bool isRunning() const override { return child_ != -1; }
    bool isReady() const override { return isReady_; }
    int descriptor() const override { return socket_.get(); }
    void start(base::Moment now) override;
    void send(const NoticeRequest& request, base::Moment now) override;
    std::vector<NotifierMessage> takeMessages(base::Moment now) override;

private:
    void handle(const NotifierMessage& message);
    void stop();
    void end(std::vector<NotifierMessage>& messages, const std::string& reason);
    /// Reads what has arrived; false once the other end is closed.
    bool receive();

    std::filesystem::path program_;
    NotifierPatience patience_;
    pid_t child_ = -1;
    base::Descriptor socket_;
    std::string received_;
    bool isReady_ = false;
    std::optional<base::Moment> deadline_;  ///< for the answer to the start or to the request under way
};

}  // namespace quillmere::notices
