#include "lookback/page/tables.hpp"

#include "lookback/day_text.hpp"
#include "lookback/page/markup.hpp"

namespace quillmere::lookback {
namespace {

std::string tableOf(const std::string& caption, const Cells& head, const std::vector<Cells>& rows)
{
    std::string body;
    for (const Cells& row : rows) {
        std::string cells = element("th", {{"scope", "row"}}, escaped(row.front()));
        for (std::size_t index = 1; index < row.size(); ++index) {
            cells += element("td", {}, escaped(row[index]));
        }
        body += element("tr", {}, cells);
    }
    return element("table", {},
                   element("caption", {}, escaped(caption)) + tableHead(head) + element("tbody", {}, body));
}

std::string unitName(figures::Unit unit)
{
    switch (unit) {
        case figures::Unit::day: return "Day";
        case figures::Unit::week: return "Week";
        case figures::Unit::month: break;
    }
    return "Month";
}

}  // namespace

std::string tableHead(const Cells& texts)
{
    std::string cells;
    for (const std::string& text : texts) {
        cells += element("th", {{"scope", "col"}}, escaped(text));
    }
    return element("thead", {}, element("tr", {}, cells));
}

std::string foldedTable(const std::string& caption, const Cells& head, const std::vector<Cells>& rows)
{
    return element(
        "details", {},
        element("summary", {}, "The figures as a table") +
            element("div",
                    {{"class", "scroll"}, {"tabindex", "0"}, {"role", "region"}, {"aria-label", caption}},
                    tableOf(caption, head, rows)));
}

std::string periodTable(const std::string& title, const std::vector<figures::Period>& row, figures::Unit unit,
                        std::span<const TallyColumn> columns)
{
    Cells head = {unitName(unit)};
    for (const TallyColumn& column : columns) {
        head.emplace_back(column.name);
    }
    std::vector<Cells> rows;
    for (const figures::Period& period : row) {
        Cells cells = {labelOf(unit, period.first)};
        for (const TallyColumn& column : columns) {
            cells.push_back(column.text(period.tally));
        }
        rows.push_back(std::move(cells));
    }
    return foldedTable(title, head, rows);
}

}  // namespace quillmere::lookback
