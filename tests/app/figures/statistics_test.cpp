// The figures of a state.
#include "figures/statistics.hpp"

#include "figures_testing.hpp"
#include "lookback/day_text.hpp"

#include <limits>

namespace quillmere::test {
namespace {

using figures::statistics;
using figures::timeOf;

LookBack lookAt(const QuillmereState& state, const Range& range = {})
{
    return statistics(state, range, day("2026-11-15"));
}

struct TimeCase {
    double elapsed;
    double paused;
    double worked;
    double countedPause;
};

constexpr double longest = 366 * 86'400.0;

TEST(SessionTime, isTheTimeBetweenStartAndEndWithoutPauses)
{
    for (const TimeCase& each :
         {TimeCase{1500, 0, 1500, 0}, TimeCase{1500, 300, 1200, 300}, TimeCase{1500, 42.5, 1457.5, 42.5},
          TimeCase{0, 0, 0, 0}, TimeCase{42, 42.5, 0, 42}, TimeCase{1500, -5, 1500, 0},
          TimeCase{longest, 0, longest, 0}, TimeCase{3e11, 3e11, 0, 3e11}}) {
        SCOPED_TRACE(each.elapsed);
        const auto time = timeOf(session(moment, each.elapsed, each.paused));
        ASSERT_TRUE(time);
        EXPECT_EQ(time->workedSeconds, each.worked);
        EXPECT_EQ(time->pausedSeconds, each.countedPause);
    }
}

TEST(SessionTime, isUnknownForImpossibleRecords)
{
    EXPECT_FALSE(timeOf(session(moment, -1)));
    EXPECT_FALSE(timeOf(session(moment, longest + 1)));
    EXPECT_FALSE(timeOf(session(Instant(-62'167'219'200), 3.155e11)));
    EXPECT_FALSE(timeOf(session(moment, std::numeric_limits<double>::quiet_NaN())));
    WorkSession running = session(moment, 1500);
    running.endedAt.reset();
    EXPECT_FALSE(timeOf(running));
}

struct Split {
    const char* zone;
    const char* start;
    double elapsed;
    double paused;
    const char* focus;
};

constexpr Split splits[] = {
    {"UTC", "2026-11-14 23:50", 1500, 0, "2026-11-14 600, 2026-11-15 900"},
    {"UTC", "2026-11-14 23:35", 1500, 0, "2026-11-14 1500"},
    {"UTC", "2026-11-15 00:00", 1500, 0, "2026-11-15 1500"},
    // The times of pauses are not recorded: focus counts from the start.
    {"UTC", "2026-11-13 17:00", 230'400, 228'900, "2026-11-13 1500"},
    {"UTC", "2026-11-14 23:50", 3600, 2100, "2026-11-14 600, 2026-11-15 900"},
    // Nights of 23 and of 25 hours.
    {"Europe/Berlin", "2026-03-28 23:00", 90'000, 0, "2026-03-28 3600, 2026-03-29 82800, 2026-03-30 3600"},
    {"Europe/Berlin", "2026-10-24 23:00", 97'200, 0, "2026-10-24 3600, 2026-10-25 90000, 2026-10-26 3600"},
    {"Europe/Berlin", "2026-10-25 01:30", 7200, 0, "2026-10-25 7200"},
    {"America/New_York", "2026-11-01 00:30", 10'800, 0, "2026-11-01 10800"},
    // The clocks skip midnight: the day starts at 01:00.
    {"America/Sao_Paulo", "2018-11-03 23:30", 3600, 0, "2018-11-03 1800, 2018-11-04 1800"},
    {"Africa/Cairo", "2026-04-23 23:30", 3600, 0, "2026-04-23 1800, 2026-04-24 1800"},
    {"Asia/Kathmandu", "2026-11-14 23:50", 1500, 0, "2026-11-14 600, 2026-11-15 900"},
    {"Pacific/Apia", "2011-12-29 23:30", 3600, 0, "2011-12-29 1800, 2011-12-31 1800"},
};

TEST(Statistics, divideFocusAmongLocalDays)
{
    for (const Split& each : splits) {
        SCOPED_TRACE(each.zone);
        SCOPED_TRACE(each.start);
        const TimeZone here(each.zone);
        const QuillmereState state = stateWith({session(local(each.start), each.elapsed, each.paused)});
        EXPECT_EQ(focusOf(lookAt(state), Unit::day), each.focus);
    }
}

TEST(FocusToday, isThatOfTheStatistics)
{
    for (const Split& each : splits) {
        SCOPED_TRACE(each.zone);
        SCOPED_TRACE(each.start);
        const TimeZone here(each.zone);
        const QuillmereState state = stateWith({session(local(each.start), each.elapsed, each.paused)});
        const LookBack look = lookAt(state);
        figures::LocalCalendar calendar;
        const figures::Day first = look.days.front().first;
        for (figures::Day day = first - figures::oneDay; day <= first + std::chrono::days(3);
             day += figures::oneDay) {
            const Instant evening = calendar.startOf(day) + 18 * 3600.0;
            EXPECT_EQ(figures::focusToday(state, evening, calendar),
                      figures::focusOn(look, calendar.dayOf(evening)));
        }
    }
}

TEST(Statistics, sumDaysUpToWeeksMonthsAndATotal)
{
    const TimeZone here("Europe/Berlin");
    const QuillmereState state =
        stateWith({session(local("2026-10-31 10:00"), 600), session(local("2026-11-01 23:50"), 1200),
                   session(local("2026-11-02 09:00"), 60)});
    const LookBack look = lookAt(state);
    EXPECT_EQ(focusOf(look, Unit::day), "2026-10-31 600, 2026-11-01 600, 2026-11-02 660");
    EXPECT_EQ(focusOf(look, Unit::week), "2026-W44 1200, 2026-W45 660");
    EXPECT_EQ(focusOf(look, Unit::month), "2026-10 600, 2026-11 1260");
    EXPECT_EQ(look.total.focusSeconds, 1860);
    EXPECT_EQ(look.total.sessions, 3);
    EXPECT_EQ(look.focusDays, 3);
}

TEST(Statistics, countASessionOnTheDayItStartedOn)
{
    const TimeZone here("UTC");
    WorkSession late = session(local("2026-11-14 23:50"), 1500, 60);
    late.plan.energy = 5;
    late.plan.morale = 2;
    late.review->completion = CompletionResult::yes;
    const LookBack look = lookAt(stateWith({late}));
    ASSERT_EQ(look.days.size(), 2u);
    const figures::Tally& first = look.days[0].tally;
    EXPECT_EQ(first.sessions, 1);
    EXPECT_EQ(first.plannedSeconds, 1500);
    EXPECT_EQ(first.workedSeconds, 1440);
    EXPECT_EQ(first.pausedSeconds, 60);
    EXPECT_EQ(first.pausedSessions, 1);
    EXPECT_EQ(first.completions, (figures::Completions{1, 0, 0}));
    EXPECT_EQ(first.energy.mean(), 5);
    EXPECT_EQ(first.morale.mean(), 2);
    EXPECT_EQ(look.days[1].tally, (figures::Tally{.focusSeconds = 840}));
}

struct RangeCase {
    const char* since;
    const char* until;
    const char* focus;
    std::int64_t sessions;
};

TEST(Statistics, countDaysFromTheFirstToTheLastOfTheRange)
{
    const TimeZone here("UTC");
    // The second session starts on the 12th and ends on the 13th.
    const QuillmereState state =
        stateWith({session(local("2026-11-11 10:00"), 100), session(local("2026-11-12 23:59"), 120),
                   session(local("2026-11-14 10:00"), 300)});
    for (const RangeCase& each : {
             RangeCase{"", "", "2026-11-11 100, 2026-11-12 60, 2026-11-13 60, 2026-11-14 300", 3},
             RangeCase{"2026-11-12", "", "2026-11-12 60, 2026-11-13 60, 2026-11-14 300", 2},
             RangeCase{"2026-11-13", "", "2026-11-13 60, 2026-11-14 300", 1},
             RangeCase{"2026-11-14", "2026-11-14", "2026-11-14 300", 1},
             RangeCase{"", "2026-11-12", "2026-11-11 100, 2026-11-12 60", 2},
             RangeCase{"", "2026-11-10", "", 0},
             RangeCase{"2026-11-15", "", "", 0},
         }) {
        SCOPED_TRACE(each.since + std::string(" to ") + each.until);
        Range range;
        range.since = *each.since ? std::optional(day(each.since)) : std::nullopt;
        range.until = *each.until ? std::optional(day(each.until)) : std::nullopt;
        const LookBack look = lookAt(state, range);
        EXPECT_EQ(focusOf(look, Unit::day), each.focus);
        EXPECT_EQ(look.total.sessions, each.sessions);
        EXPECT_EQ(std::ssize(look.sessions), each.sessions);
    }
}

TEST(Statistics, countEndedSessionsOfTheCurrentBlockToo)
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.currentBlock = blockInWork(1, 3);
    const LookBack look = lookAt(state);
    EXPECT_EQ(look.total.sessions, 2);
    EXPECT_GT(look.total.focusSeconds, 0);
}

TEST(Statistics, orderSessionsByStartAndPointIntoTheState)
{
    QuillmereState state = stateWith({session(moment - 3600, 60)});
    state.blockHistory.insert(state.blockHistory.begin(),
                              stateWith({session(moment, 60)}).blockHistory.front());
    const LookBack look = lookAt(state);
    ASSERT_EQ(look.sessions.size(), 2u);
    EXPECT_EQ(look.sessions[0].session, &state.blockHistory[1].sessions[0]);
    EXPECT_EQ(look.sessions[1].session, &state.blockHistory[0].sessions[0]);
    EXPECT_EQ(look.sessions[1].block, &state.blockHistory[0]);
}

TEST(Statistics, ignoreRatingsOutOfRangeAndUnknownTimes)
{
    const TimeZone here("UTC");
    WorkSession odd = session(moment, -500);
    odd.plan.energy = std::numeric_limits<std::int64_t>::max();
    odd.plan.morale = 0;
    const LookBack look = lookAt(stateWith({odd, session(moment, 60)}));
    EXPECT_EQ(look.sessionsWithoutTime, 1);
    EXPECT_EQ(look.total.sessions, 2);
    EXPECT_EQ(look.total.plannedSeconds, 1500);
    EXPECT_EQ(look.total.workedSeconds, 60);
    EXPECT_EQ(look.total.energy, (figures::Ratings{.count = 1, .sum = 4}));
    EXPECT_EQ(look.total.morale, (figures::Ratings{.count = 1, .sum = 3}));
    EXPECT_EQ(look.byEnergy[3], (figures::Completions{0, 1, 0}));
}

TEST(Statistics, countCompletionByRatingOfReviewedSessionsOnly)
{
    WorkSession good = session(moment, 60);
    good.plan.energy = 5;
    good.plan.morale = 1;
    good.review->completion = CompletionResult::yes;
    WorkSession poor = good;
    poor.plan.energy = 1;
    poor.review->completion = CompletionResult::no;
    WorkSession unreviewed = good;
    unreviewed.review.reset();
    const LookBack look = lookAt(stateWith({good, poor, unreviewed}));
    EXPECT_EQ(look.byEnergy[4], (figures::Completions{1, 0, 0}));
    EXPECT_EQ(look.byEnergy[0], (figures::Completions{0, 0, 1}));
    EXPECT_EQ(look.byMorale[0], (figures::Completions{1, 0, 1}));
    EXPECT_EQ(figures::total(look.total.completions), 2);
}

TEST(Statistics, measureTheTimeBetweenSessionsOfOneBlock)
{
    QuillmereState state = stateWith({session(moment, 60), session(moment + 360, 60),  // 300
                                      session(moment + 1020, 60),                      // 600
                                      session(moment + 1000, 60),                      // overlaps
                                      session(moment + 100'000, 60)});                 // 98'940
    state.blockHistory.push_back(stateWith({session(moment + 200'000, 60)}).blockHistory.front());
    state.blockHistory.back().breakDurationSeconds = 7;
    const figures::BetweenSessions between = lookAt(state).between;
    EXPECT_EQ(between.count, 3);
    EXPECT_EQ(between.totalSeconds, 99'840);
    EXPECT_EQ(between.medianSeconds, 600);
    EXPECT_EQ(between.plannedMedianSeconds, 300);
}

TEST(Statistics, measureNothingAfterASessionWhoseEndCannotBeRight)
{
    EXPECT_EQ(lookAt(stateWith({session(moment, -5), session(moment + 1000, 60)})).between.count, 0);
}

TEST(Statistics, measureNothingBetweenSessionsOutsideTheRange)
{
    const TimeZone here("UTC");
    const QuillmereState state = stateWith({session(moment, 60), session(moment + 86'400, 60)});
    EXPECT_EQ(lookAt(state, {.since = std::nullopt, .until = day("2026-11-15")}).between.count, 0);
    EXPECT_EQ(lookAt(state, {.since = day("2026-11-16"), .until = std::nullopt}).between.count, 1);
}

struct StreakCase {
    const char* days;  ///< of November 2026 with focus; today is the 15th
    std::int64_t longest;
    const char* longestFirst;
    std::int64_t current;
};

constexpr StreakCase streaks[] = {
    {"15", 1, "2026-11-15", 1},
    {"14", 1, "2026-11-14", 1},  // today is not over
    {"13", 1, "2026-11-13", 0},
    {"13 14 15", 3, "2026-11-13", 3},
    {"12 13 14", 3, "2026-11-12", 3},
    {"10 11 13 15", 2, "2026-11-10", 1},
    {"10 11 14 15", 2, "2026-11-14", 2},  // the later one of two
    {"01 02 03 05 14", 3, "2026-11-01", 1},
};

TEST(Streaks, areDaysInARowWithFocus)
{
    const TimeZone here("UTC");
    for (const StreakCase& each : streaks) {
        SCOPED_TRACE(each.days);
        std::vector<WorkSession> sessions;
        const std::string days = each.days;
        for (std::size_t place = 0; place < days.size(); place += 3) {
            sessions.push_back(session(local("2026-11-" + days.substr(place, 2) + " 10:00"), 60));
        }
        const QuillmereState state = stateWith(sessions);
        const LookBack look = lookAt(state);
        ASSERT_TRUE(look.longestStreak);
        EXPECT_EQ(look.longestStreak->days, each.longest);
        EXPECT_EQ(look.longestStreak->first, day(each.longestFirst));
        EXPECT_EQ(look.longestStreak->last, day(each.longestFirst) + std::chrono::days(each.longest - 1));
        EXPECT_EQ(look.currentStreak ? look.currentStreak->days : 0, each.current);
    }
}

TEST(Streaks, doNotCountDaysWithoutFocus)
{
    const TimeZone here("UTC");
    const QuillmereState state =
        stateWith({session(local("2026-11-13 10:00"), 60), session(local("2026-11-14 10:00"), 60, 60),
                   session(local("2026-11-15 10:00"), 60)});
    const LookBack look = lookAt(state);
    EXPECT_EQ(look.longestStreak->days, 1);
    EXPECT_EQ(look.focusDays, 2);
    EXPECT_FALSE(lookAt(stateWith({session(moment, 60, 60)})).longestStreak);
}

figures::Habits withWeekendsOff()
{
    figures::Habits habits;
    habits.daysOff = {std::chrono::Saturday, std::chrono::Sunday};
    return habits;
}

// 2026-11-13 is a Friday.
TEST(Streaks, goOnAcrossDaysOff)
{
    const QuillmereState state =
        stateWith({session(local("2026-11-12 10:00"), 60), session(local("2026-11-13 10:00"), 60),
                   session(local("2026-11-16 10:00"), 60)});
    const LookBack look = statistics(state, {}, day("2026-11-16"), withWeekendsOff());
    EXPECT_EQ(look.longestStreak->days, 3);
    EXPECT_EQ(look.longestStreak->first, day("2026-11-12"));
    EXPECT_EQ(look.longestStreak->last, day("2026-11-16"));
    EXPECT_EQ(statistics(state, {}, day("2026-11-16")).longestStreak->days, 2);
}

TEST(Streaks, areStillCurrentAfterDaysOff)
{
    const QuillmereState state = stateWith({session(local("2026-11-13 10:00"), 60)});
    EXPECT_TRUE(statistics(state, {}, day("2026-11-16"), withWeekendsOff()).currentStreak);
    EXPECT_FALSE(statistics(state, {}, day("2026-11-17"), withWeekendsOff()).currentStreak);
    EXPECT_FALSE(statistics(state, {}, day("2026-11-16")).currentStreak);
}

TEST(Goal, isReachedOnDaysWithThatMuchFocus)
{
    figures::Habits habits = withWeekendsOff();
    habits.dailyGoalSeconds = 3600;
    // Thursday too little, Friday enough, Saturday off, today (Monday) not yet.
    const QuillmereState state =
        stateWith({session(local("2026-11-12 10:00"), 3599), session(local("2026-11-13 10:00"), 3600),
                   session(local("2026-11-14 10:00"), 7200), session(local("2026-11-16 10:00"), 60)});
    const auto goal = figures::goalOf(statistics(state, {}, day("2026-11-16"), habits));
    ASSERT_TRUE(goal);
    EXPECT_EQ(goal->days, 2);
    EXPECT_EQ(goal->reachedDays, 1);
    EXPECT_EQ(goal->todaySeconds, 60);
    habits.dailyGoalSeconds = 60;
    const auto reached = figures::goalOf(statistics(state, {}, day("2026-11-16"), habits));
    EXPECT_EQ(reached->days, 3);
    EXPECT_EQ(reached->reachedDays, 3);
}

TEST(Goal, knowsNothingOfTodayOutsideTheRange)
{
    figures::Habits habits;
    habits.dailyGoalSeconds = 60;
    const QuillmereState state = stateWith({session(local("2026-11-12 10:00"), 60)});
    const Range range{.since = std::nullopt, .until = day("2026-11-12")};
    EXPECT_FALSE(figures::goalOf(statistics(state, range, day("2026-11-16"), habits))->todaySeconds);
    EXPECT_FALSE(figures::goalOf(statistics(state, range, day("2026-11-16"))));
}

TEST(LookBack, countsTheNightForTheDayBeforeWhereDaysBeginLater)
{
    figures::Habits habits;
    habits.dayBeginsAtHour = 4;
    const QuillmereState state = stateWith({session(local("2026-11-15 03:00"), 7200)});
    const LookBack look = statistics(state, {}, day("2026-11-15"), habits);
    EXPECT_EQ(focusOf(look, Unit::day), "2026-11-14 3600, 2026-11-15 3600");
    EXPECT_EQ(look.sessions.front().day, day("2026-11-14"));
}

TEST(LookBack, sumsWeeksUpFromTheirFirstDay)
{
    figures::Habits habits;
    habits.weekBegins = std::chrono::Sunday;
    const QuillmereState state =
        stateWith({session(local("2026-11-14 10:00"), 60), session(local("2026-11-15 10:00"), 60)});
    const LookBack look = statistics(state, {}, day("2026-11-15"), habits);
    ASSERT_EQ(look.weeks.size(), 2U);
    EXPECT_EQ(look.weeks[1].first, day("2026-11-15"));
    EXPECT_EQ(figures::heatMapOf(look, 2).firstWeek, day("2026-11-08"));
    EXPECT_EQ(figures::lastPeriods(look, Unit::week, 5).size(), 2U);
    EXPECT_EQ(statistics(state, {}, day("2026-11-15")).weeks.size(), 1U);
}

TEST(Streaks, goOnWhenTheClocksChange)
{
    const TimeZone here("Europe/Berlin");
    const QuillmereState state =
        stateWith({session(local("2026-10-24 23:30"), 60), session(local("2026-10-25 00:10"), 60),
                   session(local("2026-10-26 23:50"), 60)});
    EXPECT_EQ(lookAt(state).longestStreak->days, 3);
}

TEST(Statistics, acceptAnyDateThatAFileCanContain)
{
    const TimeZone here("America/Sao_Paulo");
    const Instant first{-62'167'219'200};
    const Instant last{253'402'300'799};
    const QuillmereState state =
        stateWith({session(first, 1500), session(last, 0), session(last - 1500, 1500),
                   session(first, last - first), session(last, first - last)});
    const LookBack look = lookAt(state);
    EXPECT_EQ(look.total.sessions, 5);
    EXPECT_EQ(look.sessionsWithoutTime, 2);
    EXPECT_EQ(look.total.focusSeconds, 3000);
    EXPECT_EQ(look.days.size(), 2u);
    EXPECT_EQ(figures::lastPeriods(look, Unit::day, 14).size(), 14u);
}

TEST(Statistics, ofNothingAreNothing)
{
    const LookBack look = lookAt(QuillmereState::initial(moment));
    EXPECT_EQ(look.total, figures::Tally{});
    EXPECT_TRUE(look.days.empty());
    EXPECT_FALSE(look.longestStreak);
    EXPECT_EQ(look.between.count, 0);
}

TEST(LastPeriods, haveNoGapsUpToTodayOrTheEndOfTheRange)
{
    const TimeZone here("UTC");
    const QuillmereState state =
        stateWith({session(local("2026-11-10 10:00"), 60), session(local("2026-11-12 10:00"), 120)});
    const auto textOfRow = [](const LookBack& look, Unit unit, std::size_t most) {
        std::string text;
        for (const auto& period : figures::lastPeriods(look, unit, most)) {
            text += lookback::shortLabelOf(unit, period.first) + "=" +
                    std::to_string(static_cast<int>(period.tally.focusSeconds)) + " ";
        }
        return text;
    };
    EXPECT_EQ(textOfRow(lookAt(state), Unit::day, 4), "12 Nov=120 13 Nov=0 14 Nov=0 15 Nov=0 ");
    EXPECT_EQ(textOfRow(lookAt(state), Unit::day, 99),
              "10 Nov=60 11 Nov=0 12 Nov=120 13 Nov=0 14 Nov=0 15 Nov=0 ");
    EXPECT_EQ(textOfRow(lookAt(state), Unit::week, 9), "W46=180 ");
    EXPECT_EQ(textOfRow(lookAt(state), Unit::month, 9), "Nov=180 ");
    const Range range{.since = day("2026-11-09"), .until = day("2026-11-12")};
    EXPECT_EQ(textOfRow(lookAt(state, range), Unit::day, 9), "9 Nov=0 10 Nov=60 11 Nov=0 12 Nov=120 ");
    const Range ahead{.since = day("2026-12-01"), .until = std::nullopt};
    EXPECT_EQ(textOfRow(lookAt(state, ahead), Unit::day, 9), "");
}

TEST(HeatMap, hasLevelsByTheShareOfTheBestDay)
{
    const TimeZone here("UTC");
    const QuillmereState state =
        stateWith({session(local("2026-11-14 10:00"), 4000), session(local("2026-01-02 10:00"), 9000)});
    const LookBack look = lookAt(state, {.since = day("2026-11-03"), .until = std::nullopt});
    const auto map = figures::heatMapOf(look, 2);
    EXPECT_EQ(map.firstWeek, day("2026-11-02"));
    EXPECT_EQ(map.mostSeconds, 4000);
    EXPECT_EQ(map.levelOf(day("2026-11-02"), 0), std::nullopt);
    EXPECT_EQ(map.levelOf(day("2026-11-16"), 0), std::nullopt);
    for (const auto& [focus, level] : {std::pair{0.0, 0}, std::pair{1.0, 1}, std::pair{1000.0, 1},
                                       std::pair{1001.0, 2}, std::pair{3001.0, 4}, std::pair{4000.0, 4}}) {
        EXPECT_EQ(map.levelOf(day("2026-11-03"), focus), level) << focus;
    }
}

}  // namespace
}  // namespace quillmere::test
