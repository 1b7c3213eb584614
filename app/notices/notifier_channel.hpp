// The notifier program as Notifier uses it.
#pragma once

#include "base/moment.hpp"
#include "notices/notifier_message.hpp"

#include <vector>

namespace quillmere::notices {

/// Implemented by NotifierProcess, and in tests by a channel without a process. No operation waits.
class NotifierChannel {
public:
    virtual ~NotifierChannel() = default;

    virtual bool isRunning() const = 0;
    /// Whether it accepts a request.
    virtual bool isReady() const = 0;
    /// For `base::waitFor`: readable when `takeMessages` has something to read; -1 while the notifier is not
    /// running.
    virtual int descriptor() const = 0;

    /// Starts the notifier; throws `std::system_error` when that fails.
    virtual void start(base::Moment now) = 0;

    /// Requests a notice. Only while the notifier is ready and no other request is under way.
    virtual void send(const NoticeRequest& request, base::Moment now) = 0;

    /// The messages since the last call. A notifier that leaves its start or a request unanswered for too
    /// long is killed. However it ends, the last message is `ended`.
    virtual std::vector<NotifierMessage> takeMessages(base::Moment now) = 0;
};

}  // namespace quillmere::notices
