// The text of a notice.
#include "notices/notice.hpp"

#include "base/text/columns.hpp"

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

using notices::Notice;
using notices::noticeOf;
using notices::StandingEvent;

StandingEvent eventSaying(work::EventKind kind, const std::string& text)
{
    return {.kind = kind, .key = "key", .at = moment, .text = text};
}

std::vector<StandingEvent> questions(std::size_t count)
{
    std::vector<StandingEvent> events;
    for (std::size_t number = 1; number <= count; ++number) {
        events.push_back(eventSaying(work::EventKind::questionRaised, "Question " + std::to_string(number)));
    }
    return events;
}

TEST(NoticeText, namesTheEventAndQuotesItsText)
{
    EXPECT_EQ(noticeOf({eventSaying(work::EventKind::focusEnded, "Five headings")}),
              (Notice{.heading = "Focus is over", .body = "Five headings", .sound = "complete"}));
    EXPECT_EQ(noticeOf({eventSaying(work::EventKind::breakEnded, "The fifth")}),
              (Notice{.heading = "The break is over",
                      .body = "The fifth",
                      .offer = notices::NoticeAction::extendBreak,
                      .sound = "bell"}));
    EXPECT_EQ(
        noticeOf({eventSaying(work::EventKind::blockStarted, "")}),
        (Notice{.heading = "The scheduled block has begun", .body = "", .sound = "alarm-clock-elapsed"}));
    EXPECT_EQ(noticeOf(questions(1)),
              (Notice{.heading = "A question waits", .body = "Question 1", .sound = "message-new-instant"}));
}

TEST(NoticeText, countsSeveralQuestionsAndQuotesThem)
{
    EXPECT_EQ(noticeOf(questions(3)), (Notice{.heading = "3 questions wait",
                                              .body = "Question 1\nQuestion 2\nQuestion 3",
                                              .sound = "message-new-instant"}));
}

TEST(NoticeText, quotesTenQuestionsAndCountsTheRest)
{
    const std::string ten = noticeOf(questions(10)).body;
    EXPECT_EQ(ten.substr(ten.rfind('\n')), "\nQuestion 10");
    const std::string twelve = noticeOf(questions(12)).body;
    EXPECT_EQ(twelve, ten + "\nand 2 more");
}

TEST(NoticeText, isSanitized)
{
    const std::string hostile = "\x1b[31m red\nline\x07 \xE2\x80\xAEturned \xFF";
    EXPECT_EQ(noticeOf({eventSaying(work::EventKind::questionRaised, hostile)}).body,
              "\xEF\xBF\xBD[31m red line\xEF\xBF\xBD \xEF\xBF\xBDturned \xEF\xBF\xBD");
}

TEST(NoticeText, hasNoNoncharacters)
{
    struct Example {
        std::string text;
        std::string expected;
    };
    const std::string replaced = "\xEF\xBF\xBD";
    const Example examples[] = {
        {"a\xEF\xB7\x8F"
         "b",
         "a\xEF\xB7\x8F"
         "b"},  // U+FDCF
        {"a\xEF\xB7\x90"
         "b",
         "a" + replaced + "b"},  // U+FDD0
        {"a\xEF\xB7\xAF"
         "b",
         "a" + replaced + "b"},  // U+FDEF
        {"a\xEF\xB7\xB0"
         "b",
         "a\xEF\xB7\xB0"
         "b"},  // U+FDF0
        {"a\xEF\xBF\xBC"
         "b",
         "a\xEF\xBF\xBC"
         "b"},  // U+FFFC
        {"a\xEF\xBF\xBE"
         "b",
         "a" + replaced + "b"},  // U+FFFE
        {"a\xEF\xBF\xBF"
         "b",
         "a" + replaced + "b"},  // U+FFFF
        {"a\xEE\xBF\xBF"
         "b",
         "a\xEE\xBF\xBF"
         "b"},  // U+EFFF
        {"a\xF0\x9F\xBF\xBE"
         "b",
         "a" + replaced + "b"},  // U+1FFFE
        {"a\xF4\x8F\xBF\xBF"
         "b",
         "a" + replaced + "b"},  // U+10FFFF
        {"a\xF0\x9F\xBF\xBD"
         "b",
         "a\xF0\x9F\xBF\xBD"
         "b"},  // U+1FFFD
        {"a\xF0\x9E\xBF\xBF"
         "b",
         "a\xF0\x9E\xBF\xBF"
         "b"},  // U+1EFFF
    };
    for (const Example& example : examples) {
        EXPECT_EQ(noticeOf({eventSaying(work::EventKind::questionRaised, example.text)}).body,
                  example.expected);
    }
}

TEST(NoticeText, isShort)
{
    const std::string wide =
        noticeOf({eventSaying(work::EventKind::questionRaised, std::string(100'000, 'x'))}).body;
    EXPECT_EQ(base::columnsOf(wide), 200U);
    // A hundred thousand combining characters on one letter take one column.
    std::string tall = "e";
    for (int count = 0; count < 100'000; ++count) {
        tall += "\xCC\x81";
    }
    EXPECT_LE(noticeOf({eventSaying(work::EventKind::questionRaised, tall)}).body.size(), 1'010U);
}

}  // namespace
}  // namespace quillmere::test
