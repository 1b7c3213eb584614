#include "amendments/limits.hpp"

#include <gtest/gtest.h>

#include "base/limits.hpp"

namespace quillmere::test {
namespace {

TEST(AmendmentLimits, areThoseForPlanningABlock)
{
    EXPECT_EQ(amendments::shortestDuration, base::shortestDuration);
    EXPECT_EQ(amendments::longestDuration, base::longestDuration);
    EXPECT_EQ(amendments::longestSum, base::longestSum);
    EXPECT_EQ(amendments::mostCycles, base::mostCycles);
}

}  // namespace
}  // namespace quillmere::test
