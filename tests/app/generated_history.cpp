#include "generated_history.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

namespace quillmere::test {
namespace {

constexpr double secondsPerMinute = 60;
constexpr double secondsPerDay = 86'400;

using Texts = std::array<std::string_view, 8>;

constexpr Texts titles = {"Draft chapter three",
                          "draft  chapter THREE",
                          " Read the two papers",
                          "Talk",
                          "Straßenkarte",
                          "STRASSENKARTE",
                          "",
                          "Talk\tTalk"};
constexpr Texts disturbances = {"",
                                "Phone",
                                "phone; the news",
                                "A colleague's question, again",
                                "News.\nPHONE rang twice",
                                "Mail",
                                "Lärm auf der Straße",
                                "mail, mail, MAIL"};
constexpr Texts foreseen = {
    "", "Phone in the drawer", "mail only at noon", "Close the door", "News", "LÄRM", "", "no phone"};
constexpr Texts lessons = {
    "",           "Start with the hardest part", "Close the door", "", "Fewer outcomes", " ", "Ask earlier",
    "Write first"};

class History {
public:
    History(unsigned seed, Instant now) : random_(seed), now_(now) {}

    QuillmereState state()
    {
        QuillmereState state = QuillmereState::initial(now_);
        Instant time = wholeMinute(now_ - 70 * secondsPerDay);
        while (time < now_ - 0.5 * secondsPerDay) {
            state.blockHistory.push_back(block(time));
            time = lastMoment(state.blockHistory.back()) + (5 + next(1500)) * secondsPerMinute;
        }
        if (chance(50)) {
            state.currentBlock = std::move(state.blockHistory.back());
            state.blockHistory.pop_back();
            state.currentBlock->completedAt.reset();
            state.currentBlock->reflection.reset();
        }
        std::reverse(state.blockHistory.begin(), state.blockHistory.end());
        return state;
    }

private:
    unsigned next(unsigned limit) { return static_cast<unsigned>(random_() >> 8) % limit; }
    bool chance(unsigned percent) { return next(100) < percent; }
    std::string any(const Texts& texts)
    {
        return std::string(texts[next(static_cast<unsigned>(texts.size()))]);
    }

    Identifier identifier()
    {
        Identifier::Octets bytes{};
        std::generate(bytes.begin(), bytes.end(), [this] { return static_cast<std::uint8_t>(next(256)); });
        return Identifier(bytes);
    }

    static Instant wholeMinute(Instant instant)
    {
        return Instant(
            static_cast<double>(static_cast<std::int64_t>(instant.secondsSince1970() / secondsPerMinute)) *
            secondsPerMinute);
    }

    static Instant lastMoment(const Block& block)
    {
        Instant last = block.createdAt;
        for (const WorkSession& session : block.sessions) {
            last = std::max({last, session.startedAt, session.endedAt.value_or(session.startedAt)});
        }
        return last;
    }

    Block block(Instant start)
    {
        Block block = Block::default_(start);
        block.id = identifier();
        block.focusDurationSeconds = (chance(70) ? 25 : 50) * secondsPerMinute;
        block.breakDurationSeconds = (chance(70) ? 5 : 12) * secondsPerMinute;
        block.cycleCount = 1 + next(5);
        block.hazards = any(foreseen);
        block.outcomes.clear();
        for (unsigned count = next(3); count > 0; --count) {
            block.outcomes.push_back({.id = identifier(), .title = any(titles)});
        }
        const unsigned sessions = chance(60) ? static_cast<unsigned>(block.cycleCount) : 1 + next(6);
        Instant time = start;
        for (unsigned number = 1; number <= sessions; ++number) {
            block.sessions.push_back(session(time, number, block));
            const WorkSession& last = block.sessions.back();
            time = std::max(last.startedAt, *last.endedAt) + (chance(5) ? 700 : next(30)) * secondsPerMinute;
        }
        block.completedAt = lastMoment(block) + 2 * secondsPerMinute;
        if (chance(70)) {
            block.reflection = BlockReview{.outputProduced = "Pages",
                                           .normalComparison = "As usual",
                                           .boggedDown = "",
                                           .wentWell = "",
                                           .lessons = any(lessons)};
        }
        return block;
    }

    WorkSession session(Instant start, unsigned number, const Block& block)
    {
        const double planned = block.focusDurationSeconds;
        const double paused = chance(30) ? (1 + next(20)) * secondsPerMinute : 0;
        const double worked = chance(60) ? planned : (1 + next(90)) * secondsPerMinute;
        const bool isSetBack = chance(4);
        return {.id = identifier(),
                .number = number,
                .plan = plan(block),
                .startedAt = start,
                .plannedDurationSeconds = planned,
                .pausedAt = std::nullopt,
                .accumulatedPausedSeconds = paused,
                .endedAt = isSetBack ? start - 20 * secondsPerMinute : start + worked + paused,
                .review = chance(85) ? std::optional(review()) : std::nullopt};
    }

    SessionPlan plan(const Block& block)
    {
        const bool isServing = !block.outcomes.empty() && chance(70);
        return {.id = identifier(),
                .blockOutcomeID = isServing ? std::optional(block.outcomes.back().id) : std::nullopt,
                .intendedOutcome = any(titles),
                .firstAction = "Begin",
                .hazardsMitigation = any(foreseen),
                .nicuFraming = "",
                .energy = next(7),  // files may have ratings out of bounds
                .morale = next(7)};
    }

    SessionReview review()
    {
        return {.id = identifier(),
                .completion = static_cast<CompletionResult>(next(3)),
                .noteworthyResult = "Pages",
                .distractions = any(disturbances),
                .improvement = any(lessons)};
    }

    std::minstd_rand random_;
    Instant now_;
};

}  // namespace

QuillmereState generatedHistory(unsigned seed, Instant now) { return History(seed, now).state(); }

}  // namespace quillmere::test
