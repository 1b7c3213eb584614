// The notifier as `watch` sees it: a program of its own that gives notices on the session bus.
//
// It is one for two reasons. A bus may accept a connection and never answer; the process that asked then
// waits inside the call, and one that can be killed may. And the libraries that speak to the bus cost every
// start of a program that is linked to them about half a millisecond of processor time (0.3 to 0.7 ms, means
// of 300 runs each): half as much again as a small program costs at all, and `quillmere` is started often, by
// status bars and prompts.
#pragma once

#include "base/system/descriptor.hpp"
#include "notices/notifier_protocol.hpp"

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace quillmere::notices {

/// Where the notifier is: beside this program, as it is built, or where it is installed.
std::filesystem::path notifierProgram();

class NotifierProcess {
public:
    using Moment = std::chrono::steady_clock::time_point;

    explicit NotifierProcess(std::filesystem::path program);
    NotifierProcess(const NotifierProcess&) = delete;
    NotifierProcess& operator=(const NotifierProcess&) = delete;
    ~NotifierProcess();

    bool isRunning() const { return child_ != -1; }
    /// Whether it takes notices.
    bool isReady() const { return isReady_; }
    /// For poll(2): readable when `words` has something to read; -1 while it does not run.
    int descriptor() const { return socket_.get(); }

    /// Starts it; throws `std::system_error` when that cannot be done.
    void start(Moment now);

    /// Asks for a notice; to be called while it is ready and no other one is under way. Never waits.
    void give(const NoticeRequest& notice, Moment now);

    /// What it has said since the last call. It is killed when it lets a start or a notice go without an
    /// answer for too long; that it is gone, for whatever reason, is its last word, here too. Never waits.
    std::vector<NotifierWord> words(Moment now);

private:
    void heed(const NotifierWord& word);
    void stop();
    void end(std::vector<NotifierWord>& words, const std::string& reason);
    /// Whether it may say more.
    bool receive();

    std::filesystem::path program_;
    pid_t child_ = -1;
    base::Descriptor socket_;
    std::string arrived_;
    bool isReady_ = false;
    std::optional<Moment> deadline_;  ///< of the answer that is waited for
};

}  // namespace quillmere::notices
