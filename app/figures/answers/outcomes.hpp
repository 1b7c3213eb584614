// What a person worked on: time and completion by outcome.
#pragma once

#include "figures/look_back.hpp"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillmere::figures {

/// Sessions for one outcome: titles that differ only in case and space are the same.
struct OutcomeWork {
    std::string title;  ///< as it was written last; empty for sessions without an outcome
    double workedSeconds = 0;
    std::int64_t sessions = 0;
    Completions completions{};
    /// Worked seconds by the periods of the trend; empty but for the outcomes with most time.
    std::vector<double> trend{};
};

struct OutcomeFigures {
    std::vector<OutcomeWork> outcomes;  ///< those with most time first
    Unit trendUnit;                     ///< days up to two weeks, weeks up to a quarter, otherwise months
    std::vector<Day> trendFirsts;       ///< the first day of each period of the trend
    static constexpr std::size_t outcomesWithTrend = 5;
};

/// A session counts for the outcome that its plan serves; without one for the first of its block that has a
/// title, or else for what the session itself intended. The whole time of a session counts when it started.
OutcomeFigures outcomesOf(const LookBack& look);

/// A title without the differences of case and space.
std::string foldedTitle(std::string_view title);

}  // namespace quillmere::figures
