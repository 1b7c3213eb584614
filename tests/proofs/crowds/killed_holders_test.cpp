// Some of the asking processes are killed. A fixed seed chooses which ones, and at which step or after which
// delay.
//
// Some of them kill themselves at a step of their save, so they certainly hold the lock then.
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <cmath>
#include <csignal>
#include <map>
#include <random>

#include "proofs/crowds/asked_questions.hpp"
#include "proofs/crowds/asking_process.hpp"
#include "proofs/crowds/crowd.hpp"
#include "proofs/crowds/shared.hpp"
#include "proofs/kills/leftovers.hpp"
#include "proofs/support/figures.hpp"
#include "proofs/system_calls/three_files.hpp"

namespace quillmere::test {
namespace {

/// Whether and how one asking process is killed.
struct Fate {
    enum class Kind { spared, killedInItsSave, killedAtRandom };

    Kind kind;
    int step;          ///< of its save, for each of three files: sync the file, replace, sync the directory
    useconds_t delay;  ///< until it is killed at random
};

constexpr int stepCount = 9;
constexpr int stateIsReplacedAt = 2;

/// Between 0.1 and 100 milliseconds, distributed evenly over the powers of ten.
useconds_t delayFrom(std::mt19937_64& random)
{
    const double share = static_cast<double>(random() >> 11) * 0x1p-53;
    return static_cast<useconds_t>(100 * std::pow(1000, share));
}

Fate fateOf(int asker, std::uint64_t round)
{
    constexpr std::uint64_t seed = 20261121;
    std::mt19937_64 random(seed + mostRounds * static_cast<std::uint64_t>(asker) + round);
    const std::uint64_t draw = random() % 4;
    using Kind = Fate::Kind;
    return {.kind = draw == 0 ? Kind::killedInItsSave : (draw == 1 ? Kind::killedAtRandom : Kind::spared),
            .step = 1 + static_cast<int>(random() % stepCount),
            .delay = delayFrom(random)};
}

/// Asks, and kills the process if its fate says so. Repeats both while the directory is locked.
int askWithFate(const std::filesystem::path& directory, const std::string& question, const Fate& fate)
{
    if (fate.kind == Fate::Kind::spared) {
        return ask(directory, question);
    }
    if (fate.kind == Fate::Kind::killedInItsSave) {
        const Preloaded library(QUILLMERE_DYING_IN_A_SAVE, "QUILLMERE_TEST_STEP", std::to_string(fate.step));
        return ask(directory, question);
    }
    Process process = startAsking(directory, question);
    ::usleep(fate.delay);
    process.send(SIGKILL);
    return process.wait().code;
}

/// The result of asking one question.
struct Outcome {
    int asker;
    std::uint64_t round;
    Fate fate;
    int code;
    int found;  ///< occurrences of the question in the state
};

struct Aftermath {
    bool allEndedWell;
    std::vector<Outcome> outcomes;
    std::vector<std::string> leftovers;
    bool nextSucceeds;
    bool nextAgrees;
};

using Codes = std::array<std::array<int, mostRounds>, crowdSize>;

/// Computed once per process.
const Aftermath& aftermath()
{
    static const Aftermath made = [] {
        const ThreeFiles files(Before::noDirectory);
        const Shared<Codes> codes;
        Crowd crowd;
        for (int asker = 0; asker < crowdSize; ++asker) {
            crowd.join([&] {
                for (std::uint64_t round = 0; round < roundCount(); ++round) {
                    (*codes).at(static_cast<std::size_t>(asker)).at(round) =
                        askWithFate(files.directory(), questionOf(asker, round), fateOf(asker, round));
                }
                return 0;
            });
        }
        Aftermath after{.allEndedWell = crowd.allSucceed(),
                        .outcomes = {},
                        .leftovers = files.others(),
                        .nextSucceeds = false,
                        .nextAgrees = false};
        std::map<std::string, int> questions = questionsIn(files.directory());
        for (int asker = 0; asker < crowdSize; ++asker) {
            for (std::uint64_t round = 0; round < roundCount(); ++round) {
                after.outcomes.push_back({.asker = asker,
                                          .round = round,
                                          .fate = fateOf(asker, round),
                                          .code = (*codes).at(static_cast<std::size_t>(asker)).at(round),
                                          .found = questions[questionOf(asker, round)]});
            }
        }
        after.nextSucceeds = ask(files.directory(), "And now?") == isDone;
        after.nextAgrees = files.agree();
        return after;
    }();
    return made;
}

TEST(AKilledLockHolder, losesNobodyElsesQuestion)
{
    EXPECT_TRUE(aftermath().allEndedWell);
    std::uint64_t done = 0;
    for (const Outcome& outcome : aftermath().outcomes) {
        if (outcome.code == isDone) {
            ++done;
            EXPECT_EQ(outcome.found, 1) << questionOf(outcome.asker, outcome.round);
        }
    }
    reportFigure("some of 8 × `quillmere ask` killed", "asked", aftermath().outcomes.size());
    reportFigure("some of 8 × `quillmere ask` killed", "exited with 0, all found once", done);
}

TEST(AKilledLockHolder, hasItsOwnQuestionOnceOrNotAtAll)
{
    std::uint64_t killed = 0;
    for (const Outcome& outcome : aftermath().outcomes) {
        EXPECT_LE(outcome.found, 1) << questionOf(outcome.asker, outcome.round);
        EXPECT_TRUE(outcome.code == isDone || outcome.code == isKilled) << outcome.code;
        killed += outcome.fate.kind == Fate::Kind::killedAtRandom && outcome.code == isKilled ? 1 : 0;
    }
    reportFigure("some of 8 × `quillmere ask` killed", "killed at random moments", killed);
}

TEST(AKilledLockHolder, hasItsQuestionWhenTheStateWasReplaced)
{
    std::uint64_t killed = 0;
    for (const Outcome& outcome : aftermath().outcomes) {
        if (outcome.fate.kind == Fate::Kind::killedInItsSave) {
            ++killed;
            EXPECT_EQ(outcome.code, isKilled);
            EXPECT_EQ(outcome.found, outcome.fate.step > stateIsReplacedAt ? 1 : 0) << outcome.fate.step;
        }
    }
    EXPECT_GE(killed, amount(4, 400));
    reportFigure("some of 8 × `quillmere ask` killed", "killed holding the lock", killed);
}

TEST(AKilledLockHolder, leavesTheLockToTheNext)
{
    EXPECT_TRUE(aftermath().allEndedWell);
    EXPECT_TRUE(aftermath().nextSucceeds);
    EXPECT_TRUE(aftermath().nextAgrees);
}

TEST(AKilledLockHolder, leavesNothingButHiddenFiles)
{
    EXPECT_TRUE(aftermath().allEndedWell);
    EXPECT_TRUE(areHiddenTemporaries(aftermath().leftovers)) << testing::PrintToString(aftermath().leftovers);
}

}  // namespace
}  // namespace quillmere::test
