// State files that a change must not replace.
#include <gtest/gtest.h>

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

/// A person whose state file is a link to that in another directory.
class LinkedState : public testing::Test {
protected:
    LinkedState()
    {
        other_.has(stateIn(WorkflowState::focusing));
        fs::create_symlink(other_.store().stateURL(), person_.store().stateURL());
    }

    Person other_;
    Person person_;
};

TEST_F(LinkedState, isNotReplacedByAFile)
{
    const std::string before = textOf(other_.store().stateURL());
    EXPECT_EQ(person_.types({"pause"}).code, ExitCode::fileError);
    EXPECT_TRUE(fs::is_symlink(person_.store().stateURL()));
    EXPECT_EQ(textOf(other_.store().stateURL()), before);
    EXPECT_EQ(person_.names(), Words{"state.json"});
}

TEST_F(LinkedState, isNamedWithItsTargetAndTheWayOut)
{
    EXPECT_EQ(person_.types({"pause"}).err,
              person_.store().stateURL().string() + " is a link to " + other_.store().stateURL().string() +
                  ", and a change would replace the link by a file. Use --directory " +
                  other_.directory().string() + ", or make the directory " + person_.directory().string() +
                  " the link instead. Looking works as it is.\n");
}

TEST_F(LinkedState, canBeLookedAt)
{
    EXPECT_EQ(person_.types({"status"}).code, ExitCode::done);
    EXPECT_EQ(jsonAt("/workflow_state", person_.types({"status", "--json"}).out), R"("focusing")");
}

TEST_F(LinkedState, canBeChangedByTheDirectoryAsALink)
{
    const fs::path link = person_.directory() / "link";
    fs::create_directory_symlink(other_.directory(), link);
    EXPECT_EQ(person_.runs({"--directory", link.string(), "pause"}).code, ExitCode::done);
    EXPECT_TRUE(other_.state().currentSession()->pausedAt);
}

TEST(APathThatIsTooLong, leavesNoParents)
{
    const Person person;
    std::string deep;
    while (deep.size() < 4'000) {
        deep += std::string(200, 'n') + "/";
    }
    for (const std::string& rest : {"parent/" + std::string(256, 'n'), deep}) {
        const fs::path path = person.directory() / rest;
        const Ending ending = person.runs({"--directory", path.string(), "ask", "Why?"});
        EXPECT_EQ(ending.code, ExitCode::fileError) << ending.err;
        EXPECT_EQ(person.names(), Words{});
    }
}

}  // namespace
}  // namespace quillmere::test
