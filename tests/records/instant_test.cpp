#include <quillmere/records/instant.hpp>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>

namespace quillmere {
namespace {

static_assert(!std::is_default_constructible_v<Instant>);
static_assert(!std::is_convertible_v<double, Instant>);
static_assert(!std::is_convertible_v<int, Instant>);
static_assert(!std::is_convertible_v<Instant, double>);
static_assert(!std::is_assignable_v<Instant&, double>);
static_assert(sizeof(Instant) == sizeof(double) && std::is_trivially_copyable_v<Instant>);

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

TEST(Instant, keepsFractionsOfASecond)
{
    EXPECT_EQ(Instant(1794754800.123456).secondsSince1970(), 1794754800.123456);
    EXPECT_EQ(Instant(-0.25).secondsSince1970(), -0.25);
}

TEST(Instant, isMovedByANumberOfSeconds)
{
    EXPECT_EQ(Instant(100) + 20.5, Instant(120.5));
    EXPECT_EQ(Instant(100) - 20.5, Instant(79.5));
    EXPECT_EQ(Instant(100) + -150, Instant(-50));
}

TEST(Instant, isANumberOfSecondsAwayFromAnother)
{
    const auto difference = Instant(120.5) - Instant(100);
    static_assert(std::is_same_v<decltype(difference), const double>);
    EXPECT_EQ(difference, 20.5);
    EXPECT_EQ(Instant(100) - Instant(120.5), -20.5);
}

TEST(Instant, isComparedExactly)
{
    const double next = std::nextafter(1794754800.0, 1e300);
    EXPECT_EQ(Instant(1794754800), Instant(1794754800));
    EXPECT_NE(Instant(1794754800), Instant(next));
    EXPECT_LT(Instant(1794754800), Instant(next));
    EXPECT_GT(Instant(next), Instant(1794754800));
    EXPECT_EQ(Instant(0.0), Instant(-0.0));
}

TEST(Instant, thatIsNotANumberEqualsNothingAndIsOrderedWithNothing)
{
    EXPECT_NE(Instant(notANumber), Instant(notANumber));
    EXPECT_FALSE(Instant(notANumber) < Instant(0));
    EXPECT_FALSE(Instant(notANumber) >= Instant(0));
    EXPECT_EQ(Instant(notANumber) <=> Instant(0), std::partial_ordering::unordered);
}

}  // namespace
}  // namespace quillmere
