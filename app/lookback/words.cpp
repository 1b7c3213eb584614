#include "lookback/words.hpp"

#include "base/text/count.hpp"
#include "base/text/duration.hpp"
#include "lookback/day_text.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace quillmere::lookback {
namespace {

constexpr double secondsPerMinute = 60;

std::string streakText(const figures::LookBack& look)
{
    if (!look.longestStreak) {
        return "none";
    }
    const std::string now =
        look.currentStreak ? base::countText(look.currentStreak->days, "day") + " by now" : "";
    const figures::Streak& longest = *look.longestStreak;
    const std::string days =
        longest.first == longest.last
            ? labelOf(figures::Unit::day, longest.first)
            : labelOf(figures::Unit::day, longest.first) + " to " + labelOf(figures::Unit::day, longest.last);
    return (now.empty() ? "" : now + ", ") + "longest " + base::countText(longest.days, "day") + " (" + days +
           ")";
}

/// "4 h a day, reached on 12 of 20 days; today 1 h 40 min".
std::string goalText(const figures::GoalFigures& goal)
{
    return focusText(goal.seconds) + " a day, reached on " + std::to_string(goal.reachedDays) + " of " +
           base::countText(goal.days, "day") +
           (goal.todaySeconds ? "; " + focusText(*goal.todaySeconds) + " so far today" : "");
}

std::string completionFact(const figures::Completions& completions)
{
    if (figures::total(completions) == 0) {
        return "no session has been reviewed";
    }
    std::string text;
    for (const CompletionResult result : allCases<CompletionResult>()) {
        const std::int64_t count = completions[static_cast<std::size_t>(result)];
        text += (text.empty() ? "" : ", ") + completionText(result) + " " + std::to_string(count) + " (" +
                shareText(static_cast<double>(count), static_cast<double>(figures::total(completions))) + ")";
    }
    return text;
}

}  // namespace

std::string focusText(double seconds)
{
    if (!(seconds > 0)) {
        return "none";
    }
    return seconds < secondsPerMinute ? "less than 1 min" : base::hoursText(seconds);
}

std::string meanText(const figures::Ratings& ratings)
{
    const std::optional<double> mean = ratings.mean();
    if (!mean) {
        return "-";
    }
    std::array<char, 16> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), *mean, std::chars_format::fixed, 1).ptr;
    return {text.data(), end};
}

std::string shareText(double part, double whole)
{
    return whole > 0 ? std::to_string(std::llround(part / whole * 100)) + " %" : "-";
}

std::string reachedText(const figures::Completions& completions)
{
    return shareText(figures::reachedShare(completions).value_or(0), figures::total(completions) > 0 ? 1 : 0);
}

std::string rangeText(const figures::Range& range, figures::Day today)
{
    const std::string last = labelOf(figures::Unit::day, range.until.value_or(today));
    if (!range.since) {
        return "up to " + last;
    }
    const std::string first = labelOf(figures::Unit::day, *range.since);
    return first == last ? first : first + " to " + last;
}

std::string rangeText(const figures::LookBack& look) { return rangeText(look.range, look.today); }

std::string completionText(CompletionResult completion)
{
    switch (completion) {
        case CompletionResult::yes: return "yes";
        case CompletionResult::half: return "half";
        case CompletionResult::no: break;
    }
    return "no";
}

std::string completionsText(const figures::Completions& completions)
{
    std::string text;
    for (const CompletionResult result : allCases<CompletionResult>()) {
        text += (text.empty() ? "" : ", ") + std::to_string(completions[static_cast<std::size_t>(result)]) +
                " " + completionText(result);
    }
    return text;
}

std::string nameOf(const WorkSession& session, const Block& block)
{
    if (!session.plan.intendedOutcome.empty()) {
        return session.plan.intendedOutcome;
    }
    const Outcome* const served = block.outcomeServed(session.plan);
    if (served && !served->title.empty()) {
        return served->title;
    }
    const auto titled = std::find_if(block.outcomes.begin(), block.outcomes.end(),
                                     [](const Outcome& outcome) { return !outcome.title.empty(); });
    return titled == block.outcomes.end() ? "Session " + std::to_string(session.number) : titled->title;
}

std::string titlesOf(const Block& block)
{
    std::string titles;
    for (const Outcome& outcome : block.outcomes) {
        if (!outcome.title.empty()) {
            titles += (titles.empty() ? "" : "; ") + outcome.title;
        }
    }
    return titles;
}

std::vector<Fact> factsOf(const figures::LookBack& look)
{
    const figures::Tally& all = look.total;
    std::vector<Fact> facts = {
        {"Focus", focusText(all.focusSeconds) + " on " + base::countText(look.focusDays, "day") + ", in " +
                      base::countText(all.sessions, "session")},
        {"Streak", streakText(look)},
        {"Completion", completionFact(all.completions)},
        {"Planned", focusText(all.plannedSeconds) + ", worked " + focusText(all.workedSeconds) + " (" +
                        shareText(all.workedSeconds, all.plannedSeconds) + ")"},
        {"Pauses", all.pausedSessions == 0 ? "none"
                                           : focusText(all.pausedSeconds) + " in " +
                                                 base::countText(all.pausedSessions, "session")},
    };
    if (const std::optional<figures::GoalFigures> goal = figures::goalOf(look)) {
        facts.insert(facts.begin() + 1, {"Goal", goalText(*goal)});
    }
    if (look.between.count > 0) {
        facts.push_back({"Between", "median " + focusText(look.between.medianSeconds) +
                                        " between sessions of a block, planned " +
                                        focusText(look.between.plannedMedianSeconds)});
    }
    if (all.energy.count > 0 || all.morale.count > 0) {
        facts.push_back(
            {"Energy", meanText(all.energy) + " of 5 on average, morale " + meanText(all.morale)});
    }
    if (look.sessionsWithoutTime > 0) {
        facts.push_back({"Not counted", "the time of " +
                                            base::countText(look.sessionsWithoutTime, "session") +
                                            ", whose start and end cannot be right"});
    }
    return facts;
}

std::string emptyText(const figures::LookBack& look)
{
    return look.range.since || look.range.until
               ? "No focus session has ended in that time, " + rangeText(look) + "."
               : "No focus session has ended yet.";
}

}  // namespace quillmere::lookback
