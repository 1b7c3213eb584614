#include "random_files.hpp"

#include "support/sample_states.hpp"

#include <quillmere/records/json/coding_error.hpp>
#include <quillmere/store/state_store.hpp>

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

namespace quillmere::test {
namespace {

constexpr double day = 86'400;

std::size_t below(std::size_t limit, std::mt19937& random) { return random() % limit; }

std::string randomText(std::mt19937& random)
{
    constexpr std::array<std::string_view, 8> parts = {"draft ", "\"", "\\",     "\n    }",
                                                       "ü",      "\t", "\\\"\\", "\n  ],\n  \"break_e"};
    std::string text;
    for (std::size_t count = below(6, random); count > 0; --count) {
        text += parts[below(parts.size(), random)];
    }
    return text;
}

Block randomBlock(unsigned number, Instant finished, std::mt19937& random)
{
    Block block = blockInWork(number, static_cast<std::int64_t>(below(3, random)));
    block.whyValue = randomText(random);
    block.contextNotes = randomText(random);
    constexpr std::array<double, 8> pauses = {0, 42.5, 0.1, 1e5, 172'800, 123'456.789, 1e-7, 3e10};
    for (WorkSession& session : block.sessions) {
        session.accumulatedPausedSeconds = pauses[below(pauses.size(), random)];
    }
    block.completedAt = below(9, random) == 0 ? std::nullopt : std::optional(finished);
    block.reflection = below(3, random) == 0 ? std::nullopt : std::optional(sampleReflection());
    return block;
}

AgentQuestion randomQuestion(unsigned number, std::mt19937& random)
{
    const bool isOpen = below(4, random) == 0;
    return {.id = identifier(9000 + number),
            .question = randomText(random),
            .createdAt = moment - (below(2, random) == 0 ? 60.0 : day),
            .answer = isOpen ? std::nullopt : std::optional(randomText(random)),
            .answeredAt = isOpen ? std::nullopt : std::optional(moment)};
}

/// Where a line begins; the end of the text is no such place.
std::size_t randomLine(const std::string& text, std::mt19937& random)
{
    const std::size_t lineBreak = text.rfind('\n', below(text.size(), random));
    return lineBreak == text.npos ? 0 : lineBreak + 1;
}

std::string lineAt(const std::string& text, std::size_t begin)
{
    return text.substr(begin, std::min(text.find('\n', begin), text.size() - 1) + 1 - begin);
}

using Change = void (*)(std::string& text, std::mt19937& random);

constexpr auto changes = std::to_array<Change>({
    [](std::string& text, std::mt19937& random) {
        text[below(text.size(), random)] = "\"\\{}[],: \naz0"[below(13, random)];
    },
    [](std::string& text, std::mt19937& random) {
        const std::size_t line = randomLine(text, random);
        text.erase(line, lineAt(text, line).size());
    },
    [](std::string& text, std::mt19937& random) {
        const std::string line = lineAt(text, randomLine(text, random));
        text.insert(randomLine(text, random), line);
    },
    [](std::string& text, std::mt19937& random) { text.insert(randomLine(text, random), "  "); },
    [](std::string& text, std::mt19937& random) {
        const std::size_t line = randomLine(text, random);
        text.erase(line, text.substr(line).starts_with("  ") ? 2 : 0);
    },
    [](std::string& text, std::mt19937& random) {
        text.insert(randomLine(text, random), "\"unknown\" : { \"list\" : [ {\n    },\n    { } ] },\n");
    },
    [](std::string& text, std::mt19937& random) {
        const std::size_t place = text.find('_', below(text.size(), random));
        if (place != text.npos) {
            text.replace(place, 2, 1, static_cast<char>(text[place + 1] - 'a' + 'A'));
        }
    },
    [](std::string& text, std::mt19937& random) {
        const std::size_t place = text.find('e', below(text.size(), random));
        if (place != text.npos) {
            text.replace(place, 1, "\\u0065");
        }
    },
    [](std::string& text, std::mt19937& random) {
        const std::size_t place = text.find('\n', below(text.size(), random));
        if (place != text.npos) {
            text.erase(place, 1);
        }
    },
    [](std::string& text, std::mt19937&) { text += "\n"; },
    [](std::string& text, std::mt19937& random) { text += text.substr(below(text.size(), random)); },
});

}  // namespace

QuillmereState randomState(std::mt19937& random, Instant now)
{
    QuillmereState state =
        stateIn(static_cast<WorkflowState>(below(allCases<WorkflowState>().size(), random)));
    const std::size_t blocks = below(12, random);
    for (unsigned number = 0; number < blocks; ++number) {
        const double age = day * static_cast<double>(number) * static_cast<double>(below(3, random));
        state.blockHistory.push_back(randomBlock(100 + number, now - age, random));
    }
    const std::size_t questions = below(8, random);
    for (unsigned number = 0; number < questions; ++number) {
        state.agentQuestions.push_back(randomQuestion(number, random));
    }
    return state;
}

std::string textOf(const QuillmereState& state)
{
    return std::string(StateStore::encoder().encode(state).view());
}

std::optional<QuillmereState> stateOf(const std::string& text)
{
    try {
        QuillmereState state = StateStore::decoder().decode<QuillmereState>(Bytes(text));
        const bool isOne = state == StateStore::decoder().decode<QuillmereState>(Bytes(text));
        return isOne ? std::optional(std::move(state)) : std::nullopt;
    } catch (const DecodingError&) {
        return std::nullopt;
    }
}

QuillmereState presentOf(QuillmereState state, base::Reach reach, Instant now)
{
    base::keepWithin(reach, state, now);
    return state;
}

std::string changedByHand(std::string text, std::mt19937& random)
{
    if (text.empty()) {
        return text;
    }
    changes[below(changes.size(), random)](text, random);
    return text;
}

}  // namespace quillmere::test
