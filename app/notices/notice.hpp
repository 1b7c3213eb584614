// The words of a notice.
#pragma once

#include "notices/standing_events.hpp"

#include <string>
#include <vector>

namespace quillmere::notices {

/// Each subject has one notice at a time, and a later one replaces it. That of a question does not push away
/// that of the work: both come at once when a focus session ends for which the question had to wait.
enum class NoticeSubject { work, questions };

NoticeSubject subjectOf(StandingEvent::Kind kind);

struct Notice {
    std::string heading;  ///< one line
    std::string body;     ///< lines of sanitized text, no markup; may be empty
    bool mayExtendBreak;  ///< whether that is offered beside opening the screen

    friend bool operator==(const Notice&, const Notice&) = default;
};

/// The heading alone: "Focus is over".
std::string_view heading(StandingEvent::Kind kind);

/// One notice for what is told together: one event of the work, or questions; at least one.
Notice noticeOf(const std::vector<StandingEvent>& events);

}  // namespace quillmere::notices
