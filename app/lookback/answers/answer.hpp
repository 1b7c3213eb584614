// The questions that a look back answers, and their answers in words: the terminal and the page show the
// same.
#pragma once

#include "figures/look_back.hpp"
#include "lookback/contents.hpp"

#include <optional>
#include <string>
#include <vector>

namespace quillmere::lookback {

/// Texts are not sanitized.
struct AnswerRow {
    std::vector<std::string> cells;  ///< the first names the row
    double share = 0;                ///< of the bar, 0 to 1
    std::vector<double> trend = {};  ///< shares of the greatest period of the table, in order
};

struct AnswerTable {
    std::vector<std::string> head;  ///< as many as a row has cells
    std::vector<AnswerRow> rows;
    std::string barName = {};    ///< the heading of the bars; empty for a table without
    std::string trendName = {};  ///< of the trends
};

struct Answer {
    std::string question;
    std::string inShort;              ///< the most important figures in a sentence
    std::vector<AnswerTable> tables;  ///< none without figures
};

/// Of all questions, in a fixed order, but for those whose answers are texts or ratings that the contents
/// lack.
std::vector<Answer> answersOf(const figures::LookBack& look, const Contents& contents = {});

}  // namespace quillmere::lookback
