#include <quillmere/records/base/fatal_error.hpp>

#include <gtest/gtest.h>

#include <csignal>

namespace quillmere {
namespace {

TEST(FatalErrorDeathTest, writesItsMessageToStandardErrorAndAborts)
{
    EXPECT_EXIT(fatalError("the clock runs backwards"), testing::KilledBySignal(SIGABRT),
                "^the clock runs backwards\n$");
}

TEST(FatalErrorDeathTest, cannotBeCaught)
{
    EXPECT_EXIT(
        try { fatalError("stop"); } catch (...){}, testing::KilledBySignal(SIGABRT), "stop");
}

}  // namespace
}  // namespace quillmere
