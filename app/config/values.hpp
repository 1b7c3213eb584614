// The values of the configuration, with their defaults.
#pragma once

#include "base/text/hours.hpp"
#include "config/weekday.hpp"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace quillmere::config {

/// Fields of a block that is planned again and again. Absent fields are those of a new block.
struct Template {
    std::string name;
    std::vector<std::string> outcomes = {};  ///< titles; empty: those of a new block
    std::optional<std::string> why = {};
    std::optional<std::string> doneTest = {};
    std::optional<std::string> hazards = {};
    std::optional<std::string> measurableCheck = {};
    std::optional<std::string> notes = {};
    std::optional<double> focusSeconds = {};
    std::optional<double> breakSeconds = {};
    std::optional<std::int64_t> cycleCount = {};

    friend bool operator==(const Template&, const Template&) = default;
};

struct Values {
    // A new block. The defaults are those of Block::default_.
    double focusSeconds = 25 * 60;
    double breakSeconds = 5 * 60;
    std::int64_t cycleCount = 8;
    std::vector<Template> templates = {};  ///< in the order of the files; no two of one name

    // The look back.
    Weekday weekBegins = Weekday::monday;
    std::int64_t dayBeginsAtHour = 0;  ///< time before this hour belongs to the day before
    std::optional<double> dailyGoalSeconds = {};
    std::vector<Weekday> daysOff = {};  ///< days without a goal

    base::Hours hours = base::Hours::twentyFour;
    std::filesystem::path directory = {};  ///< as it was written (config::expanded); empty: the usual one
    std::vector<std::string> hooks = {};   ///< shell commands of the watch
    bool sound = true;                     ///< notices have sounds, and the screen rings the bell
    std::vector<double> reminderSeconds = {300, 600, 1'200};  ///< after an event, ascending

    friend bool operator==(const Values&, const Values&) = default;
};

}  // namespace quillmere::config
