// Readers beside two writers that do not coordinate.
//
// Without a lock the state and the summaries may be of different versions, but each file is whole.
#include "proofs/crowds/writers_and_readers.hpp"

#include <gtest/gtest.h>

#include "proofs/support/figures.hpp"

namespace quillmere::test {
namespace {

using Names = std::vector<std::string>;

/// Computed once per process.
const Findings& findings()
{
    static const Findings found = findingsOf(amount(250, 100'000), amount(2'500, 1'000'000));
    return found;
}

TEST(ReadersBesideWriters, canReadEveryFile)
{
    EXPECT_TRUE(findings().allEndedWell);
    EXPECT_EQ(findings().unreadable, 0u);
    reportFigure("2 writers beside 8 readers", "saves of all three files", findings().saves);
    reportFigure("2 writers beside 8 readers", "loads of one file", findings().loads);
    reportFigure("2 writers beside 8 readers", "loads that threw", findings().unreadable);
}

TEST(ReadersBesideWriters, findEveryFileOfOneVersion)
{
    EXPECT_TRUE(findings().allEndedWell);
    EXPECT_EQ(findings().mixed, 0u);
    reportFigure("2 writers beside 8 readers", "loads of mixed versions", findings().mixed);
}

TEST(ReadersBesideWriters, missNoFileOnceItWasSaved)
{
    EXPECT_TRUE(findings().allEndedWell);
    EXPECT_EQ(findings().missing, 0u);
    reportFigure("2 writers beside 8 readers", "loads of a missing file", findings().missing);
}

TEST(ReadersBesideWriters, neverSeeAnEarlierVersionOfTheSameWriterAgain)
{
    EXPECT_TRUE(findings().allEndedWell);
    EXPECT_EQ(findings().backwards, 0u);
}

TEST(WritersWithoutALock, leaveTheThreeFilesAlone)
{
    EXPECT_TRUE(findings().allEndedWell);
    EXPECT_EQ(findings().names, (Names{"agent-state.json", "state.json", "widget-snapshot.json"}));
}

}  // namespace
}  // namespace quillmere::test
