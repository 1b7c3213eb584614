// Energy and morale against completion, counted a second time from a text a session.
#include "figures/answers/mood.hpp"

#include "figures_testing.hpp"

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "generated_history.hpp"
#include "minutes.hpp"

namespace quillmere::test {
namespace {

using figures::Mood;
using figures::moodOf;
using figures::statistics;

struct Noted {
    std::string date;
    std::int64_t energy;
    std::int64_t morale;
    int completion;  ///< -1 without a review
};

std::vector<Noted> notedIn(const QuillmereState& state, int dayBeginsAtHour)
{
    std::vector<Noted> noted;
    for (const Block& block : blocksIn(state)) {
        for (const WorkSession& each : block.sessions) {
            noted.push_back({dateOf(each.startedAt, dayBeginsAtHour), each.plan.energy, each.plan.morale,
                             each.review ? static_cast<int>(each.review->completion) : -1});
        }
    }
    return noted;
}

template <class Fits>
figures::Completions countOf(const std::vector<Noted>& noted, Fits fits)
{
    figures::Completions counts{};
    for (int result = 0; result < 3; ++result) {
        counts[static_cast<std::size_t>(result)] =
            std::count_if(noted.begin(), noted.end(),
                          [&](const Noted& each) { return each.completion == result && fits(each); });
    }
    return counts;
}

/// Of the ratings that a person can give.
std::string meanOf(const std::vector<Noted>& noted, unsigned weekday, std::int64_t Noted::*rating)
{
    std::string digits;
    for (const Noted& each : noted) {
        const bool isRating = each.*rating > 0 && each.*rating < 6;
        if (isRating && std::chrono::weekday(day(each.date)).c_encoding() == weekday) {
            digits += std::to_string(each.*rating);
        }
    }
    double sum = 0;
    for (const char digit : digits) {
        sum += digit - '0';
    }
    return digits.empty() ? "" : std::to_string(sum / static_cast<double>(digits.size()));
}

std::string textOf(const std::optional<double>& mean) { return mean ? std::to_string(*mean) : ""; }

TEST(Mood, isThatOfTheSessionsOfEachWeekday)
{
    const TimeZone here("Europe/Berlin");
    for (const unsigned seed : seeds) {
        const figures::Habits habits{.dayBeginsAtHour = seed % 2 == 0 ? 4 : 0};
        const QuillmereState state = generatedHistory(seed, moment);
        const Mood mood = moodOf(statistics(state, {}, day("2026-11-15"), habits));
        const std::vector<Noted> noted = notedIn(state, habits.dayBeginsAtHour);
        for (unsigned weekday = 0; weekday < 7; ++weekday) {
            SCOPED_TRACE(std::to_string(seed) + " " + std::to_string(weekday));
            EXPECT_EQ(textOf(mood.weekdays[weekday].energy.mean()), meanOf(noted, weekday, &Noted::energy));
            EXPECT_EQ(textOf(mood.weekdays[weekday].morale.mean()), meanOf(noted, weekday, &Noted::morale));
            EXPECT_EQ(mood.weekdays[weekday].completions, countOf(noted, [&](const Noted& each) {
                          return std::chrono::weekday(day(each.date)).c_encoding() == weekday;
                      }));
        }
    }
}

TEST(Mood, setsHighRatingsAgainstLowOnes)
{
    const TimeZone here("UTC");
    for (const unsigned seed : seeds) {
        SCOPED_TRACE(seed);
        const QuillmereState state = generatedHistory(seed, moment);
        const Mood mood = moodOf(statistics(state, {}, day("2026-11-15")));
        const std::vector<Noted> noted = notedIn(state, 0);
        const auto within = [&](std::int64_t Noted::*rating, std::int64_t least, std::int64_t most) {
            return countOf(noted,
                           [=](const Noted& each) { return each.*rating >= least && each.*rating <= most; });
        };
        EXPECT_EQ(mood.energy.high, within(&Noted::energy, 4, 5));
        EXPECT_EQ(mood.energy.low, within(&Noted::energy, 1, 2));
        EXPECT_EQ(mood.morale.high, within(&Noted::morale, 4, 5));
        EXPECT_EQ(mood.morale.low, within(&Noted::morale, 1, 2));
    }
}

}  // namespace
}  // namespace quillmere::test
