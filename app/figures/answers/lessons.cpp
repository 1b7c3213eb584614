#include "figures/answers/lessons.hpp"

#include "base/text/blank.hpp"

#include <set>

namespace quillmere::figures {

std::vector<Lesson> lessonsOf(const LookBack& look)
{
    const LocalCalendar calendar(look.habits.dayBeginsAtHour);
    std::vector<Lesson> lessons;
    std::set<const Block*> known;
    for (auto ended = look.sessions.rbegin(); ended != look.sessions.rend(); ++ended) {
        const Block& block = *ended->block;
        const bool isLastOfBlock = known.insert(&block).second;
        if (isLastOfBlock && block.reflection && !base::isBlank(block.reflection->lessons)) {
            lessons.push_back({.day = calendar.dayOf(block.completedAt.value_or(*ended->session->endedAt)),
                               .block = &block,
                               .session = nullptr,
                               .text = block.reflection->lessons});
        }
        const auto& review = ended->session->review;
        if (review && !base::isBlank(review->improvement)) {
            lessons.push_back({.day = calendar.dayOf(*ended->session->endedAt),
                               .block = &block,
                               .session = ended->session,
                               .text = review->improvement});
        }
    }
    return lessons;
}

}  // namespace quillmere::figures
