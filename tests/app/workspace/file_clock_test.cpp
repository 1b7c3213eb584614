// The clock of the files.
#include "workspace/file_clock.hpp"

#include "base/refusal.hpp"

#include <gtest/gtest.h>
#include <quillmere/records/json/date_text.hpp>

#include <limits>
#include <string>

namespace quillmere::test {
namespace {

constexpr Instant firstSecond{-62'167'219'200};
constexpr Instant endOfYears{253'402'300'800};

std::string refusalAt(Instant reading)
{
    try {
        workspace::fileClock([reading] { return reading; })();
    } catch (const base::Refusal& refusal) {
        EXPECT_EQ(refusal.kind(), base::Refusal::Kind::fileError);
        return refusal.what();
    }
    return "none";
}

TEST(FileClock, hasWholeSecondsOfEveryYearOfTheFiles)
{
    for (const char* const text :
         {"0000-01-01T00:00:00Z", "0999-12-31T23:59:59Z", "1969-12-31T23:59:59Z", "2026-11-15T15:00:00Z",
          "2262-04-11T23:47:16Z", "2262-04-11T23:47:17Z", "9999-12-31T23:59:59Z"}) {
        const Instant instant = json::instantFromDateText(text).value_or(Instant(0));
        EXPECT_EQ(json::dateText(workspace::fileClock([&] { return instant + 0.75; })()), text);
    }
}

TEST(FileClock, refusesAnyOtherYearAndNamesWhatTheClockShows)
{
    EXPECT_EQ(refusalAt(firstSecond), "none");
    EXPECT_EQ(refusalAt(endOfYears - 0.25), "none");
    EXPECT_EQ(
        refusalAt(endOfYears),
        "The clock of this system shows 10000-01-01 00:00:00 UTC, and files have dates of the years 0000 "
        "to 9999 only. Set the clock, then try again.");
    EXPECT_NE(refusalAt(firstSecond - 0.25).find("shows -1-12-31 23:59:59 UTC"), std::string::npos);
}

TEST(FileClock, refusesWhatIsNoDateAtAll)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    for (const double seconds : {1e17, -1e17, 1e300, infinity, -infinity, infinity - infinity}) {
        EXPECT_NE(refusalAt(Instant(seconds)).find("shows no year of a calendar"), std::string::npos)
            << seconds;
    }
    EXPECT_NE(refusalAt(Instant(1e16)).find("shows 316889355-"), std::string::npos);
}

}  // namespace
}  // namespace quillmere::test
