// Eight processes ask questions in one directory, each as fast as possible.
#include <gtest/gtest.h>

#include "proofs/crowds/asked_questions.hpp"
#include "proofs/crowds/asking_process.hpp"
#include "proofs/crowds/crowd.hpp"
#include "proofs/crowds/rendezvous.hpp"
#include "proofs/support/figures.hpp"
#include "proofs/system_calls/three_files.hpp"

namespace quillmere::test {
namespace {

using Questions = std::map<std::string, int>;

/// Every question of every asker, with a count of 1.
Questions allQuestions()
{
    Questions all;
    for (int asker = 0; asker < crowdSize; ++asker) {
        for (std::uint64_t round = 0; round < roundCount(); ++round) {
            all[questionOf(asker, round)] = 1;
        }
    }
    return all;
}

/// Lets a crowd ask all questions; returns whether every command succeeded.
bool allAsk(const std::filesystem::path& directory)
{
    Crowd crowd;
    for (int asker = 0; asker < crowdSize; ++asker) {
        crowd.join([&] {
            int failures = 0;
            for (std::uint64_t round = 0; round < roundCount(); ++round) {
                failures += ask(directory, questionOf(asker, round)) == isDone ? 0 : 1;
            }
            return failures > 0 ? 1 : 0;
        });
    }
    return crowd.allSucceed();
}

/// A directory in which a crowd has asked all questions.
class AskedByACrowd {
public:
    AskedByACrowd() : allSucceeded(allAsk(files.directory())) {}

    const ThreeFiles files = ThreeFiles(Before::noDirectory);
    const bool allSucceeded;
};

/// Created once per process.
const AskedByACrowd& asked()
{
    static const AskedByACrowd made;
    return made;
}

TEST(ACrowdOfAskers, losesNoQuestionAndDoublesNone)
{
    EXPECT_TRUE(asked().allSucceeded);
    const Questions found = questionsIn(asked().files.directory());
    EXPECT_EQ(found, allQuestions());
    reportFigure("8 processes × `quillmere ask`", "questions asked", allQuestions().size());
    reportFigure("8 processes × `quillmere ask`", "distinct questions found", found.size());
}

TEST(ACrowdOfAskers, leavesThreeFilesThatAgreeAndNothingElse)
{
    EXPECT_TRUE(asked().allSucceeded);
    EXPECT_TRUE(asked().files.agree());
    EXPECT_EQ(asked().files.others(), std::vector<std::string>{});
}

// In every round of eight, all processes have loaded before the first one saves, so at most one question
// survives.
TEST(ACrowdOfAskers, losesQuestionsWithoutTheLock)
{
    const ThreeFiles files(Before::earlierFile);
    const std::size_t before = questionsIn(files.directory()).size();
    const TemporaryDirectory place;
    const std::filesystem::path file = place.path() / "rendezvous";
    writeText(file, std::string(sizeof(Rendezvous), '\0'));
    {
        const Preloaded library(QUILLMERE_WITHOUT_LOCK, "QUILLMERE_TEST_RENDEZVOUS", file.string());
        EXPECT_TRUE(allAsk(files.directory()));
    }
    const std::size_t found = questionsIn(files.directory()).size() - before;
    EXPECT_LE(found, roundCount());
    EXPECT_GE(found, 1u);
    reportFigure("the same with the lock disabled", "questions lost", allQuestions().size() - found);
}

}  // namespace
}  // namespace quillmere::test
