// A change that looks at the present alone, compared with the same change of everything.
#include "random_files.hpp"
#include "support/sample_states.hpp"
#include "workspace_of.hpp"

#include <quillmere/engine/workflow_engine.hpp>
#include <quillmere/records/json/coding_error.hpp>

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

TEST(ChangeOfThePresent, endsAsAChangeOfEverything)
{
    std::mt19937 random(5);
    for (int round = 0; round < 100; ++round) {
        std::string text = textOf(randomState(random, moment));
        for (int changes = 0; changes < round % 3; ++changes) {
            text = changedByHand(text, random);
        }
        const workspace::Operation operation = operations[random() % operations.size()]();
        const Instant now = moment + 60.0 * static_cast<double>(random() % 60);
        if (stateOf(text) || !isState(text)) {
            ASSERT_EQ(endOf(text, operation, Reach::present, now), endOf(text, operation, Reach::years, now))
                << round << '\n'
                << text;
        }
    }
}

}  // namespace
}  // namespace quillmere::test
