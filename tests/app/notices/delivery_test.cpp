// Notices on a real bus, before a service that writes down what it is asked for.
#include "real_program.hpp"

#include <signal.h>

#include <algorithm>

#include "desktop.hpp"

namespace quillmere::test {
namespace {

using nlohmann::json;

class NoticeOnTheBus : public Desktop {
protected:
    NoticeOnTheBus()
    {
        hasBus();
        hasService();
    }
};

TEST_F(NoticeOnTheBus, saysThatFocusIsOver)
{
    person.has(focusOver(90));
    watchesOnce();
    EXPECT_EQ(notices(), (std::vector<json>{{{"name", "Quillmere"},
                                             {"replaces", 0},
                                             {"icon", ""},
                                             {"summary", "Focus is over"},
                                             {"body", "Outcome of session 1"},
                                             {"actions", json::array()},
                                             {"urgency", 1},
                                             {"timeout", -1}}}));
    EXPECT_EQ(said(), "");
}

TEST_F(NoticeOnTheBus, leavesATrueRecord)
{
    const QuillmereState before = focusOver(90);
    person.has(before);
    watchesOnce();
    const QuillmereState state = person.state();
    EXPECT_EQ(state.workflowState, WorkflowState::sessionReview);
    EXPECT_EQ(*state.currentSession()->endedAt, before.currentSession()->startedAt + 1'500);
}

TEST_F(NoticeOnTheBus, saysThatTheBreakIsOverAndOffersMoreOfIt)
{
    person.has(breakOver(5));
    const Process watch = watching();
    ASSERT_TRUE(eventually([&] { return hasNotices(1); })) << said();
    EXPECT_EQ(notices()[0]["summary"], "The break is over");
    EXPECT_EQ(notices()[0]["actions"], (Words{"default", "Open", "extend", "Extend by 5 minutes"}));
}

TEST_F(NoticeOnTheBus, offersNothingWhenNobodyStaysToHearIt)
{
    person.has(breakOver(5));
    watchesOnce();
    ASSERT_TRUE(hasNotices(1));
    EXPECT_EQ(notices()[0]["actions"], json::array());
}

TEST_F(NoticeOnTheBus, saysThatABlockHasBegun)
{
    QuillmereState state = stateWithScheduledBlock();
    state.updatedAt = presentSecond() - 100;
    state.currentBlock->plannedStart = presentSecond() - 10;
    person.has(state);
    watchesOnce();
    ASSERT_TRUE(hasNotices(1));
    EXPECT_EQ(notices()[0]["summary"], "The scheduled block has begun");
    EXPECT_EQ(notices()[0]["body"], "Chapter one");
}

TEST_F(NoticeOnTheBus, comesOnceForAnEventHoweverOftenSomebodyLooks)
{
    person.has(asking(focusOver(90), 1, "May I?"));
    watchesOnce();
    watchesOnce();
    ASSERT_TRUE(hasNotices(2));
    EXPECT_EQ(notices()[0]["summary"], "Focus is over");
    EXPECT_EQ(notices()[1]["body"], "May I?");
}

TEST_F(NoticeOnTheBus, comesForWhatAnotherProgramRecorded)
{
    person.has(focusOver(90));
    ASSERT_EQ(person.types({"tick"}).code, ExitCode::done);
    ASSERT_EQ(person.state().workflowState, WorkflowState::sessionReview);
    watchesOnce();
    EXPECT_TRUE(hasNotices(1));
}

TEST_F(NoticeOnTheBus, doesNotComeForWhatHasBeenDealtWith)
{
    person.has(focusOver(90));
    ASSERT_EQ(person.types({"review", "--completion", "Yes", "--next-outcome", "More"}).code, ExitCode::done);
    watchesOnce();
    EXPECT_TRUE(hasNotices(0));
}

TEST_F(NoticeOnTheBus, comesOnceWhenTwoWatchAndATickIsDone)
{
    // A hook shows that each has seen each event.
    const auto seen = [&](const std::string& name) { return textIn(name + ".seen"); };
    const auto hookOf = [&](const std::string& name) {
        return "echo $1 >> '" + file(name + ".seen").string() + "'";
    };
    person.has(stateIn(WorkflowState::idle));
    Process one = watching({"--hook", hookOf("one")}, "one");
    Process two = watching({"--hook", hookOf("two")}, "two");
    person.has(focusOver(1));
    EXPECT_EQ(RealProgram({"--directory", person.directory().string(), "tick"}).wait().code, 0);
    EXPECT_TRUE(eventually([&] { return seen("one") == "focus_ended\n" && seen("two") == "focus_ended\n"; }));
    // Before there is another, or it would not stand any more.
    EXPECT_TRUE(eventually([&] { return hasNotices(1); }));
    person.has(breakOver(1));
    EXPECT_EQ(RealProgram({"--directory", person.directory().string(), "tick"}).wait().code, 0);
    EXPECT_TRUE(eventually([&] {
        return seen("one") == "focus_ended\nbreak_ended\n" && seen("two") == "focus_ended\nbreak_ended\n";
    }));
    EXPECT_TRUE(eventually([&] { return notices().size() >= 2; }));
    EXPECT_EQ(one.endBy(SIGTERM), 0);
    EXPECT_EQ(two.endBy(SIGTERM), 0);
    ASSERT_TRUE(hasNotices(2));
    EXPECT_EQ(notices()[0]["summary"], "Focus is over");
    EXPECT_EQ(notices()[1]["summary"], "The break is over");
}

TEST_F(NoticeOnTheBus, hasTheUrgencyThatWasChosen)
{
    unsigned number = 0;
    for (const char* urgency : {"low", "normal", "critical"}) {
        person.has(asking(stateIn(WorkflowState::idle), number, "May I?"));
        watchesOnce({"--urgency", urgency});
        ASSERT_TRUE(hasNotices(number + 1));
        EXPECT_EQ(notices()[number]["urgency"], number);
        ++number;
    }
}

TEST_F(NoticeOnTheBus, takesThePlaceOfTheLastOnTheSameSubject)
{
    person.has(asking(focusOver(90), 1, "May I?"));
    Process watch = watching();
    EXPECT_TRUE(eventually([&] { return hasNotices(2); })) << said();
    person.has(asking(breakOver(5), 1, "May I?"));
    EXPECT_TRUE(eventually([&] { return hasNotices(3); })) << said();
    person.has(asking(person.state(), 2, "Which build?"));
    EXPECT_TRUE(eventually([&] { return notices().size() >= 4; })) << said();
    std::string placed;
    for (const json& notice : notices()) {
        placed += notice["summary"].get<std::string>() + " for " + notice["replaces"].dump() + "\n";
    }
    EXPECT_EQ(placed,
              "Focus is over for 0\nA question waits for 0\n"
              "The break is over for 1\n2 questions wait for 2\n");
    EXPECT_EQ(notices()[3]["body"], "Which build?\nMay I?");
}

TEST_F(NoticeOnTheBus, takesThePlaceOfThatOfAnEarlierWatch)
{
    person.has(asking(stateIn(WorkflowState::idle), 1, "May I?"));
    watchesOnce();
    person.has(asking(person.state(), 2, "Which build?"));
    watchesOnce();
    ASSERT_TRUE(hasNotices(2));
    EXPECT_EQ(notices()[1]["replaces"], 1);
    EXPECT_EQ(notices()[1]["body"], "Which build?\nMay I?");
}

TEST_F(NoticeOnTheBus, takesNoPlaceAtAnotherService)
{
    person.has(asking(stateIn(WorkflowState::idle), 1, "May I?"));
    const Process watch = watching();
    EXPECT_TRUE(eventually([&] { return hasNotices(1); })) << said();
    hasService();
    person.has(asking(person.state(), 2, "Which build?"));
    ASSERT_TRUE(eventually([&] { return hasNotices(2); })) << said();
    EXPECT_EQ(notices()[1]["replaces"], 0);
}

TEST_F(NoticeOnTheBus, goesToTheServiceThatTookOverThoughTheLastIsStillThere)
{
    person.has(asking(stateIn(WorkflowState::idle), 1, "May I?"));
    const Process watch = watching();
    EXPECT_TRUE(eventually([&] { return hasNotices(1); })) << said();
    service().signals("release");
    const NotificationService other("unix:path=" + socket().string(), file("other-log"), {});
    person.has(asking(person.state(), 2, "Which build?"));
    EXPECT_TRUE(eventually([&] { return countOf("Which build?", textIn("other-log")) == 1; })) << said();
    EXPECT_TRUE(hasNotices(1));
}

TEST_F(NoticeOnTheBus, comesFromAWatchThatCanGiveItWhoeverSawTheEventFirst)
{
    person.has(focusOver(90));
    const Process without = watchingElsewhere("without");
    EXPECT_TRUE(eventually([&] { return !said("without").empty(); }));
    EXPECT_EQ(countOf("Focus is over", printed("without")), 1U);
    const Process watch = watching();
    EXPECT_TRUE(eventually([&] { return hasNotices(1); })) << said();
}

TEST_F(NoticeOnTheBus, comesFromTheNextWatchWhenTheFirstIsKilled)
{
    person.has(stateIn(WorkflowState::idle));
    Process first = watching({}, "first");
    person.has(asking(stateIn(WorkflowState::idle), 1, "May I?"));
    EXPECT_TRUE(eventually([&] { return hasNotices(1); })) << said("first");
    const Process second = watching({"--open-command", "/nowhere/opener"}, "second");
    first.endBy(SIGKILL);
    person.has(asking(person.state(), 2, "Which build?"));
    EXPECT_TRUE(eventually([&] { return hasNotices(2); })) << said("second");
    EXPECT_EQ(notices()[1]["replaces"], 1);
    // It is also the one that hears what is chosen.
    service().signals("action 1 default");
    EXPECT_TRUE(eventually([&] { return said("second").starts_with("Opening the screen failed"); }));
}

TEST_F(NoticeOnTheBus, comesFromAnotherWatchWhenTheFirstLosesItsBus)
{
    person.has(asking(stateIn(WorkflowState::idle), 1, "May I?"));
    const Process first = watching();
    EXPECT_TRUE(eventually([&] { return hasNotices(1); })) << said();
    const SessionBus bus(elsewhere());
    const NotificationService there("unix:path=" + elsewhere().string(), file("log-elsewhere"), {});
    const Process second = watchingElsewhere("second");
    losesBus();
    person.has(asking(person.state(), 2, "Which build?"));
    EXPECT_TRUE(eventually([&] { return countOf("Which build?", textIn("log-elsewhere")) == 1; }))
        << said("second");
}

TEST_F(NoticeOnTheBus, isOneForADirectoryHoweverItsPathIsSpelled)
{
    person.has(focusOver(90));
    watchesOnce();
    const std::filesystem::path link = file("link");
    std::filesystem::create_directory_symlink(person.directory(), link);
    Process other({.words = {QUILLMERE_PROGRAM, "--directory", link.string(), "watch", "--once"},
                   .variables = variables()});
    EXPECT_EQ(other.wait(), 0);
    EXPECT_TRUE(hasNotices(1));
}

TEST_F(NoticeOnTheBus, comesThoughItsTextHasWhatTheBusRefuses)
{
    person.has(asking(stateIn(WorkflowState::idle), 1, "May \xEF\xBF\xBF I?"));
    watchesOnce();
    ASSERT_TRUE(hasNotices(1)) << said();
    EXPECT_EQ(notices()[0]["body"], "May \xEF\xBF\xBD I?");
}

TEST_F(NoticeOnTheBus, thatIsRefusedLetsOthersGoAndIsComplainedOfOnce)
{
    hasService({.behaviour = "picky"});
    const auto countNotices = [&](const char* heading) {
        const std::vector<json> all = notices();
        return std::count_if(all.begin(), all.end(),
                             [&](const json& call) { return call["summary"] == heading; });
    };
    person.has(focusOver(90));
    const Process watch = watching();
    EXPECT_TRUE(eventually([&] { return countNotices("Focus is over") >= 2; })) << said();
    EXPECT_EQ(said(), "Notices cannot be given now: no, for the 1. time.\n");
    person.has(asking(person.state(), 1, "May I?"));
    EXPECT_TRUE(eventually([&] { return countNotices("A question waits") == 1; })) << said();
}

TEST_F(NoticeOnTheBus, takesNoPlaceOfOneThatThePersonClosed)
{
    person.has(asking(focusOver(90), 1, "May I?"));
    Process watch = watching({"--open-command", "/nowhere/opener"});
    EXPECT_TRUE(eventually([&] { return hasNotices(2); })) << said();
    service().signals("closed 1");
    // Signals arrive in order: what is heard of this one shows that the first has been heard.
    service().signals("action 2 default");
    EXPECT_TRUE(eventually([&] { return said().starts_with("Opening the screen failed"); })) << said();
    person.has(asking(breakOver(5), 1, "May I?"));
    EXPECT_TRUE(eventually([&] { return hasNotices(3); })) << said();
    EXPECT_EQ(notices()[2]["replaces"], 0);
}

TEST_F(NoticeOnTheBus, keepsAQuestionUntilThePersonMayBeInterrupted)
{
    QuillmereState state = focusOver(-600);
    person.has(asking(state, 1, "May I?"));
    watchesOnce();
    EXPECT_TRUE(hasNotices(0));
    EXPECT_EQ(recordCount(), 0U);
    ASSERT_EQ(person.types({"pause"}).code, ExitCode::done);
    watchesOnce();
    EXPECT_TRUE(hasNotices(1));
}

TEST_F(NoticeOnTheBus, isOneForSeveralQuestions)
{
    QuillmereState state = asking(stateIn(WorkflowState::idle), 1, "Which build?");
    person.has(asking(state, 2, "May I?"));
    watchesOnce();
    ASSERT_TRUE(hasNotices(1));
    EXPECT_EQ(notices()[0]["summary"], "2 questions wait");
    EXPECT_EQ(notices()[0]["body"], "Which build?\nMay I?");
    EXPECT_EQ(recordCount(), 2U);
}

const std::string hostileQuestion = "<b>bold</b> & \"quoted\" \x1b[31m\xE2\x80\xAEturned";

TEST_F(NoticeOnTheBus, spellsMarkupOutWhereTheServiceReadsIt)
{
    person.has(asking(stateIn(WorkflowState::idle), 1, hostileQuestion));
    watchesOnce();
    ASSERT_TRUE(hasNotices(1));
    EXPECT_EQ(notices()[0]["body"],
              "&lt;b&gt;bold&lt;/b&gt; &amp; &quot;quoted&quot; \xEF\xBF\xBD[31m\xEF\xBF\xBDturned");
}

TEST_F(NoticeOnTheBus, leavesMarkupAloneWhereTheServiceDoesNotReadIt)
{
    hasService({.capabilities = {"body"}});
    person.has(asking(stateIn(WorkflowState::idle), 1, hostileQuestion));
    watchesOnce();
    ASSERT_TRUE(hasNotices(1));
    EXPECT_EQ(notices()[0]["body"], "<b>bold</b> & \"quoted\" \xEF\xBF\xBD[31m\xEF\xBF\xBDturned");
}

TEST_F(NoticeOnTheBus, offersNoActionsWhereTheServiceHasNone)
{
    hasService({.capabilities = {"body"}});
    person.has(breakOver(5));
    const Process watch = watching();
    ASSERT_TRUE(eventually([&] { return hasNotices(1); })) << said();
    EXPECT_EQ(notices()[0]["actions"], json::array());
}

}  // namespace
}  // namespace quillmere::test
