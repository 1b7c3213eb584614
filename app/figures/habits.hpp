// How a person divides and reads time.
#pragma once

#include "base/text/hours.hpp"

#include <chrono>
#include <optional>
#include <vector>

namespace quillmere::figures {

struct Habits {
    std::chrono::weekday weekBegins = std::chrono::Monday;
    int dayBeginsAtHour = 0;                         ///< time before this hour belongs to the day before
    std::optional<double> dailyGoalSeconds = {};     ///< of focus
    std::vector<std::chrono::weekday> daysOff = {};  ///< without a goal; they interrupt no streak
    base::Hours hours = base::Hours::twentyFour;

    bool isDayOff(std::chrono::local_days day) const
    {
        for (const std::chrono::weekday each : daysOff) {
            if (each == std::chrono::weekday(day)) {
                return true;
            }
        }
        return false;
    }
};

}  // namespace quillmere::figures
