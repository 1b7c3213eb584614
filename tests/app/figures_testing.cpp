#include "figures_testing.hpp"

#include "base/text/calendar_text.hpp"
#include "base/text/typed_time.hpp"
#include "lookback/day_text.hpp"

namespace quillmere::test {

const std::string hostileText =
    "=<b>\"It's\"</b>&amp;</style></svg><script>alert(1)</"
    "script>,;\\x\\\r\n\tz\x1b[2J\x01\xC2\x9B\u202Eabc\u2066"
    "\uFFFE\u6F22\u5B57\U0001F600" +
    std::string(90, 'w') + "\u00E9\u00E9";

std::string hostileTextInExports()
{
    std::string text = hostileText;
    for (const char* const control : {"\x1b", "\x01", "\xC2\x9B", "\u202E", "\u2066"}) {
        text = replaced(text, control, "\uFFFD");
    }
    return text;
}

Day day(const std::string& text)
{
    const auto read = base::dayFromText(text);
    EXPECT_TRUE(read) << text;
    return read.value_or(Day());
}

Instant local(const std::string& text)
{
    const auto read = base::instantFromLocalText(text, moment);
    EXPECT_TRUE(read) << text;
    return read.value_or(moment);
}

WorkSession session(Instant start, double elapsedSeconds, double pausedSeconds)
{
    return {.id = identifier(700),
            .number = 1,
            .plan = samplePlan(1),
            .startedAt = start,
            .plannedDurationSeconds = 1500,
            .pausedAt = std::nullopt,
            .accumulatedPausedSeconds = pausedSeconds,
            .endedAt = start + elapsedSeconds,
            .review = sampleReview(1)};
}

QuillmereState stateWith(std::vector<WorkSession> sessions)
{
    QuillmereState state = QuillmereState::initial(moment);
    Block block = sampleBlock(1);
    for (std::size_t index = 0; index < sessions.size(); ++index) {
        sessions[index].id = identifier(static_cast<unsigned>(700 + index));
        sessions[index].number = static_cast<std::int64_t>(index + 1);
    }
    block.sessions = std::move(sessions);
    block.completedAt = moment + 7200;
    state.blockHistory = {block};
    return state;
}

QuillmereState hostileState()
{
    WorkSession written = session(moment, 1500);
    written.plan.intendedOutcome = hostileText;
    written.plan.firstAction = hostileText;
    written.review->noteworthyResult = hostileText;
    written.review->distractions = hostileText;
    written.review->improvement = hostileText;
    QuillmereState state = stateWith({written});
    state.blockHistory.front().outcomes.front().title = hostileText;
    return state;
}

std::string focusOf(const LookBack& look, Unit unit)
{
    std::string text;
    for (const auto& period : look.periods(unit)) {
        text += (text.empty() ? "" : ", ") + lookback::labelOf(unit, period.first) + " " +
                std::to_string(static_cast<long>(period.tally.focusSeconds));
    }
    return text;
}

}  // namespace quillmere::test
