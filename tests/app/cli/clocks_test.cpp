// What is recorded and shown when the clock is set. docs/clocks.md has a row for each test.
#include "agent/asking.hpp"
#include "work/countdown.hpp"
#include "work/presenter.hpp"
#include "work/situation_view.hpp"

#include <quillmere/records/json/date_text.hpp>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "clocked_watch.hpp"
#include "program_testing.hpp"

namespace quillmere::test {
namespace {

constexpr double secondsADay = 86'400;

/// A person with a screen and a watch that stay open while the clock is set.
class Clocks : public testing::Test {
protected:
    void begins(const QuillmereState& state)
    {
        person.has(state);
        watch = std::make_unique<ClockedWatch>(person, notifier);
        screen = std::make_unique<work::Presenter>(
            workspace::Workspace::in(person.directory(), [this] { return person.now; }), work::Drafts(""),
            std::nullopt);
        look();
    }

    /// Sets the clock to so many seconds after `moment`.
    void clockShows(double seconds)
    {
        person.now = moment + seconds + 0.75;
        look();
    }

    /// Takes a step, which must be possible.
    void takes(const Words& command)
    {
        const Ending ending = person.types(command);
        EXPECT_EQ(ending.code, ExitCode::done) << ending.err;
        look();
    }

    /// Lets the programs that stay open see the clock and the files.
    void look()
    {
        watch->untilIdle();
        screen->refresh();
    }

    nlohmann::json printed(const Words& command) const
    {
        const Ending ending = person.types(command);
        EXPECT_EQ(ending.code, ExitCode::done) << ending.err;
        return nlohmann::json::parse(ending.out, nullptr, false);
    }

    /// "focusing 15:00 paused": what every surface shows. Fails the test where they differ.
    std::string shown() const
    {
        const std::string ofScreen = shownByScreen();
        EXPECT_EQ(shownByStatus(), ofScreen);
        EXPECT_EQ(shownByBar(), ofScreen);
        EXPECT_EQ(shownToAgent(), ofScreen);
        return ofScreen;
    }

    /// The notices that were given, with the times that the watch printed.
    std::string noticed() const
    {
        EXPECT_EQ(watch->said(), "");
        return watch->printed();
    }

    const WorkSession& session() { return (state_ = person.state()).currentBlock->sessions.back(); }

    const TimeZone utc{"UTC"};
    Person person;
    FakeNotifier notifier;
    std::unique_ptr<ClockedWatch> watch;
    std::unique_ptr<work::Presenter> screen;

private:
    static std::string line(std::string_view phase, std::optional<std::int64_t> remaining, bool isPaused)
    {
        std::string text(phase);
        if (remaining) {
            text += " " + QuillmereDesign::timeText(*remaining);
        }
        return text + (isPaused ? " paused" : "");
    }

    std::string shownByScreen() const
    {
        if (!screen->isUsable()) {
            return screen->trouble();
        }
        const auto view = work::SituationView::of(screen->situation());
        const auto& timer = view.timer;
        return line(rawValue(view.phase), timer ? std::optional(timer->remainingSeconds) : std::nullopt,
                    timer && timer->isPaused);
    }

    std::string shownByStatus() const
    {
        const nlohmann::json status = printed({"status", "--json"});
        const auto& widget = status.at("widget");
        const std::string time = status.value("time_text", "");
        const bool isPaused = widget.contains("countdown") && widget["countdown"]["is_paused"].get<bool>();
        return widget.at("phase").get<std::string>() + (time.empty() ? "" : " ") + time +
               (isPaused ? " paused" : "");
    }

    /// From the summaries as they were saved, while the others derive theirs from the state.
    std::string shownByBar() const
    {
        const nlohmann::json bar = printed({"bar", "--format", "json"});
        const auto& remaining = bar.at("remaining_seconds");
        const auto classes = bar.at("classes").get<Words>();
        const bool isPaused = std::find(classes.begin(), classes.end(), "paused") != classes.end();
        const auto view = work::SituationView::of(screen->situation());
        if (view.timer) {
            EXPECT_EQ(bar.at("percentage").get<long>(), std::lround(view.timer->usedShare * 100));
        }
        return line(bar.at("phase").get<std::string>(),
                    remaining.is_null() ? std::nullopt : std::optional(remaining.get<std::int64_t>()),
                    isPaused);
    }

    std::string shownToAgent() const
    {
        const nlohmann::json summary = printed({"agent"});
        const auto workflowState =
            fromRawValue<WorkflowState>(summary.at("workflow_state").get<std::string>());
        const auto& remaining = summary.at("remaining_seconds");
        const bool isPaused = !remaining.is_null() && summary.at("current_session").contains("paused_at");
        return line(rawValue(fromWorkflowState<WidgetPhase>(*workflowState)),
                    remaining.is_null() ? std::nullopt : std::optional(remaining.get<std::int64_t>()),
                    isPaused);
    }

    QuillmereState state_ = QuillmereState::initial(moment);
};

TEST_F(Clocks, setBackDuringASession)
{
    begins(stateIn(WorkflowState::focusing));
    clockShows(600);
    EXPECT_EQ(shown(), "focusing 15:00");
    clockShows(300);
    EXPECT_EQ(shown(), "focusing 20:00");
    EXPECT_EQ(person.state(), stateIn(WorkflowState::focusing));
    clockShows(1500);
    EXPECT_EQ(shown(), "reviewing");
    EXPECT_EQ(session().endedAt, moment + 1500);
    EXPECT_EQ(noticed(), "15:25  Focus is over: Outcome of session 1\n");
}

TEST_F(Clocks, setBackToBeforeTheStartOfASession)
{
    begins(stateIn(WorkflowState::focusing));
    clockShows(600);
    for (const double seconds : {-3600.0, -40 * secondsADay, -600.0, -1.0, 0.0}) {
        clockShows(seconds);
        EXPECT_EQ(shown(), "focusing 25:00");
    }
    // Also when the summaries are saved meanwhile.
    clockShows(-600);
    takes({"ask", "May I?"});
    EXPECT_EQ(shown(), "focusing 25:00");
    clockShows(300);
    EXPECT_EQ(shown(), "focusing 20:00");
    clockShows(-600);
    takes({"end"});
    EXPECT_EQ(shown(), "reviewing");
    EXPECT_EQ(session().endedAt, moment - 600);
    EXPECT_EQ(printed({"report", "--json"}).at("total").at("focus_seconds"), 0);
    EXPECT_EQ(noticed(), "14:50  A question waits: May I?\n");
}

TEST_F(Clocks, setForthDuringASession)
{
    begins(stateIn(WorkflowState::focusing));
    clockShows(300);
    EXPECT_EQ(shown(), "focusing 20:00");
    clockShows(1200);
    EXPECT_EQ(shown(), "focusing 05:00");
    EXPECT_EQ(person.state(), stateIn(WorkflowState::focusing));
    EXPECT_EQ(noticed(), "");
}

TEST_F(Clocks, setForthPastTheEndOfASession)
{
    for (const double seconds : {1500.0, 5000.0, 4 * 366 * secondsADay, 3000 * 366 * secondsADay}) {
        SCOPED_TRACE(seconds);
        person = Person();
        begins(stateIn(WorkflowState::focusing));
        clockShows(seconds);
        EXPECT_EQ(shown(), "reviewing");
        EXPECT_EQ(session().endedAt, moment + 1500);
        EXPECT_EQ(notifier.requests.size(), 1u);
        notifier.requests.clear();
    }
}

TEST_F(Clocks, setBackAfterTheEndOfASession)
{
    begins(stateIn(WorkflowState::focusing));
    clockShows(5000);
    clockShows(300);
    EXPECT_EQ(shown(), "reviewing");
    EXPECT_EQ(session().endedAt, moment + 1500);
    clockShows(1500);
    clockShows(300);
    EXPECT_EQ(notifier.requests.size(), 1u);
    takes({"review", "--completion", "yes", "--next-outcome", "More", "--next-energy", "4", "--next-morale",
           "3"});
    EXPECT_EQ(shown(), "breaking 05:00");
    EXPECT_EQ(person.state().breakStartedAt, moment + 300);
    EXPECT_EQ(noticed(), "15:25  Focus is over: Outcome of session 1\n");
}

TEST_F(Clocks, setBackDuringAPause)
{
    begins(stateIn(WorkflowState::focusing));
    clockShows(300);
    takes({"pause"});
    for (const double seconds : {300.0, 200.0, -3600.0}) {
        clockShows(seconds);
        EXPECT_EQ(shown(), "focusing 20:00 paused");
    }
    takes({"resume"});
    EXPECT_EQ(session().accumulatedPausedSeconds, 0);
    EXPECT_EQ(shown(), "focusing 25:00");
    clockShows(300);
    EXPECT_EQ(shown(), "focusing 20:00");
}

TEST_F(Clocks, setForthDuringAPause)
{
    begins(stateIn(WorkflowState::focusing));
    clockShows(300);
    takes({"pause"});
    clockShows(secondsADay);
    EXPECT_EQ(shown(), "focusing 20:00 paused");
    takes({"resume"});
    EXPECT_EQ(session().accumulatedPausedSeconds, secondsADay - 300);
    EXPECT_EQ(shown(), "focusing 20:00");
    EXPECT_EQ(noticed(), "");
}

TEST_F(Clocks, setBackAfterAPauseInWhichItWasSetForth)
{
    begins(stateIn(WorkflowState::focusing));
    clockShows(300);
    takes({"pause"});
    clockShows(secondsADay);
    takes({"resume"});
    clockShows(600);
    EXPECT_EQ(shown(), "focusing 25:00");
    takes({"ask", "May I?"});
    EXPECT_EQ(shown(), "focusing 25:00");
    clockShows(secondsADay);
    EXPECT_EQ(shown(), "focusing 20:00");
    clockShows(600);
    takes({"end"});
    EXPECT_EQ(shown(), "reviewing");
}

TEST_F(Clocks, setBackDuringABreak)
{
    begins(stateIn(WorkflowState::breaking));
    clockShows(100);
    EXPECT_EQ(shown(), "breaking 03:20");
    clockShows(40);
    EXPECT_EQ(shown(), "breaking 04:20");
    EXPECT_EQ(person.state(), stateIn(WorkflowState::breaking));
}

TEST_F(Clocks, setBackToBeforeTheStartOfABreak)
{
    begins(stateIn(WorkflowState::breaking));
    clockShows(-3600);
    EXPECT_EQ(shown(), "breaking 05:00");
    takes({"break", "extend", "5m"});
    EXPECT_EQ(shown(), "breaking 10:00");
    clockShows(0);
    EXPECT_EQ(shown(), "breaking 10:00");
    clockShows(100);
    EXPECT_EQ(shown(), "breaking 08:20");
    clockShows(-3600);
    takes({"break", "end"});
    EXPECT_EQ(shown(), "planning");
    EXPECT_EQ(noticed(), "");
}

TEST_F(Clocks, setForthPastTheEndOfABreak)
{
    begins(stateIn(WorkflowState::breaking));
    clockShows(4000);
    EXPECT_EQ(shown(), "breaking +61:40");
    EXPECT_EQ(person.state().breakEndNotifiedAt, moment + 300);
    clockShows(4 * 366 * secondsADay);
    EXPECT_EQ(shown().substr(0, 10), "breaking +");
    EXPECT_EQ(notifier.requests.size(), 1u);
    EXPECT_EQ(noticed(), "15:05  The break is over: Outcome of session 2\n");
}

TEST_F(Clocks, setBackAfterTheEndOfABreak)
{
    begins(stateIn(WorkflowState::breaking));
    clockShows(4000);
    clockShows(100);
    EXPECT_EQ(shown(), "breaking 03:20");
    clockShows(301);
    EXPECT_EQ(shown(), "breaking +00:01");
    EXPECT_EQ(person.state().breakEndNotifiedAt, moment + 300);
    EXPECT_EQ(notifier.requests.size(), 1u);
    clockShows(100);
    takes({"break", "extend", "5m"});
    EXPECT_EQ(shown(), "breaking 08:20");
    clockShows(600);
    EXPECT_EQ(person.state().breakEndNotifiedAt, moment + 600);
    EXPECT_EQ(notifier.requests.size(), 2u);
    EXPECT_EQ(noticed(),
              "15:05  The break is over: Outcome of session 2\n"
              "15:10  The break is over: Outcome of session 2\n");
}

TEST_F(Clocks, setBackWhileABlockWaits)
{
    begins(stateWithScheduledBlock());
    clockShows(-secondsADay);
    EXPECT_EQ(shown(), "idle");
    EXPECT_EQ(person.state(), stateWithScheduledBlock());
    EXPECT_NE(person.types({"status"}).out.find("Time      2026-11-15 16:00 to 2026-11-15 "),
              std::string::npos);
    takes({"start"});
    EXPECT_EQ(shown(), "planning");
    EXPECT_EQ(noticed(), "");
}

TEST_F(Clocks, setForthPastTheStartOfABlock)
{
    begins(stateWithScheduledBlock());
    clockShows(5000);
    EXPECT_EQ(shown(), "planning");
    EXPECT_EQ(person.state().currentBlock->scheduledStartTriggeredAt, moment + 5000);
    EXPECT_EQ(noticed(), "16:23  The scheduled block has begun: Chapter one\n");
}

TEST_F(Clocks, setBackAfterTheStartOfABlock)
{
    begins(stateWithScheduledBlock());
    clockShows(5000);
    for (const double seconds : {100.0, 3600.0, 5000.0, 100.0}) {
        clockShows(seconds);
        EXPECT_EQ(shown(), "planning");
        EXPECT_EQ(person.state().currentBlock->scheduledStartTriggeredAt, moment + 5000);
    }
    EXPECT_EQ(notifier.requests.size(), 1u);
    takes({"focus", "--outcome", "More", "--energy", "4", "--morale", "3"});
    EXPECT_EQ(shown(), "focusing 25:00");
    EXPECT_EQ(noticed(), "16:23  The scheduled block has begun: Chapter one\n");
}

TEST_F(Clocks, setBackAfterQuestions)
{
    begins(stateIn(WorkflowState::idle));
    clockShows(4 * 366 * secondsADay);
    for (int count = 0; count < 10; ++count) {
        takes({"ask", "May I?"});
    }
    EXPECT_THROW(agent::requireRoom(person.state(), person.now), agent::ToolRefusal);
    clockShows(0);
    EXPECT_NO_THROW(agent::requireRoom(person.state(), person.now));
    EXPECT_EQ(printed({"questions", "--json"}).size(), 10u);
    EXPECT_EQ(printed({"bar", "--format", "json"}).at("open_question_count"), 10);
    EXPECT_EQ(printed({"agent"}).at("open_questions").size(), 10u);
    EXPECT_EQ(work::SituationView::of(screen->situation()).openQuestionCount, 10u);
    EXPECT_EQ(notifier.requests.back().heading, "10 questions wait");
    takes({"answer", "1", "Yes"});
    EXPECT_EQ(person.state().openQuestions().size(), 9u);
    EXPECT_EQ(person.state().agentQuestions.front().answeredAt, moment);
}

TEST_F(Clocks, setBackAfterAChange)
{
    begins(stateIn(WorkflowState::focusing));
    clockShows(1000);
    takes({"ask", "May I?"});
    clockShows(300);
    EXPECT_EQ(person.state().updatedAt, moment + 1000);
    EXPECT_EQ(shown(), "focusing 20:00");
    takes({"ask", "And I?"});
    EXPECT_EQ(person.state().updatedAt, moment + 300);
    EXPECT_EQ(shown(), "focusing 20:00");
    clockShows(5000);
    EXPECT_EQ(session().endedAt, moment + 1500);
}

// Beyond what 64 bits of nanoseconds count, and where years have fewer than four digits.
constexpr const char* beginnings[] = {"0000-01-02T00:00:00Z", "0999-12-31T22:00:00Z", "2262-04-11T23:40:00Z",
                                      "9999-12-31T20:00:00Z"};

TEST_F(Clocks, setToAnyYearFrom0000To9999)
{
    for (const char* const text : beginnings) {
        SCOPED_TRACE(text);
        person = Person();
        notifier.requests.clear();
        const double begin = *json::instantFromDateText(text) - moment;
        person.now = moment + begin;
        begins(QuillmereState::initial(moment + begin));
        takes({"plan", "--outcome", "Chapter", "--cycles", "2", "--at", "+10m"});
        clockShows(begin + 600);
        EXPECT_EQ(shown(), "planning");
        takes({"focus", "--outcome", "Page", "--energy", "4", "--morale", "3"});
        clockShows(begin + 900);
        EXPECT_EQ(shown(), "focusing 20:00");
        takes({"pause"});
        clockShows(begin + 1000);
        takes({"resume"});
        EXPECT_EQ(shown(), "focusing 20:00");
        clockShows(begin + 2200);
        EXPECT_EQ(shown(), "reviewing");
        EXPECT_EQ(notifier.requests.size(), 2u);
        takes({"review", "--completion", "yes", "--next-outcome", "Page", "--next-energy", "4",
               "--next-morale", "3"});
        EXPECT_EQ(shown(), "breaking 05:00");
        const nlohmann::json report = printed({"report", "--json"});
        EXPECT_EQ(report.at("total").at("focus_seconds"), 1500);
        for (const Words& command :
             {Words{"report"}, Words{"report", "--csv", "-"}, Words{"report", "--ics", "-"},
              Words{"report", "--html", "-"}, Words{"widget"}, Words{"widget", "--json"}, Words{"history"},
              Words{"restore"}}) {
            EXPECT_EQ(person.types(command).code, ExitCode::done) << command.back();
        }
        EXPECT_NE(noticed().find("Focus is over: Page"), std::string::npos);
    }
}

TEST_F(Clocks, setToAnyOtherYear)
{
    begins(stateIn(WorkflowState::focusing));
    takes({"pause"});
    takes({"resume"});
    const auto before = pictureOf(person.directory());
    for (const double seconds : {-62'167'219'201.0, 253'402'300'800.0, 1e14, 1e18}) {
        SCOPED_TRACE(seconds);
        person.now = Instant(seconds);
        for (const Words& command : {Words{"pause"}, Words{"tick"}, Words{"ask", "?"},
                                     Words{"restore", "1", "--yes"}, Words{"status"}, Words{"bar"},
                                     Words{"agent"}, Words{"report"}, Words{"widget"}, Words{"questions"}}) {
            const Ending ending = person.types(command);
            EXPECT_EQ(ending.code, ExitCode::fileError) << command.front();
            EXPECT_TRUE(ending.err.starts_with("The clock of this system shows ")) << ending.err;
        }
        watch->round();
        screen->refresh();
        EXPECT_TRUE(screen->trouble().starts_with("The clock of this system shows ")) << screen->trouble();
        EXPECT_EQ(pictureOf(person.directory()), before);
    }
    clockShows(600);
    EXPECT_EQ(shown(), "focusing 15:00");
    // A refused restoring makes no directory either.
    std::filesystem::remove_all(person.directory());
    person.now = Instant(1e14);
    EXPECT_EQ(person.types({"restore", "1", "--yes"}).code, ExitCode::fileError);
    EXPECT_FALSE(std::filesystem::exists(person.directory()));
}

}  // namespace
}  // namespace quillmere::test
