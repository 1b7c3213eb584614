// Files that cannot be used: reported, and left alone.
#include "program_testing.hpp"

#include "support/file_system.hpp"

namespace quillmere::test {
namespace {

/// Commands that read, that write, and that the engine would refuse in idle.
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

TEST(StateOutsideTheLimits, isRefusedByEveryCommandAndLeftAlone)
{
    const Person person;
    person.has(stateIn(WorkflowState::focusing));
    writeText(person.store().stateURL(),
              replaced(textOf(person.store().stateURL()), "\"planned_duration_seconds\" : 1500",
                       "\"planned_duration_seconds\" : 1e300"));
    expectEnding(person, ExitCode::unusableData, "unusableData");
}

TEST(StateOutsideTheLimits, isNamedByItsKey)
{
    const Person person;
    person.has(stateIn(WorkflowState::focusing));
    writeText(person.store().stateURL(),
              replaced(textOf(person.store().stateURL()), "\"cycle_count\" : 3", "\"cycle_count\" : 5000"));
    EXPECT_EQ(person.types({"status"}).err,
              "The state cannot be used: current_block.cycle_count is out of bounds. Nothing was changed; "
              "quillmere restore lists earlier versions.\n");
}

TEST(UndecodableState, isRefusedByEveryCommandAndLeftAlone)
{
    const Person person;
    person.has(fullState());
    const std::string text = textOf(person.store().stateURL());
    writeText(person.store().stateURL(), text.substr(0, text.size() / 2));
    expectEnding(person, ExitCode::unusableData, "unusableData");
}

TEST(UndecodableState, isReportedWithTheKeyAndTheWayOut)
{
    const Person person;
    person.has(fullState());
    writeText(person.store().stateURL(),
              replaced(textOf(person.store().stateURL()), "\"focusing\"", "\"dancing\\u001b[31m\""));
    const std::string message = person.types({"status"}).err;
    EXPECT_NE(message.find(": workflow_state: expected"), std::string::npos) << message;
    EXPECT_TRUE(message.ends_with("Nothing was changed; quillmere restore lists earlier versions.\n"))
        << message;
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

TEST(UnreadableState, isAlsoOneWithoutPermission)
{
    const UnprivilegedUser user;
    if (!user.isOne()) {
        GTEST_SKIP() << "permissions have no effect here";
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

TEST(UnreadableDirectory, isAFileErrorAndNotAnEmptyState)
{
    const UnprivilegedUser user;
    if (!user.isOne()) {
        GTEST_SKIP() << "permissions have no effect here";
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

TEST(FileError, namesTheCallTheReasonAndThePath)
{
    const Person person;
    const auto file = person.directory() / "file";
    writeText(file, "a diary");
    EXPECT_EQ(person.runs({"--directory", file.string(), "ask", "Why?"}).err,
              "mkdir: File exists: " + file.string() + "\n");
}

}  // namespace
}  // namespace quillmere::test
