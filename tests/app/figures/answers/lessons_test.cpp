// What a person learned, collected a second time from the records.
#include "figures/answers/lessons.hpp"

#include "figures_testing.hpp"

#include <map>
#include <string>
#include <vector>

#include "generated_history.hpp"
#include "minutes.hpp"

namespace quillmere::test {
namespace {

using figures::lessonsOf;
using figures::statistics;

TEST(Lessons, areAllThatWereWrittenTheNewestFirst)
{
    const TimeZone here("Europe/Berlin");
    for (const unsigned seed : seeds) {
        SCOPED_TRACE(seed);
        const QuillmereState state = generatedHistory(seed, moment);
        // By the start of the session; of one session, the lesson of the block comes first.
        std::multimap<std::string, std::string, std::greater<>> expected;
        for (const Block& block : blocksIn(state)) {
            for (const WorkSession& each : block.sessions) {
                const std::string place = std::to_string(each.startedAt.secondsSince1970());
                const bool isLast = &each == &block.sessions.back();
                if (isLast && block.reflection && block.reflection->lessons.size() > 1) {
                    expected.emplace(place + " block",
                                     dateOf(*block.completedAt, 0) + " " + block.reflection->lessons);
                }
                if (each.review && each.review->improvement.size() > 1) {
                    expected.emplace(place, dateOf(*each.endedAt, 0) + " " + each.review->improvement);
                }
            }
        }
        std::vector<std::string> texts;
        for (const auto& [place, text] : expected) {
            texts.push_back(text);
        }
        std::vector<std::string> found;
        const LookBack look = statistics(state, {}, day("2026-11-15"));
        for (const figures::Lesson& lesson : lessonsOf(look)) {
            const Instant written = lesson.session ? *lesson.session->endedAt : *lesson.block->completedAt;
            EXPECT_EQ(lesson.day, day(dateOf(written, 0)));
            found.push_back(dateOf(written, 0) + " " + std::string(lesson.text));
        }
        EXPECT_EQ(found, texts);
        EXPECT_GT(found.size(), 10u);
    }
}

TEST(Lessons, areThoseOfTheRange)
{
    const TimeZone here("UTC");
    QuillmereState state = stateWith({session(moment - 86'400, 60), session(moment, 60)});
    state.blockHistory[0].reflection = sampleReflection();
    const Range yesterday{.since = std::nullopt, .until = day("2026-11-14")};
    const LookBack look = statistics(state, yesterday, day("2026-11-15"));
    ASSERT_EQ(lessonsOf(look).size(), 2u);
    EXPECT_EQ(lessonsOf(look)[0].text, "Close the door");
    EXPECT_EQ(lessonsOf(look)[1].text, "Start with the hard part");
}

}  // namespace
}  // namespace quillmere::test
