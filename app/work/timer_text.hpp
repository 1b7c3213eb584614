// A running timer in words.
#pragma once

#include "base/text/local_time.hpp"
#include "work/situation_view.hpp"

#include <string>

namespace quillmere::work {

/// The time left as every display shows it, "14:59"; once it has run out "over since 14:55".
std::string timeText(const TimerView& timer, const base::SeenFrom& here);

/// "until 14:55", "paused since 14:31"; empty once the time has run out.
std::string endText(const TimerView& timer, const base::SeenFrom& here);

/// "over since 14:55"; "over since Thu 14:55" on another day.
std::string overText(Instant since, const base::SeenFrom& here);

/// The time of the running timer, or of the session in review: timeText or overText. Empty without both.
std::string timeText(const std::optional<TimerView>& timer, const std::optional<Instant>& overSince,
                     const base::SeenFrom& here);

}  // namespace quillmere::work
