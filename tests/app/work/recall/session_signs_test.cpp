#include "work/recall/session_signs.hpp"

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

Block blockOf(const std::vector<std::optional<CompletionResult>>& sessions, std::int64_t count)
{
    Block block = Block::default_(moment);
    block.cycleCount = count;
    for (const std::optional<CompletionResult>& completion : sessions) {
        WorkSession session = *stateIn(WorkflowState::focusing).currentSession();
        session.review.reset();
        if (completion) {
            session.review = SessionReview{Identifier::random(), *completion, "", "", ""};
        }
        block.sessions.push_back(session);
    }
    return block;
}

TEST(SessionSigns, sayDoneHalfNotRunningAndToCome)
{
    using enum CompletionResult;
    EXPECT_EQ(work::signsOf(blockOf({yes, half, no, std::nullopt}, 6)), "✓ ½ ✗ ◐ · ·");
    EXPECT_EQ(work::signsOf(blockOf({yes, yes}, 1)), "✓ ✓");
}

TEST(SessionSigns, haveTheCompletionThatColoursThem)
{
    using enum CompletionResult;
    const std::vector<work::SessionSign> signs = work::sessionSigns(blockOf({half, std::nullopt}, 3));
    ASSERT_EQ(signs.size(), 3u);
    EXPECT_EQ(signs[0].completion, half);
    EXPECT_EQ(signs[1].completion, std::nullopt);
    EXPECT_EQ(signs[2].completion, std::nullopt);
}

TEST(SessionSigns, areNumbersForManySessions)
{
    using enum CompletionResult;
    EXPECT_EQ(work::signsOf(blockOf({yes, half, no, yes}, 17)), "2 ✓ 1 ½ 1 ✗ of 17");
}

}  // namespace
}  // namespace quillmere::test
