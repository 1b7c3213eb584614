// What got in the way, counted a second time by tables of what each text says.
#include "figures/answers/distractions.hpp"

#include "figures_testing.hpp"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "generated_history.hpp"
#include "minutes.hpp"

namespace quillmere::test {
namespace {

using figures::Distraction;
using figures::Distractions;
using figures::distractionsOf;
using figures::statistics;

using Texts = std::set<std::string>;

// Of the texts that the generated histories have.
const std::map<std::string, Texts> wordsOfTexts = {
    {"", {}},
    {"Phone", {"phone"}},
    {"phone; the news", {"phone", "news"}},
    {"A colleague's question, again", {"colleague's", "question"}},
    {"News.\nPHONE rang twice", {"news", "phone", "rang", "twice"}},
    {"Mail", {"mail"}},
    {"Lärm auf der Straße", {"lärm", "auf", "der", "strasse"}},
    {"mail, mail, MAIL", {"mail"}},
};
const std::map<std::string, Texts> phrasesOfTexts = {
    {"phone; the news", {"the news"}},
    {"A colleague's question, again", {"a colleague's question"}},
    {"News.\nPHONE rang twice", {"phone rang twice"}},
    {"Lärm auf der Straße", {"lärm auf der strasse"}},
};
const std::map<std::string, Texts> hazardsWith = {{"phone", {"Phone in the drawer", "no phone"}},
                                                  {"mail", {"mail only at noon"}},
                                                  {"news", {"News"}},
                                                  {"lärm", {"LÄRM"}}};

struct Tallied {
    std::int64_t sessions = 0;
    std::int64_t foreseen = 0;
};

std::map<std::string, Tallied> talliedIn(const QuillmereState& state,
                                         const std::map<std::string, Texts>& textsOf)
{
    std::map<std::string, Tallied> tallied;
    for (const Block& block : blocksIn(state)) {
        for (const WorkSession& each : block.sessions) {
            if (each.review && textsOf.contains(each.review->distractions)) {
                for (const std::string& text : textsOf.at(each.review->distractions)) {
                    ++tallied[text].sessions;
                    const auto hazards = hazardsWith.find(text);
                    if (hazards != hazardsWith.end() &&
                        (hazards->second.contains(block.hazards) ||
                         hazards->second.contains(each.plan.hazardsMitigation))) {
                        ++tallied[text].foreseen;
                    }
                }
            }
        }
    }
    return tallied;
}

void expectTallied(const std::vector<Distraction>& distractions,
                   const std::map<std::string, Tallied>& expected)
{
    std::map<std::string, Tallied> found;
    std::int64_t before = 1'000'000;
    for (const Distraction& each : distractions) {
        found[each.text] = {each.sessions, each.foreseen};
        EXPECT_LE(each.sessions, before);
        before = each.sessions;
    }
    EXPECT_EQ(found.size(), distractions.size());
    for (const auto& [text, tallied] : expected) {
        EXPECT_EQ(found[text].sessions, tallied.sessions) << text;
        EXPECT_EQ(found[text].foreseen, tallied.foreseen) << text;
    }
    EXPECT_EQ(found.size(), expected.size());
}

TEST(Distractions, areTheWordsAndPhrasesOfReviewsWithTheirSessions)
{
    const TimeZone here("UTC");
    for (const unsigned seed : seeds) {
        SCOPED_TRACE(seed);
        const QuillmereState state = generatedHistory(seed, moment);
        const Distractions distractions = distractionsOf(statistics(state, {}, day("2026-11-15")));
        expectTallied(distractions.words, talliedIn(state, wordsOfTexts));
        expectTallied(distractions.phrases, talliedIn(state, phrasesOfTexts));
        EXPECT_GT(talliedIn(state, wordsOfTexts)["phone"].foreseen, 0);
        std::string reviewed;  // a letter for each session
        for (const Block& block : blocksIn(state)) {
            for (const WorkSession& each : block.sessions) {
                reviewed += each.review ? (each.review->distractions.empty() ? "c" : "d") : "";
            }
        }
        EXPECT_EQ(distractions.reviewedSessions, std::ssize(reviewed));
        EXPECT_EQ(distractions.disturbedSessions, std::count(reviewed.begin(), reviewed.end(), 'd'));
    }
}

TEST(Distractions, wereForeseenWhereAHazardHasTheWholeWord)
{
    const TimeZone here("UTC");
    QuillmereState state = stateWith({session(moment, 60)});  // disturbed by "Mail"
    state.blockHistory[0].hazards = "The mailbox; e-mails";
    EXPECT_EQ(distractionsOf(statistics(state, {}, day("2026-11-15"))).words.at(0).foreseen, 0);
    state.blockHistory[0].hazards = "The mailbox (mail)";
    EXPECT_EQ(distractionsOf(statistics(state, {}, day("2026-11-15"))).words.at(0).foreseen, 1);
}

TEST(WordsIn, areRunsOfLettersAndDigitsInLowerCase)
{
    using Strings = std::vector<std::string>;
    EXPECT_EQ(figures::wordsIn("It's 9am, 'twas late'"), (Strings{"it's", "9am", "twas", "late"}));
    EXPECT_EQ(figures::wordsIn(" - \n\x01"), Strings{});
    EXPECT_EQ(figures::wordsIn("Ünal-Öz"), (Strings{"ünal", "öz"}));
}

}  // namespace
}  // namespace quillmere::test
