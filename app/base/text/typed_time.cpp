#include "base/text/typed_time.hpp"

#include "base/text/calendar_text.hpp"
#include "base/text/duration.hpp"
#include "base/text/local_time.hpp"
#include "base/text/lower_case.hpp"

#include <quillmere/records/json/date_text.hpp>

#include <algorithm>
#include <chrono>
#include <string>
#include <utility>
#include <vector>

namespace quillmere::base {
namespace {

namespace chrono = std::chrono;
using chrono::local_days;
using chrono::seconds;

/// Which of the times that a text may mean.
enum class Sense { next, last };

std::vector<std::string> wordsOf(std::string_view text)
{
    std::vector<std::string> words;
    std::string word;
    for (const char letter : lowerCase(text) + " ") {
        if (letter != ' ') {
            word += letter;
        } else if (!word.empty()) {
            words.push_back(std::exchange(word, {}));
        }
    }
    return words;
}

/// The words of a day and a time of day: "9 pm" is one of them, "2026-11-15T09:00" two.
std::vector<std::string> dayAndTimeIn(std::string_view text)
{
    std::vector<std::string> words = wordsOf(text);
    if (words.size() >= 2 && (words.back() == "am" || words.back() == "pm")) {
        const std::string half = words.back();
        words.pop_back();
        words.back() += half;
    }
    if (words.size() == 1) {
        const std::size_t place = words.front().find('t');
        if (place != std::string::npos && dayFromText(words.front().substr(0, place))) {
            words.push_back(words.front().substr(place + 1));
            words.front().resize(place);
        }
    }
    return words;
}

/// Removes a number of one or two digits, and a colon before it unless it is the first one.
std::optional<int> takeNumber(std::string_view& text, bool isFirst)
{
    if (!isFirst && !text.starts_with(':')) {
        return std::nullopt;
    }
    const std::size_t begin = isFirst ? 0 : 1;
    const std::size_t end = std::min(text.find_first_not_of("0123456789", begin), text.size());
    const std::optional<int> number =
        end - begin <= 2 ? numberFromDigits(text.substr(begin, end - begin)) : std::nullopt;
    text.remove_prefix(number ? end : 0);
    return number;
}

/// The hour of a clock with 24 hours from one with twelve. Absent for an hour that no clock has.
std::optional<int> hourOf(int hour, std::string_view half)
{
    if (half.empty()) {
        return hour < 24 ? std::optional(hour) : std::nullopt;
    }
    if (hour < 1 || hour > 12) {
        return std::nullopt;
    }
    return hour % 12 + (half == "pm" ? 12 : 0);
}

/// Seconds since midnight.
std::optional<seconds> timeOfDayFrom(std::string_view text)
{
    std::string_view half;
    if (text.ends_with("am") || text.ends_with("pm")) {
        half = text.substr(text.size() - 2);
        text.remove_suffix(2);
    }
    const std::optional<int> number = takeNumber(text, true);
    const std::optional<int> hour = number ? hourOf(*number, half) : std::nullopt;
    const std::optional<int> minute = takeNumber(text, false);
    const std::optional<int> second = minute ? takeNumber(text, false) : std::nullopt;
    const bool hasMinute = minute || !half.empty();
    if (!hour || !hasMinute || !text.empty() || minute.value_or(0) > 59 || second.value_or(0) > 59) {
        return std::nullopt;
    }
    return chrono::hours(*hour) + chrono::minutes(minute.value_or(0)) + seconds(second.value_or(0));
}

/// The days that a word may mean, in the order in which they are tried. None for any other word.
std::vector<local_days> daysFrom(const std::string& word, local_days today, Sense sense)
{
    const chrono::days oneDay(1);
    if (word == "today") {
        return {today};
    }
    if (word == "tomorrow") {
        return {today + oneDay};
    }
    if (word == "yesterday") {
        return {today - oneDay};
    }
    if (const std::optional<chrono::weekday> weekday = weekdayFromText(word)) {
        const chrono::weekday present(today);
        return sense == Sense::next ? std::vector{today + (*weekday - present),
                                                  today + (*weekday - present) + chrono::weeks(1)}
                                    : std::vector{today - (present - *weekday),
                                                  today - (present - *weekday) - chrono::weeks(1)};
    }
    const std::optional<local_days> day = dayFromText(word);
    return day ? std::vector{*day} : std::vector<local_days>();
}

/// The days that a time of day alone may be on.
std::vector<local_days> nearDays(local_days today, Sense sense)
{
    const chrono::days oneDay(1);
    return {today, sense == Sense::next ? today + oneDay : today - oneDay};
}

bool isWanted(Instant instant, Instant now, Sense sense)
{
    return sense == Sense::next ? instant >= now : instant <= now;
}

/// Of the instants of a local time, the next one or the last one; the nearest if that is none.
Instant chosenOf(const std::vector<Instant>& instants, Instant now, Sense sense)
{
    const auto isSo = [&](Instant instant) { return isWanted(instant, now, sense); };
    if (sense == Sense::next) {
        const auto next = std::find_if(instants.begin(), instants.end(), isSo);
        return next != instants.end() ? *next : instants.back();
    }
    const auto last = std::find_if(instants.rbegin(), instants.rend(), isSo);
    return last != instants.rend() ? *last : instants.front();
}

/// The time on the first day on which it is wanted, or on the last of the days.
std::optional<Instant> timeOn(const std::vector<local_days>& days, seconds timeOfDay, Instant now,
                              Sense sense)
{
    std::optional<Instant> instant;
    for (const local_days day : days) {
        instant = chosenOf(instantsOfLocalTime(day + timeOfDay), now, sense);
        if (isWanted(*instant, now, sense)) {
            break;
        }
    }
    return instant;
}

std::optional<Instant> dayAndTime(std::string_view text, Instant now, Sense sense)
{
    const std::vector<std::string> words = dayAndTimeIn(text);
    const std::optional<seconds> timeOfDay =
        words.empty() || words.size() > 2 ? std::nullopt : timeOfDayFrom(words.back());
    if (!timeOfDay) {
        return std::nullopt;
    }
    const local_days today = localDayOf(now);
    return timeOn(words.size() == 1 ? nearDays(today, sense) : daysFrom(words.front(), today, sense),
                  *timeOfDay, now, sense);
}

/// The instant after "+1h" or "in 20m".
std::optional<Instant> afterDelay(std::string_view text, Instant now)
{
    const std::vector<std::string> words = wordsOf(text);
    std::optional<double> delay;
    if (words.size() == 1 && words.front().starts_with('+')) {
        delay = durationFromText(words.front().substr(1));
    } else if (words.size() == 2 && words.front() == "in") {
        delay = durationFromText(words.back());
    }
    return delay ? std::optional(now + *delay) : std::nullopt;
}

/// Only instants that files can hold.
std::optional<Instant> withinFiles(std::optional<Instant> instant)
{
    return instant && json::hasDateText(*instant) ? instant : std::nullopt;
}

}  // namespace

std::optional<Instant> instantFromLocalText(std::string_view text, Instant now)
{
    const std::optional<Instant> delayed = afterDelay(text, now);
    return withinFiles(delayed ? delayed : dayAndTime(text, now, Sense::next));
}

std::optional<Instant> pastInstantFromLocalText(std::string_view text, Instant now)
{
    return withinFiles(dayAndTime(text, now, Sense::last));
}

}  // namespace quillmere::base
