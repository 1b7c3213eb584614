#include "work/habits.hpp"

#include <chrono>

namespace quillmere::work {

figures::Habits habitsOf(const config::Values& values)
{
    const auto weekday = [](config::Weekday day) {
        return std::chrono::weekday(static_cast<unsigned>(day) + 1);  // both count from Monday
    };
    figures::Habits habits{.weekBegins = weekday(values.weekBegins),
                           .dayBeginsAtHour = static_cast<int>(values.dayBeginsAtHour),
                           .dailyGoalSeconds = values.dailyGoalSeconds,
                           .daysOff = {},
                           .hours = values.hours};
    for (const config::Weekday day : values.daysOff) {
        habits.daysOff.push_back(weekday(day));
    }
    return habits;
}

}  // namespace quillmere::work
