// Who looks at the present alone sees and does what they would with everything: random files, as they are
// written and with somebody's hand in them, and random operations.
#include <quillmere/engine/workflow_engine.hpp>
#include <quillmere/records/json/coding_error.hpp>

#include "app/workspace/workspace_of.hpp"
#include "proofs/support/figures.hpp"
#include "random_files.hpp"
#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

using base::Reach;

constexpr auto operations = std::to_array<workspace::Operation (*)()>({
    [] { return workspace::Operation(nullptr); },
    [] {
        return workspace::Operation(
            [](QuillmereState& state, Instant now) { WorkflowEngine().pauseFocus(state, now); });
    },
    [] {
        return workspace::Operation(
            [](QuillmereState& state, Instant now) { WorkflowEngine().endFocus(state, now); });
    },
    [] {
        return workspace::Operation(
            [](QuillmereState& state, Instant now) { WorkflowEngine().skipBreak(state, now); });
    },
    [] {
        return workspace::Operation([](QuillmereState& state, Instant now) {
            WorkflowEngine().completeBlockReview(state, sampleReflection(), now);
        });
    },
    [] {
        return workspace::Operation([](QuillmereState& state, Instant now) {
            WorkflowEngine().addQuestion(state, "Which one?", now);
            state.agentQuestions.back().id = identifier(77);
        });
    },
    [] {
        return workspace::Operation([](QuillmereState& state, Instant now) {
            const std::vector<AgentQuestion> open = state.openQuestions();
            const Identifier id = open.empty() ? identifier(1) : open.back().id;
            WorkflowEngine().answerQuestion(state, id, "This one", now);
        });
    },
});

/// How a change of these files ends: what it reports and what it leaves.
std::string endOf(const std::string& text, const workspace::Operation& operation, Reach reach, Instant now)
{
    Person person;
    person.now = now;
    writeText(person.directory() / "state.json", text);
    std::string end;
    const auto report = [&](const std::vector<workspace::Event>& events) {
        end += std::to_string(events.size()) + " events\n";
    };
    try {
        const workspace::Situation situation =
            workspaceOf(person).change(report, operation, {.reach = reach});
        end += textOf(presentOf(situation.state, Reach::present, now)) + situation.warning;
    } catch (const std::exception& error) {
        end += error.what();
    }
    for (const char* const name : {"state.json", "agent-state.json", "widget-snapshot.json"}) {
        const std::filesystem::path file = person.directory() / name;
        end += std::filesystem::exists(file) ? textOf(file) : "none\n";
    }
    const std::string here = person.directory().string();
    for (std::size_t place = end.find(here); place != end.npos; place = end.find(here)) {
        end.erase(place, here.size());
    }
    return end;
}

bool isState(const std::string& text)
{
    try {
        StateStore::decoder().decode<QuillmereState>(Bytes(text));
        return true;
    } catch (const DecodingError&) {
        return false;
    }
}

/// What a display of the present sees in these files; the reason where it sees nothing.
std::string seenIn(const std::string& text, Reach reach, Instant now)
{
    Person person;
    person.now = now;
    writeText(person.directory() / "state.json", text);
    try {
        return textOf(presentOf(workspaceOf(person).look(reach).state, Reach::present, now));
    } catch (const std::exception& error) {
        return error.what();
    }
}

std::string randomText(std::mt19937& random)
{
    std::string text = textOf(randomState(random, moment));
    for (auto changes = random() % 3; changes > 0; --changes) {
        text = changedByHand(text, random);
    }
    return text;
}

TEST(Present, isSeenAndChangedAsWithEverything)
{
    std::mt19937 random(5);
    std::uint64_t states = 0;
    std::uint64_t others = 0;
    const std::uint64_t rounds = amount(60, 100'000);
    for (std::uint64_t round = 0; round < rounds; ++round) {
        const std::string text = randomText(random);
        const workspace::Operation operation = operations[random() % operations.size()]();
        const Instant now = moment + 60.0 * static_cast<double>(random() % 60);
        const bool isOneState = stateOf(text).has_value();
        if (isOneState || !isState(text)) {
            ++(isOneState ? states : others);
            ASSERT_EQ(endOf(text, operation, Reach::present, now), endOf(text, operation, Reach::years, now))
                << round << '\n'
                << text;
        }
        if (isOneState) {
            ASSERT_EQ(seenIn(text, Reach::present, now), seenIn(text, Reach::years, now)) << round << '\n'
                                                                                          << text;
        }
    }
    reportFigure("the present is everything's", "files that are states, looked at and changed", states);
    reportFigure("the present is everything's", "files that are none, with the same refusal", others);
}

}  // namespace
}  // namespace quillmere::test
