#include "work/amendment_text.hpp"

#include "base/text/duration.hpp"
#include "base/text/local_time.hpp"
#include "work/not_possible.hpp"

#include <cmath>

namespace quillmere::work {
namespace {

std::string rangeText(std::string_view name, const std::string& least, const std::string& most)
{
    return " Possible " + std::string(name) + ": " + least + " to " + most + ".";
}

std::string timesText(const amendments::PossibleTimes& times, const base::SeenFrom& here)
{
    const Instant earliest(std::ceil(times.earliest.secondsSince1970()));
    const Instant latest(std::floor(times.latest.secondsSince1970()));
    if (earliest > latest) {
        return "";
    }
    return rangeText("times", base::localSecondSeenFrom(here, earliest),
                     base::localSecondSeenFrom(here, latest));
}

std::string lengthsText(const amendments::PossibleLengths& lengths)
{
    const double shortest = std::fmax(std::ceil(lengths.shortest), base::shortestDuration);
    const double longest = std::floor(lengths.longest);
    if (!(shortest <= longest)) {
        return "";
    }
    return rangeText("lengths", base::durationText(shortest), base::durationText(longest));
}

}  // namespace

std::string refusalText(const amendments::Refusal& refusal, const workspace::Situation& situation,
                        base::Hours hours)
{
    const std::string message = refusal.what();
    if (const auto* const times = std::get_if<amendments::PossibleTimes>(&refusal.possible())) {
        return message + timesText(*times, {situation.now, hours});
    }
    if (const auto* const lengths = std::get_if<amendments::PossibleLengths>(&refusal.possible())) {
        return message + lengthsText(*lengths);
    }
    if (std::holds_alternative<amendments::PossibleElsewhere>(refusal.possible())) {
        return withPlace(message, situation, hours);
    }
    return message;
}

}  // namespace quillmere::work
