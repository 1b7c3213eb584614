#include "lookback/answers/answer.hpp"

#include "lookback/answers/questions.hpp"

#include <array>

namespace quillmere::lookback {
namespace {

constexpr auto questions = std::to_array<Answer (*)(const figures::LookBack&)>({
    howMuchAnswer,
    whenAnswer,
    outcomesAnswer,
    plansAnswer,
    distractionsAnswer,
    lessonsAnswer,
    moodAnswer,
    breaksAnswer,
});

}  // namespace

std::vector<Answer> answersOf(const figures::LookBack& look)
{
    std::vector<Answer> answers;
    for (const auto question : questions) {
        answers.push_back(question(look));
    }
    return answers;
}

}  // namespace quillmere::lookback
