#include "lookback/terminal/answer_lines.hpp"

#include "base/text/columns.hpp"
#include "base/text/sanitize.hpp"
#include "lookback/answers/answer.hpp"
#include "lookback/terminal/drawing.hpp"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>
#include <vector>

namespace quillmere::lookback {
namespace {

using QuillmereDesign::Accent;

constexpr std::size_t columnGap = 2;  ///< between two columns

/// The widths of the columns of a table: the first is cut where the page is too narrow, then the last ones
/// are left out.
std::vector<std::size_t> widthsOf(const AnswerTable& table, std::size_t room)
{
    constexpr std::size_t leastFirst = 12;
    std::vector<std::size_t> widths;
    for (const std::string& name : table.head) {
        widths.push_back(base::columnsOf(name));
    }
    for (const AnswerRow& row : table.rows) {
        for (std::size_t index = 0; index < widths.size(); ++index) {
            widths[index] = std::max(widths[index], base::columnsOf(base::sanitized(row.cells[index])));
        }
    }
    const auto taken = [&] {
        return std::accumulate(widths.begin(), widths.end(), columnGap * widths.size()) - columnGap;
    };
    while (widths.size() > 1 && taken() - widths[0] + std::min(widths[0], leastFirst) > room) {
        widths.pop_back();
    }
    if (taken() > room) {
        widths[0] -= taken() - room;
    }
    return widths;
}

std::string withoutSpacesAtTheEnd(std::string line) { return line.erase(line.find_last_not_of(' ') + 1); }

std::string lineOf(const std::vector<std::string>& cells, const std::vector<std::size_t>& widths,
                   const TerminalPage& page)
{
    std::string line;
    for (std::size_t index = 0; index < widths.size(); ++index) {
        const std::string cell = cutTo(widths[index], base::sanitized(cells[index]), page);
        line += filledUp(cell, widths[index]) + std::string(index + 1 < widths.size() ? columnGap : 0, ' ');
    }
    return line;
}

/// A character for each period, by the levels of the heat map.
std::string trendOf(const std::vector<double>& shares, const Glyphs& glyphs)
{
    std::string text;
    for (const double share : shares) {
        const auto level = static_cast<std::size_t>(std::ceil(share * figures::HeatMap::levels));
        text += glyphs.heat[std::min(level, glyphs.heat.size() - 1)];
    }
    return text;
}

std::size_t trendWidth(const AnswerTable& table)
{
    std::size_t width = 0;
    for (const AnswerRow& row : table.rows) {
        width = std::max(width, row.trend.size());
    }
    return width;
}

/// The mark beside the cells of a row: its trend, or its bar as far as there is room.
std::string markOf(const AnswerTable& table, const AnswerRow& row, std::size_t room, const TerminalPage& page)
{
    constexpr std::size_t mostBar = 30;
    constexpr std::size_t leastBar = 6;
    if (!table.trendName.empty()) {
        return row.trend.size() <= room ? trendOf(row.trend, glyphsOf(page)) : "";
    }
    return !table.barName.empty() && room >= leastBar
               ? barOf(row.share, std::min(room, mostBar), glyphsOf(page))
               : "";
}

std::string answerTableLines(const AnswerTable& table, const TerminalPage& page)
{
    const std::size_t markRoom = table.trendName.empty() ? 0 : trendWidth(table) + columnGap;
    const std::vector<std::size_t> widths =
        widthsOf(table, page.width > markRoom ? page.width - markRoom : page.width);
    const std::string head = lineOf(table.head, widths, page);
    const std::size_t taken = base::columnsOf(head) + columnGap;
    const std::size_t room = page.width > taken ? page.width - taken : 0;
    const std::string& name = table.trendName.empty() ? table.barName : table.trendName;
    const std::string markName = base::columnsOf(name) <= room ? std::string(columnGap, ' ') + name : "";
    std::string text = page.style.dimmed(withoutSpacesAtTheEnd(head + markName)) + "\n";
    for (const AnswerRow& row : table.rows) {
        const std::string mark = markOf(table, row, room, page);
        const std::string line = lineOf(row.cells, widths, page);
        text += mark.empty() ? withoutSpacesAtTheEnd(line)
                             : line + std::string(columnGap, ' ') + page.style.tinted(mark, Accent::focus);
        text += "\n";
    }
    return text;
}

std::string wrappedLines(const std::string& text, const TerminalPage& page)
{
    std::string lines;
    for (const std::string& line : base::linesWithin(text, page.width)) {
        lines += line + "\n";
    }
    return lines;
}

}  // namespace

std::vector<std::string> answerLines(const figures::LookBack& look, const TerminalPage& page)
{
    std::vector<std::string> texts;
    for (const Answer& answer : answersOf(look)) {
        std::string text = heading(answer.question, page) + wrappedLines(answer.inShort, page);
        for (std::size_t index = 0; index < answer.tables.size(); ++index) {
            text += (index > 0 ? "\n" : "") + answerTableLines(answer.tables[index], page);
        }
        texts.push_back(std::move(text));
    }
    return texts;
}

}  // namespace quillmere::lookback
