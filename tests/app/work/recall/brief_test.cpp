#include "work/recall/brief.hpp"

#include <gtest/gtest.h>

namespace quillmere::test {
namespace {

using work::Fact;
using work::Recall;

const Recall beforeASession = {
    {"The block", {{"Outcome", "Chapter one"}, {"Why", "The deadline"}}},
    {"So far", {{"Sessions", "✓ ·"}}},
    {"The last session", {{"Outcome", "Headings"}, {"Result", "Five"}, {"Do better", "Begin earlier"}}},
};

TEST(BriefOf, hasOneFactOfEachPassageFirst)
{
    EXPECT_EQ(work::briefOf(beforeASession, 2),
              (std::vector<Fact>{{"Outcome", "Chapter one"}, {"Sessions", "✓ ·"}}));
}

TEST(BriefOf, hasOfAReviewWhatIsToBeDoneBetter)
{
    EXPECT_EQ(work::briefOf(beforeASession, 3).back(), (Fact{"Do better", "Begin earlier"}));
}

TEST(BriefOf, hasMoreFactsWhereThereIsMoreRoomInTheirOrder)
{
    EXPECT_EQ(work::briefOf(beforeASession, 4), (std::vector<Fact>{{"Outcome", "Chapter one"},
                                                                   {"Why", "The deadline"},
                                                                   {"Sessions", "✓ ·"},
                                                                   {"Do better", "Begin earlier"}}));
    EXPECT_EQ(work::briefOf(beforeASession, 99).size(), 6U);
    EXPECT_TRUE(work::briefOf({}, 3).empty());
}

TEST(BriefOf, hasNoRatings)
{
    EXPECT_EQ(work::briefOf({{"The next session", {{"Energy", "3 of 5"}, {"View", "As a game"}}}}, 1),
              (std::vector<Fact>{{"View", "As a game"}}));
}

TEST(RecallBesideAForm, leavesOutWhatTheFormShowsAnyway)
{
    work::Form form({work::FormKind::plan, "1"});
    form.setReminder("Chapter one");
    form.add({.id = "outcome", .question = "Outcome?", .kind = work::FieldKind::line, .value = "Headings"});
    form.setValue(0, std::string("Five"));
    const Recall recall = work::beside(form, beforeASession);
    EXPECT_EQ(recall[0].facts, (std::vector<Fact>{{"Why", "The deadline"}}));
    EXPECT_EQ(recall[2].facts, (std::vector<Fact>{{"Result", "Five"}, {"Do better", "Begin earlier"}}));
}

TEST(RecallBesideAForm, hasNoPassageWithoutFacts)
{
    work::Form form({work::FormKind::plan, "1"});
    form.setReminder("✓ ·");
    EXPECT_EQ(work::beside(form, beforeASession).size(), 2U);
}

}  // namespace
}  // namespace quillmere::test
