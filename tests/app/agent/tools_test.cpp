// The effect of each tool on the files of a person, and its result.
#include "agent/tools.hpp"

#include "agent/protocol/input_schema.hpp"
#include "agent/summary.hpp"
#include "program_testing.hpp"
#include "said.hpp"
#include "workspace/directory_lock.hpp"

#include <algorithm>
#include <cctype>
#include <fstream>

namespace quillmere::test {
namespace {

using agent::protocol::Call;
using agent::protocol::Later;
using agent::protocol::Moment;
using agent::protocol::Outcome;
using agent::protocol::Tool;
using agent::protocol::ToolResult;
using std::chrono::milliseconds;
using std::chrono::seconds;
using workspace::DirectoryLock;
using workspace::Workspace;

/// An agent with the tools in hand, beside a person.
class Tools : public testing::Test {
protected:
    Person person;
    Moment steady = Moment();

    /// The result, if there is one.
    static std::optional<ToolResult> resultOf(const Outcome& outcome)
    {
        const ToolResult* const result = std::get_if<ToolResult>(&outcome);
        return result != nullptr ? std::optional(*result) : std::nullopt;
    }

    static Moment timeOf(const Outcome& outcome)
    {
        const Later* const later = std::get_if<Later>(&outcome);
        EXPECT_NE(later, nullptr);
        return later != nullptr ? later->at : Moment();
    }

    Call begin(const std::string& name, const Json& arguments) const
    {
        const Tool& tool = named(name);
        EXPECT_EQ(agent::protocol::misfitOf(arguments, tool.inputSchema), "");
        return tool.begin(arguments, steady);
    }

    ToolResult call(const std::string& name, const Json& arguments = Json::object()) const
    {
        const std::optional<ToolResult> result = resultOf(begin(name, arguments)(steady));
        EXPECT_TRUE(result);
        return result.value_or(ToolResult{});
    }

    /// The value of a call that is not refused.
    Json valueOf(const std::string& name, const Json& arguments = Json::object()) const
    {
        const ToolResult result = call(name, arguments);
        EXPECT_EQ(result.refusal, "");
        return result.value;
    }

    std::string refusalOf(const std::string& name, const Json& arguments = Json::object()) const
    {
        const ToolResult result = call(name, arguments);
        EXPECT_EQ(result.value, Json());
        EXPECT_NE(result.refusal, "");
        return result.refusal;
    }

    std::string asks(const std::string& question) const
    {
        return valueOf("ask_question", {{"question", question}}).at("id");
    }

    Workspace workspace() const
    {
        return Workspace::in(
            person.directory(), [this] { return person.now; }, person.stateHome());
    }

    const Tool& named(const std::string& name) const
    {
        return *std::find_if(tools_.begin(), tools_.end(),
                             [&](const Tool& tool) { return tool.name == name; });
    }

    const std::vector<Tool>& all() const { return tools_; }

private:
    agent::AnswerWatch watch_{person.directory()};
    std::vector<Tool> tools_ = agent::tools(workspace(), watch_);
};

TEST_F(Tools, areTheseFiveInThisOrder)
{
    Words names;
    for (const Tool& tool : all()) {
        names.push_back(tool.name);
        EXPECT_FALSE(tool.title.empty());
        EXPECT_GT(tool.description.size(), 80u);
        EXPECT_EQ(tool.inputSchema.at("type"), "object");
        EXPECT_EQ(tool.outputSchema.at("type"), "object");
    }
    EXPECT_EQ(names,
              (Words{"get_focus_state", "ask_question", "get_answer", "wait_for_answer", "list_questions"}));
}

TEST_F(Tools, changeNothingButByAsking)
{
    for (const Tool& tool : all()) {
        EXPECT_EQ(tool.hints.readOnly, tool.name != "ask_question");
        EXPECT_EQ(tool.hints.idempotent, tool.name != "ask_question");
        EXPECT_FALSE(tool.hints.destructive);
        EXPECT_FALSE(tool.hints.openWorld);
    }
    person.has(fullState());
    const auto before = pictureOf(person.directory());
    const std::string id = person.state().agentQuestions.front().id.text();
    valueOf("get_focus_state");
    valueOf("get_answer", {{"id", id}});
    valueOf("wait_for_answer", {{"id", id}, {"timeout_seconds", 0}});
    valueOf("list_questions");
    EXPECT_EQ(pictureOf(person.directory()), before);
}

const struct {
    const char* tool;
    const char* arguments;
} unfitting[] = {
    {"get_focus_state", R"({"of": "me"})"},
    {"ask_question", "{}"},
    {"ask_question", R"({"question": 5})"},
    {"ask_question", R"({"question": "Why?", "urgent": true})"},
    {"get_answer", "{}"},
    {"get_answer", R"({"id": 1})"},
    {"wait_for_answer", R"({"timeout_seconds": 5})"},
    {"wait_for_answer", R"({"id": "", "timeout_seconds": -1})"},
    {"wait_for_answer", R"({"id": "", "timeout_seconds": 601})"},
    {"wait_for_answer", R"({"id": "", "timeout_seconds": "5"})"},
    {"list_questions", R"({"open_only": 1})"},
};

TEST_F(Tools, takeNoArgumentsThatDoNotFit)
{
    for (const auto& [tool, arguments] : unfitting) {
        EXPECT_NE(agent::protocol::misfitOf(Json::parse(arguments), named(tool).inputSchema), "")
            << tool << arguments;
    }
}

TEST_F(Tools, needNoFiles)
{
    EXPECT_EQ(valueOf("get_focus_state").at("workflow_state"), "idle");
    EXPECT_EQ(valueOf("list_questions").at("questions"), Json::array());
    EXPECT_EQ(person.names(), Words{});
}

TEST_F(Tools, tellTheSummaryAsOfNow)
{
    person.types({"plan", "--start", "--outcome", "A chapter", "--focus", "25m"});
    person.types({"focus", "--outcome", "One page", "--energy", "4", "--morale", "3"});
    person.now = person.now + 60;
    Json state = valueOf("get_focus_state");
    EXPECT_EQ(state.at("interruptible"), false);
    EXPECT_EQ(state.at("remaining_seconds"), 24 * 60);
    EXPECT_EQ(state, Json::parse(person.types({"agent"}).out));
    // The time of the session has run out, but no program has recorded it.
    const auto before = pictureOf(person.directory());
    person.now = person.now + 1500;
    state = valueOf("get_focus_state");
    EXPECT_EQ(state.at("workflow_state"), "sessionReview");
    EXPECT_EQ(state.at("interruptible"), true);
    EXPECT_EQ(pictureOf(person.directory()), before);
}

TEST_F(Tools, askAndSaveAllThreeFiles)
{
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        SCOPED_TRACE(rawValue(workflowState));
        person.has(stateIn(workflowState));
        const Json asked = valueOf("ask_question", {{"question", " Which one?\n"}});
        const QuillmereState state = person.state();
        EXPECT_EQ(state.workflowState, workflowState);
        ASSERT_EQ(state.agentQuestions.size(), 1u);
        EXPECT_EQ(state.agentQuestions[0].question, "Which one?");
        EXPECT_EQ(asked, (Json{{"id", state.agentQuestions[0].id.text()},
                               {"interruptible", state.interruptible()}}));
        EXPECT_EQ(state.interruptible(), workflowState != WorkflowState::focusing);
        EXPECT_TRUE(filesAgree(person));
    }
}

TEST_F(Tools, askAlsoWhereThereAreNoFilesYet)
{
    const std::string id = asks("First?");
    EXPECT_EQ(person.state().agentQuestions.at(0).id.text(), id);
}

TEST_F(Tools, findTheAnswer)
{
    const std::string id = asks("Which one?");
    Json expected = {{"id", id},         {"question", "Which one?"}, {"created_at", "2026-11-15T15:00:00Z"},
                     {"status", "open"}, {"answer", nullptr},        {"answered_at", nullptr}};
    EXPECT_EQ(valueOf("get_answer", {{"id", id}}), expected);
    person.typesLater(90, {"answer", "1", "The\nfirst \"one\""});
    expected["status"] = "answered";
    expected["answer"] = "The\nfirst \"one\"";
    expected["answered_at"] = "2026-11-15T15:01:30Z";
    EXPECT_EQ(valueOf("get_answer", {{"id", id}}), expected);
    EXPECT_EQ(valueOf("wait_for_answer", {{"id", id}, {"timeout_seconds", 600}}), expected);
    // An id in lower case names the same question.
    std::string lower = id;
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return std::tolower(c); });
    EXPECT_EQ(valueOf("get_answer", {{"id", lower}}), expected);
}

TEST_F(Tools, tellAnEmptyAnswerFromNone)
{
    const std::string id = asks("Which one?");
    QuillmereState state = person.state();
    state.agentQuestions[0].answer = "";
    state.agentQuestions[0].answeredAt = moment;
    person.has(state);
    EXPECT_EQ(valueOf("get_answer", {{"id", id}}).at("answer"), "");
    EXPECT_EQ(valueOf("get_answer", {{"id", id}}).at("status"), "answered");
}

TEST_F(Tools, sayWhatClosingAQuestionMeans)
{
    const std::string id = asks("Which one?");
    person.types({"answer", "1", "--dismiss"});
    const Json closed = valueOf("get_answer", {{"id", id}});
    EXPECT_EQ(closed.at("status"), "answered");
    const std::string answer = "\"" + closed.at("answer").get<std::string>() + "\"";
    EXPECT_NE(named("get_answer").description.find(answer), std::string::npos);
    EXPECT_NE(named("get_answer").outputSchema.dump().find(closed.at("answer")), std::string::npos);
}

TEST_F(Tools, listQuestionsInTheOrderOfAsking)
{
    asks("One?");
    asks("Two?");
    person.types({"answer", "1", "Yes"});
    const auto questions = [](const Json& list) {
        Words texts;
        for (const Json& question : list.at("questions")) {
            texts.push_back(question.at("question"));
        }
        return texts;
    };
    EXPECT_EQ(questions(valueOf("list_questions")), Words{"Two?"});
    EXPECT_EQ(questions(valueOf("list_questions", {{"open_only", true}})), Words{"Two?"});
    EXPECT_EQ(questions(valueOf("list_questions", {{"open_only", false}})), (Words{"One?", "Two?"}));
}

TEST_F(Tools, waitUntilTheAnswerIsThere)
{
    const std::string id = asks("Which one?");
    const Call wait = begin("wait_for_answer", {{"id", id}, {"timeout_seconds", 600}});
    EXPECT_EQ(timeOf(wait(steady)), steady + seconds(600));
    EXPECT_EQ(timeOf(wait(steady + seconds(599))), steady + seconds(600));
    person.types({"answer", "1", "This"});
    EXPECT_EQ(resultOf(wait(steady + seconds(599))).value().value.at("answer"), "This");
}

TEST_F(Tools, waitUntilTheTimeIsUp)
{
    const std::string id = asks("Which one?");
    const Call wait = begin("wait_for_answer", {{"id", id}});
    EXPECT_EQ(timeOf(wait(steady)), steady + seconds(45));
    EXPECT_EQ(resultOf(wait(steady + seconds(44))), std::nullopt);
    EXPECT_EQ(resultOf(wait(steady + seconds(45))).value().value.at("status"), "open");
    EXPECT_EQ(valueOf("wait_for_answer", {{"id", id}, {"timeout_seconds", 0}}).at("status"), "open");
}

TEST_F(Tools, refuseTextsThatAreNoId)
{
    asks("Which one?");
    for (const char* id :
         {"", "1", "9F1C2A4E-0B7D-4C55-8E21-3A6B5D0C7F1", "9F1C2A4E-0B7D-4C55-8E21-3A6B5D0C7F10"}) {
        refusalOf("get_answer", {{"id", id}});
        refusalOf("wait_for_answer", {{"id", id}, {"timeout_seconds", 600}});
    }
}

TEST_F(Tools, stopWaitingForAQuestionThatIsGone)
{
    const std::string id = asks("Which one?");
    const Call wait = begin("wait_for_answer", {{"id", id}});
    person.has(stateIn(WorkflowState::idle));
    EXPECT_NE(resultOf(wait(steady)).value().refusal.find("no question"), std::string::npos);
}

TEST_F(Tools, waitForAStateThatSomebodyWritesInPlace)
{
    const std::string id = asks("Which one?");
    const std::string state = textOf(person.store().stateURL());
    const Call wait = begin("wait_for_answer", {{"id", id}});
    writeText(person.store().stateURL(), "{");
    EXPECT_EQ(timeOf(wait(steady)), steady + milliseconds(250));
    EXPECT_EQ(timeOf(wait(steady + milliseconds(900))), steady + milliseconds(1150));
    writeText(person.store().stateURL(), state);
    EXPECT_EQ(timeOf(wait(steady + seconds(1))), steady + seconds(45));
    // The second call starts the watch again here.
    writeText(person.store().stateURL(), "{");
    EXPECT_EQ(timeOf(wait(steady + seconds(2))), steady + milliseconds(2250));
    EXPECT_NE(resultOf(wait(steady + seconds(3))).value().refusal, "");
}

TEST_F(Tools, refuseAStateThatCannotBeReadAtTheEndOfTheWait)
{
    const std::string id = asks("Which one?");
    writeText(person.store().stateURL(), "{");
    const Call wait = begin("wait_for_answer", {{"id", id}, {"timeout_seconds", 1}});
    EXPECT_EQ(timeOf(wait(steady + milliseconds(900))), steady + seconds(1));
    EXPECT_NE(resultOf(wait(steady + seconds(1))).value().refusal, "");
}

TEST_F(Tools, refuseTheEleventhQuestionInAMinuteAndWriteNothing)
{
    for (int number = 0; number < 10; ++number) {
        asks("Question " + std::to_string(number));
    }
    const auto before = pictureOf(person.directory());
    EXPECT_NE(refusalOf("ask_question", {{"question", "One more?"}}).find("Wait a minute"),
              std::string::npos);
    EXPECT_EQ(pictureOf(person.directory()), before);
    person.now = person.now + 61;
    asks("One more?");
}

TEST_F(Tools, refuseABadQuestionWithoutMakingADirectory)
{
    refusalOf("ask_question", {{"question", "\x1b[2J"}});
    EXPECT_EQ(person.names(), Words{});
}

TEST_F(Tools, sayThatTheStateCannotBeRead)
{
    writeText(person.store().stateURL(), "{");
    for (const auto& [name, arguments] :
         {std::pair<std::string, Json>{"get_focus_state", Json::object()},
          {"ask_question", {{"question", "Why?"}}},
          {"get_answer", {{"id", identifier(1).text()}}},
          {"wait_for_answer", {{"id", identifier(1).text()}, {"timeout_seconds", 0}}},
          {"list_questions", Json::object()}}) {
        EXPECT_NE(refusalOf(name, arguments).find("only the person can repair it"), std::string::npos)
            << name;
    }
    EXPECT_EQ(textOf(person.store().stateURL()), "{");
}

TEST_F(Tools, askAgainForAsLongAsAPersonWouldWaitForTheLock)
{
    asks("First?");
    const Call ask = begin("ask_question", {{"question", "Second?"}});
    const DirectoryLock held(person.directory());
    EXPECT_EQ(timeOf(ask(steady)), steady + milliseconds(10));
    EXPECT_EQ(timeOf(ask(steady + milliseconds(4999))), steady + milliseconds(5009));
    EXPECT_NE(resultOf(ask(steady + seconds(5))).value().refusal.find("try again"), std::string::npos);
    EXPECT_EQ(person.state().agentQuestions.size(), 1u);
}

TEST_F(Tools, askOnceTheLockIsFree)
{
    asks("First?");
    const Call ask = begin("ask_question", {{"question", "Second?"}});
    {
        const DirectoryLock held(person.directory());
        EXPECT_EQ(resultOf(ask(steady)), std::nullopt);
    }
    const Json asked = resultOf(ask(steady)).value().value;
    EXPECT_EQ(asked.at("id"), person.state().agentQuestions.at(1).id.text());
}

TEST_F(Tools, askWithoutPushingThePersonsVersionsOut)
{
    person.types({"plan", "--start", "--outcome", "A chapter", "--focus", "25m"});
    person.types({"focus", "--outcome", "One page", "--energy", "4", "--morale", "3"});
    const std::size_t versions = workspace().versions().list().size();
    ASSERT_GT(versions, 0u);
    asks("First?");
    asks("Second?");
    EXPECT_EQ(workspace().versions().list().size(), versions);
    // The end of the session, which the change recorded too, can be taken back.
    person.now = person.now + 1500;
    asks("Third?");
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionReview);
    EXPECT_EQ(workspace().versions().list().size(), versions + 1);
}

TEST_F(Tools, alwaysReturnBothMembersOfAnAnswer)
{
    QuillmereState state = stateIn(WorkflowState::idle);
    const auto add = [&](unsigned number, std::optional<std::string> answer,
                         std::optional<Instant> answeredAt) {
        state.agentQuestions.push_back({.id = identifier(number),
                                        .question = "?",
                                        .createdAt = moment,
                                        .answer = std::move(answer),
                                        .answeredAt = answeredAt});
    };
    add(1, std::nullopt, moment);
    add(2, "An answer without its time", std::nullopt);
    person.has(state);
    const Json closed = valueOf("get_answer", {{"id", identifier(1).text()}});
    EXPECT_EQ(closed.at("status"), "answered");
    EXPECT_EQ(closed.at("answer"), nullptr);
    EXPECT_EQ(closed.at("answered_at"), "2026-11-15T15:00:00Z");
    const Json open = valueOf("get_answer", {{"id", identifier(2).text()}});
    EXPECT_EQ(open.at("status"), "open");
    EXPECT_EQ(open.at("answer"), nullptr);
    EXPECT_EQ(open.at("answered_at"), nullptr);
}

TEST_F(Tools, sayThatAQuestionIsSavedAlthoughASummaryIsNot)
{
    asks("First?");
    std::filesystem::remove(person.directory() / "widget-snapshot.json");
    std::filesystem::create_directories(person.directory() / "widget-snapshot.json" / "in the way");
    const std::string refusal = refusalOf("ask_question", {{"question", "Second?"}});
    ASSERT_EQ(person.state().agentQuestions.size(), 2u);
    EXPECT_NE(refusal.find("is saved with the id " + person.state().agentQuestions[1].id.text()),
              std::string::npos);
    EXPECT_NE(refusal.find("do not ask it again"), std::string::npos);
}

TEST_F(Tools, knowTheSummaryOfEveryState)
{
    // Also writes the files that check_said.py validates.
    const auto keep = [this](const std::string& name, const QuillmereState& state) {
        person.has(state);
        const std::string summary = agent::summaryText(workspace());
        EXPECT_EQ(Json::parse(summary), Json::parse(person.types({"agent"}).out));
        keepSummary(name, summary);
    };
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        keep(std::string(rawValue(workflowState)), stateIn(workflowState));
    }
    keep("scheduled", stateWithScheduledBlock());
    keep("full", fullState());
    QuillmereState overtime = stateIn(WorkflowState::breaking);
    overtime.breakEndNotifiedAt = moment;
    overtime.breakStartedAt = moment - 10'000;
    keep("overtime", overtime);
    QuillmereState finished = fullState();
    finished.currentBlock->reflection = sampleReflection();
    finished.currentBlock->completedAt = moment;
    finished.currentBlock->sessions.back().endedAt = moment;
    finished.currentBlock->sessions.back().review = sampleReview(9);
    finished.agentQuestions.back().answer = "An answer without its time";
    finished.workflowState = WorkflowState::blockReview;
    keep("finished", finished);
    std::ofstream(std::filesystem::path(QUILLMERE_SAID_DIRECTORY) / "schema.json") << agent::summarySchema();
}

}  // namespace
}  // namespace quillmere::test
