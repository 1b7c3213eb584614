#include "work/naming.hpp"

#include "base/refusal.hpp"

#include <gtest/gtest.h>

#include <functional>

#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

Identifier idOf(const std::string& start)
{
    const std::string rest = "00000000-0000-4000-8000-000000000000";
    return *Identifier::fromText(start + rest.substr(start.size()));
}

/// Finished blocks, the first one with three sessions, and a current one with one session.
QuillmereState stateOfBlocks()
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.currentBlock->id = idOf("C001");
    for (const char* const start : {"9F1C2A", "9F1C3", "ABCD"}) {
        state.blockHistory.push_back(blockInWork(1, 3));
        state.blockHistory.back().id = idOf(start);
    }
    return state;
}

std::string messageOf(const std::function<void()>& call)
{
    try {
        call();
    } catch (const base::Refusal& refusal) {
        EXPECT_EQ(refusal.kind(), base::Refusal::Kind::invalidRequest);
        return refusal.what();
    }
    ADD_FAILURE() << "nothing was refused";
    return {};
}

TEST(ShortName, hasFourCharactersAndMoreWhereTheyAreAmbiguous)
{
    const QuillmereState state = stateOfBlocks();
    EXPECT_EQ(work::shortName(idOf("ABCD"), state), "ABCD");
    EXPECT_EQ(work::shortName(idOf("C001"), state), "C001");
    EXPECT_EQ(work::shortName(idOf("9F1C2A"), state), "9F1C2");
    EXPECT_EQ(work::shortName(idOf("9F1C3"), state), "9F1C3");
}

TEST(BlockNamed, findsABlockByTheStartOfItsIdentifierInEitherCase)
{
    const QuillmereState state = stateOfBlocks();
    for (const char* const name : {"ABCD", "abcd0", "AbCd0000-0000-4000-8000-000000000000"}) {
        EXPECT_EQ(work::blockNamed(name, state).id, idOf("ABCD"));
    }
    EXPECT_EQ(work::blockNamed("c001", state).id, idOf("C001"));
}

TEST(BlockNamed, refusesANameThatIsNotOfOneBlock)
{
    const QuillmereState state = stateOfBlocks();
    EXPECT_EQ(messageOf([&] { work::blockNamed("9F1C", state); }),
              "Several blocks begin with \"9F1C\": 9F1C2, 9F1C3. Name one of them.");
    EXPECT_EQ(messageOf([&] { work::blockNamed("EEEE", state); }),
              "No block is called \"EEEE\"; see quillmere history.");
    EXPECT_EQ(
        messageOf([&] { work::blockNamed("ABC", state); }),
        "\"ABC\" is too short for the name of a block: give at least four characters, as quillmere history "
        "prints them.");
}

TEST(Named, findsASessionByItsPlaceInTheBlock)
{
    const QuillmereState state = stateOfBlocks();
    const work::Named session = work::named("abcd.2", state);
    EXPECT_EQ(&session.block, &state.blockHistory[2]);
    EXPECT_EQ(session.session, &state.blockHistory[2].sessions[1]);
    EXPECT_EQ(work::named("ABCD", state).session, nullptr);
    EXPECT_EQ(work::named(".1", state).session, &state.currentBlock->sessions[0]);
}

TEST(Named, refusesASessionThatTheBlockDoesNotHave)
{
    QuillmereState state = stateOfBlocks();
    for (const std::string number : {"0", "4", "", "two", "1x", "-1", "99999999999999999999"}) {
        EXPECT_EQ(messageOf([&] { work::named("ABCD." + number, state); }),
                  "The block has no session \"" + number + "\"; it has 3 sessions.");
    }
    state.currentBlock.reset();
    EXPECT_EQ(messageOf([&] { work::named(".1", state); }),
              "There is no block at hand. quillmere history prints the names of finished blocks.");
}

}  // namespace
}  // namespace quillmere::test
