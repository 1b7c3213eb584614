// How a person was: energy and morale, and what sessions reached with them.
#pragma once

#include "figures/look_back.hpp"

#include <array>

namespace quillmere::figures {

struct WeekdayMood {
    Ratings energy{};
    Ratings morale{};
    Completions completions{};
};

/// Completions of sessions that began with a rating of 4 or 5, and with one of 1 or 2.
struct Contrast {
    Completions high{};
    Completions low{};
};

struct Mood {
    std::array<WeekdayMood, 7> weekdays{};  ///< by chrono::weekday::c_encoding, from Sunday
    Contrast energy{};
    Contrast morale{};
};

Mood moodOf(const LookBack& look);

}  // namespace quillmere::figures
