#include "figures/answers/lessons.hpp"

#include "lookback/answers/questions.hpp"
#include "lookback/day_text.hpp"
#include "lookback/words.hpp"

#include <algorithm>
#include <string>
#include <utility>

namespace quillmere::lookback {
namespace {

constexpr std::size_t mostLessons = 12;

std::string sourceOf(const figures::Lesson& lesson)
{
    if (lesson.session) {
        return nameOf(*lesson.session, *lesson.block);
    }
    const std::string titles = titlesOf(*lesson.block);
    return titles.empty() ? "an untitled block" : titles;
}

}  // namespace

Answer lessonsAnswer(const figures::LookBack& look)
{
    const std::vector<figures::Lesson> lessons = figures::lessonsOf(look);
    Answer answer{.question = "What did I learn?",
                  .inShort = "Neither a lesson nor an improvement is written down",
                  .tables = {}};
    if (lessons.empty()) {
        return answer;
    }
    answer.inShort = "Last: " + std::string(lessons.front().text);
    AnswerTable table{.head = {"Lesson or improvement", "Day", "From"}, .rows = {}};
    for (std::size_t index = 0; index < std::min(mostLessons, lessons.size()); ++index) {
        const figures::Lesson& lesson = lessons[index];
        table.rows.push_back(
            {.cells = {std::string(lesson.text), labelOf(figures::Unit::day, lesson.day), sourceOf(lesson)}});
    }
    answer.tables.push_back(std::move(table));
    if (lessons.size() > 1) {
        answer.inShort += " (" + std::to_string(lessons.size()) + " in all: quillmere history --search WORD)";
    }
    return answer;
}

}  // namespace quillmere::lookback
