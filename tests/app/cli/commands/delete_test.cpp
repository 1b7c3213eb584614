// A finished block, deleted from the history and from versions.
#include <algorithm>

#include "refusal_testing.hpp"
#include "workspace/state_home.hpp"
#include "workspace/workspace.hpp"

namespace quillmere::test {
namespace {

/// Two finished blocks, 9F1C… and ABCD….
Person personWithTwoBlocks()
{
    Person person;
    QuillmereState state = stateIn(WorkflowState::idle);
    for (const char* const id :
         {"9F1C0000-0000-4000-8000-000000000000", "ABCD0000-0000-4000-8000-000000000000"}) {
        Block block = blockInWork(1, 3);
        block.id = *Identifier::fromText(id);
        block.completedAt = moment;
        state.blockHistory.push_back(block);
    }
    person.has(state);
    return person;
}

Ending confirms(Person& person, const Words& words, const std::string& answers)
{
    person.isAsked = true;
    person.answers = answers;
    return person.types(words);
}

/// Whether any version has the block, whole or compressed.
bool isInVersions(const Person& person, const char* id)
{
    const auto workspace = workspace::Workspace::in(
        person.directory(), [&] { return person.now; }, person.stateHome());
    const std::vector<Identifier> blocks = workspace::blocksInVersions(workspace.versions());
    return std::find(blocks.begin(), blocks.end(), *Identifier::fromText(id)) != blocks.end();
}

constexpr const char* firstBlock = "9F1C0000-0000-4000-8000-000000000000";

TEST(Delete, takesANumberOnATerminalWhereItShowsTheBlock)
{
    const TimeZone here("UTC");
    Person person = personWithTwoBlocks();
    expectRefusal(person, {"delete", "2"},
                  "A number names a block only on a terminal, because it changes with every block that is "
                  "finished. Give the name that quillmere history prints.",
                  ExitCode::usage);
    const Ending beyond = confirms(person, {"delete", "3"}, "yes\n");
    EXPECT_EQ(beyond.err, "The history has no block 3; it has 2 blocks.\n");
    const Ending ending = confirms(person, {"delete", "2"}, "yes\n");
    EXPECT_EQ(ending.err, "Delete the block of 2026-11-15 15:00, 3 sessions: Chapter one? (yes, no) ");
    ASSERT_EQ(person.state().blockHistory.size(), 1u);
    EXPECT_EQ(person.state().blockHistory[0].id.text().substr(0, 4), "9F1C");
}

TEST(Delete, showsANumberedBlockAlsoWhenItWasConfirmed)
{
    const TimeZone here("UTC");
    Person person = personWithTwoBlocks();
    const Ending ending = confirms(person, {"delete", "1", "--yes"}, "no\n");
    EXPECT_EQ(ending.err,
              "This is the block of 2026-11-15 15:00, 3 sessions: Chapter one. Is it meant? (yes, no) "
              "Nothing was changed.\n");
    EXPECT_EQ(person.state().blockHistory.size(), 2u);
}

TEST(Delete, asksAndSaysHowLongVersionsHoldTheBlock)
{
    const TimeZone here("UTC");
    Person person = personWithTwoBlocks();
    EXPECT_EQ(confirms(person, {"delete", "9f1c"}, "no\n").code, ExitCode::refused);
    EXPECT_EQ(person.state().blockHistory.size(), 2u);
    const Ending ending = confirms(person, {"delete", "9f1c"}, "yes\n");
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.err, "Delete the block of 2026-11-15 15:00, 3 sessions: Chapter one? (yes, no) ");
    EXPECT_TRUE(ending.out.starts_with(
        "The block is deleted. Versions hold it for longer: the last ten, and the last one of each of the "
        "thirty "
        "newest days that have any. quillmere delete 9F1C --versions-too removes it there.\n\n"))
        << ending.out;
    ASSERT_EQ(person.state().blockHistory.size(), 1u);
    EXPECT_EQ(person.state().blockHistory[0].id.text().substr(0, 4), "ABCD");
    EXPECT_TRUE(isInVersions(person, firstBlock));
    EXPECT_TRUE(filesAgree(person));
}

TEST(Delete, needsAYesWithoutATerminal)
{
    const TimeZone here("UTC");
    const Person person = personWithTwoBlocks();
    expectRefusal(
        person, {"delete", "9F1C"},
        "There is no terminal to confirm on: say --yes. The question is: Delete the block of 2026-11-15 "
        "15:00, 3 sessions: Chapter one?",
        ExitCode::usage);
    EXPECT_EQ(person.types({"--json", "delete", "9F1C", "--yes"}).code, ExitCode::done);
    EXPECT_EQ(person.state().blockHistory.size(), 1u);
}

TEST(Delete, removesTheBlockFromEveryVersionToo)
{
    Person person = personWithTwoBlocks();
    for (int question = 0; question < 3; ++question) {
        person.typesLater(60, {"ask", "What now?"});
        person.types({"answer", "1", "Nothing"});
    }
    const auto workspace = workspace::Workspace::in(
        person.directory(), [&] { return person.now; }, person.stateHome());
    workspace.compressVersion();
    const std::size_t versions = workspace.versions().list().size();
    ASSERT_TRUE(isInVersions(person, firstBlock));
    const Ending ending = person.types({"delete", "9F1C", "--yes", "--versions-too"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_TRUE(ending.out.starts_with(
        "The block is deleted. Versions without it now: " + std::to_string(versions + 1) +
        "; deleted, because it was in work there: 0.\n\n"))
        << ending.out;
    EXPECT_FALSE(isInVersions(person, firstBlock));
    EXPECT_TRUE(isInVersions(person, "ABCD0000-0000-4000-8000-000000000000"));
    EXPECT_EQ(workspace.versions().list().size(), versions + 1);
}

TEST(Delete, deletesTheVersionsInWhichTheBlockWasInWork)
{
    Person person;
    person.has(stateIn(WorkflowState::blockReview));
    const std::string id = person.state().currentBlock->id.text();
    person.typesLater(60, {"reflect"});
    ASSERT_TRUE(isInVersions(person, id.c_str()));
    const Ending ending = person.types({"delete", id, "--yes", "--versions-too"});
    EXPECT_TRUE(
        ending.out.starts_with("The block is deleted. Versions without it now: 1; deleted, because it was "
                               "in work there: 1.\n\n"))
        << ending.out;
    EXPECT_FALSE(isInVersions(person, id.c_str()));
}

TEST(Delete, reachesABlockThatOnlyVersionsHold)
{
    const Person person = personWithTwoBlocks();
    person.types({"delete", "9F1C", "--yes"});
    const Ending ending = person.types({"--json", "delete", "9f1c", "--versions-too", "--yes"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(jsonAt("/done", ending.out),
              R"("Versions without it now: 1; deleted, because it was in work there: 0.")");
    EXPECT_FALSE(isInVersions(person, firstBlock));
    expectRefusal(person, {"delete", "9F1C", "--versions-too", "--yes"},
                  "No block is called \"9F1C\"; see quillmere history.", ExitCode::usage);
}

TEST(Delete, leavesTheVersionsUnlessAsked)
{
    const Person person = personWithTwoBlocks();
    person.types({"delete", "9F1C", "--yes"});
    expectRefusal(person, {"delete", "9F1C", "--yes"}, "No block is called \"9F1C\"; see quillmere history.",
                  ExitCode::usage);
    EXPECT_TRUE(isInVersions(person, firstBlock));
}

TEST(Delete, asksBeforeItRemovesABlockFromVersionsAlone)
{
    const Person person = personWithTwoBlocks();
    person.types({"delete", "9F1C", "--yes"});
    expectRefusal(person, {"delete", "9F1C", "--versions-too"},
                  "There is no terminal to confirm on: say --yes. The question is: Remove block " +
                      std::string(firstBlock) + " from the versions?",
                  ExitCode::usage);
    EXPECT_TRUE(isInVersions(person, firstBlock));
}

TEST(Delete, removesNoneOfSeveralBlocksOfThatNameFromVersions)
{
    const Person person;
    QuillmereState state = stateIn(WorkflowState::idle);
    for (const char* const id : {firstBlock, "9F1C1000-0000-4000-8000-000000000000"}) {
        state.blockHistory.push_back(blockInWork(1, 3));
        state.blockHistory.back().id = *Identifier::fromText(id);
    }
    person.has(state);
    for (const char* const name : {"9F1C0", "9F1C1"}) {
        EXPECT_EQ(person.types({"delete", name, "--yes"}).code, ExitCode::done);
    }
    expectRefusal(person, {"delete", "9F1C", "--versions-too", "--yes"},
                  "No block is called \"9F1C\"; see quillmere history.", ExitCode::usage);
    EXPECT_TRUE(isInVersions(person, firstBlock));
}

TEST(Delete, namesTheVersionThatCannotBeRead)
{
    const Person person = personWithTwoBlocks();
    person.types({"ask", "What now?"});
    const auto versions = workspace::stateDirectory(person.directory(), person.stateHome()) / "versions";
    for (const std::string& name : namesIn(versions)) {
        writeText(versions / name, "spoilt");
    }
    EXPECT_NE(person.types({"delete", "9F1C", "--yes", "--versions-too"})
                  .out.find("Version 1 cannot be read and may still hold it."),
              std::string::npos);
}

TEST(Delete, leavesTheCurrentBlock)
{
    const Person person;
    person.has(stateIn(WorkflowState::breaking));
    expectRefusal(person, {"delete", person.state().currentBlock->id.text()},
                  "This block is not finished, so that it cannot be deleted: the break runs until 15:05. "
                  "Possible: break end, break extend, finish, change.");
}

TEST(Delete, refusesANameThatNoBlockHas)
{
    const Person person = personWithTwoBlocks();
    expectRefusal(person, {"delete", "EEEE", "--yes"}, "No block is called \"EEEE\"; see quillmere history.",
                  ExitCode::usage);
    expectRefusal(person, {"delete", "9F1C.1", "--yes"},
                  "No block is called \"9F1C.1\"; see quillmere history.", ExitCode::usage);
}

}  // namespace
}  // namespace quillmere::test
