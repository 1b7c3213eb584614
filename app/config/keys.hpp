// The keys of the configuration: one table for the values and one for the fields of a template. Reading, the
// listing of `quillmere config` and the manual follow from these tables.
#pragma once

#include "base/limits.hpp"
#include "config/values.hpp"

#include <array>
#include <cstdint>
#include <string_view>
#include <variant>

namespace quillmere::config {

/// The range of a number, or of a duration in seconds.
struct Limits {
    std::int64_t least = 0;
    std::int64_t most = 0;
};

/// The member that a value is stored in. Its type says how the value is written (config::accepted).
template <class Record>
using Member = std::variant<double Record::*, std::optional<double> Record::*, std::int64_t Record::*,
                            std::optional<std::int64_t> Record::*, std::optional<std::string> Record::*,
                            std::vector<std::string> Record::*, Weekday Record::*,
                            std::vector<Weekday> Record::*, base::Hours Record::*,
                            std::filesystem::path Record::*, bool Record::*, std::vector<double> Record::*>;

template <class Record>
struct Key {
    std::string_view name;  ///< with its table: "block.focus"
    Member<Record> member;
    Limits limits;
    std::string_view help;
};

inline constexpr Limits noLimits = {};
inline constexpr Limits durationLimits = {static_cast<std::int64_t>(base::shortestDuration),
                                          static_cast<std::int64_t>(base::longestDuration)};
inline constexpr Limits goalLimits = {60, 86'400};
inline constexpr Limits cycleLimits = {1, base::mostCycles};
inline constexpr Limits hourLimits = {0, 23};
inline constexpr Limits reminderLimits = {60, 86'400};

// clang-format off
inline constexpr auto keys = std::to_array<Key<Values>>({
    {"directory",    &Values::directory,        noLimits,       "The directory of the files; --directory comes before it"},
    {"clock",        &Values::hours,            noLimits,       "How times of day are shown"},
    {"week-begins",  &Values::weekBegins,       noLimits,       "The first day of a week in the look back"},
    {"day-begins",   &Values::dayBeginsAtHour,  hourLimits,     "The hour at which a day of the look back begins; what is earlier belongs to the day before"},
    {"daily-goal",   &Values::dailyGoalSeconds, goalLimits,     "The focus time to reach on a day"},
    {"days-off",     &Values::daysOff,          noLimits,       "The days of the week without a goal; they interrupt no streak"},
    {"sound",        &Values::sound,            noLimits,       "Whether notices have sounds and the screen rings the bell"},
    {"reminders",    &Values::reminderSeconds,  reminderLimits, "When a review, plan or break that waits is said again; an empty list: never"},
    {"block.focus",  &Values::focusSeconds,     durationLimits, "The length of a focus session in a new block"},
    {"block.break",  &Values::breakSeconds,     durationLimits, "The length of a break in a new block"},
    {"block.cycles", &Values::cycleCount,       cycleLimits,    "The number of focus sessions in a new block"},
    {"watch.hooks",  &Values::hooks,            noLimits,       "Shell commands that the watch runs at each event, beside those of --hook"},
});

/// The keys of a table [template.NAME], by the names of the options of `plan`.
inline constexpr auto templateKeys = std::to_array<Key<Template>>({
    {"outcome",   &Template::outcomes,        noLimits,       "What should come out of it"},
    {"why",       &Template::why,             noLimits,       "Why it matters"},
    {"done-test", &Template::doneTest,        noLimits,       "How it is known that it is done"},
    {"hazards",   &Template::hazards,         noLimits,       "What could get in the way"},
    {"check",     &Template::measurableCheck, noLimits,       "What can be measured at the end"},
    {"notes",     &Template::notes,           noLimits,       "What else should be at hand"},
    {"focus",     &Template::focusSeconds,    durationLimits, "The length of a focus session"},
    {"break",     &Template::breakSeconds,    durationLimits, "The length of a break"},
    {"cycles",    &Template::cycleCount,      cycleLimits,    "The number of focus sessions"},
});
// clang-format on

/// The table that templates stand in.
inline constexpr std::string_view templateTable = "template";

/// The word by which `plan --like` names the last block. No template has this name.
inline constexpr std::string_view lastBlockName = "last";

}  // namespace quillmere::config
