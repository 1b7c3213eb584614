#include "lookback/csv.hpp"

#include "lookback/export_text.hpp"
#include "lookback/words.hpp"

#include <quillmere/records/base/checked_arithmetic.hpp>

#include <algorithm>
#include <array>

namespace quillmere::lookback {
namespace {

constexpr std::string_view lineEnd = "\r\n";

/// What a formula may begin with.
constexpr auto formulaStarts =
    std::to_array<std::string_view>({"=", "+", "-", "@", "\uFF1D", "\uFF0B", "\uFF0D", "\uFF20"});

/// Behind what a cell may begin. Where lists are separated by semicolons, spreadsheets take these for the
/// separators of this file too, and know quotes only at the beginning of what they take for a cell: there
/// each of these ends one, within quotes or not.
constexpr std::string_view cellEnds = ";\t\r\n";

/// What spreadsheets pass over at the beginning of a cell.
constexpr std::string_view passedOver = " \"";

bool mayBeFormula(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(passedOver), text.size()));
    return std::any_of(formulaStarts.begin(), formulaStarts.end(),
                       [text](std::string_view start) { return text.starts_with(start); });
}

std::string numberCell(std::int64_t number) { return std::to_string(number); }

std::string secondsCell(const std::optional<figures::SessionTime>& time, double figures::SessionTime::*member)
{
    return time ? numberCell(wholeSeconds(*time.*member)) : "";
}

std::string reviewCell(const figures::EndedSession& ended, std::string SessionReview::*member)
{
    const auto& review = ended.session->review;
    return csvText(review ? *review.*member : "");
}

std::string blockOutcome(const figures::EndedSession& ended)
{
    const auto& wanted = ended.session->plan.blockOutcomeID;
    for (const Outcome& outcome : ended.block->outcomes) {
        if (wanted && outcome.id == *wanted) {
            return outcome.title;
        }
    }
    return {};
}

struct CsvColumn {
    std::string_view name;
    std::string (*cell)(const figures::EndedSession&);
};

constexpr auto csvColumns = std::to_array<CsvColumn>({
    {"session_id", [](const figures::EndedSession& ended) { return ended.session->id.text(); }},
    {"block_id", [](const figures::EndedSession& ended) { return ended.block->id.text(); }},
    {"number", [](const figures::EndedSession& ended) { return numberCell(ended.session->number); }},
    {"day",
     [](const figures::EndedSession& ended) { return figures::labelOf(figures::Unit::day, ended.day); }},
    {"started_at", [](const figures::EndedSession& ended) { return utcText(ended.session->startedAt); }},
    {"ended_at", [](const figures::EndedSession& ended) { return utcText(*ended.session->endedAt); }},
    {"planned_seconds",
     [](const figures::EndedSession& ended) {
         return numberCell(wholeSeconds(ended.session->plannedDurationSeconds));
     }},
    {"worked_seconds",
     [](const figures::EndedSession& ended) {
         return secondsCell(ended.time, &figures::SessionTime::workedSeconds);
     }},
    {"paused_seconds",
     [](const figures::EndedSession& ended) {
         return secondsCell(ended.time, &figures::SessionTime::pausedSeconds);
     }},
    {"energy", [](const figures::EndedSession& ended) { return numberCell(ended.session->plan.energy); }},
    {"morale", [](const figures::EndedSession& ended) { return numberCell(ended.session->plan.morale); }},
    {"completion",
     [](const figures::EndedSession& ended) {
         const auto& review = ended.session->review;
         return review ? completionText(review->completion) : "";
     }},
    {"block_outcome", [](const figures::EndedSession& ended) { return csvText(blockOutcome(ended)); }},
    {"intended_outcome",
     [](const figures::EndedSession& ended) { return csvText(ended.session->plan.intendedOutcome); }},
    {"first_action",
     [](const figures::EndedSession& ended) { return csvText(ended.session->plan.firstAction); }},
    {"result",
     [](const figures::EndedSession& ended) { return reviewCell(ended, &SessionReview::noteworthyResult); }},
    {"distractions",
     [](const figures::EndedSession& ended) { return reviewCell(ended, &SessionReview::distractions); }},
    {"improvement",
     [](const figures::EndedSession& ended) { return reviewCell(ended, &SessionReview::improvement); }},
});

/// A line of what `cell` makes of each column.
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
    const std::string plain = withoutControls(text);
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
