#include <quillmere/records/json/coding_error.hpp>

#include <gtest/gtest.h>

namespace quillmere {
namespace {

TEST(CodingError, buildsItsPathFromTheInsideOut)
{
    EncodingError error("it is too large");
    EXPECT_EQ(error.path(), "");
    error.prependKey("energy");
    EXPECT_EQ(error.path(), "energy");
    error.prependKey("plan");
    EXPECT_EQ(error.path(), "plan.energy");
    error.prependIndex(2);
    EXPECT_EQ(error.path(), "[2].plan.energy");
    error.prependKey("sessions");
    EXPECT_EQ(error.path(), "sessions[2].plan.energy");
    error.prependKey("current_block");
    EXPECT_EQ(error.path(), "current_block.sessions[2].plan.energy");
}

TEST(CodingError, namesAnElementOfAListByItsIndexAlone)
{
    EncodingError error("it is too large");
    error.prependIndex(10);
    EXPECT_EQ(error.path(), "[10]");
    error.prependIndex(3);
    EXPECT_EQ(error.path(), "[3][10]");
    error.prependKey("rows");
    EXPECT_EQ(error.path(), "rows[3][10]");
}

TEST(DecodingError, namesThePathTheExpectedAndTheFoundValue)
{
    DecodingError error("a text", "3");
    EXPECT_EQ(error.expected(), "a text");
    EXPECT_EQ(error.found(), "3");
    EXPECT_STREQ(error.what(), "expected a text, found 3");
    error.prependKey("title");
    EXPECT_STREQ(error.what(), "title: expected a text, found 3");
}

TEST(EncodingError, tellsThePlaceAndTheReason)
{
    EncodingError error("it is too large");
    error.prependKey("break_extension_seconds");
    EXPECT_EQ(error.reason(), "it is too large");
    EXPECT_STREQ(error.what(), "break_extension_seconds: cannot be written: it is too large");
}

TEST(CodingErrors, areToldApartAndCaughtTogether)
{
    EXPECT_THROW(throw DecodingError("a", "b"), CodingError);
    EXPECT_THROW(throw EncodingError("a"), CodingError);
    EXPECT_THROW(throw EncodingError("a"), std::exception);
}

}  // namespace
}  // namespace quillmere
