// One tick a second for a year, while a person works.
//
// At every tick the program must do exactly what the person calculated. The file is written when something
// has changed, and the program is restarted from it every midnight.
#include <gtest/gtest.h>

#include <cmath>

#include "proofs/endurance/person.hpp"
#include "proofs/support/figures.hpp"
#include "support/sample_states.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

constexpr Instant firstTick{1'794'700'800};  // 2026-11-15T00:00:00Z
constexpr std::int64_t ticksInADay = 86'400;

// A file holds whole seconds.
void truncate(Instant& instant) { instant = Instant(std::floor(instant.secondsSince1970())); }
void truncate(std::optional<Instant>& instant)
{
    if (instant) {
        truncate(*instant);
    }
}

void truncate(Block& block)
{
    truncate(block.createdAt);
    truncate(block.plannedStart);
    truncate(block.completedAt);
    truncate(block.scheduledStartTriggeredAt);
    for (WorkSession& session : block.sessions) {
        truncate(session.startedAt);
        truncate(session.pausedAt);
        truncate(session.endedAt);
    }
}

QuillmereState asInAFile(QuillmereState state)
{
    if (state.currentBlock) {
        truncate(*state.currentBlock);
    }
    for (Block& block : state.blockHistory) {
        truncate(block);
    }
    truncate(state.breakStartedAt);
    truncate(state.breakEndNotifiedAt);
    truncate(state.updatedAt);
    return state;
}

/// How often each expected event happened.
struct Happened {
    std::uint64_t begins = 0;
    std::uint64_t focusEnds = 0;
    std::uint64_t breakEnds = 0;
    std::uint64_t idleTicks = 0;

    std::uint64_t total() const { return begins + focusEnds + breakEnds; }
};

/// Performs one tick and compares it with the person's expectation.
void tick(Host& host, Person& person, std::int64_t number, Happened& happened)
{
    const Expected expected = person.expected();
    const Instant before = host.state().updatedAt;
    const Instant now = firstTick + static_cast<double>(number);
    const TickReport report = host.tick(now);
    ASSERT_EQ(report.begun, expected.begin == number) << "at tick " << number;
    ASSERT_EQ(report.transition == TimerTransition::focusEnded, expected.focusEnd == number)
        << "at tick " << number;
    ASSERT_EQ(report.transition == TimerTransition::breakEnded, expected.breakEnd == number)
        << "at tick " << number;
    ASSERT_EQ(host.state().updatedAt, report.isNothing() ? before : now);
    if (report.begun) {
        ++happened.begins;
        person.blockBegan(number);
    } else if (report.transition == TimerTransition::focusEnded) {
        ++happened.focusEnds;
        person.focusEnded(number);
    } else if (report.transition == TimerTransition::breakEnded) {
        ++happened.breakEnds;
        person.breakEnded(number);
    } else {
        ++happened.idleTicks;
    }
}

/// Compares the history with the person's own notes.
void expectHistory(const QuillmereState& state, const Person& person)
{
    ASSERT_EQ(state.blockHistory.size(), person.blocksFinished());
    auto end = person.sessionEnds().begin();
    for (auto block = state.blockHistory.rbegin(); block != state.blockHistory.rend(); ++block) {
        ASSERT_EQ(std::ssize(block->sessions), block->cycleCount);
        std::int64_t number = 0;
        for (const WorkSession& session : block->sessions) {
            ASSERT_EQ(session.number, ++number);
            ASSERT_TRUE(session.review);
            ASSERT_NE(end, person.sessionEnds().end());
            ASSERT_EQ(session.endedAt, firstTick + static_cast<double>(*end++));
        }
    }
    EXPECT_EQ(end, person.sessionEnds().end());
}

TEST(AYearOfTicks, doesEverythingOnceAtItsSecondAndWritesNothingElse)
{
    const TemporaryDirectory directory;
    Host host(directory.path(), firstTick);
    Person person(firstTick);
    Happened happened;
    std::uint64_t restarts = 0;
    // Eight days contain every kind of day.
    const auto ticks = static_cast<std::int64_t>(amount(8 * 86'400, 365 * 86'400));
    for (std::int64_t number = 0; number < ticks; ++number) {
        tick(host, person, number, happened);
        if (testing::Test::HasFatalFailure()) {
            return;
        }
        while (person.nextAction() < static_cast<double>(number + 1)) {
            person.act(host);
        }
        if ((number + 1) % ticksInADay == 0) {
            ASSERT_TRUE(host.saved() == asInAFile(host.state())) << "changed and not saved";
            host.restart();
            ++restarts;
        }
    }
    EXPECT_EQ(host.saves(), person.actions() + happened.total());
    expectHistory(host.state(), person);

    const std::string promise = "A tick a second, with a person at work";
    reportFigure(promise, "ticks", ticks);
    reportFigure(promise, "ticks that had nothing to do and wrote nothing", happened.idleTicks);
    reportFigure(promise, "scheduled starts, each once at its second", happened.begins);
    reportFigure(promise, "ends of a session, each once at its second", happened.focusEnds);
    reportFigure(promise, "ends of a break, each once at its second", happened.breakEnds);
    reportFigure(promise, "actions of the person", person.actions());
    reportFigure(promise, "saves", host.saves());
    reportFigure(promise, "restarts from the file", restarts);
}

}  // namespace
}  // namespace quillmere::test
