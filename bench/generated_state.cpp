#include "generated_state.hpp"

#include <array>
#include <random>
#include <string>
#include <string_view>

namespace quillmere::bench {
namespace {

constexpr std::int64_t sessionsPerBlock = 8;
constexpr double focusSeconds = 1500;
constexpr double breakSeconds = 300;

constexpr auto words = std::to_array<std::string_view>({
    "draft",  "the",    "review",  "outline", "and",   "check",    "every",   "figure",  "against",
    "source", "before", "lunch",   "call",    "about", "contract", "fix",     "failing", "test",
    "in",     "parser", "read",    "chapter", "two",   "notes",    "for",     "next",    "week",
    "then",   "send",   "summary", "to",      "team",  "phone",    "off",     "door",    "closed",
    "means",  "merged", "with",    "a",       "green", "build",    "because", "without",
});

/// Words with characters that are not plain ASCII, or are escaped: names, quotations, links.
constexpr auto rareWords = std::to_array<std::string_view>({
    "Zoë",
    "café",
    "\"done\"",
    "naïve",
    "–",
    "https://example.com/notes/17",
    "C:\\drafts",
});

/// Generates prose. A new Author starts from the beginning, so that states of one size have the same texts.
class Author {
public:
    /// Between `fewest` and `most` words, with a line break after some sentences.
    std::string text(std::size_t fewest, std::size_t most)
    {
        std::string text;
        const std::size_t count = fewest + next(most - fewest + 1);
        std::size_t sentenceEnd = sentenceLength();
        for (std::size_t index = 1; index <= count; ++index) {
            text += next(60) == 0 ? rareWords[next(rareWords.size())] : words[next(words.size())];
            if (index == count) {
                break;
            }
            if (index == sentenceEnd) {
                text += next(3) == 0 ? ".\n" : ". ";
                sentenceEnd += sentenceLength();
            } else {
                text += ' ';
            }
        }
        return text;
    }

    std::size_t next(std::size_t limit) { return random_() % limit; }

private:
    std::size_t sentenceLength() { return 6 + next(12); }

    std::minstd_rand random_{20260101};
};

SessionPlan plan(Author& author)
{
    return {
        .id = Identifier::random(),
        .blockOutcomeID = Identifier::random(),
        .intendedOutcome = author.text(5, 20),
        .firstAction = author.text(4, 15),
        .hazardsMitigation = author.text(5, 30),
        .nicuFraming = author.text(0, 25),
        .energy = static_cast<std::int64_t>(1 + author.next(5)),
        .morale = static_cast<std::int64_t>(1 + author.next(5)),
    };
}

WorkSession session(Author& author, std::int64_t number, Instant startedAt)
{
    return {
        .id = Identifier::random(),
        .number = number,
        .plan = plan(author),
        .startedAt = startedAt,
        .plannedDurationSeconds = focusSeconds,
        .pausedAt = std::nullopt,
        .accumulatedPausedSeconds = author.next(4) == 0 ? 42.5 : 0.0,
        .endedAt = startedAt + focusSeconds,
        .review =
            SessionReview{
                .id = Identifier::random(),
                .completion = allCases<CompletionResult>()[author.next(3)],
                .noteworthyResult = author.text(10, 70),
                .distractions = author.text(0, 40),
                .improvement = author.text(5, 40),
            },
    };
}

Block block(Author& author, Instant createdAt, std::int64_t sessionCount)
{
    Block block = Block::default_(createdAt);
    block.outcomes.clear();
    for (int outcome = 0; outcome < 3; ++outcome) {
        block.outcomes.push_back({.id = Identifier::random(), .title = author.text(4, 10)});
    }
    block.whyValue = author.text(10, 40);
    block.doneTest = author.text(8, 25);
    block.hazards = author.text(5, 30);
    block.measurableCheck = author.text(5, 15);
    block.contextNotes = author.text(40, 300);
    for (std::int64_t number = 1; number <= sessionCount; ++number) {
        const double offset = static_cast<double>(number - 1) * (focusSeconds + breakSeconds);
        block.sessions.push_back(session(author, number, createdAt + offset));
    }
    return block;
}

}  // namespace

QuillmereState generatedState(std::size_t finishedBlocks)
{
    constexpr double secondsPerDay = 86'400;
    Author author;
    Instant day(1'700'000'000);
    QuillmereState state = QuillmereState::initial(day);
    state.blockHistory.reserve(finishedBlocks);
    for (std::size_t index = 0; index < finishedBlocks; ++index) {
        Block finished = block(author, day, sessionsPerBlock);
        finished.reflection = BlockReview{
            .outputProduced = author.text(10, 40),
            .normalComparison = author.text(5, 20),
            .boggedDown = author.text(5, 25),
            .wentWell = author.text(5, 25),
            .lessons = author.text(8, 40),
        };
        finished.completedAt = finished.plannedEnd();
        state.blockHistory.push_back(std::move(finished));
        day = day - secondsPerDay;
    }
    state.workflowState = WorkflowState::focusing;
    state.currentBlock = block(author, state.updatedAt, 4);
    WorkSession& running = state.currentBlock->sessions.back();
    running.endedAt.reset();
    running.review.reset();
    for (int index = 0; index < 6; ++index) {
        state.agentQuestions.push_back({
            .id = Identifier::random(),
            .question = author.text(6, 20),
            .createdAt = day,
            .answer = index % 2 ? std::optional(author.text(2, 12)) : std::nullopt,
            .answeredAt = index % 2 ? std::optional(day) : std::nullopt,
        });
    }
    return state;
}

QuillmereState generatedYears(std::size_t finishedBlocks)
{
    constexpr int questionsADay = 10;
    constexpr double minute = 60;
    QuillmereState state = generatedState(finishedBlocks);
    state.workflowState = WorkflowState::idle;
    state.currentBlock.reset();
    state.agentQuestions.clear();
    Author author;
    for (auto day = state.blockHistory.rbegin(); day != state.blockHistory.rend(); ++day) {
        for (int count = 0; count < questionsADay; ++count) {
            const Instant asked = day->createdAt + 20 * minute * count;
            state.agentQuestions.push_back({
                .id = Identifier::random(),
                .question = author.text(6, 20),
                .createdAt = asked,
                .answer = author.text(2, 12),
                .answeredAt = asked + 2 * minute,
            });
        }
    }
    return state;
}

}  // namespace quillmere::bench
