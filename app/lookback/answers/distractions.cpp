#include "figures/answers/distractions.hpp"

#include "base/text/count.hpp"
#include "lookback/answers/questions.hpp"

#include <algorithm>
#include <string>
#include <utility>

namespace quillmere::lookback {
namespace {

constexpr std::size_t mostDistractions = 8;

AnswerTable distractionTable(const char* name, const std::vector<figures::Distraction>& distractions)
{
    AnswerTable table{.head = {name, "Sessions", "Foreseen"}, .rows = {}, .barName = "Sessions"};
    for (std::size_t index = 0; index < std::min(mostDistractions, distractions.size()); ++index) {
        const figures::Distraction& each = distractions[index];
        table.rows.push_back(
            {.cells = {each.text, std::to_string(each.sessions), std::to_string(each.foreseen)},
             .share =
                 static_cast<double>(each.sessions) / static_cast<double>(distractions.front().sessions)});
    }
    return table;
}

std::string distractionsSentence(const figures::Distractions& distractions)
{
    if (distractions.words.empty()) {
        return distractions.reviewedSessions == 0 ? "No session has been reviewed"
                                                  : "No review names a distraction";
    }
    std::string text = std::to_string(distractions.disturbedSessions) + " of " +
                       base::countText(distractions.reviewedSessions, "reviewed session") +
                       " were disturbed; most often:";
    for (std::size_t index = 0; index < std::min<std::size_t>(3, distractions.words.size()); ++index) {
        const figures::Distraction& word = distractions.words[index];
        text += (index == 0 ? " " : ", ") + word.text + " (" + std::to_string(word.sessions) +
                (word.foreseen > 0 ? ", foreseen in " + std::to_string(word.foreseen) : "") + ")";
    }
    return text;
}

}  // namespace

Answer distractionsAnswer(const figures::LookBack& look)
{
    const figures::Distractions distractions = figures::distractionsOf(look);
    Answer answer{
        .question = "What got in the way?", .inShort = distractionsSentence(distractions), .tables = {}};
    for (AnswerTable& table : std::vector{distractionTable("Word", distractions.words),
                                          distractionTable("Phrase", distractions.phrases)}) {
        if (!table.rows.empty()) {
            answer.tables.push_back(std::move(table));
        }
    }
    return answer;
}

}  // namespace quillmere::lookback
