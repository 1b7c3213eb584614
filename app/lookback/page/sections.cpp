#include "lookback/page/sections.hpp"

#include "base/text/count.hpp"
#include "base/text/hours.hpp"
#include "base/text/local_time.hpp"
#include "figures/answers/focus_spans.hpp"
#include "lookback/day_text.hpp"
#include "lookback/page/answer_sections.hpp"
#include "lookback/page/charts.hpp"
#include "lookback/page/colour_key.hpp"
#include "lookback/page/markup.hpp"
#include "lookback/page/tables.hpp"
#include "lookback/words.hpp"

#include <algorithm>
#include <array>
#include <iterator>

namespace quillmere::lookback {
namespace {

constexpr std::size_t chartDays = 30;
constexpr std::size_t chartWeeks = 26;
constexpr std::size_t chartMonths = 12;
constexpr std::size_t halfYearWeeks = 27;
constexpr std::size_t mostSessionsShown = 20;

constexpr auto focusColumns = std::to_array<TallyColumn>({
    {"Focus", [](const figures::Tally& tally) { return focusText(tally.focusSeconds); }},
    {"Sessions", [](const figures::Tally& tally) { return std::to_string(tally.sessions); }},
});
constexpr auto timeColumns = std::to_array<TallyColumn>({
    {"Focus", [](const figures::Tally& tally) { return focusText(tally.focusSeconds); }},
    {"Worked", [](const figures::Tally& tally) { return focusText(tally.workedSeconds); }},
    {"Planned", [](const figures::Tally& tally) { return focusText(tally.plannedSeconds); }},
    {"Pauses", [](const figures::Tally& tally) { return focusText(tally.pausedSeconds); }},
    {"Sessions", [](const figures::Tally& tally) { return std::to_string(tally.sessions); }},
});
constexpr auto completionColumns = std::to_array<TallyColumn>({
    {"Sessions", [](const figures::Tally& tally) { return std::to_string(tally.sessions); }},
    {"Completed", [](const figures::Tally& tally) { return completionsText(tally.completions); }},
});
constexpr auto ratingColumns = std::to_array<TallyColumn>({
    {"Energy", [](const figures::Tally& tally) { return meanText(tally.energy); }},
    {"Morale", [](const figures::Tally& tally) { return meanText(tally.morale); }},
});

std::string sectionOf(const std::string& title, const char* sectionClass, const std::string& content)
{
    return element("section", {{"class", sectionClass}}, element("h2", {}, escaped(title)) + content) + "\n";
}

std::string figureOf(const std::string& name, const std::string& value, const std::string& more)
{
    return element("div", {{"class", "figure"}},
                   element("dt", {}, escaped(name)) + element("dd", {{"class", "value"}}, escaped(value)) +
                       element("dd", {{"class", "more"}}, escaped(more)));
}

std::string yearSection(const figures::LookBack& look)
{
    const figures::HeatMap map = figures::heatMapOf(look, 2 * halfYearWeeks);
    const std::string title = "The year to " + labelOf(figures::Unit::day, map.lastDay);
    std::vector<KeyEntry> key;
    for (int level = 0; level <= (map.mostSeconds > 0 ? figures::HeatMap::levels : 0); ++level) {
        const double most = map.mostSeconds * level / figures::HeatMap::levels;
        key.push_back({"heat" + std::to_string(level), (level == 0 ? "" : "up to ") + focusText(most)});
    }
    std::vector<figures::Period> days;
    std::copy_if(look.days.begin(), look.days.end(), std::back_inserter(days),
                 [&](const figures::Period& day) { return map.levelOf(day.first, 0).has_value(); });
    const auto half = [&](std::size_t first, const std::string& which) {
        return heatChart(look, map, first, halfYearWeeks, which + " half of the year: focus on each day");
    };
    return sectionOf(title, "wide",
                     element("div", {{"class", "halves"}}, half(0, "First") + half(halfYearWeeks, "Second")) +
                         keyOf(key) + periodTable(title, days, figures::Unit::day, focusColumns));
}

std::string plannedKey() { return keyOf({{"focus", "worked"}, {"planned", "planned"}}); }

std::string focusSection(const figures::LookBack& look, const std::string& title, figures::Unit unit,
                         std::size_t most, bool withPlanned)
{
    const std::vector<figures::Period> row = figures::lastPeriods(look, unit, most);
    const std::string key = withPlanned ? plannedKey() : "";
    return sectionOf(
        title, "chart",
        focusChart(row, unit, withPlanned, title) + key + periodTable(title, row, unit, timeColumns));
}

std::string completionKey() { return keyOf({{"yes", "yes"}, {"half", "half"}, {"no", "no"}}); }

std::string completionSection(const figures::LookBack& look)
{
    const std::string title = "Did sessions reach what they were meant to?";
    const std::vector<figures::Period> row = figures::lastPeriods(look, figures::Unit::month, chartMonths);
    return sectionOf(title, "chart",
                     completionChart(row, figures::Unit::month, title) + completionKey() +
                         periodTable(title, row, figures::Unit::month, completionColumns));
}

std::string ratingSection(const figures::LookBack& look)
{
    const std::string title = "Energy and morale, 1 to 5";
    const std::vector<figures::Period> row = figures::lastPeriods(look, figures::Unit::week, chartWeeks);
    return sectionOf(title, "chart",
                     ratingChart(row, figures::Unit::week, title) +
                         keyOf({{"energy", "energy"}, {"morale", "morale (dashed)"}}) +
                         periodTable(title, row, figures::Unit::week, ratingColumns));
}

std::string byRatingSection(const std::string& title, const std::string& name,
                            const figures::ByRating& byRating)
{
    std::vector<Cells> rows;
    for (std::int64_t rating = figures::highestRating; rating >= figures::lowestRating; --rating) {
        rows.push_back({std::to_string(rating),
                        completionsText(byRating[static_cast<std::size_t>(rating - figures::lowestRating)])});
    }
    return sectionOf(
        title, "chart",
        byRatingChart(byRating, title) + completionKey() + foldedTable(title, {name, "Completed"}, rows));
}

std::string byRatingSections(const figures::LookBack& look)
{
    return byRatingSection("Completion by energy", "Energy", look.byEnergy) +
           byRatingSection("Completion by morale", "Morale", look.byMorale);
}

std::string factSection(const figures::LookBack& look)
{
    std::vector<Cells> rows;
    for (const Fact& fact : factsOf(look)) {
        rows.push_back({fact.name, fact.value});
    }
    std::string body;
    for (const Cells& row : rows) {
        body += element("tr", {},
                        element("th", {{"scope", "row"}}, escaped(row[0])) +
                            element("td", {{"class", "text"}}, escaped(row[1])));
    }
    return sectionOf("In short", "chart", element("table", {}, element("tbody", {}, body)));
}

std::string sessionRow(const figures::EndedSession& ended, const Contents& contents, base::Hours hours)
{
    const WorkSession& session = *ended.session;
    const std::string time = ended.time ? focusText(ended.time->workedSeconds) : "-";
    const std::string completion = session.review ? completionText(session.review->completion) : "-";
    const std::string result = session.review ? session.review->noteworthyResult : "";
    const std::string texts = element("td", {{"class", "text"}}, escaped(nameOf(session, *ended.block))) +
                              element("td", {{"class", "text"}}, escaped(result));
    return element("tr", {},
                   element("th", {{"scope", "row"}}, escaped(base::localText(session.startedAt, hours))) +
                       element("td", {}, escaped(time)) + element("td", {}, escaped(completion)) +
                       (contents.texts ? texts : ""));
}

std::string sessionSection(const figures::LookBack& look, const Contents& contents)
{
    std::string body;
    const std::size_t count = std::min(look.sessions.size(), mostSessionsShown);
    for (std::size_t index = 0; index < count; ++index) {
        body += sessionRow(*(look.sessions.rbegin() + static_cast<std::ptrdiff_t>(index)), contents,
                           look.habits.hours);
    }
    Cells head = {"Started", "Worked", "Reached"};
    if (contents.texts) {
        head.insert(head.end(), {"Meant to", "Result"});
    }
    const std::string table =
        element("table", {{"class", "sessions"}}, tableHead(head) + element("tbody", {}, body));
    return sectionOf("The last sessions", "wide", table);
}

std::string spanFigure(const std::string& name, const figures::FocusSpan& span, const std::string& before)
{
    const bool hasGoal = span.goalSeconds && *span.goalSeconds > 0;
    return figureOf(name, focusText(span.focusSeconds),
                    (hasGoal ? "of " + focusText(*span.goalSeconds) + "; " : "") + before + " " +
                        focusText(span.beforeSeconds));
}

/// Today and this week, unless other days are asked for; the whole of time says least.
std::string focusFigures(const figures::LookBack& look)
{
    if (!look.range.since && !look.range.until) {
        const figures::FocusSpans spans = figures::focusSpansOf(look);
        return spanFigure("Today", spans.today, "yesterday") +
               spanFigure("This week", spans.thisWeek, "last week");
    }
    const figures::Tally& all = look.total;
    return figureOf(
               "Focus", focusText(all.focusSeconds),
               base::countText(all.sessions, "session") + " on " + base::countText(look.focusDays, "day")) +
           figureOf("Worked of planned", shareText(all.workedSeconds, all.plannedSeconds),
                    focusText(all.workedSeconds) + " of " + focusText(all.plannedSeconds));
}

}  // namespace

std::string keyFigures(const figures::LookBack& look)
{
    const figures::Tally& all = look.total;
    const auto yes = static_cast<double>(all.completions[static_cast<std::size_t>(CompletionResult::yes)]);
    const auto reviewed = static_cast<double>(figures::total(all.completions));
    const auto days = [](const std::optional<figures::Streak>& streak) { return streak ? streak->days : 0; };
    return element("dl", {{"class", "figures"}},
                   focusFigures(look) +
                       figureOf("Days in a row", std::to_string(days(look.currentStreak)),
                                "longest: " + std::to_string(days(look.longestStreak))) +
                       figureOf("Completed", shareText(yes, reviewed), completionsText(all.completions))) +
           "\n";
}

std::string pageSections(const figures::LookBack& look, const Contents& contents)
{
    return element("div", {{"class", "charts"}},
                   answerSections(look, contents) + yearSection(look) +
                       focusSection(look, "Focus day by day", figures::Unit::day, chartDays, false) +
                       focusSection(look, "Focus week by week", figures::Unit::week, chartWeeks, true) +
                       focusSection(look, "Focus month by month", figures::Unit::month, chartMonths, true) +
                       completionSection(look) + (contents.ratings ? ratingSection(look) : "") +
                       factSection(look) + (contents.ratings ? byRatingSections(look) : "") +
                       sessionSection(look, contents)) +
           "\n";
}

}  // namespace quillmere::lookback
