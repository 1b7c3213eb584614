// Every display says the same: for random states, saved at one instant and looked at at another, by a clock
// that may have been set forth or back in between. Displays that read the state are compared with those that
// read the summaries as they were saved.
//
// Left out, because the summaries do not tell it ("What a bar cannot know" in docs/bars.md): where the
// agent's summary is missing, how far a paused session has come, since when a session in review is over, and
// when a scheduled block begins.
#include "bar/bar_content.hpp"
#include "notices/said_again.hpp"
#include "notices/standing_events.hpp"
#include "work/situation_view.hpp"

#include <quillmere/engine/transition.hpp>

#include <cstdint>

#include "program_testing.hpp"
#include "proofs/displays/look.hpp"
#include "proofs/displays/saying.hpp"
#include "proofs/support/figures.hpp"
#include "screen/screen.hpp"

namespace quillmere::test {
namespace {

using work::ShortView;
using work::SituationView;
using work::SummarizedWork;

// These take longer than everything else: JSON, and a screen, which is opened on files.
constexpr std::uint64_t looksBetweenJson = 10;
constexpr std::uint64_t looksBetweenScreens = 100;

constexpr std::size_t wide = 200;

Saying sayingOfBar(const SummarizedWork& work, Instant now)
{
    return sayingOf(bar::barContent(ShortView::of(work, now), now, wide));
}

/// What the widget's summary alone tells.
Saying withoutTheUntold(Saying saying, const Look& look)
{
    const WorkflowState saved = look.saved.workflowState;
    if (saying.paused == "paused") {
        saying.share.reset();
    }
    if (saved == WorkflowState::sessionReview) {
        saying.over.reset();
    }
    const bool waits = saved == WorkflowState::idle && look.saved.currentBlock;
    return waits ? Saying() : saying;
}

/// Whether the same steps are possible, in the situation and by the state that follows from the summaries.
bool haveTheSameSteps(const workspace::Situation& situation, const SummarizedWork& work)
{
    if (!work.state) {
        return true;
    }
    const workspace::Situation summarized =
        Look{.saved = *work.state, .savedAt = situation.now, .now = situation.now}.situation();
    for (const auto& row : transition_table::rows) {
        // Answers may be written again, and the summaries have the open questions alone.
        if (row.value != Step::answerQuestion &&
            isPossible(row.value, situation.state) != isPossible(row.value, summarized.state)) {
            return false;
        }
    }
    return true;
}

void expectNoticesOf(const workspace::Situation& situation, const SituationView& view, const Saying& said)
{
    std::vector<notices::StandingEvent> events = notices::standingEvents(situation.state);
    const bool standsWork = !events.empty() && events.front().kind != work::EventKind::questionRaised;
    if (view.overSince) {
        ASSERT_TRUE(standsWork);
        notices::addReminders(events, {0}, view.overSince, situation.now);
        if (events.front().reminder) {
            EXPECT_TRUE(events.front().reminder->heading.ends_with(" since " + *said.over))
                << events.front().reminder->heading;
        }
    }
    if (standsWork && events.front().kind == work::EventKind::focusEnded) {
        EXPECT_EQ(said.phase, "reviewing");
    }
    if (const auto ahead = notices::eventAhead(situation.state, situation.now)) {
        EXPECT_EQ(said.phase, "focusing");
        EXPECT_EQ(said.paused, "");
        EXPECT_EQ(ahead->at, view.timer->end);
    }
}

/// Of a screen that is opened on the files.
void expectScreenOf(const Look& look, const SituationView& view, const Saying& said)
{
    Person person;
    person.now = look.savedAt;
    person.has(look.saved);
    person.now = look.now;
    screen::Screen screen(workspace::Workspace::in(person.directory(), [&] { return person.now; }),
                          work::Drafts(""), std::nullopt, {});
    // Wide enough that the first row is not cut beside the questions that wait.
    screen.resize({.rows = 40, .columns = 120});
    const std::string picture = screen.picture(screen::Charset::unicode).text();
    EXPECT_NE(picture.find(*said.title), std::string::npos) << picture;
    if (view.overSince) {
        EXPECT_NE(picture.find("over since " + *said.over), std::string::npos) << picture;
        EXPECT_EQ(screen.title(), view.timer ? "Break over" : "Quillmere");
    } else if (!view.timer) {
        EXPECT_EQ(screen.title(), "Quillmere");
    } else {
        EXPECT_TRUE(screen.title().starts_with(QuillmereDesign::timeText(view.timer->remainingSeconds) + " " +
                                               *said.title))
            << screen.title();
    }
}

class Displays : public testing::Test {
protected:
    const TimeZone utc{"UTC"};
    std::uint64_t overtimes = 0;
    std::uint64_t pauses = 0;
    std::uint64_t recordedByNobody = 0;

    void expectAllToSayTheSame(const Look& look, std::uint64_t number)
    {
        const workspace::Situation situation = look.situation();
        const SituationView view = SituationView::of(situation);
        const Saying said = sayingOf(view, look.now);
        SCOPED_TRACE("saved " + base::localTextToTheSecond(look.savedAt) + ", now " +
                     base::localTextToTheSecond(look.now) + ", " + testing::PrintToString(said));
        const SummarizedWork one = SummarizedWork::of(look.widget(), std::nullopt);
        const SummarizedWork both = SummarizedWork::of(one.widget, look.agent());
        EXPECT_EQ(both.state.has_value(), look.saved.workflowState != WorkflowState::breaking);
        EXPECT_PRED2(agree, sayingOfStatus(situation), said);
        EXPECT_PRED2(agree, sayingOfAgent(situation), said);
        EXPECT_PRED2(agree, sayingOfBar(both, look.now), said);
        EXPECT_PRED2(agree, sayingOfBar(one, look.now), withoutTheUntold(said, look));
        EXPECT_TRUE(haveTheSameSteps(situation, both));
        expectNoticesOf(situation, view, said);
        if (number % looksBetweenJson == 0) {
            EXPECT_PRED2(agree, sayingOfStatusJson(situation), said);
        }
        if (number % looksBetweenScreens == 0) {
            expectScreenOf(look, view, said);
        }
        overtimes += view.overSince ? 1 : 0;
        pauses += said.paused == "paused" ? 1 : 0;
        recordedByNobody += situation.events.empty() ? 0 : 1;
    }
};

TEST_F(Displays, sayTheSameWheneverTheWorkWasSavedAndIsLookedAt)
{
    RandomLooks looks;
    const std::uint64_t wanted = amount(10'000, 1'000'000);
    std::uint64_t count = 0;
    for (; count < wanted && !HasFailure(); ++count) {
        expectAllToSayTheSame(looks.next(), count);
    }
    // Otherwise the looks show little.
    EXPECT_GT(overtimes, wanted / 50);
    EXPECT_GT(pauses, wanted / 50);
    EXPECT_GT(recordedByNobody, wanted / 50);
    const std::string promise = "Every display says the same";
    reportFigure(promise, "looks at random states", count);
    reportFigure(promise, "of these, once a time was over", overtimes);
    reportFigure(promise, "of these, in a pause", pauses);
    reportFigure(promise, "of these, before anybody recorded what the time did", recordedByNobody);
}

}  // namespace
}  // namespace quillmere::test
