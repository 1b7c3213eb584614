// `quillmere watch` in processes of its own, on a real bus. The rules of delivery stand in delivery_test.cpp.
#include "real_program.hpp"

#include <signal.h>

#include "desktop.hpp"
#include "workspace/state_home.hpp"

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

TEST_F(NoticeOnTheBus, tellsThatFocusIsOver)
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
                                             {"timeout", -1},
                                             {"sound", "complete"}}}));
    EXPECT_EQ(said(), "");
}

TEST_F(NoticeOnTheBus, hasTheUrgencyOfTheOption)
{
    person.has(asking(stateIn(WorkflowState::idle), 1, "May I?"));
    watchesOnce({"--urgency", "low"});
    person.has(asking(person.state(), 2, "May I?"));
    watchesOnce({"--urgency", "critical"});
    ASSERT_TRUE(hasNotices(2));
    EXPECT_EQ(notices()[0]["urgency"], 0);
    EXPECT_EQ(notices()[1]["urgency"], 2);
}

TEST_F(NoticeOnTheBus, comesThoughItsTextHasCharactersThatTheBusRefuses)
{
    person.has(asking(stateIn(WorkflowState::idle), 1, "May \xEF\xBF\xBF I?"));
    watchesOnce();
    ASSERT_TRUE(hasNotices(1)) << said();
    EXPECT_EQ(notices()[0]["body"], "May \xEF\xBF\xBD I?");
}

TEST_F(NoticeOnTheBus, comesOnceWhenTwoWatchesRunAndATickRecordsTheEvent)
{
    // A hook shows that each watch has seen each event.
    const auto seen = [&](const std::string& name) { return textIn(name + ".seen"); };
    const auto hookOf = [&](const std::string& name) {
        return "echo $1 >> '" + file(name + ".seen").string() + "'";
    };
    person.has(stateIn(WorkflowState::idle));
    Process one = watching({"--hook", hookOf("one")}, "one");
    Process two = watching({"--hook", hookOf("two")}, "two");
    person.has(focusOver(1));
    EXPECT_EQ(runProgram({"--directory", person.directory().string(), "tick"}).code, 0);
    EXPECT_TRUE(eventually([&] { return seen("one") == "focus_ended\n" && seen("two") == "focus_ended\n"; }));
    // Waits for the delivery first: after the next event this one no longer stands.
    EXPECT_TRUE(eventually([&] { return hasNotices(1); }));
    person.has(breakOver(1));
    EXPECT_EQ(runProgram({"--directory", person.directory().string(), "tick"}).code, 0);
    EXPECT_TRUE(eventually([&] {
        return seen("one") == "focus_ended\nbreak_ended\n" && seen("two") == "focus_ended\nbreak_ended\n";
    }));
    EXPECT_TRUE(eventually([&] { return notices().size() >= 2; }));
    EXPECT_EQ(endBy(one, SIGTERM), 0);
    EXPECT_EQ(endBy(two, SIGTERM), 0);
    ASSERT_TRUE(hasNotices(2));
    EXPECT_EQ(notices()[0]["summary"], "Focus is over");
    EXPECT_EQ(notices()[1]["summary"], "The break is over");
}

TEST_F(NoticeOnTheBus, comesFromTheSecondWatchWhenTheFirstIsKilled)
{
    person.has(stateIn(WorkflowState::idle));
    Process first = watching({}, "first");
    person.has(asking(stateIn(WorkflowState::idle), 1, "May I?"));
    // The number of the notice is recorded when the service has answered.
    const std::filesystem::path record =
        workspace::stateDirectory(person.directory(), person.stateHome()) / "shown-notices.json";
    EXPECT_TRUE(eventually([&] { return hasNotices(1) && std::filesystem::exists(record); }))
        << said("first");
    const Process second = watching({"--open-command", "/nowhere/opener"}, "second");
    endBy(first, SIGKILL);
    person.has(asking(person.state(), 2, "Which build?"));
    EXPECT_TRUE(eventually([&] { return hasNotices(2); })) << said("second");
    EXPECT_EQ(notices()[1]["replaces"], 1);
    // The second watch also handles the choices now.
    service().signals("action 1 default");
    EXPECT_TRUE(eventually([&] { return said("second").starts_with("Opening the screen failed"); }));
}

TEST_F(NoticeOnTheBus, extendsTheBreakWhenThePersonChoosesThat)
{
    person.has(breakOver(5));
    const Process watch = watching();
    ASSERT_TRUE(eventually([&] { return hasNotices(1); })) << said();
    EXPECT_EQ(notices()[0]["actions"], (Words{"default", "Open", "extend", "Extend by 5 min"}));
    service().signals("action 1 extend");
    EXPECT_TRUE(eventually([&] { return person.state().breakExtensionSeconds == 300; })) << said();
}

}  // namespace
}  // namespace quillmere::test
