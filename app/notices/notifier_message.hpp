// The messages between `quillmere watch` and `quillmere-notifier`.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quillmere::notices {

/// To the notifier: give this notice. One at a time; the answer is `given`, `failed` or `unanswered`.
struct NoticeRequest {
    std::uint32_t replaces;  ///< the number of the notice to replace; 0: none
    std::string heading;
    std::string body;                  ///< without markup
    std::uint8_t urgency;              ///< 0 low, 1 normal, 2 critical (Desktop Notifications)
    std::vector<std::string> actions;  ///< alternating keys and labels
    std::string sound = {};            ///< a name of the sounds of freedesktop.org; empty: no sound

    friend bool operator==(const NoticeRequest&, const NoticeRequest&) = default;
};

enum class NotifierMessageKind {
    ready,       ///< connected to the service that `text` identifies; always the first message
    given,       ///< the notice was given the number `number`
    failed,      ///< the notice was not given; `text` is the reason
    unanswered,  ///< the service was asked for the notice, but its answer is missing: it may be on the screen
    action,      ///< the person chose the action with the key `text` on the notice `number`
    closed,      ///< the notice `number` was closed
    ended,       ///< the notifier ends, for the reason `text` or, without one, with its service; the last one
};

/// From the notifier.
struct NotifierMessage {
    NotifierMessageKind kind;
    std::uint32_t number = 0;  ///< of the notice, as the service counts them
    std::string text = {};     ///< a reason, an action's key, or a name that is unique across all buses
    std::string error = {};    ///< the D-Bus name of the error, since the texts of one error may differ
};

}  // namespace quillmere::notices
