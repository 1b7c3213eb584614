#include "figures/answers/mood.hpp"

namespace quillmere::figures {
namespace {

Contrast contrastOf(const ByRating& byRating)
{
    Contrast contrast;
    for (const std::size_t fromEnd : {std::size_t{0}, std::size_t{1}}) {
        addTo(contrast.low, byRating[fromEnd]);
        addTo(contrast.high, byRating[byRating.size() - 1 - fromEnd]);
    }
    return contrast;
}

}  // namespace

Mood moodOf(const LookBack& look)
{
    Mood mood{.weekdays = {}, .energy = contrastOf(look.byEnergy), .morale = contrastOf(look.byMorale)};
    for (const Period& day : look.days) {
        WeekdayMood& weekday = mood.weekdays[std::chrono::weekday(day.first).c_encoding()];
        addTo(weekday.energy, day.tally.energy);
        addTo(weekday.morale, day.tally.morale);
        addTo(weekday.completions, day.tally.completions);
    }
    return mood;
}

}  // namespace quillmere::figures
