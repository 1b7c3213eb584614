// Files that cannot be used: said so, and never touched.
#include "program_testing.hpp"

#include "support/file_system.hpp"

namespace quillmere::test {
namespace {

/// Commands that look, that write, and that would be refused in idle.
const Words allKinds[] = {
    {"status"},          {"history"}, {"questions"}, {"agent"}, {"tick"},         {"ask", "Why?"},
    {"plan", "--start"}, {"cancel"},  {"pause"},     {"end"},   {"break", "end"}, {},
};

void expectEnding(const Person& person, ExitCode code, const std::string& caseName)
{
    const auto before = pictureOf(person.directory());
    for (const Words& words : allKinds) {
        SCOPED_TRACE(testing::PrintToString(words));
        const Ending ending = person.types(words);
        EXPECT_EQ(ending.code, code);
        EXPECT_EQ(ending.out, "");
        EXPECT_NE(ending.err, "");
        Words forPrograms = words;
        forPrograms.push_back("--json");
        const Ending json = person.types(forPrograms);
        EXPECT_EQ(json.code, code);
        EXPECT_EQ(json.out, "");
        EXPECT_EQ(jsonAt("/error/case", json.err), '"' + caseName + '"');
    }
    EXPECT_EQ(pictureOf(person.directory()), before);
}

struct Poison {
    const char* value;
    const char* poisonous;
};

// Each stands once in the file of the state below.
constexpr Poison poisons[] = {
    {"\"cycle_count\" : 3", "\"cycle_count\" : 5000"},
    {"\"cycle_count\" : 3", "\"cycle_count\" : 0"},
    {"\"cycle_count\" : 3", "\"cycle_count\" : -9223372036854775808"},
    {"\"focus_duration_seconds\" : 1500", "\"focus_duration_seconds\" : 1e300"},
    {"\"focus_duration_seconds\" : 1500", "\"focus_duration_seconds\" : 0"},
    {"\"focus_duration_seconds\" : 1500", "\"focus_duration_seconds\" : -1"},
    {"\"break_duration_seconds\" : 300", "\"break_duration_seconds\" : 1e18"},
    {"\"planned_duration_seconds\" : 1500", "\"planned_duration_seconds\" : 1e300"},
    {"\"planned_duration_seconds\" : 1500", "\"planned_duration_seconds\" : -1e300"},
    {"\"accumulated_paused_seconds\" : 0", "\"accumulated_paused_seconds\" : -60"},
    {"\"accumulated_paused_seconds\" : 0", "\"accumulated_paused_seconds\" : 1e18"},
    {"\"break_extension_seconds\" : 0", "\"break_extension_seconds\" : 1e300"},
    {"\"break_extension_seconds\" : 0", "\"break_extension_seconds\" : -1"},
    // Within what timers can count, but the break would end after the last year that a date can have.
    {"\"break_extension_seconds\" : 0", "\"break_extension_seconds\" : 9e11"},
};

TEST(PoisonousState, isRefusedByEveryCommandAndLeftAlone)
{
    for (const WorkflowState workflowState : {WorkflowState::focusing, WorkflowState::breaking}) {
        for (const Poison& poison : poisons) {
            SCOPED_TRACE(poison.poisonous);
            const Person person;
            person.has(stateIn(workflowState));
            writeText(person.store().stateURL(),
                      replaced(textOf(person.store().stateURL()), poison.value, poison.poisonous));
            expectEnding(person, ExitCode::unusableData, "unusableData");
        }
    }
}

TEST(PoisonousState, isOneInItsHistoryToo)
{
    for (const Poison& poison : poisons) {
        if (std::string_view(poison.value).find("extension") != std::string_view::npos) {
            continue;
        }
        SCOPED_TRACE(poison.poisonous);
        const Person person;
        QuillmereState state = stateIn(WorkflowState::idle);
        state.blockHistory = {blockInWork(1, 1)};
        person.has(state);
        writeText(person.store().stateURL(),
                  replaced(textOf(person.store().stateURL()), poison.value, poison.poisonous));
        expectEnding(person, ExitCode::unusableData, "unusableData");
    }
}

TEST(PoisonousState, isOneWhoseSummaryCannotBeWritten)
{
    // The session is far away and its pauses lead beyond the last year that a date can have. The state must
    // not be saved without the summary that belongs to it.
    const Person person;
    QuillmereState state = stateIn(WorkflowState::focusing);
    person.has(state);
    state.currentBlock->sessions.back().startedAt = Instant(253'402'300'000);
    state.currentBlock->sessions.back().accumulatedPausedSeconds = 1e6;
    person.store().save(state);
    const auto before = pictureOf(person.directory());
    for (const Words& words : {Words{"ask", "Why?"}, Words{"pause"}, Words{"ask", "Why?", "--json"}}) {
        EXPECT_EQ(person.types(words).code, ExitCode::unusableData);
    }
    EXPECT_EQ(pictureOf(person.directory()), before);
}

TEST(PoisonousState, isNamedByItsKey)
{
    const Person person;
    person.has(stateIn(WorkflowState::focusing));
    writeText(person.store().stateURL(),
              replaced(textOf(person.store().stateURL()), "\"cycle_count\" : 3", "\"cycle_count\" : 5000"));
    EXPECT_EQ(person.types({"status"}).err,
              "The state cannot be used: current_block.cycle_count is out of bounds. Nothing was changed.\n");
}

TEST(UndecodableState, isRefusedByEveryCommandAndLeftAlone)
{
    const std::string good(StateStore::encoder().encode(fullState()).view());
    for (const std::string& text :
         {std::string(), std::string("spoilt"), std::string("{}"), std::string("[]"), good + good,
          good.substr(0, good.size() / 2), replaced(good, "\"focusing\"", "\"dancing\""),
          std::string(100'000, '['), good + '\0'}) {
        SCOPED_TRACE(text.substr(0, 40));
        const Person person;
        writeText(person.store().stateURL(), text);
        expectEnding(person, ExitCode::unusableData, "unusableData");
    }
}

TEST(UndecodableState, isToldWithThePlaceOfTheFault)
{
    const Person person;
    person.has(fullState());
    writeText(person.store().stateURL(),
              replaced(textOf(person.store().stateURL()), "\"focusing\"", "\"dancing\\u001b[31m\""));
    const std::string message = person.types({"status"}).err;
    EXPECT_EQ(message.substr(0, 41), "The state cannot be used: workflow_state:");
    EXPECT_EQ(message.find('\x1b'), std::string::npos);
}

TEST(UnreadableState, isAFileErrorAndLeftAlone)
{
    const Person directoryInstead;
    std::filesystem::create_directory(directoryInstead.store().stateURL());
    expectEnding(directoryInstead, ExitCode::fileError, "fileError");
    const Person fifo;
    makeFifo(fifo.store().stateURL());
    expectEnding(fifo, ExitCode::fileError, "fileError");
    const Person link;
    std::filesystem::create_symlink("nowhere", link.store().stateURL());
    expectEnding(link, ExitCode::fileError, "fileError");
}

TEST(UnreadableState, isOneThatPermissionsKeepAway)
{
    const UnprivilegedUser user;
    if (!user.isOne()) {
        GTEST_SKIP() << "permissions hold nobody back here";
    }
    const Person person;
    person.has(fullState());
    std::filesystem::permissions(person.store().stateURL(), std::filesystem::perms::none);
    for (const Words& words : allKinds) {
        EXPECT_EQ(person.types(words).code, ExitCode::fileError);
    }
    std::filesystem::permissions(person.store().stateURL(), std::filesystem::perms::owner_all);
    EXPECT_EQ(person.state(), fullState());
}

TEST(UnreadableDirectory, isAFileErrorAndNotAFreshStart)
{
    const UnprivilegedUser user;
    if (!user.isOne()) {
        GTEST_SKIP() << "permissions hold nobody back here";
    }
    const Person person;
    person.has(fullState());
    std::filesystem::permissions(person.directory(), std::filesystem::perms::none);
    for (const Words& words : allKinds) {
        SCOPED_TRACE(testing::PrintToString(words));
        EXPECT_EQ(person.types(words).code, ExitCode::fileError);
    }
    std::filesystem::permissions(person.directory(), std::filesystem::perms::owner_all);
    EXPECT_EQ(person.state(), fullState());
}

TEST(Directory, thatIsAFileIsAFileError)
{
    const Person person;
    const auto file = person.directory() / "file";
    writeText(file, "a diary");
    EXPECT_EQ(person.runs({"--directory", file.string(), "ask", "Why?"}).code, ExitCode::fileError);
    EXPECT_EQ(person.runs({"--directory", (file / "below").string(), "ask", "Why?"}).code,
              ExitCode::fileError);
    EXPECT_EQ(textOf(file), "a diary");
}

TEST(UnwritableSummary, isAFileErrorAfterTheStateWasSaved)
{
    for (const char* name : {"agent-state.json", "widget-snapshot.json"}) {
        SCOPED_TRACE(name);
        const Person person;
        std::filesystem::create_directory(person.directory() / name);
        EXPECT_EQ(person.types({"ask", "Why?"}).code, ExitCode::fileError);
        EXPECT_EQ(person.state().agentQuestions.size(), 1u);
        for (const std::string& left : person.names()) {
            EXPECT_EQ(left.find(".tmp"), std::string::npos);
        }
    }
}

TEST(UnwritableSummary, isNamedAndTheChangeIsSaidToBeSaved)
{
    for (const char* name : {"agent-state.json", "widget-snapshot.json"}) {
        SCOPED_TRACE(name);
        const Person person;
        std::filesystem::create_directory(person.directory() / name);
        EXPECT_EQ(person.types({"ask", "Why?"}).err, "The change itself is saved; " +
                                                         (person.directory() / name).string() +
                                                         " could not be written: Is a directory\n");
    }
}

TEST(UnwritableSummary, leavesTheCommandUndoneAfterATimerRanOut)
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    const auto file = person.directory() / "agent-state.json";
    std::filesystem::remove(file);
    std::filesystem::create_directory(file);
    const Ending ending =
        person.typesLater(2000, {"review", "--completion", "yes", "--next-outcome", "More"});
    EXPECT_EQ(ending.code, ExitCode::fileError);
    EXPECT_EQ(ending.err, "What came about by itself is saved, and no more was done; " + file.string() +
                              " could not be written: Is a directory\n");
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionReview);
}

TEST(UnwritableState, isNotSaidToBeSaved)
{
    const Person person;
    person.has(stateIn(WorkflowState::focusing));
    Ending ending{};
    {
        const FileSizeLimit limit(200);
        ending = person.types({"ask", "Why?"});
    }
    EXPECT_EQ(ending.err.substr(0, 23), "write: File too large: ");
}

TEST(FileError, isToldWithTheCallTheReasonAndThePath)
{
    const Person person;
    const auto file = person.directory() / "file";
    writeText(file, "a diary");
    EXPECT_EQ(person.runs({"--directory", file.string(), "ask", "Why?"}).err,
              "mkdir: File exists: " + file.string() + "\n");
}

TEST(FullDisk, isAFileErrorThatLeavesEveryFileWhole)
{
    const Person person;
    person.has(stateIn(WorkflowState::focusing));
    const auto before = pictureOf(person.directory());
    Ending ending{};
    {
        const FileSizeLimit limit(200);
        ending = person.types({"ask", "Why?"});
    }
    EXPECT_EQ(ending.code, ExitCode::fileError);
    auto after = pictureOf(person.directory());
    EXPECT_EQ(after.size(), before.size());
    EXPECT_EQ(after["state.json"], before.at("state.json"));
    EXPECT_EQ(after["agent-state.json"], before.at("agent-state.json"));
}

}  // namespace
}  // namespace quillmere::test
