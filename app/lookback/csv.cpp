#include "lookback/csv.hpp"

#include "base/text/sanitize.hpp"
#include "lookback/day_text.hpp"
#include "lookback/words.hpp"

#include <quillmere/records/base/checked_arithmetic.hpp>
#include <quillmere/records/json/date_text.hpp>
#include <quillmere/records/json/for_each_field.hpp>
#include <quillmere/records/json/record_tables.hpp>

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

namespace quillmere::lookback {
namespace {

constexpr std::string_view lineEnd = "\r\n";

/// The beginnings of formulas.
constexpr auto formulaStarts =
    std::to_array<std::string_view>({"=", "+", "-", "@", "\uFF1D", "\uFF0B", "\uFF0D", "\uFF20"});

/// Characters after which a spreadsheet may begin a new cell, even within quotes: where lists are separated
/// by semicolons, it takes these for separators here too, and knows quotes only at the beginning of a cell.
constexpr std::string_view cellEnds = ";\t\r\n";

/// Spreadsheets ignore these at the beginning of a cell.
constexpr std::string_view ignoredAtStart = " \"";

bool mayBeFormula(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(ignoredAtStart), text.size()));
    return std::any_of(formulaStarts.begin(), formulaStarts.end(),
                       [text](std::string_view start) { return text.starts_with(start); });
}

std::string cellOf(const std::string& text) { return csvText(text); }
std::string cellOf(std::int64_t number) { return std::to_string(number); }
std::string cellOf(Instant instant) { return json::dateText(instant); }
std::string cellOf(const Identifier& identifier) { return identifier.text(); }

template <class Value>
std::string cellOf(const std::optional<Value>& value)
{
    return value ? cellOf(*value) : "";
}

std::string durationCell(double seconds) { return std::to_string(wholeSeconds(seconds)); }

struct CsvColumn {
    std::string_view name;
    std::string (*cell)(const figures::EndedSession&);
};

/// The key of a field in the files.
template <class Record, class Value>
constexpr std::string_view fileKeyOf(Value Record::*member)
{
    std::string_view key;
    forEachField<Record>([&](const auto& field) {
        if constexpr (std::is_same_v<decltype(field.member), Value Record::*>) {
            key = field.member == member ? field.key : key;
        }
    });
    return key;
}

// Columns that show a field of a record under its key, unless they have a shorter name.

template <auto member>
constexpr CsvColumn sessionField(std::string_view name = fileKeyOf(member))
{
    return {name, [](const figures::EndedSession& ended) { return cellOf(ended.session->*member); }};
}

template <auto member>
constexpr CsvColumn planField(std::string_view name = fileKeyOf(member))
{
    return {name, [](const figures::EndedSession& ended) { return cellOf(ended.session->plan.*member); }};
}

template <auto member>
constexpr CsvColumn reviewText(std::string_view name = fileKeyOf(member))
{
    return {name, [](const figures::EndedSession& ended) {
                const auto& review = ended.session->review;
                return csvText(review ? (*review).*member : "");
            }};
}

/// Empty where the time is not known.
template <auto member>
constexpr CsvColumn timeField(std::string_view name)
{
    return {name, [](const figures::EndedSession& ended) {
                return ended.time ? durationCell((*ended.time).*member) : "";
            }};
}

std::string blockCell(const figures::EndedSession& ended) { return cellOf(ended.block->id); }

std::string dayCell(const figures::EndedSession& ended) { return labelOf(figures::Unit::day, ended.day); }

std::string completionCell(const figures::EndedSession& ended)
{
    const auto& review = ended.session->review;
    return review ? completionText(review->completion) : "";
}

std::string plannedCell(const figures::EndedSession& ended)
{
    return durationCell(ended.session->plannedDurationSeconds);
}

std::string outcomeCell(const figures::EndedSession& ended)
{
    const Outcome* const served = ended.block->outcomeServed(ended.session->plan);
    return csvText(served ? served->title : "");
}

constexpr auto csvColumns = std::to_array<CsvColumn>({
    sessionField<&WorkSession::id>("session_id"),
    {"block_id", blockCell},
    sessionField<&WorkSession::number>(),
    {"day", dayCell},
    sessionField<&WorkSession::startedAt>(),
    sessionField<&WorkSession::endedAt>(),
    {"planned_seconds", plannedCell},
    timeField<&figures::SessionTime::workedSeconds>("worked_seconds"),
    timeField<&figures::SessionTime::pausedSeconds>("paused_seconds"),
    planField<&SessionPlan::energy>(),
    planField<&SessionPlan::morale>(),
    {fileKeyOf(&SessionReview::completion), completionCell},
    {"block_outcome", outcomeCell},
    planField<&SessionPlan::intendedOutcome>(),
    planField<&SessionPlan::firstAction>(),
    reviewText<&SessionReview::noteworthyResult>("result"),
    reviewText<&SessionReview::distractions>(),
    reviewText<&SessionReview::improvement>(),
});
static_assert(std::none_of(csvColumns.begin(), csvColumns.end(),
                           [](const CsvColumn& column) { return column.name.empty(); }));

/// Adds a line with `cell(column)` for each column.
template <class Cell>
void addCsvLine(std::string& text, Cell cell)
{
    for (const CsvColumn& column : csvColumns) {
        text += (&column == csvColumns.data() ? "" : ",");
        text += cell(column);
    }
    text += lineEnd;
}

}  // namespace

std::string csvText(std::string_view text)
{
    std::string cell = "\"";
    const std::string plain = base::sanitizedLines(text);
    for (std::size_t index = 0; index < plain.size(); ++index) {
        const bool beginsCell = index == 0 || cellEnds.find(plain[index - 1]) != std::string_view::npos;
        cell += beginsCell && mayBeFormula(std::string_view(plain).substr(index)) ? "'" : "";
        cell.append(plain[index] == '"' ? 2 : 1, plain[index]);
    }
    return cell + '"';
}

std::string csvOf(const figures::LookBack& look)
{
    std::string text;
    addCsvLine(text, [](const CsvColumn& column) { return std::string(column.name); });
    for (const figures::EndedSession& ended : look.sessions) {
        addCsvLine(text, [&](const CsvColumn& column) { return column.cell(ended); });
    }
    return text;
}

}  // namespace quillmere::lookback
