#include "work/amendment_text.hpp"

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

using amendments::lengthsBetween;
using amendments::Refusal;
using amendments::timesBetween;
using work::refusalText;

workspace::Situation at(Instant now) { return {stateWithScheduledBlock(), {}, now}; }

TEST(RefusalText, namesTheTimesToTheSecondThatAreAccepted)
{
    const TimeZone here("UTC");
    EXPECT_EQ(refusalText(Refusal("No.", timesBetween(moment + 0.1, moment + 59.9)), at(moment),
                          base::Hours::twentyFour),
              "No. Possible times: 15:00:01 to 15:00:59.");
    EXPECT_EQ(refusalText(Refusal("No.", timesBetween(moment - 86'400, moment)), at(moment),
                          base::Hours::twentyFour),
              "No. Possible times: 2026-11-14 15:00:00 to 15:00:00.");
}

TEST(RefusalText, namesTheLengths)
{
    EXPECT_EQ(refusalText(Refusal("No.", lengthsBetween(60.5, 3'600.5)), at(moment), base::Hours::twentyFour),
              "No. Possible lengths: 1 min 1 s to 1 h.");
    EXPECT_EQ(refusalText(Refusal("No.", lengthsBetween(0, 5)), at(moment), base::Hours::twentyFour),
              "No. Possible lengths: 1 s to 5 s.");
}

TEST(RefusalText, saysWhereTheWorkStandsAndWhatFitsThere)
{
    const TimeZone here("UTC");
    EXPECT_EQ(refusalText(Refusal("No block has begun.", amendments::PossibleElsewhere()), at(moment),
                          base::Hours::twentyFour),
              "No block has begun: the block is scheduled for 16:00. Possible: start, edit, cancel.");
}

TEST(RefusalText, namesNothingThatCannotBeWritten)
{
    for (const amendments::Possible& none :
         {amendments::Possible(), timesBetween(moment + 0.1, moment + 0.9), lengthsBetween(0, 0.5)}) {
        EXPECT_EQ(refusalText(Refusal("No.", none), at(moment), base::Hours::twentyFour), "No.");
    }
}

}  // namespace
}  // namespace quillmere::test
