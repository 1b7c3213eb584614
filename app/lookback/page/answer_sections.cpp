#include "lookback/page/answer_sections.hpp"

#include "lookback/answers/answer.hpp"
#include "lookback/page/markup.hpp"
#include "lookback/page/tables.hpp"

#include <algorithm>
#include <cmath>

namespace quillmere::lookback {
namespace {

/// Hidden from screen readers: the figure stands in a cell.
std::string barCell(double share)
{
    const std::string width = coordinate(std::clamp(share, 0.0, 1.0) * 100) + "%";
    return element("td", {{"class", "bar"}, {"aria-hidden", "true"}},
                   element("span", {{"class", "focus"}, {"style", "width:" + width}}));
}

/// A square for each period, by the levels of the heat map, the darkest the greatest of the table.
std::string trendCell(const std::vector<double>& shares)
{
    std::string squares;
    for (const double share : shares) {
        const int level = std::clamp(static_cast<int>(std::ceil(share * figures::HeatMap::levels)), 0,
                                     figures::HeatMap::levels);
        squares += element("span", {{"class", "heat" + std::to_string(level)}});
    }
    return element("td", {{"class", "trend"}, {"aria-hidden", "true"}}, squares);
}

std::string answerRow(const AnswerRow& row, const AnswerTable& table)
{
    std::string cells = element("th", {{"scope", "row"}}, escaped(row.cells.front()));
    for (std::size_t index = 1; index < row.cells.size(); ++index) {
        cells += element("td", {}, escaped(row.cells[index]));
    }
    return element("tr", {},
                   cells + (table.trendName.empty() ? "" : trendCell(row.trend)) +
                       (table.barName.empty() ? "" : barCell(row.share)));
}

std::string answerTable(const AnswerTable& table, const std::string& question)
{
    Cells head = table.head;
    if (!table.trendName.empty()) {
        head.push_back(table.trendName);
    }
    if (!table.barName.empty()) {
        head.push_back(table.barName);
    }
    std::string body;
    for (const AnswerRow& row : table.rows) {
        body += answerRow(row, table);
    }
    return element("div",
                   {{"class", table.barName.empty() ? "scroll" : "scroll bars"},
                    {"tabindex", "0"},
                    {"role", "region"},
                    {"aria-label", question + " " + table.head.front()}},
                   element("table", {}, tableHead(head) + element("tbody", {}, body)));
}

}  // namespace

std::string answerSections(const figures::LookBack& look, const Contents& contents)
{
    std::string sections;
    for (const Answer& answer : answersOf(look, contents)) {
        std::string tables;
        for (const AnswerTable& table : answer.tables) {
            tables += answerTable(table, answer.question);
        }
        const std::string content = element("h2", {}, escaped(answer.question)) +
                                    element("p", {}, escaped(answer.inShort)) +
                                    (tables.empty() ? "" : element("div", {{"class", "tables"}}, tables));
        sections += element("section", {{"class", "answer wide"}}, content) + "\n";
    }
    return sections;
}

}  // namespace quillmere::lookback
