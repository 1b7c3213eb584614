#include "lookback/answers/answer.hpp"

#include "lookback/answers/questions.hpp"

#include <array>

namespace quillmere::lookback {
namespace {

enum class AnswerIs { figures, texts, ratings };

struct Question {
    Answer (*answer)(const figures::LookBack&);
    AnswerIs answerIs;
};

// clang-format off
constexpr auto questions = std::to_array<Question>({
    {howMuchAnswer,      AnswerIs::figures},
    {whenAnswer,         AnswerIs::figures},
    {outcomesAnswer,     AnswerIs::texts},
    {plansAnswer,        AnswerIs::figures},
    {distractionsAnswer, AnswerIs::texts},
    {lessonsAnswer,      AnswerIs::texts},
    {moodAnswer,         AnswerIs::ratings},
    {breaksAnswer,       AnswerIs::figures},
});
// clang-format on

bool isIn(const Contents& contents, AnswerIs answerIs)
{
    switch (answerIs) {
        case AnswerIs::figures: return true;
        case AnswerIs::texts: return contents.texts;
        case AnswerIs::ratings: return contents.ratings;
    }
    return false;
}

}  // namespace

std::vector<Answer> answersOf(const figures::LookBack& look, const Contents& contents)
{
    std::vector<Answer> answers;
    for (const Question& question : questions) {
        if (isIn(contents, question.answerIs)) {
            answers.push_back(question.answer(look));
        }
    }
    return answers;
}

}  // namespace quillmere::lookback
