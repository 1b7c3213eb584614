#include <quillmere/records/json/key_conversion.hpp>

#include <gtest/gtest.h>

namespace quillmere::json {
namespace {

TEST(KeyInFile, isTheFieldsNameCutIntoSmallWords)
{
    EXPECT_EQ(snakeCase<"id">.view(), "id");
    EXPECT_EQ(snakeCase<"plannedDurationSeconds">.view(), "planned_duration_seconds");
    EXPECT_EQ(snakeCase<"schemaVersion">.view(), "schema_version");
    EXPECT_EQ(snakeCase<"blockOutcomeId">.view(), "block_outcome_id");
    EXPECT_EQ(snakeCase<"aB">.view(), "a_b");
}

TEST(KeyInFile, isCutBeforeTheLastCapitalOfARunThatASmallLetterFollows)
{
    EXPECT_EQ(snakeCase<"myURLProperty">.view(), "my_url_property");
    EXPECT_EQ(snakeCase<"blockOutcomeID">.view(), "block_outcome_id");
    EXPECT_EQ(snakeCase<"URLOfPage">.view(), "url_of_page");
    EXPECT_EQ(snakeCase<"aURL">.view(), "a_url");
    EXPECT_EQ(snakeCase<"URL">.view(), "url");
}

TEST(KeyInFile, isCutAfterADigitAndNotBeforeOne)
{
    EXPECT_EQ(snakeCase<"version2Text">.view(), "version2_text");
    EXPECT_EQ(snakeCase<"utf8">.view(), "utf8");
}

TEST(KeyInFile, keepsUnderscoresAtBothEnds)
{
    EXPECT_EQ(snakeCase<"_someKey">.view(), "_some_key");
    EXPECT_EQ(snakeCase<"someKey__">.view(), "some_key__");
    EXPECT_EQ(snakeCase<"">.view(), "");
}

TEST(KeyOfField, isTheFilesKeyJoinedAtItsUnderscores)
{
    constexpr struct {
        std::string_view inFile;
        std::string_view ofField;
    } rows[] = {
        {"id", "id"},
        {"current_block", "currentBlock"},
        {"planned_duration_seconds", "plannedDurationSeconds"},
        {"block_outcome_id", "blockOutcomeId"},
        // The first word is unchanged; each later word has a capital and then small letters.
        {"block_outcome_ID", "blockOutcomeId"},
        {"CURRENT_BLOCK", "CURRENTBlock"},
        {"Current_block", "CurrentBlock"},
        {"current_bLOCK", "currentBlock"},
        {"version_2x", "version2x"},
        // Without an underscore nothing changes.
        {"currentBlock", "currentBlock"},
        {"blockOutcomeID", "blockOutcomeID"},
        {"ID", "ID"},
        // Several underscores in a row count as one; those at both ends are kept.
        {"current__block", "currentBlock"},
        {"_id", "_id"},
        {"id_", "id_"},
        {"__current_block_", "__currentBlock_"},
        {"_", "_"},
        {"___", "___"},
        {"", ""},
        // Only ASCII letters change their case.
        {"gr\xC3\xB6sse_\xC3\xA4nderung", "gr\xC3\xB6sse\xC3\xA4nderung"},
    };
    for (const auto& [inFile, ofField] : rows) {
        SCOPED_TRACE(inFile);
        EXPECT_EQ(camelCase(inFile), ofField);
    }
}

TEST(KeyOfField, comesBackFromTheFileUnlessItHasARunOfCapitals)
{
    EXPECT_TRUE(survivesConversion<"id">);
    EXPECT_TRUE(survivesConversion<"blockOutcomeId">);
    EXPECT_TRUE(survivesConversion<"scheduledStartTriggeredAt">);
    EXPECT_FALSE(survivesConversion<"blockOutcomeID">);
    EXPECT_FALSE(survivesConversion<"URL">);
    EXPECT_FALSE(survivesConversion<"some_key">);
}

}  // namespace
}  // namespace quillmere::json
