// The presenter without any surface.
#include "work/presenter.hpp"

#include <quillmere/engine/workflow_engine.hpp>

#include <cerrno>

#include "program_testing.hpp"
#include "refused_inotify.hpp"
#include "work/forms/form_testing.hpp"
#include "workspace/leader_lock.hpp"
#include "workspace/state_home.hpp"

namespace quillmere::test {
namespace {

using namespace work;

QuillmereState withEarlierYears(WorkflowState workflowState)
{
    QuillmereState state = stateIn(workflowState);
    addEarlierYears(state);
    return state;
}

class PresenterOfAPerson : public testing::Test {
protected:
    const TimeZone utc{"UTC"};
    Person person;
    std::unique_ptr<Presenter> presenter;

    void opens(const QuillmereState& state, std::optional<WidgetRoute> route = std::nullopt)
    {
        person.has(state);
        presenter = std::make_unique<Presenter>(
            workspace::Workspace::in(person.directory(), [this] { return person.now; }),
            Drafts(person.stateHome()), route);
    }
    /// As a person whose notices are recorded.
    void opensWithStateHome(const QuillmereState& state)
    {
        person.has(state);
        presenter = std::make_unique<Presenter>(
            workspace::Workspace::in(
                person.directory(), [this] { return person.now; }, person.stateHome()),
            Drafts(person.stateHome()), std::nullopt);
    }
    void fills(const std::shared_ptr<Form>& form, std::string_view field, const std::string& text)
    {
        fill(*form, field, text);
        presenter->noteChange(form);
    }
    /// Writes a draft file of a subject that is gone, last changed 31 days ago.
    std::filesystem::path hasOldDraft() const
    {
        const std::filesystem::path file = person.stateHome() / "draft-plan-gone.json";
        writeText(file, "{}");
        std::filesystem::last_write_time(
            file, std::filesystem::file_time_type::clock::now() - std::chrono::hours(31 * 24));
        return file;
    }
};

TEST_F(PresenterOfAPerson, looksEverySecondAndSaysSoOnceWhereFilesCannotBeWatched)
{
    const RefusedInotify refused(EMFILE);
    opens(stateIn(WorkflowState::sessionReview));
    EXPECT_TRUE(presenter->countsSeconds());
    EXPECT_NE(presenter->message().find("once a second"), std::string::npos) << presenter->message();
    presenter->clearMessage();
    ASSERT_EQ(person.types({"ask", "Which build?"}).code, ExitCode::done);
    presenter->refresh();
    EXPECT_EQ(presenter->state().agentQuestions.size(), 1U);
    EXPECT_EQ(presenter->message().find("once a second"), std::string::npos) << presenter->message();
}

TEST_F(PresenterOfAPerson, removesOldDraftsOnEveryStart)
{
    const std::filesystem::path old = hasOldDraft();
    opens(stateIn(WorkflowState::idle));
    EXPECT_FALSE(std::filesystem::exists(old));
}

TEST_F(PresenterOfAPerson, removesOldDraftsWhenStartedByALink)
{
    const std::filesystem::path old = hasOldDraft();
    opens(stateIn(WorkflowState::focusing), WidgetRoute::focus);
    EXPECT_FALSE(std::filesystem::exists(old));
}

TEST_F(PresenterOfAPerson, removesNoDraftsBeforeTheFilesCanBeUsed)
{
    const std::filesystem::path old = hasOldDraft();
    person.has(stateIn(WorkflowState::idle));
    const std::string text = textOf(person.store().stateURL());
    writeText(person.store().stateURL(), "spoilt");
    presenter = std::make_unique<Presenter>(
        workspace::Workspace::in(person.directory(), [this] { return person.now; }),
        Drafts(person.stateHome()), std::nullopt);
    EXPECT_FALSE(presenter->isUsable());
    EXPECT_TRUE(std::filesystem::exists(old));
    writeText(person.store().stateURL(), text);
    presenter->refresh();
    EXPECT_FALSE(std::filesystem::exists(old));
}

TEST_F(PresenterOfAPerson, saysWhatIsWrongWithTheConfiguration)
{
    person.has(stateIn(WorkflowState::idle));
    config::Configuration configuration;
    config::add(configuration, "clock = 3", "config.toml");
    const auto messageFor = [&] {
        return Presenter(workspace::Workspace::in(person.directory(), [this] { return person.now; }),
                         Drafts(person.stateHome()), std::nullopt, configuration)
            .message();
    };
    const std::string sentence = "config.toml:1:9: clock must be one of \"12h\", \"24h\"; it is left out.";
    EXPECT_EQ(messageFor(), sentence);
    config::add(configuration, "focus = 3", "config.toml");
    EXPECT_EQ(messageFor(), sentence + " quillmere config says what else is wrong there.");
}

TEST_F(PresenterOfAPerson, opensTheFormThatTheWorkflowWaitsFor)
{
    opens(stateIn(WorkflowState::sessionPlanning));
    ASSERT_TRUE(presenter->workForm());
    EXPECT_EQ(presenter->workForm()->subject().kind, FormKind::plan);
    opens(stateIn(WorkflowState::focusing));
    EXPECT_FALSE(presenter->workForm());
}

TEST_F(PresenterOfAPerson, savesAFormAndForgetsItsDraft)
{
    opens(stateIn(WorkflowState::sessionPlanning));
    fills(presenter->workForm(), "outcome", "Headings");
    presenter->keepDraft();
    EXPECT_EQ(namesIn(person.stateHome()).size(), 1U);
    EXPECT_EQ(presenter->save(presenter->workForm()), std::nullopt);
    EXPECT_EQ(person.state().currentSession()->plan.intendedOutcome, "Headings");
    EXPECT_EQ(presenter->message(), "Focus.");
    EXPECT_FALSE(presenter->workForm());
    EXPECT_EQ(namesIn(person.stateHome()), Words{});
}

TEST_F(PresenterOfAPerson, saysOnceThatNothingRingsWithoutAWatch)
{
    const std::string silence = "No watch is running: nothing rings when the session ends (quillmere watch).";
    opensWithStateHome(stateIn(WorkflowState::sessionPlanning));
    EXPECT_EQ(presenter->takeSilenceWarning(), "");
    fills(presenter->workForm(), "outcome", "Headings");
    presenter->save(presenter->workForm());
    EXPECT_EQ(presenter->message(), "Focus. " + silence);
    EXPECT_EQ(presenter->takeSilenceWarning(), "");
    opensWithStateHome(stateIn(WorkflowState::focusing));
    EXPECT_EQ(presenter->takeSilenceWarning(), silence);
    EXPECT_EQ(presenter->takeSilenceWarning(), "");
}

TEST_F(PresenterOfAPerson, saysNothingOfSilenceWhileAWatchRuns)
{
    opensWithStateHome(stateIn(WorkflowState::focusing));
    workspace::LeaderLock watch(
        workspace::noticesDirectory(workspace::stateDirectory(person.directory(), person.stateHome())));
    ASSERT_TRUE(watch.tryAcquire());
    EXPECT_EQ(presenter->takeSilenceWarning(), "");
}

TEST_F(PresenterOfAPerson, namesTheFieldToCorrect)
{
    opens(stateIn(WorkflowState::blockPlanning));
    fills(presenter->workForm(), "focus", "soon");
    EXPECT_EQ(presenter->save(presenter->workForm()), "focus");
    EXPECT_TRUE(presenter->workForm());
    EXPECT_EQ(person.state().workflowState, WorkflowState::blockPlanning);
}

TEST_F(PresenterOfAPerson, keepsTheDraftOfTheFirstFormWhenASecondIsChanged)
{
    opens(stateIn(WorkflowState::sessionPlanning));
    fills(presenter->workForm(), "outcome", "Headings");
    presenter->openQuestion();
    fills(presenter->openedForm(), "question", "Why?");
    presenter->keepDraft();
    EXPECT_EQ(namesIn(person.stateHome()).size(), 2U);
}

TEST_F(PresenterOfAPerson, reportsAFormThatIsClosedWhileItIsFilledIn)
{
    opens(stateIn(WorkflowState::sessionPlanning));
    const FormSubject subject = presenter->workForm()->subject();
    fills(presenter->workForm(), "outcome", "Headings");
    ASSERT_EQ(person.types({"focus", "--outcome", "Another", "--energy", "4", "--morale", "3"}).code,
              ExitCode::done);
    presenter->refresh();
    EXPECT_EQ(presenter->takeClosedForms(), std::vector<FormSubject>{subject});
    EXPECT_TRUE(presenter->takeClosedForms().empty());
    EXPECT_EQ(presenter->message(), "Changed elsewhere: focus session 1 started. What you wrote is kept.");
}

TEST_F(PresenterOfAPerson, reportsNoFormThatWasNotFilledIn)
{
    opens(stateIn(WorkflowState::sessionPlanning));
    ASSERT_EQ(person.types({"focus", "--outcome", "Another", "--energy", "4", "--morale", "3"}).code,
              ExitCode::done);
    presenter->refresh();
    EXPECT_FALSE(presenter->workForm());
    EXPECT_TRUE(presenter->takeClosedForms().empty());
}

TEST_F(PresenterOfAPerson, waitsForAConfirmationWhereSomethingIsLost)
{
    opens(stateIn(WorkflowState::focusing));
    const Action* const end = actionFor(ActionId::endFocus, presenter->situation());
    presenter->request(*end);
    EXPECT_EQ(presenter->toConfirm(), end);
    presenter->confirm(false);
    EXPECT_EQ(person.state().workflowState, WorkflowState::focusing);
    presenter->request(*end);
    presenter->confirm(true);
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionReview);
}

TEST_F(PresenterOfAPerson, dropsAConfirmationThatIsNoLongerPossible)
{
    opens(stateIn(WorkflowState::focusing));
    presenter->request(*actionFor(ActionId::endFocus, presenter->situation()));
    ASSERT_EQ(person.types({"end"}).code, ExitCode::done);
    presenter->refresh();
    EXPECT_FALSE(presenter->toConfirm());
}

TEST_F(PresenterOfAPerson, closesAnAnswerThatWasGivenElsewhere)
{
    opens(stateIn(WorkflowState::focusing));
    ASSERT_EQ(person.types({"ask", "Which build?"}).code, ExitCode::done);
    presenter->refresh();
    presenter->openAnswer(presenter->state().agentQuestions.at(0));
    ASSERT_TRUE(presenter->openedForm());
    ASSERT_EQ(person.types({"answer", "1", "The other"}).code, ExitCode::done);
    presenter->refresh();
    EXPECT_FALSE(presenter->openedForm());
    EXPECT_TRUE(presenter->message().ends_with("Another program has answered this question."));
}

TEST_F(PresenterOfAPerson, saysWhatWasChangedElsewhere)
{
    opens(stateIn(WorkflowState::focusing));
    ASSERT_EQ(person.types({"pause"}).code, ExitCode::done);
    presenter->refresh();
    EXPECT_EQ(presenter->message(), "Changed elsewhere: focus session 1 paused.");
    ASSERT_EQ(person.types({"resume"}).code, ExitCode::done);
    ASSERT_EQ(person.types({"end"}).code, ExitCode::done);
    presenter->refresh();
    EXPECT_EQ(presenter->message(), "Changed elsewhere: focus session 1 ended early at 15:00.");
}

TEST_F(PresenterOfAPerson, holdsTheYearsOnlyWhileTheyAreWanted)
{
    opens(withEarlierYears(WorkflowState::focusing));
    const auto holds = [this](std::size_t blocks, std::size_t questions) {
        return presenter->state().blockHistory.size() == blocks &&
               presenter->state().agentQuestions.size() == questions;
    };
    EXPECT_TRUE(holds(30, 0));
    presenter->setReach(base::Reach::years);
    EXPECT_TRUE(holds(40, 1));
    presenter->setReach(base::Reach::prompts);
    EXPECT_TRUE(holds(30, 0));
}

TEST_F(PresenterOfAPerson, keepsTheYearsWhenItSaves)
{
    opens(withEarlierYears(WorkflowState::blockReview));
    presenter->save(presenter->workForm());
    EXPECT_EQ(person.state().blockHistory.size(), 41U);
    EXPECT_EQ(person.state().agentQuestions.size(), 1U);
    EXPECT_EQ(presenter->state().blockHistory.size(), 30U);
}

TEST_F(PresenterOfAPerson, keepsTheYearsWhenItGoesBack)
{
    opensWithStateHome(withEarlierYears(WorkflowState::focusing));
    presenter->request(*actionFor(ActionId::pause, presenter->situation()));
    presenter->request(UndoDirection::undo);
    presenter->confirm(true);
    EXPECT_FALSE(person.state().currentSession()->pausedAt);
    EXPECT_EQ(person.state().blockHistory.size(), 40U);
    EXPECT_EQ(presenter->state().blockHistory.size(), 30U);
}

TEST_F(PresenterOfAPerson, saysNothingOfTheBlocksThatANewOnePutsOutOfReach)
{
    opens(withEarlierYears(WorkflowState::blockReview));
    ASSERT_EQ(person.types({"reflect", "--lessons", "None"}).code, ExitCode::done);
    presenter->refresh();
    EXPECT_EQ(presenter->message(), "Changed elsewhere: block finished: Chapter one.");
}

TEST_F(PresenterOfAPerson, seesThatAQuestionOfLongAgoWasAnsweredElsewhere)
{
    QuillmereState state = withEarlierYears(WorkflowState::focusing);
    WorkflowEngine().addQuestion(state, "Which build?", moment - 1e6);
    opens(state);
    presenter->openAnswer(presenter->state().agentQuestions.at(0));
    ASSERT_EQ(person.types({"answer", "1", "The other"}).code, ExitCode::done);
    presenter->refresh();
    EXPECT_TRUE(presenter->message().ends_with("Another program has answered this question."))
        << presenter->message();
}

TEST_F(PresenterOfAPerson, doesNotSayAgainWhatItSaidOrDidItself)
{
    opens(stateIn(WorkflowState::focusing));
    presenter->request(*actionFor(ActionId::pause, presenter->situation()));
    ASSERT_EQ(person.typesLater(1, {"ask", "Which build?"}).code, ExitCode::done);
    presenter->refresh();
    ASSERT_EQ(person.types({"resume"}).code, ExitCode::done);
    presenter->refresh();
    EXPECT_EQ(presenter->message(), "Changed elsewhere: focus session 1 resumed.");
}

TEST_F(PresenterOfAPerson, tellsOfAnEventOnce)
{
    opens(stateIn(WorkflowState::focusing));
    person.now = moment + 1'500;
    presenter->refresh();
    EXPECT_EQ(presenter->message(), "The focus session ended at 15:25.");
    EXPECT_TRUE(presenter->takeBell());
    presenter->refresh();
    EXPECT_FALSE(presenter->takeBell());
}

}  // namespace
}  // namespace quillmere::test
