#include "generated_year.hpp"

#include "figures/local_day.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <random>
#include <string>
#include <string_view>

namespace quillmere::test {
namespace {

using figures::Day;
using figures::LocalCalendar;

constexpr int daysOfYear = 364;
constexpr double minute = 60;
constexpr double hour = 3600;

struct Work {
    std::string_view outcome;
    std::string_view firstAction;
    std::string_view good;
    std::string_view poor;
};

constexpr auto works = std::to_array<Work>({
    {"Draft chapter three", "Open the outline", "Four pages, rough but whole",
     "One page; the middle is missing"},
    {"Review the pull requests", "Read the oldest one", "Three merged, one sent back", "Stuck on the first"},
    {"Fix the failing import", "Write a test that fails", "Found it: an empty last line",
     "Not found; two causes ruled out"},
    {"Prepare Thursday's talk", "Collect the figures", "All slides have one sentence now",
     "Figures are still from last year"},
    {"Read the two papers", "Print them", "Notes on both", "Half of the first"},
    {"Answer the long letters", "Sort by date", "Inbox at zero", "Two left"},
    {"Plan the next quarter", "List what slipped", "Three goals, one dropped", "Too many goals"},
    {"Clean up the data set", "Count the gaps", "Only 12 rows left to check", "Column names do not agree"},
});

constexpr auto distractions = std::to_array<std::string_view>(
    {"", "", "", "Phone", "A colleague's question", "News", "Noise in the street", "Mail"});

constexpr auto hazards = std::to_array<std::string_view>(
    {"Phone in the other room", "Phone in the other room", "Mail stays closed until noon", ""});

constexpr auto lessons = std::to_array<std::string_view>({
    "Start with the hardest part",
    "Two short sessions beat a long one in the afternoon",
    "Write down the next step before the break",
    "Ask sooner when stuck for half an hour",
    "",
    "Do not plan more than three sessions after lunch",
    "Read the whole thread before answering",
    "A walk in the break is worth the minutes",
    "",
    "Close the door",
    "Print what is longer than ten pages",
});

constexpr auto improvements = std::to_array<std::string_view>({
    "Silence the phone before, not during",
    "Take the notes by hand",
    "Fewer open windows",
    "Stop at the first error and write it down",
    "Begin with a rough version",
});

class Year {
public:
    explicit Year(Instant now) : today_(LocalCalendar().dayOf(now)), now_(now) {}

    QuillmereState state()
    {
        QuillmereState state = QuillmereState::initial(now_);
        state.id = identifier();
        for (int index = daysOfYear - 1; index >= 0; --index) {
            const Day day = today_ - std::chrono::days(index);
            if (isWorkday(day, index)) {
                addDay(day, index, state.blockHistory);
            }
        }
        std::reverse(state.blockHistory.begin(), state.blockHistory.end());
        return state;
    }

private:
    bool chance(unsigned percent) { return next(100) < percent; }
    unsigned next(unsigned limit) { return static_cast<unsigned>(random_() >> 8) % limit; }

    Identifier identifier()
    {
        Identifier::Octets bytes{};
        std::generate(bytes.begin(), bytes.end(), [this] { return static_cast<std::uint8_t>(next(256)); });
        bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0F) | 0x40);  // version 4
        bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3F) | 0x80);
        return Identifier(bytes);
    }

    /// `index` counts the days to the end of the year.
    bool isWorkday(Day day, int index)
    {
        const bool isHoliday = (index > 95 && index < 112) || (index > 320 && index < 332);
        const bool isWeekend = std::chrono::weekday(day).iso_encoding() > 5;
        return chance(isHoliday ? 4 : isWeekend ? 22 : 92);
    }

    /// How good the times are, 0 to 1: they rise and fall over the weeks.
    static double tideOf(int index)
    {
        return 0.55 + 0.3 * std::sin(index / 17.0) + 0.12 * std::sin(index / 5.0);
    }

    std::int64_t rating(int index)
    {
        const double noise = (static_cast<double>(next(100)) - 50) / 60;
        return std::clamp<std::int64_t>(std::lround(1 + 4 * tideOf(index) + noise), 1, 5);
    }

    void addDay(Day day, int index, std::vector<Block>& blocks)
    {
        const Instant midnight = calendar_.startOf(day);
        addBlock(midnight + 8.5 * hour + next(60) * minute, 3 + next(3), index, blocks);
        if (chance(55)) {
            addBlock(midnight + 14 * hour + next(45) * minute, 2 + next(4), index, blocks);
        }
        if (chance(3)) {
            addBlock(midnight + 23 * hour + next(30) * minute, 2, index, blocks);
        }
    }

    void addBlock(Instant start, unsigned cycles, int index, std::vector<Block>& blocks)
    {
        Block block = Block::default_(start - 5 * minute);
        block.id = identifier();
        block.focusDurationSeconds = (chance(70) ? 25 : 50) * minute;
        block.breakDurationSeconds = block.focusDurationSeconds / 5;
        block.cycleCount = cycles;
        const Work& work = works[next(works.size())];
        block.outcomes = {{.id = identifier(), .title = std::string(work.outcome)}};
        Instant time = start;
        for (unsigned number = 1; number <= cycles; ++number) {
            WorkSession session = sessionAt(time, number, index, block, work);
            const double overlong = chance(4) ? (15 + next(30)) * minute : 0;
            time = *session.endedAt + block.breakDurationSeconds + next(7) * minute + overlong;
            if (*session.endedAt > now_) {
                break;
            }
            block.sessions.push_back(std::move(session));
            if (chance(4)) {
                break;  // finished early
            }
        }
        if (block.sessions.empty()) {
            return;
        }
        block.completedAt = *block.sessions.back().endedAt + 3 * minute;
        block.reflection = BlockReview{.outputProduced = block.sessions.back().review->noteworthyResult,
                                       .normalComparison = "As usual",
                                       .boggedDown = "",
                                       .wentWell = "The first hour",
                                       .lessons = std::string(lessons[next(lessons.size())])};
        blocks.push_back(std::move(block));
    }

    WorkSession sessionAt(Instant start, unsigned number, int index, const Block& block, const Work& work)
    {
        const std::int64_t energy = rating(index);
        const double share = chance(12) ? 0.4 + 0.05 * next(10) : 1;
        const double paused = chance(22) ? (1 + next(12)) * minute : 0;
        const auto luck = static_cast<std::int64_t>(next(10));
        const CompletionResult completion = luck < energy + 2   ? CompletionResult::yes
                                            : luck < energy + 5 ? CompletionResult::half
                                                                : CompletionResult::no;
        const bool isGood = completion == CompletionResult::yes;
        return {
            .id = identifier(),
            .number = number,
            .plan = {.id = identifier(),
                     .blockOutcomeID = block.outcomes.front().id,
                     .intendedOutcome = std::string(work.outcome),
                     .firstAction = std::string(work.firstAction),
                     .hazardsMitigation = std::string(hazards[next(hazards.size())]),
                     .nicuFraming = "",
                     .energy = energy,
                     .morale = rating(index + 9)},
            .startedAt = start,
            .plannedDurationSeconds = block.focusDurationSeconds,
            .pausedAt = std::nullopt,
            .accumulatedPausedSeconds = paused,
            .endedAt = start + std::floor(block.focusDurationSeconds * share) + paused,
            .review = SessionReview{.id = identifier(),
                                    .completion = completion,
                                    .noteworthyResult = std::string(isGood ? work.good : work.poor),
                                    .distractions = std::string(distractions[next(distractions.size())]),
                                    .improvement = std::string(
                                        isGood || chance(60) ? "" : improvements[next(improvements.size())])},
        };
    }

    Day today_;
    Instant now_;
    LocalCalendar calendar_;
    std::minstd_rand random_{20260101};
};

}  // namespace

QuillmereState generatedYear(Instant now) { return Year(now).state(); }

}  // namespace quillmere::test
