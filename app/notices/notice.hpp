// The text of a notice.
#pragma once

#include "notices/standing_events.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmere::notices {

/// Each subject has one notice at a time; a later one replaces it. Questions have a notice of their own,
/// because the end of a focus session and the questions that waited for it are delivered at once.
enum class NoticeSubject { work, questions };

NoticeSubject subjectOf(work::EventKind kind);

/// A person's choice on a notice.
enum class NoticeAction { open, extendBreak, extendFocus, makeSleepAPause, endBeforeSleep };

struct Notice {
    std::string heading;                     ///< one line
    std::string body;                        ///< sanitized lines without markup; may be empty
    std::optional<NoticeAction> offer = {};  ///< beside opening the screen
    bool isQuiet = false;                    ///< of low urgency
    std::string_view sound = {};             ///< a name of the sounds of freedesktop.org; may be empty

    friend bool operator==(const Notice&, const Notice&) = default;
};

/// The notice for events of one subject, at least one: one event of the work, or questions.
Notice noticeOf(const std::vector<StandingEvent>& events);

}  // namespace quillmere::notices
