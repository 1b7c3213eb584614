// Reading of instants: the texts that are accepted, and those that are not.
#include <quillmere/records/agent_question.hpp>
#include <quillmere/records/json/json_decoder.hpp>

#include <gtest/gtest.h>

#include "records/coding_helpers.hpp"
#include "support/sample_states.hpp"

namespace quillmere {
namespace {

constexpr double secondsOfMoment = test::moment.secondsSince1970();

std::string questionAskedAt(std::string_view quotedText)
{
    return R"({"id":"9F1C2A4E-0B7D-4C55-8E21-3A6B5D0C7F10","question":"","created_at":)" +
           std::string(quotedText) + "}";
}

TEST(ReadInstant, isUtcOrHasAnOffsetOfHoursAndMinutes)
{
    constexpr struct {
        std::string_view text;
        double seconds;
    } rows[] = {
        {"2026-11-15T15:00:00Z", secondsOfMoment},
        {"2026-11-15T15:00:00+00:00", secondsOfMoment},
        {"2026-11-15T15:00:00-00:00", secondsOfMoment},
        {"2026-11-15T16:00:00+01:00", secondsOfMoment},
        {"2026-11-15T09:30:00-05:30", secondsOfMoment},
        {"2026-11-16T05:00:00+14:00", secondsOfMoment},
        {"2026-11-16T14:59:00+23:59", secondsOfMoment},
        {"2026-11-14T15:01:00-23:59", secondsOfMoment},
        {"2027-01-01T00:30:00+01:00", 1'798'759'800},
        {"2024-02-29T00:00:00Z", 1'709'164'800},
        {"2024-03-01T00:30:00+01:00", 1'709'249'400},
        {"2000-02-29T23:59:59Z", 951'868'799},
        {"1970-01-01T00:00:00Z", 0},
        {"1969-12-31T23:59:59Z", -1},
        {"1970-01-01T00:00:00+00:01", -60},
        {"0000-01-01T00:00:00Z", -62'167'219'200},
        {"0000-02-29T00:00:00Z", -62'162'121'600},
        {"0000-01-01T01:00:00+01:00", -62'167'219'200},
        {"9999-12-31T23:59:59Z", 253'402'300'799},
        {"9999-12-31T22:59:59-01:00", 253'402'300'799},
        // The same text with an escape.
        {R"(2026-11-15\u005415:00:00\u005A)", secondsOfMoment},
    };
    for (const auto& [text, seconds] : rows) {
        SCOPED_TRACE(text);
        const auto question = test::decoded<AgentQuestion>(questionAskedAt('"' + std::string(text) + '"'));
        EXPECT_EQ(question.createdAt, Instant(seconds));
    }
}

constexpr std::string_view noInstants[] = {
    // Another form.
    "",
    "Z",
    "now",
    "1794754800",
    "2026-11-15",
    "15:00:00Z",
    "20261115T150000Z",
    "2026-319T15:00:00Z",
    "2026-W46-7T15:00:00Z",
    "Sun, 15 Nov 2026 15:00:00 GMT",
    "2026/11/15T15:00:00Z",
    "2026-11-15T15.00.00Z",
    "2026-11-15T15:00Z",
    "2026-11-15T15Z",
    "2026-11-15T15:00:00:00Z",
    "2026-11-15 15:00:00Z",
    "2026-11-15t15:00:00Z",
    "2026-11-15T15:00:00z",
    "2026-11-15_15:00:00Z",
    // A fraction of a second.
    "2026-11-15T15:00:00.0Z",
    "2026-11-15T15:00:00.750Z",
    "2026-11-15T15:00:00,5Z",
    "2026-11-15T15:00:00.Z",
    "2026-11-15T15:00:00.5+01:00",
    // No zone, or another one.
    "2026-11-15T15:00:00",
    "2026-11-15T15:00:00 Z",
    "2026-11-15T15:00:00UTC",
    "2026-11-15T15:00:00+01",
    "2026-11-15T15:00:00+0100",
    "2026-11-15T15:00:00+1:00",
    "2026-11-15T15:00:00+01:0",
    "2026-11-15T15:00:00+01:000",
    "2026-11-15T15:00:00+01:00:00",
    "2026-11-15T15:00:00+01:00Z",
    "2026-11-15T15:00:00Z+01:00",
    "2026-11-15T15:00:00ZZ",
    "2026-11-15T15:00:00+24:00",
    "2026-11-15T15:00:00-24:00",
    "2026-11-15T15:00:00+01:60",
    "2026-11-15T15:00:00 01:00",
    "2026-11-15T15:00:00+",
    "2026-11-15T15:00:00\xE2\x88\x92"
    "01:00",
    // No such day or time.
    "2026-02-29T00:00:00Z",
    "2026-02-30T00:00:00Z",
    "1900-02-29T00:00:00Z",
    "2100-02-29T00:00:00Z",
    "2024-02-30T00:00:00Z",
    "2026-04-31T00:00:00Z",
    "2026-06-31T00:00:00Z",
    "2026-09-31T00:00:00Z",
    "2026-11-31T00:00:00Z",
    "2026-01-32T00:00:00Z",
    "2026-11-00T15:00:00Z",
    "2026-00-15T15:00:00Z",
    "2026-13-15T15:00:00Z",
    "2026-11-15T24:00:00Z",
    "2026-11-15T25:00:00Z",
    "2026-11-15T15:60:00Z",
    "2026-11-15T15:00:60Z",
    "2016-12-31T23:59:60Z",
    "2026-11-15T15:00:61Z",
    // Outside the years that can be written, after the offset is subtracted.
    "0000-01-01T00:59:59+01:00",
    "9999-12-31T23:00:00-01:00",
    // Too many digits, too few, or none.
    "02026-11-15T15:00:00Z",
    "12026-11-15T15:00:00Z",
    "+2026-11-15T15:00:00Z",
    "-0001-11-15T15:00:00Z",
    "26-11-15T15:00:00Z",
    "2026-1-15T15:00:00Z",
    "2026-11-5T15:00:00Z",
    "2026-11-15T5:00:00Z",
    "2026-11-15T15:0:00Z",
    "2026-11-15T15:00:0Z",
    "2026-011-15T15:00:00Z",
    "2026-11-15T15:00:000Z",
    "20a6-11-15T15:00:00Z",
    "2026-1b-15T15:00:00Z",
    "2026-11- 5T15:00:00Z",
    "2026-11-15T15:00:-1Z",
    "2026-11-15T15:00:0/Z",
    "2026-11-15T15:00:0:Z",
    "\xD9\xA2"
    "026-11-15T15:00:00Z",
    // Characters before or after it.
    " 2026-11-15T15:00:00Z",
    "2026-11-15T15:00:00Z ",
    R"(2026-11-15T15:00:00Z\n)",
    R"(2026-11-15T15:00:00Z\u0000)",
    R"(2026-11-15T15:00:00\u0000Z)",
    R"(\u00002026-11-15T15:00:00Z)",
    R"(2026-11-15T15:00:0\u0000Z)",
};

TEST(ReadInstant, isInNoOtherForm)
{
    for (const std::string_view text : noInstants) {
        SCOPED_TRACE(text);
        const std::string quoted = '"' + std::string(text) + '"';
        const auto error = test::decodingError<AgentQuestion>(questionAskedAt(quoted));
        ASSERT_TRUE(error);
        EXPECT_EQ(error->path(), "created_at");
        EXPECT_EQ(error->expected(), "an instant such as 2026-01-31T09:15:00Z");
        EXPECT_EQ(error->found(), quoted);
    }
}

TEST(ReadInstant, isNoNumber)
{
    for (const std::string_view number : {"1794754800", "0", "1.5", "-1"}) {
        const auto error = test::decodingError<AgentQuestion>(questionAskedAt(number));
        ASSERT_TRUE(error);
        EXPECT_EQ(error->found(), number);
    }
}

TEST(ReadInstant, hasEveryByteChecked)
{
    const std::string good = "2026-11-15T15:00:00Z";
    for (std::size_t place = 0; place < good.size(); ++place) {
        for (int code = 0x20; code < 0x7F; ++code) {
            std::string text = good;
            text[place] = static_cast<char>(code);
            if (code == '"' || code == '\\') {
                continue;
            }
            const bool keepsKind =
                good[place] >= '0' && good[place] <= '9' ? code >= '0' && code <= '9' : code == good[place];
            const auto error = test::decodingError<AgentQuestion>(questionAskedAt('"' + text + '"'));
            if (!keepsKind) {
                ASSERT_TRUE(error) << text;
            } else if (!error) {
                ASSERT_EQ(test::scalarOf(test::compactText(
                                             test::decoded<AgentQuestion>(questionAskedAt('"' + text + '"'))),
                                         "created_at"),
                          '"' + text + '"');
            }
        }
    }
}

}  // namespace
}  // namespace quillmere
