// The tables of the page.
#pragma once

#include "figures/look_back.hpp"

#include <span>
#include <string>
#include <vector>

namespace quillmere::lookback {

/// Texts, not yet escaped.
using Cells = std::vector<std::string>;

std::string tableHead(const Cells& texts);

/// A table behind a click, under its caption; the first column names the rows. It scrolls by the keyboard
/// too.
std::string foldedTable(const std::string& caption, const Cells& head, const std::vector<Cells>& rows);

/// A value column in the table below a chart. The first column names the day, week or month.
struct TallyColumn {
    const char* name;
    std::string (*text)(const figures::Tally&);
};

/// The figures of a chart as a folded table.
std::string periodTable(const std::string& title, const std::vector<figures::Period>& row, figures::Unit unit,
                        std::span<const TallyColumn> columns);

}  // namespace quillmere::lookback
