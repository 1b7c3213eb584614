// Signals that a loop waits for like anything else.
#pragma once

#include "notices/open_file.hpp"

#include <csignal>

namespace quillmere::app {

/// Receives the signals that ask the program to end (SIGTERM, SIGINT, SIGHUP) and those of children that have
/// ended, by a descriptor (signalfd(2)); for as long as it lives they do nothing else. One that the program
/// was started to ignore, as nohup(1) has it, is still ignored.
class SignalInbox {
public:
    /// Throws `std::system_error` when the system has no descriptor for it.
    SignalInbox();
    SignalInbox(const SignalInbox&) = delete;
    SignalInbox& operator=(const SignalInbox&) = delete;
    ~SignalInbox();

    /// For poll(2).
    int descriptor() const noexcept { return file_.get(); }

    /// Takes what has come; whether the program was asked to end. Never waits.
    bool takeEnd();

private:
    sigset_t before_;
    OpenFile file_;
};

}  // namespace quillmere::app
