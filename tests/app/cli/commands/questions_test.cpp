// Questions: asked, listed, answered.
#include "program_testing.hpp"

namespace quillmere::test {
namespace {

TEST(Ask, putsQuestionsBehindEachOtherInAnyState)
{
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        SCOPED_TRACE(rawValue(workflowState));
        const Person person;
        person.has(stateIn(workflowState));
        EXPECT_EQ(person.types({"ask", "First?"}).code, ExitCode::done);
        EXPECT_EQ(person.types({"ask", "Second?"}).code, ExitCode::done);
        const QuillmereState state = person.state();
        EXPECT_EQ(state.workflowState, workflowState);
        ASSERT_EQ(state.agentQuestions.size(), 2u);
        EXPECT_EQ(state.agentQuestions[0].question, "First?");
        EXPECT_EQ(state.agentQuestions[1].question, "Second?");
        EXPECT_TRUE(filesAgree(person));
    }
}

constexpr const char* questionsAsTyped[] = {"[urgent]",          "[a,b]", "{}",       "status", "plan",
                                            "-5 degrees?",       "a=b",   " spaces ", "%%",     "\"q\"",
                                            "äöü 漢字 🙂"};

TEST(Ask, keepsTheTextAsItIsTyped)
{
    const Person person;
    for (const char* question : questionsAsTyped) {
        SCOPED_TRACE(question);
        ASSERT_EQ(person.types({"ask", question}).code, ExitCode::done);
        EXPECT_EQ(person.state().agentQuestions.back().question, question);
    }
}

TEST(Ask, takesNoBlankQuestion)
{
    const Person person;
    for (const char* question : {"", " ", "\t\n  "}) {
        const Ending ending = person.types({"ask", question});
        EXPECT_EQ(ending.code, ExitCode::usage);
        EXPECT_EQ(ending.err, "question: A question needs a text. (quillmere ask --help)\n");
    }
    EXPECT_EQ(person.names(), Words{});
}

TEST(Ask, takesAnythingBehindTwoDashes)
{
    const Person person;
    for (const char* question : {"--json", "-h", "--", "--why="}) {
        SCOPED_TRACE(question);
        ASSERT_EQ(person.types({"ask", "--", question}).code, ExitCode::done);
        EXPECT_EQ(person.state().agentQuestions.back().question, question);
    }
}

TEST(Ask, takesOneQuestionAtATime)
{
    const Person person;
    EXPECT_EQ(person.types({"ask"}).code, ExitCode::usage);
    EXPECT_EQ(person.types({"ask", "Which", "one"}).code, ExitCode::usage);
    EXPECT_EQ(person.names(), Words{});
}

/// Three questions, the second of them answered.
Person personWithQuestions()
{
    Person person;
    QuillmereState state = stateIn(WorkflowState::idle);
    for (unsigned number = 1; number <= 3; ++number) {
        state.agentQuestions.push_back({.id = identifier(number),
                                        .question = "Question " + std::to_string(number),
                                        .createdAt = moment,
                                        .answer = std::nullopt,
                                        .answeredAt = std::nullopt});
    }
    state.agentQuestions[1].answer = "Done";
    state.agentQuestions[1].answeredAt = moment;
    person.has(state);
    return person;
}

TEST(Questions, areNumberedAsTheyAreAnswered)
{
    const TimeZone here("UTC");
    const Person person = personWithQuestions();
    EXPECT_EQ(person.types({"questions"}).out,
              "1.  Question 1  (2026-11-15 15:00)\n"
              "2.  Question 3  (2026-11-15 15:00)\n");
    EXPECT_EQ(person.types({"questions", "--all"}).out,
              "1.  " + identifier(1).text() + "  Question 1  (2026-11-15 15:00)\n" + "    " +
                  identifier(2).text() + "  Question 2  (2026-11-15 15:00)\n" + "   = Done\n" + "2.  " +
                  identifier(3).text() + "  Question 3  (2026-11-15 15:00)\n");
}

TEST(Questions, areListedForProgramsAsTheFilesHaveThem)
{
    const Person person = personWithQuestions();
    const std::string all = person.types({"questions", "--all", "--json"}).out;
    EXPECT_EQ(jsonAt("", all), jsonAt("/agent_questions", textOf(person.store().stateURL())));
    const std::string open = person.types({"questions", "--json"}).out;
    EXPECT_EQ(jsonAt("", open), jsonAt("/open_questions", textOf(person.store().agentStateURL())));
}

TEST(Questions, sayWhenThereAreNone)
{
    const Person person;
    EXPECT_EQ(person.types({"questions"}).out, "No question waits.\n");
    EXPECT_EQ(person.types({"questions", "--json"}).out, "[]\n");
}

TEST(Answer, goesToTheOpenQuestionOfThatNumber)
{
    const Person person = personWithQuestions();
    EXPECT_EQ(person.types({"answer", "2", "Yes"}).code, ExitCode::done);
    const QuillmereState state = person.state();
    EXPECT_EQ(state.agentQuestions[2].answer, "Yes");
    EXPECT_EQ(state.agentQuestions[2].answeredAt, moment);
    EXPECT_EQ(state.agentQuestions[0].answer, std::nullopt);
    EXPECT_TRUE(filesAgree(person));
}

TEST(Answer, goesToTheQuestionOfThatIdentifierInEitherCase)
{
    const Person person = personWithQuestions();
    std::string name = identifier(2).text();
    EXPECT_EQ(person.types({"answer", name, "Again"}).code, ExitCode::done);
    EXPECT_EQ(person.state().agentQuestions[1].answer, "Again");
    const Identifier mixed = *Identifier::fromText("AbCdEf01-0000-4000-8000-00000000000a");
    QuillmereState state = person.state();
    state.agentQuestions[0].id = mixed;
    person.has(state);
    EXPECT_EQ(person.types({"answer", "aBcDeF01-0000-4000-8000-00000000000A", "Now"}).code, ExitCode::done);
    EXPECT_EQ(person.state().agentQuestions[0].answer, "Now");
}

TEST(Answer, isGivenAgainByTheNameThatTheListPrints)
{
    const Person person = personWithQuestions();
    QuillmereState state = person.state();
    state.agentQuestions[0].id = *Identifier::fromText("12340000-0000-4000-8000-00000000000A");
    state.agentQuestions[1].id = *Identifier::fromText("ABCD0000-0000-4000-8000-00000000000A");
    state.agentQuestions[2].id = *Identifier::fromText("ABC10000-0000-4000-8000-00000000000A");
    person.has(state);
    const std::string list = person.types({"questions", "--all"}).out;
    EXPECT_NE(list.find("    ABCD  Question 2"), std::string::npos) << list;
    EXPECT_EQ(person.types({"answer", "abcd", "Another"}).code, ExitCode::done);
    EXPECT_EQ(person.state().agentQuestions[1].answer, "Another");
    // A name of digits only is no number.
    EXPECT_EQ(person.types({"answer", "1234", "First"}).code, ExitCode::done);
    EXPECT_EQ(person.state().agentQuestions[0].answer, "First");
}

TEST(Answer, needsANameThatOneQuestionHas)
{
    const Person person = personWithQuestions();
    const Ending ending = person.types({"answer", identifier(1).text().substr(0, 4), "Yes"});
    EXPECT_EQ(ending.code, ExitCode::usage);
    EXPECT_EQ(ending.err, "Several questions begin with \"" + identifier(1).text().substr(0, 4) +
                              "\": " + identifier(1).text() + ", " + identifier(2).text() + ", " +
                              identifier(3).text() + ". Name one of them.\n");
}

TEST(Answer, isRefusedWhenItIsBlank)
{
    const Person person = personWithQuestions();
    const auto before = pictureOf(person.directory());
    for (const Words& words : {Words{"answer", "1"}, Words{"answer", "1", ""}, Words{"answer", "1", " \n"}}) {
        const Ending ending = person.types(words);
        EXPECT_EQ(ending.code, ExitCode::usage);
        EXPECT_EQ(ending.err,
                  "An answer needs a text. quillmere answer QUESTION --dismiss closes a question without "
                  "one.\n");
    }
    EXPECT_EQ(pictureOf(person.directory()), before);
}

TEST(Answer, closesAQuestionWithoutOne)
{
    const Person person = personWithQuestions();
    EXPECT_TRUE(person.types({"answer", "1", "--dismiss"})
                    .out.starts_with("The question is closed without an answer.\n"));
    EXPECT_EQ(person.state().agentQuestions[0].answer, "(closed without an answer)");
    EXPECT_FALSE(person.state().agentQuestions[0].isOpen());
    EXPECT_EQ(person.types({"answer", "2", "Yes", "--dismiss"}).code, ExitCode::usage);
}

TEST(Answer, isAskedForOnATerminal)
{
    Person person = personWithQuestions();
    person.isAsked = true;
    person.answers = "\nYes, at night\n";
    const Ending ending = person.types({"answer", "1"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.err,
              "Question 1\nThe answer An answer needs a text. quillmere answer QUESTION --dismiss closes a "
              "question without one.\nThe answer ");
    EXPECT_EQ(person.state().agentQuestions[0].answer, "Yes, at night");
    person.answers = "\n";
    EXPECT_EQ(person.types({"answer", identifier(2).text()}).err, "Question 2\nThe answer [Done] ");
    EXPECT_EQ(person.state().agentQuestions[1].answer, "Done");
}

TEST(Answer, isRefusedForAnIdentifierThatNobodyHas)
{
    const Person person = personWithQuestions();
    const auto before = pictureOf(person.directory());
    const Ending ending = person.types({"answer", identifier(77).text(), "Yes"});
    EXPECT_EQ(ending.code, ExitCode::refused);
    EXPECT_TRUE(ending.err.starts_with("This action is not available in the current workflow state.\n"));
    EXPECT_EQ(pictureOf(person.directory()), before);
}

TEST(Answer, isRefusedForANumberThatIsNotOnTheList)
{
    const Person person = personWithQuestions();
    const auto before = pictureOf(person.directory());
    for (const char* name : {"0", "3", "-1", "1.", "1 ", "", "one", "0x1", "99999999999999999999999"}) {
        SCOPED_TRACE(name);
        const Ending ending = person.types({"answer", name, "Yes"});
        EXPECT_EQ(ending.code, ExitCode::usage);
        EXPECT_EQ(ending.err,
                  "No question is called \"" + std::string(name) + "\"; see quillmere questions --all.\n");
    }
    EXPECT_EQ(person.types({"answer", "1"}).code, ExitCode::usage);
    EXPECT_EQ(pictureOf(person.directory()), before);
}

}  // namespace
}  // namespace quillmere::test
